#pragma once

#include <moxcore/utility/IntrusivePtr.h>
#include <moxui/ui/InputCapture.h>

namespace moxui::ui {
class UI_Node;
struct TreeState;
}  // namespace moxui::ui

namespace moxui::passes {

/// Begins a capture; one that runs is cancelled first.
void BeginCapture(ui::TreeState& state, moxcore::utility::IntrusivePtr<ui::InputCapture> capture);
/// Ends the running capture by End or Cancel.
void EndCapture(ui::TreeState& state, bool cancelled);
/// The capture is taken away: it is cancelled, then its node and those above hear of a lost focus (reason 5).
void LoseCapture(ui::TreeState& state);

/// A node has been hidden, disabled or is about to be taken out: focus, hover and capture in its subtree end.
void EndInputIn(ui::TreeState& state, ui::UI_Node& node);

}  // namespace moxui::passes
