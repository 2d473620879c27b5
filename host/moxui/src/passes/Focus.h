#pragma once

#include <moxui/ui/FocusChangeReason.h>

namespace moxui::ui {
class UI_Node;
struct TreeState;
}  // namespace moxui::ui

namespace moxui::passes {

/// Makes a node of the tree (or none) the focus leaf. Tells the losing end first, each end's leaf and its
/// ancestors below the one that both share. While the window isn't active nobody is told until it is.
bool SetFocus(ui::TreeState& state, ui::UI_Node* node, ui::FocusChangeReason reason);
/// Gives the focus up if the leaf is this node or below it.
void LoseFocusIn(ui::TreeState& state, ui::UI_Node const& node);
void SetActive(ui::TreeState& state, bool active);
bool MoveFocus(ui::TreeState& state, bool backward);
/// Calls UI_FocusChanged on a node and its ancestors up to, but without, `end` (null: all).
void TellFocusChange(ui::UI_Node* node, ui::UI_Node const* end, ui::FocusChangeReason reason);
/// A press where nothing wants the focus gives it up.
void BlurForPress(ui::TreeState& state, ui::UI_Node const* target);

}  // namespace moxui::passes
