#include <moxcore/string/Encoding.h>
#include <moxui/controls/UI_ControlView.h>
#include <moxui/ui/MouseEvent.h>
#include <moxui/ui/NodeTree.h>

#include <utility>

namespace moxui::controls {

UI_ControlView::UI_ControlView() = default;
UI_ControlView::~UI_ControlView() = default;

moxcore::messaging::Connection UI_ControlView::NotifyWhenChanged(MessageHandler function) {
  return mChangeListeners.Add(std::move(function));
}

moxcore::messaging::Connection UI_ControlView::NotifyHover(MessageHandler function) {
  return mHoverListeners.Add(std::move(function));
}

void UI_ControlView::SendValueChangedMessage() {
  UI_ControlChangedMessage message(*this);
  SendControlMessages(mChangeListeners, message);
}

void UI_ControlView::SendControlMessages(ControlListeners const& listeners,
                                         moxcore::messaging::Message& message) {
  moxcore::utility::IntrusivePtr<UI_ControlView> const self(this);
  listeners.Send(message);
}

void UI_ControlView::SendHover(ui::PointerEvent const& event) {
  UI_HoverMessage message(*this, event.GetAction());
  SendControlMessages(mHoverListeners, message);
}

void UI_ControlView::SetValueUnknown() {
  if (!std::exchange(mIsValueUnknown, true)) {
    UI_Invalidate();
    UI_TellAccessibleChange(ui::AccessibleChange::kValue);
    UI_TellAccessibleChange(ui::AccessibleChange::kState);
  }
}

void UI_ControlView::SetValueKnown() {
  if (std::exchange(mIsValueUnknown, false)) {
    UI_Invalidate();
    UI_TellAccessibleChange(ui::AccessibleChange::kValue);
    UI_TellAccessibleChange(ui::AccessibleChange::kState);
  }
}

Flags<unsigned int> UI_ControlView::GetControlState(bool withDescendants) const {
  Flags<unsigned int> state;
  ui::NodeTree const* const tree = UI_GetTree();
  state.Set(ControlState::kPressed, mIsDown);
  state.Set(ControlState::kRollover, tree != nullptr && tree->IsHovered(this, !withDescendants));
  state.Set(ControlState::kDisabled, UI_IsDisabled());
  state.Set(ControlState::kFocused, UI_HasKeyboardFocus(!withDescendants));
  return state;
}

void UI_ControlView::SetDownState(bool down) {
  if (std::exchange(mIsDown, down) != down) {
    UI_Invalidate();
    UI_TellAccessibleChange(ui::AccessibleChange::kState);
  }
}

void UI_ControlView::SetAccessibleName(moxcore::Utf8String name) {
  if (name != mAccessibleName) {
    mAccessibleName = std::move(name);
    UI_TellAccessibleChange(ui::AccessibleChange::kName);
  }
}

moxcore::Utf8String UI_ControlView::GetAccessibleNameOr(moxcore::Utf16String const& label) const {
  if (!mAccessibleName.empty()) {
    return mAccessibleName;
  }
  return label.empty() ? UI_GetToolTip() : moxcore::string::UTF16to8(label);
}

moxcore::Utf8String UI_ControlView::UI_GetAccessibleName() const {
  return GetAccessibleNameOr({});
}

moxcore::Utf8String UI_ControlView::UI_GetAccessibleDescription() const {
  moxcore::Utf8String const& tip = UI_GetToolTip();
  return tip == UI_GetAccessibleName() ? moxcore::Utf8String() : tip;
}

ui::AccessibleState UI_ControlView::UI_GetAccessibleState() const {
  ui::AccessibleState state = UI_SubView::UI_GetAccessibleState();
  state.isPressed = mIsDown;
  return state;
}

bool UI_ControlView::UI_DoMouseEvent(ui::UI_Node* node, ui::MouseEvent const& event) {
  // Enter and leave come with the node itself; a move within, which no button makes a drag, repeats the
  // hover.
  bool const isLeave = event.IsAction(ui::PointerAction::kLeave);
  bool const isMove = event.IsAction(ui::PointerAction::kMove) && event.IsButton(ui::MouseButton::kNone);
  if (node == this && (isLeave || isMove)) {
    SendHover(event);
  }
  return false;
}

bool UI_ControlView::UI_WantsKeyboardFocus() const {
  return mWantsKeyboardFocus;
}

void UI_ControlView::UI_FocusChanged(ui::FocusChangeReason) {
  UI_Invalidate();
}

}  // namespace moxui::controls
