#include "Dispatch.h"

#include "../ui/DispatchScope.h"
#include "../ui/TreeState.h"
#include "Capture.h"
#include "Focus.h"
#include "HitTest.h"
#include "Hover.h"
#include "PointerFacts.h"
#include "ToolTip.h"

#include <moxui/ui/KeyboardEvent.h>
#include <moxui/ui/NodeTreeHost.h>

namespace moxui::passes {

using ui::NodePtr;
using ui::UI_Node;

namespace {

/// The nodes from a target to the root, held weakly: a handler may delete any of them.
std::vector<ui::WeakNode> PathToRoot(UI_Node* target) {
  std::vector<ui::WeakNode> path;
  for (UI_Node* node = target; node != nullptr; node = node->UI_GetParentNode()) {
    path.emplace_back(node);
  }
  return path;
}

NodePtr StillInTree(ui::TreeState const& state, ui::WeakNode const& weak) {
  NodePtr node = weak.Lock();
  return node && state.Owns(*node) ? node : nullptr;
}

bool WalkPath(ui::TreeState const& state, UI_Node* target, auto const& preHandler, auto const& handler) {
  auto const path = PathToRoot(target);
  for (auto weak = path.rbegin(); weak != path.rend(); ++weak) {
    if (NodePtr const node = StillInTree(state, *weak); node && preHandler(*node)) {
      return true;
    }
  }
  for (auto const& weak : path) {
    if (NodePtr const node = StillInTree(state, weak); node && handler(*node)) {
      return true;
    }
  }
  return false;
}

bool SendPointerEvent(ui::TreeState& state, UI_Node* target, ui::PointerEvent& event) {
  NodePtr const kept(target);
  event.SetPosition(ToNode(*target, state.pointer.position));
  return WalkPath(
      state, target, [&](UI_Node& node) { return node.UI_DoPrePointerEvent(target, event); },
      [&](UI_Node& node) { return node.UI_DoPointerEvent(target, event); });
}

bool OfferToCapture(ui::TreeState& state, ui::PointerEvent& event) {
  auto const capture = state.pointer.capture;
  NodePtr const node = capture ? capture->GetNode() : nullptr;
  if (!node) {
    return false;
  }
  event.SetPosition(ToNode(*node, state.pointer.position));
  return capture->HandlePointerEvent(event);
}

bool SendToTarget(ui::TreeState& state, ui::PointerEvent& event) {
  auto& pointer = state.pointer;
  bool const isWheel = event.IsAction(ui::PointerAction::kWheel);
  NodePtr target;
  if (pointer.pressTarget && !isWheel) {
    // If the pressed node has gone, the rest of its press goes nowhere.
    target = StillInTree(state, *pointer.pressTarget);
  } else {
    target = NodePtr(FindNodeAt(state, pointer.position));
  }
  bool const isPress = event.IsAction(ui::PointerAction::kPress);
  if (isPress) {
    BlurForPress(state, target.Get());
  }
  if (!target || !state.Owns(*target)) {
    return false;
  }
  bool const taken = SendPointerEvent(state, target.Get(), event);
  if (isPress && taken && !pointer.pressTarget && !pointer.buttons.IsEmpty()) {
    pointer.pressTarget = ui::WeakNode(target);
  }
  return taken;
}

bool Deliver(ui::TreeState& state, ui::PointerEvent& event) {
  bool const taken = OfferToCapture(state, event) || SendToTarget(state, event);
  if (state.pointer.buttons.IsEmpty() && state.pointer.pressTarget) {
    state.pointer.pressTarget.reset();
    state.hover.isStale = true;
  }
  return taken;
}

/// What waits until the outermost handler is done.
void FinishDispatch(ui::TreeState& state) {
  if (state.dispatchDepth > 0 || state.HasEnded()) {
    return;
  }
  if (state.releaseIsMissing) {
    state.releaseIsMissing = false;
    ReleaseSwallowedButtons(state);
  }
  if (state.hover.isStale || !state.hover.pendingLeaves.empty()) {
    UpdateHover(state);
  }
  UpdateCursor(state);
}

class DepthCount {
 public:
  explicit DepthCount(ui::TreeState& state) : mState(state) { ++mState.dispatchDepth; }
  ~DepthCount() { --mState.dispatchDepth; }
  DepthCount(DepthCount const&) = delete;
  DepthCount& operator=(DepthCount const&) = delete;

