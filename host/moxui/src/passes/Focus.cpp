#include "Focus.h"

#include "../ui/NodeAccess.h"
#include "../ui/TreeState.h"

#include <moxui/ui/NodeTreeHost.h>

#include <algorithm>
#include <vector>

namespace moxui::passes {

using ui::FocusChangeReason;
using ui::NodeAccess;
using ui::NodePtr;
using ui::UI_Node;

namespace {

bool IsShownToRoot(UI_Node const& node) {
  for (UI_Node const* up = &node; up != nullptr; up = up->UI_GetParentNode()) {
    if (!up->UI_IsShown()) {
      return false;
    }
  }
  return true;
}

UI_Node const* SharedAncestor(UI_Node const* a, UI_Node const* b) {
  for (UI_Node const* up = a; up != nullptr; up = up->UI_GetParentNode()) {
    if (b != nullptr && b->UI_IsSelfOrDescendantOf(up)) {
      return up;
    }
  }
  return nullptr;
}

/// Who stops traversal below a node, in order: whoever wants the focus and has nobody below that does.
void CollectStops(UI_Node& node, std::vector<UI_Node*>& stops) {
  if (!node.UI_IsShown() || node.UI_IsDisabled()) {
    return;
  }
  std::size_t const before = stops.size();
  if (ui::UI_Container* const container = node.UI_GetContainer()) {
    for (auto const& child : NodeAccess::Children(*container)) {
      CollectStops(*child, stops);
    }
  }
  if (stops.size() == before && node.UI_WantsKeyboardFocus()) {
    stops.push_back(&node);
  }
}

}  // namespace

void TellFocusChange(UI_Node* node, UI_Node const* end, FocusChangeReason reason) {
  std::vector<ui::WeakNode> chain;
  for (UI_Node* up = node; up != nullptr && (up != end || up == node); up = up->UI_GetParentNode()) {
    chain.emplace_back(up);
    if (up == end) {
      break;
    }
  }
  for (auto const& weak : chain) {
    NodePtr const told = weak.Lock();
    if (!told) {
      continue;
    }
    told->UI_FocusChanged(reason);
    if (auto const* const extras = NodeAccess::Extras(*told)) {
      auto const functions = extras->focusFunctions;
      for (auto const& function : functions) {
        function(told.Get(), reason);
      }
    }
  }
}

bool SetFocus(ui::TreeState& state, UI_Node* node, FocusChangeReason reason) {
  if (node != nullptr && (!state.Owns(*node) || node->UI_IsDisabled() || !IsShownToRoot(*node))) {
    return false;
  }
  NodePtr const before = state.focus.leaf.Lock();
  if (before == node) {
    return true;
  }
  NodePtr const gaining(node);
  state.focus.leaf = ui::WeakNode(node);
  unsigned const generation = ++state.focus.generation;
  if (!state.focus.isActive) {
    state.focus.resumeReason = reason;
    return true;
  }
  UI_Node const* const shared = SharedAncestor(before.Get(), node);
  if (before) {
    TellFocusChange(before.Get(), shared, FocusChangeReason::kLost);
  }
  // Whoever lost it may have given it to another one meanwhile.
  if (gaining && generation == state.focus.generation) {
    TellFocusChange(gaining.Get(), shared, reason);
  }
  state.host->FocusMoved();
  return state.focus.leaf.Lock() == node;
}

void LoseFocusIn(ui::TreeState& state, UI_Node const& node) {
  auto const kept = state.shared_from_this();  // handlers may end the tree
  if (NodePtr const leaf = state.focus.leaf.Lock(); leaf && leaf->UI_IsSelfOrDescendantOf(&node)) {
    SetFocus(state, nullptr, FocusChangeReason::kLost);
  }
}

void SetActive(ui::TreeState& state, bool active) {
  if (state.focus.isActive == active) {
    return;
  }
  state.focus.isActive = active;
  NodePtr const leaf = state.focus.leaf.Lock();
  if (!leaf) {
    return;
  }
  if (active) {
    TellFocusChange(leaf.Get(), nullptr, state.focus.resumeReason);
  } else {
    state.focus.resumeReason = FocusChangeReason::kByCode;
    TellFocusChange(leaf.Get(), nullptr, FocusChangeReason::kDeactivated);
  }
  state.host->FocusMoved();
}

namespace {

void RevealLeaf(ui::TreeState& state) {
  NodePtr const leaf = state.focus.leaf.Lock();
  NodePtr up(leaf ? leaf->UI_GetParentNode() : nullptr);
  while (up) {
    up->UI_RevealDescendant(*leaf);
    up = NodePtr(up->UI_GetParentNode());
  }
}

}  // namespace

bool MoveFocus(ui::TreeState& state, bool backward) {
  if (!state.root) {
    return false;
  }
  std::vector<UI_Node*> stops;
  CollectStops(*state.root, stops);
  if (stops.empty()) {
    return false;
  }
  // The leaf may lie below the stop that took the focus for it, or be no stop at all.
  NodePtr const leaf = state.focus.leaf.Lock();
  auto const here =
      std::ranges::find_if(stops, [&](UI_Node* stop) { return leaf && leaf->UI_IsSelfOrDescendantOf(stop); });
  std::size_t const count = stops.size();
  std::size_t next = backward ? count - 1 : 0;
  if (here != stops.end()) {
    auto const index = static_cast<std::size_t>(here - stops.begin());
    next = (index + (backward ? count - 1 : 1)) % count;
  }
  NodePtr const stop(stops[next]);
  bool const moved = stop->UI_GainKeyboardFocus(FocusChangeReason::kTraversal);
  if (moved) {
    RevealLeaf(state);
  }
  return moved;
}

void BlurForPress(ui::TreeState& state, UI_Node const* target) {
  NodePtr const leaf = state.focus.leaf.Lock();
  if (!leaf || (target != nullptr && target->UI_IsSelfOrDescendantOf(leaf.Get()))) {
    return;
  }
  for (UI_Node const* up = target; up != nullptr; up = up->UI_GetParentNode()) {
    if (up->UI_WantsKeyboardFocus()) {
      return;
    }
  }
  SetFocus(state, nullptr, FocusChangeReason::kLost);
}

}  // namespace moxui::passes
