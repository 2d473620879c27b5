#pragma once

namespace moxui::ui {
class KeyboardEvent;
class UI_Node;
struct PointerInput;
struct TreeState;
}  // namespace moxui::ui

namespace moxui::passes {

/// One pointer input on its way: the capture first; then the target (of a held press, else what lies under
/// the pointer): pre-handlers from the root down, handlers from the target up. True when one of them took it.
bool DispatchPointer(ui::TreeState& state, ui::PointerInput const& input);
/// Pre-handlers from the root to the focus leaf, handlers back up; then Tab moves the focus.
bool DispatchKey(ui::TreeState& state, ui::KeyboardEvent const& event);
/// Releases every button that a platform's loop has swallowed the release of, now or once the running
/// handlers are done.
void ReleaseSwallowedButtons(ui::TreeState& state);

}  // namespace moxui::passes
