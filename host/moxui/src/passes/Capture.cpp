#include "Capture.h"

#include "../ui/TreeState.h"
#include "Focus.h"
#include "Hover.h"

#include <utility>

namespace moxui::passes {

using ui::NodePtr;
using ui::UI_Node;

void BeginCapture(ui::TreeState& state, moxcore::utility::IntrusivePtr<ui::InputCapture> capture) {
  EndCapture(state, true);
  state.pointer.capture = std::move(capture);
  if (auto const begun = state.pointer.capture) {
    begun->Begin();
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
