#pragma once

#include <moxui/ui/MouseEvent.h>

namespace moxui::ui {
struct PointerInput;
struct TreeState;
}  // namespace moxui::ui

namespace moxui::passes {

/// The button that a move tells of: left before right before middle.
ui::MouseButton HeldButton(ui::MouseButtons buttons);
/// Takes a pointer input into the state: place, buttons, clicks. Gives the event's click count.
int NotePointerInput(ui::TreeState& state, ui::PointerInput const& input);

}  // namespace moxui::passes
