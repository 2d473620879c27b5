#pragma once

#include <moxui/geometry/ExtentT.h>
#include <moxui/geometry/RectT.h>

namespace moxui::ui {
class UI_Node;
struct TreeState;
}  // namespace moxui::ui

namespace moxui::passes {

/// Where a child with a binding goes when its parent's extent changes.
RectT<float> BoundRect(RectT<float> const& child, unsigned bindings, ExtentT<float> before,
                       ExtentT<float> after);
/// Has the node laid out before the next frame.
void QueueLayout(ui::TreeState& state, ui::UI_Node& node);
/// Lays out what waits, parents before children.
void RunLayout(ui::TreeState& state);

}  // namespace moxui::passes
