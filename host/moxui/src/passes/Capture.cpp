#include "Capture.h"

#include "../ui/TreeState.h"
#include "Focus.h"
#include "Hover.h"

#include <utility>

namespace moxui::passes {

using ui::NodePtr;
using ui::UI_Node;

namespace {

constexpr int kMaxRounds = 8;

}  // namespace

void BeginCapture(ui::TreeState& state, moxcore::utility::IntrusivePtr<ui::InputCapture> capture) {
  NodePtr const node = capture ? capture->GetNode() : nullptr;
  bool const isForNode = node && state.Owns(*node);
  // The one that is cancelled may begin another, and so on; not for ever.
  for (int round = 0; round < kMaxRounds && state.pointer.capture; ++round) {
    EndCapture(state, true);
  }
  if (capture && (state.HasEnded() || (isForNode && !state.Owns(*node)))) {
    capture->Cancel();  // for its node has gone meanwhile
    return;
  }
  state.pointer.capture = capture;
  if (capture) {
    capture->Begin();
  }
}

void EndCapture(ui::TreeState& state, bool cancelled) {
  auto const capture = std::exchange(state.pointer.capture, nullptr);
  if (!capture) {
    return;
  }
  if (cancelled) {
    capture->Cancel();
  } else {
    capture->End();
  }
  state.hover.isStale = true;
}

void LoseCapture(ui::TreeState& state) {
  auto const capture = state.pointer.capture;
  if (!capture) {
    return;
  }
  NodePtr const node = capture->GetNode();
  EndCapture(state, true);
  if (node) {
    TellFocusChange(node.Get(), nullptr, ui::FocusChangeReason::kDeactivated);
  }
}

void EndInputIn(ui::TreeState& state, UI_Node& node) {
  auto const kept = state.shared_from_this();  // handlers may end the tree
  if (state.pointer.capture) {
    NodePtr const captor = state.pointer.capture->GetNode();
    if (!captor || captor->UI_IsSelfOrDescendantOf(&node)) {
      LoseCapture(state);
    }
  }
  LoseFocusIn(state, node);
  EndHoverIn(state, node);
}

}  // namespace moxui::passes
