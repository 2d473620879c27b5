#include "Layout.h"

#include "../ui/NodeAccess.h"
#include "../ui/TreeState.h"

#include <moxui/ui/NodeTreeHost.h>

#include <algorithm>
#include <utility>

namespace moxui::passes {

using ui::NodeAccess;
using ui::NodePtr;
using ui::UI_Node;

namespace {

/// A layout that asks for layout each time must not hold up the frame for ever.
constexpr int kMaxRounds = 8;

int Depth(UI_Node const& node) {
  int depth = 0;
  for (UI_Node const* up = node.UI_GetParentNode(); up != nullptr; up = up->UI_GetParentNode()) {
    ++depth;
  }
  return depth;
}

}  // namespace

RectT<float> BoundRect(RectT<float> const& child, unsigned bindings, ExtentT<float> before,
                       ExtentT<float> after) {
  RectT<float> placed = child;
  if ((bindings & ui::LayoutBinding::kBindRight) != 0 && before.width > 0) {
    float& edge = (bindings & ui::LayoutBinding::kFreeLeft) != 0 ? placed.left : placed.width;
    edge += after.width - before.width;
  }
  if ((bindings & ui::LayoutBinding::kBindBottom) != 0 && before.height > 0) {
    float& edge = (bindings & ui::LayoutBinding::kFreeTop) != 0 ? placed.top : placed.height;
    edge += after.height - before.height;
  }
  return placed;
}

void QueueLayout(ui::TreeState& state, UI_Node& node) {
  state.layoutQueue.emplace_back(&node);
  if (!state.isFrameRequested) {
    state.isFrameRequested = true;
    state.host->RequestFrame();
  }
}

void RunLayout(ui::TreeState& state) {
  for (int round = 0; round < kMaxRounds && !state.layoutQueue.empty(); ++round) {
    std::vector<std::pair<int, NodePtr>> waiting;
    for (auto const& weak : std::exchange(state.layoutQueue, {})) {
      if (NodePtr node = weak.Lock(); node && state.Owns(*node)) {
        int const depth = Depth(*node);
        waiting.emplace_back(depth, std::move(node));
      }
    }
    std::ranges::stable_sort(waiting, {}, [](auto const& one) { return one.first; });
    for (auto const& [depth, node] : waiting) {
      if (std::exchange(NodeAccess::NeedsLayout(*node), false)) {
        node->UI_LayoutChildren();
      }
    }
  }
}

}  // namespace moxui::passes
