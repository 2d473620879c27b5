#pragma once

namespace moxui::ui {
class UI_Node;
struct TreeState;
}  // namespace moxui::ui

namespace moxui::passes {

/// The pointer has moved or hover has changed: another tip's delay begins, the one shown goes with its node.
void UpdateToolTip(ui::TreeState& state);
/// The pointer rests anew: the delay of a tip that isn't shown yet starts again.
void RestartToolTip(ui::TreeState& state);
/// A press, a wheel or a key puts the tip away until the pointer comes to another node.
void DismissToolTip(ui::TreeState& state);
/// A node's tip has another text.
void ToolTipChanged(ui::TreeState& state, ui::UI_Node const& node);
/// Shows the tip whose time has come.
void ShowDueToolTip(ui::TreeState& state, double now);

}  // namespace moxui::passes
