#pragma once

#include <moxui/ui/MouseEvent.h>

namespace moxui::ui {
struct PointerInput;
struct PointerState;
struct TreeState;
}  // namespace moxui::ui

namespace moxui::passes {

/// The button that a move tells of: left before right before middle.
ui::MouseButton HeldButton(ui::MouseButtons buttons);
/// Takes a pointer input into the state: place, buttons, clicks. Gives the event's click count.
int NotePointerInput(ui::TreeState& state, ui::PointerInput const& input);
/// Where the last press was, in the tree's coordinates.
PointT<float> GetPressPosition(ui::PointerState const& pointer);

}  // namespace moxui::passes
