#pragma once

#include <moxcore/utility/IntrusivePtr.h>

namespace moxui::ui {
class UI_Node;
struct TreeState;
}  // namespace moxui::ui

namespace moxui::passes {

/// The deepest node under the pointer; null for none.
moxcore::utility::IntrusivePtr<ui::UI_Node> HoveredNode(ui::TreeState const& state);
/// Whether the pointer is over a node (exactly) or over what is below it too.
bool IsHovered(ui::TreeState const& state, ui::UI_Node const* node, bool exactly);
/// Finds out what the pointer is over and tells who was left (innermost first) and entered (outermost first).
/// Nothing is told while a capture or a held press has the pointer.
void UpdateHover(ui::TreeState& state);
/// Ends the hover of a node and of what is below it: it counts at once, they are told by FlushHoverLeaves.
void EndHoverIn(ui::TreeState& state, ui::UI_Node const& node);
void FlushHoverLeaves(ui::TreeState& state);
/// Sets the cursor for where the pointer is.
void UpdateCursor(ui::TreeState& state);

}  // namespace moxui::passes
