#include "ToolTip.h"

#include "../ui/TreeState.h"
#include "Hover.h"

#include <moxui/ui/NodeTreeHost.h>

namespace moxui::passes {

using ui::NodePtr;
using ui::UI_Node;

namespace {

/// The node under the pointer, or the nearest above it, that has a tip.
NodePtr NodeWithTip(ui::TreeState const& state) {
  for (NodePtr node = HoveredNode(state); node; node = NodePtr(node->UI_GetParentNode())) {
    if (!node->UI_GetToolTip().empty()) {
      return node;
    }
  }
  return nullptr;
}

void HideToolTip(ui::TreeState& state) {
  state.toolTip.due = -1;
  if (state.toolTip.isShown) {
    state.toolTip.isShown = false;
    state.host->ShowToolTip({}, state.pointer.position);
  }
}

}  // namespace

void UpdateToolTip(ui::TreeState& state) {
  NodePtr const node = NodeWithTip(state);
  if (node == state.toolTip.node.Lock()) {
    return;
  }
  HideToolTip(state);
  state.toolTip.node = ui::WeakNode(node);
  if (node) {
    state.toolTip.due = state.host->GetTime() + node->UI_GetToolTipDelay();
  }
  state.ScheduleWakeUp();
}

void RestartToolTip(ui::TreeState& state) {
  if (NodePtr const node = state.toolTip.node.Lock();
      node && !state.toolTip.isShown && state.toolTip.due >= 0) {
    state.toolTip.due = state.host->GetTime() + node->UI_GetToolTipDelay();
    state.ScheduleWakeUp();
  }
}

void DismissToolTip(ui::TreeState& state) {
  HideToolTip(state);
  state.ScheduleWakeUp();
}

void ToolTipChanged(ui::TreeState& state, UI_Node const& node) {
  if (state.toolTip.isShown && state.toolTip.node.Lock().Get() == &node && !node.UI_GetToolTip().empty()) {
    state.host->ShowToolTip(node.UI_GetToolTip(), state.pointer.position);
    return;
  }
  UpdateToolTip(state);
}

void ShowDueToolTip(ui::TreeState& state, double now) {
  if (state.toolTip.due < 0 || state.toolTip.due > now) {
    return;
  }
  state.toolTip.due = -1;
  if (NodePtr const node = state.toolTip.node.Lock(); node && !node->UI_GetToolTip().empty()) {
    state.toolTip.isShown = true;
    state.host->ShowToolTip(node->UI_GetToolTip(), state.pointer.position);
  }
}

}  // namespace moxui::passes