 private:
  ui::TreeState& mState;
};

}  // namespace

bool DispatchPointer(ui::TreeState& state, ui::PointerInput const& input) {
  ui::DispatchScope const scope(state);
  bool taken = false;
  {
    DepthCount const depth(state);
    int const clickCount = NotePointerInput(state, input);
    if (input.action == ui::PointerAction::kMove) {
      RestartToolTip(state);
    } else {
      DismissToolTip(state);
    }
    if (input.action != ui::PointerAction::kRelease) {
      UpdateHover(state);
    }
    if (input.action == ui::PointerAction::kWheel) {
      ui::WheelEvent event(input.wheelDistance, input.position, input.modKeys, input.osEvent);
      taken = Deliver(state, event);
    } else {
      auto const button =
          input.action == ui::PointerAction::kMove ? HeldButton(state.pointer.buttons) : input.button;
      ui::MouseEvent event(input.action, button, clickCount, input.position, input.modKeys, input.subType,
                           input.osEvent);
      taken = Deliver(state, event);
      if (input.subType == ui::PointerSubType::kTouch && state.pointer.buttons.IsEmpty()) {
        state.pointer.isInside = false;  // a lifted finger is nowhere
        state.hover.isStale = true;
      }
    }
  }
  FinishDispatch(state);
  return taken;
}

bool DispatchKey(ui::TreeState& state, ui::KeyboardEvent const& event) {
  ui::DispatchScope const scope(state);
  bool taken = false;
  {
    DepthCount const depth(state);
    state.pointer.modKeys = event.GetModKey();
    DismissToolTip(state);
    NodePtr const leaf = state.focus.leaf.Lock();
    NodePtr const target = leaf ? leaf : state.root;
    if (target) {
      taken = WalkPath(
          state, target.Get(), [&](UI_Node& node) { return node.UI_DoPreKeyboardEvent(target.Get(), event); },
          [&](UI_Node& node) { return node.UI_DoKeyboardEvent(target.Get(), event); });
    }
    if (!taken && event.IsAction(ui::KeyAction::kKeyDown) && event.GetCode() == ui::KeyboardCode::kTab) {
      bool const backward = event.GetModKey() == ui::ModKeys(ui::ModKey::kShift);
      taken = (backward || event.GetModKey().IsEmpty()) && MoveFocus(state, backward);
    }
  }
  FinishDispatch(state);
  return taken;
}

void ReleaseSwallowedButtons(ui::TreeState& state) {
  ui::DispatchScope const scope(state);
  if (state.dispatchDepth > 0) {
    state.releaseIsMissing = true;
    return;
  }
  ui::MouseButtons const held = state.host->GetMouseButtons();
  for (auto const button : {ui::MouseButton::kLeft, ui::MouseButton::kRight, ui::MouseButton::kMiddle}) {
    auto const bit = static_cast<unsigned char>(button);
    if (state.HasEnded() || !state.pointer.buttons.Has(bit) || held.Has(bit)) {
      continue;
    }
    for (auto& record : state.pointer.clicks) {
      record.hasLeft = true;  // it is no click any more
    }
    ui::PointerInput release;
    release.action = ui::PointerAction::kRelease;
    release.position = state.pointer.position;
    release.button = button;
    release.modKeys = state.pointer.modKeys;
    release.subType = state.pointer.subType;
    DispatchPointer(state, release);
  }
}

}  // namespace moxui::passes
