#include "../passes/Attach.h"
#include "../passes/Capture.h"
#include "../passes/Dispatch.h"
#include "../passes/DragOver.h"
#include "../passes/Focus.h"
#include "../passes/HitTest.h"
#include "../passes/Hover.h"
#include "../passes/Invalidate.h"
#include "../passes/Layout.h"
#include "../passes/Paint.h"
#include "../passes/PointerPlace.h"
#include "../passes/ToolTip.h"
#include "DispatchScope.h"
#include "TreeState.h"

#include <moxui/ui/KeyboardEvent.h>
#include <moxui/ui/NodeTree.h>
#include <moxui/ui/NodeTreeHost.h>
#include <moxui/ui/UI_NodeManager.h>

#include <utility>

namespace moxui::ui {

namespace {

void DamageAll(TreeState& state) {
  passes::AddDamage(state, {0, 0, state.size.width, state.size.height});
}

}  // namespace

NodeTree::NodeTree(NodeTreeHost& host) : mState(std::make_shared<TreeState>(*this, host)) {
  UI_NodeManager::Get(true)->AddTree(*this);
  SetScale(host.GetScale());
}

NodeTree::~NodeTree() {
  SetRoot(nullptr);
  UI_NodeManager::Get(true)->RemoveTree(*this);
  mState->End();
}

void NodeTree::SetRoot(moxcore::utility::IntrusivePtr<UI_Node> root) {
  if (root == mState->root) {
    return;
  }
  auto const state = mState;  // handlers may end the tree
  if (NodePtr const old = state->root) {
    passes::EndInputIn(*state, *old);
    passes::DetachSubtree(*old);
    state->root.Reset();
  }
  if (state->HasEnded()) {
    return;
  }
  state->root = std::move(root);
  if (NodePtr const current = state->root) {
    passes::AttachSubtree(*current, *this);
    current->UI_SetLocalRectF({0, 0, state->size.width, state->size.height});
  }
  state->hover.isStale = true;
  DamageAll(*state);
}

UI_Node* NodeTree::GetRoot() const {
  return mState->root.Get();
}

void NodeTree::SetSize(ExtentT<float> size) {
  if (size == mState->size) {
    return;
  }
  auto const state = mState;
  state->size = size;
  if (NodePtr const root = state->root) {
    root->UI_SetLocalRectF({0, 0, size.width, size.height});
  }
  DamageAll(*state);
}

ExtentT<float> NodeTree::GetSize() const {
  return mState->size;
}

void NodeTree::SetScale(float scale) {
  if (scale == mState->scale || !(scale > 0)) {
    return;
  }
  auto const state = mState;
  state->scale = scale;
  if (NodePtr const root = state->root) {
    passes::TellScale(*root, scale);
  }
  DamageAll(*state);
}

float NodeTree::GetScale() const {
  return mState->scale;
}
NodeTreeHost& NodeTree::GetHost() const {
  return *mState->host;
}

bool NodeTree::HandlePointer(PointerInput const& input) {
  auto const state = mState;
  PointerInput followed = input;
  followed.position = passes::FollowPointer(*state, input);
  bool const isStill = input.action == PointerAction::kMove && followed.position == state->pointer.position;
  if (isStill && state->pointer.motion.HasWarped()) {
    return true;  // the way back to the middle of the screen is no motion
  }
  bool const taken = passes::DispatchPointer(*state, followed);
  passes::KeepPointerInside(*state, input);
  return taken;
}

PointT<float> NodeTree::GetPointerPlace() const {
  return passes::GetPointerPlace(*mState);
}
void NodeTree::PlacePointer(PointT<float> place) {
  passes::PlacePointer(*mState, place);
}
void NodeTree::ReturnPointer() {
  passes::ReturnPointer(*mState);
}
bool NodeTree::HandleKey(KeyboardEvent const& event) {
  return passes::DispatchKey(*mState, event);
}

void NodeTree::HandlePointerLeft() {
  auto const state = mState;
  DispatchScope const scope(*state);
  state->pointer.isInside = false;
  passes::DismissToolTip(*state);
  passes::UpdateHover(*state);
}

int NodeTree::HandleDrag(DragPhase phase, PointT<float> position, OS_ReceiveData& data, int proposedEffect) {
  DispatchScope const scope(*mState);
  return passes::DispatchDrag(*mState, phase, position, data, proposedEffect);
}

void NodeTree::SetActive(bool active) {
  if (active == mState->focus.isActive) {
    UI_NodeManager::Get(true)->TreeBecameActive(*this, active);
    return;
  }
  auto const state = mState;
  {
    DispatchScope const scope(*state);
    if (!active) {
      passes::LoseCapture(*state);
      passes::DismissToolTip(*state);
    }
    passes::SetActive(*state, active);
  }
  if (!state->HasEnded()) {
    UI_NodeManager::Get(true)->TreeBecameActive(*this, active);
  }
}

bool NodeTree::IsActive() const {
  return mState->focus.isActive;
}

void NodeTree::BlockByModal() {
  auto const state = mState;
  DispatchScope const scope(*state);
  passes::LoseCapture(*state);
  passes::DismissToolTip(*state);
}

void NodeTree::CheckSwallowedRelease() {
  passes::ReleaseSwallowedButtons(*mState);
}

UI_Node* NodeTree::FindNode(PointT<float> position) const {
  return passes::FindNodeAt(*mState, position);
}

moxcore::utility::IntrusivePtr<UI_Node> NodeTree::GetHoveredNode() const {
  return passes::HoveredNode(*mState);
}

bool NodeTree::IsHovered(UI_Node const* node, bool exactly) const {
  return passes::IsHovered(*mState, node, exactly);
}

void NodeTree::BeginCapture(moxcore::utility::IntrusivePtr<InputCapture> capture) {
  DispatchScope const scope(*mState);
  passes::BeginCapture(*mState, std::move(capture));
}

void NodeTree::EndCapture(bool cancelled) {
  auto const state = mState;
  DispatchScope const scope(*state);
  passes::EndCapture(*state, cancelled);
  if (state->dispatchDepth == 0) {
    passes::UpdateHover(*state);
  }
}

InputCapture* NodeTree::GetCapture() const {
  return mState->pointer.capture.Get();
}

UI_Node* NodeTree::GetFocusLeaf() const {
  return mState->focus.leaf.Lock().Get();
}

bool NodeTree::SetFocus(UI_Node* node, FocusChangeReason reason) {
  DispatchScope const scope(*mState);
  return passes::SetFocus(*mState, node, reason);
}

bool NodeTree::MoveFocus(bool backward) {
  DispatchScope const scope(*mState);
  return passes::MoveFocus(*mState, backward);
}

UI_TimerManager& NodeTree::GetTimers() const {
  return mState->timers;
}

void NodeTree::HandleTime() {
  auto const state = mState;
  double const now = state->host->GetTime();
  state->timers.FireDueTimers(now);
  passes::ShowDueToolTip(*state, now);
  state->ScheduleWakeUp();
}

void NodeTree::ScheduleWakeUp() {
  mState->ScheduleWakeUp();
}

void NodeTree::AddDamage(RectT<float> const& rect) {
  passes::AddDamage(*mState, rect);
}
std::span<RectT<float> const> NodeTree::GetDamage() const {
  return mState->damage;
}
bool NodeTree::NeedsFrame() const {
  return !mState->damage.empty() || !mState->layoutQueue.empty();
}

void NodeTree::PrepareFrame() {
  auto const state = mState;
  DispatchScope const scope(*state);
  passes::RunLayout(*state);
  if (state->dispatchDepth == 0 && (state->hover.isStale || !state->hover.pendingLeaves.empty())) {
    passes::UpdateHover(*state);
  }
  state->isFrameRequested = !state->damage.empty();
}

void NodeTree::PaintDamage(scriber::Scriber& scriber, std::function<void(RectT<float> const&)> const& clear) {
  auto const state = mState;
  passes::PaintDamage(*state, &scriber, clear);
}

void NodeTree::PaintAll(scriber::Scriber& scriber) const {
  auto const state = mState;
  passes::PaintAll(*state, &scriber);
}

void PaintNode(UI_Node const& node, scriber::Scriber& scriber) {
  passes::PaintAtOrigin(node, &scriber);
}

}  // namespace moxui::ui
