#include "../passes/Capture.h"
#include "../passes/Focus.h"
#include "../passes/Invalidate.h"
#include "../passes/ToolTip.h"
#include "NodeAccess.h"
#include "TreeState.h"

#include <moxui/ui/NodeTree.h>
#include <moxui/ui/NodeTreeHost.h>
#include <moxui/ui/OS_Menu.h>
#include <moxui/ui/UI_Node.h>
#include <moxui/ui/UI_NodeManager.h>

#include <utility>

namespace moxui::ui {

namespace {

/// The capture behind UI_SetCapture: all goes to the node itself.
class NodeCapture : public InputCapture {
 public:
  NodeCapture(UI_Node* node, PointerEvent const& event) : InputCapture(node, event) {}

  bool HandlePointerEvent(PointerEvent const& event) override {
    auto const node = GetNode();
    return node && node->UI_DoPointerEvent(node.Get(), event);
  }
};

}  // namespace

void UI_Node::UI_Show(bool show) {
  if (show == mIsShown) {
    return;
  }
  NodePtr const self(this);
  passes::DamageSubtree(*this);
  mIsShown = show;
  passes::DamageSubtree(*this);
  if (mTree != nullptr) {
    mTree->State().hover.isStale = true;
    if (!show) {
      passes::EndInputIn(mTree->State(), *this);
    }
  }
  UI_NodeChanged(show ? NodeChange::kShown : NodeChange::kHidden);
}

void UI_Node::UI_SetDisabled(bool disabled) {
  if (disabled == mIsDisabled) {
    return;
  }
  NodePtr const self(this);
  mIsDisabled = disabled;
  passes::DamageSubtree(*this);
  if (disabled && mTree != nullptr) {
    passes::EndInputIn(mTree->State(), *this);
  }
  UI_NodeChanged(disabled ? NodeChange::kDisabled : NodeChange::kEnabled);
  UI_TellAccessibleChange(AccessibleChange::kState);
}

bool UI_Node::UI_IsDisabled() const {
  for (UI_Node const* up = this; up != nullptr; up = up->mParent) {
    if (up->mIsDisabled) {
      return true;
    }
  }
  return false;
}

void UI_Node::UI_SetToolTip(moxcore::Utf8String const& text, int delayMilliseconds) {
  if (text == UI_GetToolTip() && delayMilliseconds == UI_GetToolTipDelay()) {
    return;
  }
  Extras().toolTip = text;
  Extras().toolTipDelay = delayMilliseconds;
  if (mTree != nullptr) {
    passes::ToolTipChanged(mTree->State(), *this);
    UI_TellAccessibleChange(AccessibleChange::kName);
  }
}

moxcore::Utf8String const& UI_Node::UI_GetToolTip() const {
  static moxcore::Utf8String const none;
  return mExtras ? mExtras->toolTip : none;
}

int UI_Node::UI_GetToolTipDelay() const {
  return mExtras ? mExtras->toolTipDelay : 0;
}

void UI_Node::UI_SetCapture() {
  if (mTree != nullptr) {
    PointT<float> const position = UI_GlobalToLocalF(mTree->GetHost().GetPointerPosition());
    mTree->BeginCapture(
        moxcore::utility::MakeIntrusive<NodeCapture>(this, PointerEvent(PointerAction::kMove, position)));
  }
}

void UI_Node::UI_ReleaseCapture() {
  if (mTree != nullptr && mTree->GetCapture() != nullptr && mTree->GetCapture()->GetNode() == this) {
    mTree->EndCapture(false);
  }
}

bool UI_Node::UI_GainKeyboardFocus(FocusChangeReason reason) {
  return mTree != nullptr && mTree->SetFocus(this, reason);
}

void UI_Node::UI_LoseKeyboardFocus() {
  if (mTree != nullptr) {
    passes::LoseFocusIn(mTree->State(), *this);
  }
}

bool UI_Node::UI_HasKeyboardFocus(bool exactly) const {
  if (mTree == nullptr || !mTree->IsActive()) {
    return false;
  }
  UI_Node const* const leaf = UI_GetKeyboardFocusLeafNode();
  return leaf != nullptr && (!exactly || leaf == this);
}

UI_Node* UI_Node::UI_GetKeyboardFocusLeafNode() const {
  UI_Node* const leaf = mTree != nullptr ? mTree->GetFocusLeaf() : nullptr;
  return leaf != nullptr && leaf->UI_IsSelfOrDescendantOf(this) ? leaf : nullptr;
}

void UI_Node::UI_RevealDescendant(UI_Node const&) {}

bool UI_Node::UI_DoComposition(moxcore::Utf16String const&, std::size_t) {
  return false;
}

RectT<float> UI_Node::UI_GetTextInputRect() const {
  return UI_GetLocalRectF(RectSpace::kOwn);
}

void UI_Node::InstallFocusChangedFunction(FocusChangedFunction function) {
  if (function) {
    Extras().focusFunctions.push_back(std::move(function));
  }
}

void UI_Node::UI_InstallTimer(float milliseconds, int id) {
  if (mTree != nullptr) {
    mTree->GetTimers().InstallTimer(this, milliseconds, id);
    return;
  }
  UI_RemoveTimer(id);
  Extras().restingTimers.emplace_back(id, milliseconds);
}

void UI_Node::UI_RemoveTimer(int id) {
  if (mTree != nullptr) {
    mTree->GetTimers().RemoveTimer(this, id);
  }
  if (mExtras) {
    std::erase_if(mExtras->restingTimers, [id](auto const& timer) { return timer.first == id; });
  }
}

void UI_Node::UI_RemoveSubViewTimers() {
  if (mTree != nullptr) {
    mTree->GetTimers().RemoveTimers(this);
  }
  if (mExtras) {
    mExtras->restingTimers.clear();
  }
}

UI_TimerManager* UI_Node::UI_GetTimerManager() const {
  return mTree != nullptr ? &mTree->GetTimers() : nullptr;
}

int UI_Node::UI_DoContextMenu(OS_Menu* menu, UI_Node* node, PointT<float> point) {
  if (menu == nullptr) {
    return 0;
  }
  UI_Node const& origin = node != nullptr ? *node : *this;
  NodePtr const self(this);
  moxcore::utility::IntrusivePtr<OS_Menu> const kept(menu);
  int const chosen = menu->Popup(origin.UI_LocalToGlobalF(point));
  if (mTree != nullptr) {
    mTree->CheckSwallowedRelease();
  }
  return chosen;
}

}  // namespace moxui::ui
