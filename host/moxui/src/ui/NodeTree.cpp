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

#include <algorithm>
#include <utility>

namespace moxui::ui {

NodeTree::NodeTree(NodeTreeHost& host) : mState(std::make_unique<TreeState>(*this, host)) {
  UI_NodeManager::Get(true)->AddTree(*this);
  SetScale(host.GetScale());
}

NodeTree::~NodeTree() {
  SetRoot(nullptr);
  UI_NodeManager::Get(true)->RemoveTree(*this);
}

void NodeTree::SetRoot(moxcore::utility::IntrusivePtr<UI_Node> root) {
  if (root == mState->root) {
    return;
  }
  if (NodePtr const old = mState->root) {
    passes::EndInputIn(*mState, *old);
    passes::DetachSubtree(*old);
    mState->root.Reset();
  }
  mState->root = std::move(root);
  if (NodePtr const current = mState->root) {
    passes::AttachSubtree(*current, *this);
    current->UI_SetLocalRectF({0, 0, mState->size.width, mState->size.height});
  }
  mState->hover.isStale = true;
  AddDamage({0, 0, mState->size.width, mState->size.height});
}

UI_Node* NodeTree::GetRoot() const {
  return mState->root.Get();
}

void NodeTree::SetSize(ExtentT<float> size) {
  if (size == mState->size) {
    return;
  }
  mState->size = size;
  if (NodePtr const root = mState->root) {
    root->UI_SetLocalRectF({0, 0, size.width, size.height});
  }
  AddDamage({0, 0, size.width, size.height});
}

ExtentT<float> NodeTree::GetSize() const {
  return mState->size;
}

void NodeTree::SetScale(float scale) {
  if (scale == mState->scale || !(scale > 0)) {
    return;
  }
  mState->scale = scale;
  if (mState->root) {
    passes::TellScale(*mState->root, scale);
  }
  AddDamage({0, 0, mState->size.width, mState->size.height});
}

float NodeTree::GetScale() const {
  return mState->scale;
}
NodeTreeHost& NodeTree::GetHost() const {
  return mState->host;
}

bool NodeTree::HandlePointer(PointerInput const& input) {
  PointerInput followed = input;
  followed.position = passes::FollowPointer(*mState, input);
  bool const isStill = input.action == PointerAction::kMove && followed.position == mState->pointer.position;
  if (isStill && mState->pointer.motion.HasWarped()) {
    return true;  // the way back to the middle of the screen is no motion
  }
  bool const taken = passes::DispatchPointer(*mState, followed);
  passes::KeepPointerInside(*mState, input);
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
  DispatchScope const scope(*this);
  mState->pointer.isInside = false;
  passes::DismissToolTip(*mState);
  passes::UpdateHover(*mState);
}

int NodeTree::HandleDrag(DragPhase phase, PointT<float> position, OS_ReceiveData& data, int proposedEffect) {
  DispatchScope const scope(*this);
  return passes::DispatchDrag(*mState, phase, position, data, proposedEffect);
}

void NodeTree::SetActive(bool active) {
  if (active == mState->focus.isActive) {
    UI_NodeManager::Get(true)->TreeBecameActive(*this, active);
    return;
  }
  {
    DispatchScope const scope(*this);
    if (!active) {
      passes::LoseCapture(*mState);
      passes::DismissToolTip(*mState);
    }
    passes::SetActive(*mState, active);
  }
  UI_NodeManager::Get(true)->TreeBecameActive(*this, active);
}

bool NodeTree::IsActive() const {
  return mState->focus.isActive;
}

void NodeTree::BlockByModal() {
  DispatchScope const scope(*this);
  passes::LoseCapture(*mState);
  passes::DismissToolTip(*mState);
}

void NodeTree::CheckSwallowedRelease() {
  passes::ReleaseSwallowedButtons(*mState);
}

UI_Node* NodeTree::FindNode(PointT<float> position) const {
  UI_Node* const root = mState->root.Get();
  return root != nullptr ? passes::FindNode(*root, passes::ToNode(*root, position)) : nullptr;
}

moxcore::utility::IntrusivePtr<UI_Node> NodeTree::GetHoveredNode() const {
  auto const& chain = mState->hover.chain;
  return chain.empty() ? nullptr : chain.back().Lock();
}

bool NodeTree::IsHovered(UI_Node const* node, bool exactly) const {
  NodePtr const hovered = GetHoveredNode();
  return hovered && (exactly ? hovered.Get() == node : hovered->UI_IsSelfOrDescendantOf(node));
}

void NodeTree::BeginCapture(moxcore::utility::IntrusivePtr<InputCapture> capture) {
  DispatchScope const scope(*this);
  passes::BeginCapture(*mState, std::move(capture));
}

void NodeTree::EndCapture(bool cancelled) {
  DispatchScope const scope(*this);
  passes::EndCapture(*mState, cancelled);
  if (mState->dispatchDepth == 0) {
    passes::UpdateHover(*mState);
  }
}

InputCapture* NodeTree::GetCapture() const {
  return mState->pointer.capture.Get();
}

UI_Node* NodeTree::GetFocusLeaf() const {
  return mState->focus.leaf.Lock().Get();
}

bool NodeTree::SetFocus(UI_Node* node, FocusChangeReason reason) {
  DispatchScope const scope(*this);
  return passes::SetFocus(*mState, node, reason);
}

bool NodeTree::MoveFocus(bool backward) {
  DispatchScope const scope(*this);
  return passes::MoveFocus(*mState, backward);
}

UI_TimerManager& NodeTree::GetTimers() const {
  return mState->timers;
}

void NodeTree::HandleTime() {
  double const now = mState->host.GetTime();
  mState->timers.FireDueTimers(now);
  passes::ShowDueToolTip(*mState, now);
  ScheduleWakeUp();
}

void NodeTree::ScheduleWakeUp() {
  double const timer = mState->timers.GetNextDue();
  double const tip = mState->toolTip.due;
  double const next = timer < 0 ? tip : tip < 0 ? timer : std::min(timer, tip);
  mState->host.RequestWakeUp(next);
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
  DispatchScope const scope(*this);
  passes::RunLayout(*mState);
  if (mState->dispatchDepth == 0 && (mState->hover.isStale || !mState->hover.pendingLeaves.empty())) {
    passes::UpdateHover(*mState);
  }
  mState->isFrameRequested = !mState->damage.empty();
}

void NodeTree::PaintDamage(scriber::Scriber& scriber, std::function<void(RectT<float> const&)> const& clear) {
  passes::PaintDamage(*mState, &scriber, clear);
}

void NodeTree::PaintAll(scriber::Scriber& scriber) const {
  if (NodePtr const root = mState->root) {
    passes::PaintChild(*root, &scriber);
  }
}

void PaintNode(UI_Node const& node, scriber::Scriber& scriber) {
  passes::PaintAtOrigin(node, &scriber);
}

}  // namespace moxui::ui
