#include "Hover.h"

#include "../ui/TreeState.h"
#include "HitTest.h"
#include "PointerFacts.h"
#include "ToolTip.h"

#include <moxui/ui/NodeTreeHost.h>

#include <algorithm>
#include <iterator>
#include <ranges>
#include <utility>

namespace moxui::passes {

using ui::NodePtr;
using ui::UI_Node;

namespace {

void TellHover(ui::TreeState const& state, UI_Node& node, ui::PointerAction action) {
  bool const over = action != ui::PointerAction::kLeave;
  if (node.UI_InvalidateOnMouseOverChange(over)) {
    node.UI_Invalidate();
  }
  ui::MouseEvent const event(action, HeldButton(state.pointer.buttons), 0,
                             ToNode(node, state.pointer.position), state.pointer.modKeys,
                             state.pointer.subType);
  node.UI_DoPointerEvent(&node, event);
}

bool PointerIsHeld(ui::TreeState const& state) {
  return state.pointer.capture != nullptr || state.pointer.pressTarget.has_value();
}

void SetChain(ui::TreeState& state, std::vector<ui::WeakNode> chain) {
  auto const old = std::exchange(state.hover.chain, chain);
  std::size_t shared = 0;
  while (shared < old.size() && shared < chain.size() && old[shared] == chain[shared]) {
    ++shared;
  }
  if (old.size() == shared && chain.size() == shared) {
    return;
  }
  for (std::size_t i = old.size(); i > shared; --i) {
    if (NodePtr const node = old[i - 1].Lock()) {
      TellHover(state, *node, ui::PointerAction::kLeave);
    }
  }
  for (std::size_t i = shared; i < chain.size(); ++i) {
    NodePtr const node = chain[i].Lock();
    // A handler before may have moved things: who is no longer hovered isn't entered.
    if (node && state.Owns(*node) && IsHovered(state, node.Get(), false)) {
      TellHover(state, *node, ui::PointerAction::kEnter);
    }
  }
  UpdateToolTip(state);
}

}  // namespace

NodePtr HoveredNode(ui::TreeState const& state) {
  auto const& chain = state.hover.chain;
  return chain.empty() ? nullptr : chain.back().Lock();
}

bool IsHovered(ui::TreeState const& state, UI_Node const* node, bool exactly) {
  NodePtr const hovered = HoveredNode(state);
  return hovered && (exactly ? hovered.Get() == node : hovered->UI_IsSelfOrDescendantOf(node));
}

void UpdateHover(ui::TreeState& state) {
  FlushHoverLeaves(state);
  if (PointerIsHeld(state)) {
    return;
  }
  state.hover.isStale = false;
  std::vector<ui::WeakNode> chain;
  if (state.pointer.isInside) {
    for (UI_Node* node = FindNodeAt(state, state.pointer.position); node != nullptr;
         node = node->UI_GetParentNode()) {
      chain.emplace_back(node);
    }
    std::ranges::reverse(chain);
  }
  SetChain(state, std::move(chain));
}

void EndHoverIn(ui::TreeState& state, UI_Node const& node) {
  auto& chain = state.hover.chain;
  auto const first =
      std::ranges::find_if(chain, [&](ui::WeakNode const& one) { return one.Lock().Get() == &node; });
  if (first == chain.end()) {
    return;
  }
  auto& leaves = state.hover.pendingLeaves;
  leaves.insert(leaves.end(), chain.rbegin(), std::make_reverse_iterator(first));
  chain.erase(first, chain.end());
  state.hover.isStale = true;
  UpdateToolTip(state);
}

void FlushHoverLeaves(ui::TreeState& state) {
  for (auto const& leave : std::exchange(state.hover.pendingLeaves, {})) {
    if (NodePtr const node = leave.Lock()) {
      TellHover(state, *node, ui::PointerAction::kLeave);
    }
  }
}

void UpdateCursor(ui::TreeState& state) {
  if (!state.pointer.isInside && !PointerIsHeld(state)) {
    return;
  }
  NodePtr target;
  if (state.pointer.capture) {
    target = state.pointer.capture->GetNode();
  } else if (state.pointer.pressTarget) {
    target = state.pointer.pressTarget->Lock();
  } else {
    target = HoveredNode(state);
  }
  if (target && state.Owns(*target)) {
    PointT<float> const point = ToNode(*target, state.pointer.position);
    for (NodePtr node = target; node; node = NodePtr(node->UI_GetParentNode())) {
      if (node->UI_DoCursor(target.Get(), point, 0)) {
        return;
      }
    }
  }
  state.host->ResetCursor();
}

}  // namespace moxui::passes
