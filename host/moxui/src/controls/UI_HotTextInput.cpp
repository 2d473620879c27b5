// How hot text is worked: press, drag, keys.
#include "PressCapture.h"

#include <moxcore/string/Encoding.h>
#include <moxui/controls/UI_HotText.h>
#include <moxui/resources/ResourceManager.h>
#include <moxui/ui/KeyboardEvent.h>
#include <moxui/ui/UI_NodeManager.h>

#include <algorithm>
#include <initializer_list>
#include <utility>

namespace moxui::controls {
namespace {

using moxcore::utility::IntrusivePtr;
using ui::KeyboardCode;
using ui::KeyboardEvent;

bool IsPlainKey(KeyboardEvent const& event, std::initializer_list<KeyboardCode> codes) {
  bool const isPlain = event.IsAction(ui::KeyAction::kKeyDown) && event.GetModKey().IsEmpty();
  return isPlain && std::ranges::find(codes, event.GetCode()) != codes.end();
}

}  // namespace

bool UI_HotText::UI_DoMouseEvent(ui::UI_Node* node, ui::MouseEvent const& event) {
  if (UI_InteractiveControlView::UI_DoMouseEvent(node, event)) {
    return true;
  }
  bool const isPress = event.IsAction(ui::PointerAction::kPress) && event.IsButton(ui::MouseButton::kLeft);
  if (node != this || !isPress || IsDisabled() || IsEditing()) {
    return false;
  }
  IntrusivePtr<UI_HotText> const self(this);
  if (mChangeFocusOnClick && UI_WantsKeyboardFocus()) {
    UI_GainKeyboardFocus(ui::FocusChangeReason::kPointer);
  }
  if (!PressCapture::CanStart(*this)) {
    return true;
  }
  SetDownState(true);
  mCapture = PressCapture::Start(
      this, event, [this](ui::MouseEvent const& next) { PressEvent(next); }, [this] { EndPress(true); });
  if (mCapture && CanDrag()) {
    BeginDrag(event);
  }
  return true;
}

void UI_HotText::PressEvent(ui::MouseEvent const& event) {
  IntrusivePtr<UI_HotText> const self(this);
  if (event.IsAction(ui::PointerAction::kMove)) {
    if (CanDrag()) {
      DragTo(event);
    }
    return;
  }
  bool const isInside = UI_GetLocalRectF(ui::RectSpace::kOwn).Contains(event.GetPosition());
  if (!EndPress(false) && isInside) {
    OpenEdit();
  }
}

bool UI_HotText::EndPress(bool cancelled) {
  IntrusivePtr<UI_HotText> const self(this);
  mCapture.Reset();
  SetDownState(false);
  return CanDrag() && EndDrag(cancelled);
}

bool UI_HotText::UI_DoCursor(ui::UI_Node* node, PointT<float> point, unsigned flags) {
  if (node != this || IsDisabled()) {
    return UI_InteractiveControlView::UI_DoCursor(node, point, flags);
  }
  utility::GetResourceManager()->DisplayCursor(
      CanDrag() ? platform::CursorID::kHotText : platform::CursorID::kIBeam,
      platform::CursorMode::kUntilNext);
  return true;
}

bool UI_HotText::UI_InvalidateOnMouseOverChange(bool) {
  return !IsDisabled();
}

// Keys

// An edit that was opened by a key and is ended by one leaves the focus where it was.
bool UI_HotText::UI_DoPreKeyboardEvent(ui::UI_Node* node, KeyboardEvent const& event) {
  bool const ends = mEditOpenedByKey && mEdit->UI_TextEditControlHasFocus() &&
                    IsPlainKey(event, {KeyboardCode::kReturn, KeyboardCode::kEnter, KeyboardCode::kEscape});
  if (!ends) {
    return UI_InteractiveControlView::UI_DoPreKeyboardEvent(node, event);
  }
  IntrusivePtr<UI_HotText> const self(this);
  bool const taken = mEdit->UI_DoKeyboardEvent(node, event);
  if (!IsEditing()) {
    UI_GainKeyboardFocus(ui::FocusChangeReason::kTraversal);
  }
  return taken;
}

bool UI_HotText::UI_DoKeyboardEvent(ui::UI_Node* node, KeyboardEvent const& event) {
  if (node != this || IsDisabled() || !event.IsAction(ui::KeyAction::kKeyDown)) {
    return UI_InteractiveControlView::UI_DoKeyboardEvent(node, event);
  }
  IntrusivePtr<UI_HotText> const self(this);
  if (mCapture) {
    // Keys wait until the press is over; Escape ends it.
    auto* const manager = ui::UI_NodeManager::Get(false);
    if (event.GetCode() == KeyboardCode::kEscape && manager != nullptr) {
      manager->EndInputCapture(true);
    }
    return true;
  }
  if (IsPlainKey(event, {KeyboardCode::kReturn, KeyboardCode::kEnter, KeyboardCode::kF2})) {
    KeyUsed();
    OpenEdit();
    return true;
  }
  if (OpensEditFor(event)) {
    KeyUsed();
    OpenEdit();
    mEdit->GetTextEdit()->UI_DoKeyboardEvent(mEdit->GetTextEdit().Get(), event);
    return true;
  }
  return DoValueKey(event) || UI_InteractiveControlView::UI_DoKeyboardEvent(node, event);
}

// For assistive software

ui::AccessibleRole UI_HotText::UI_GetAccessibleRole() const {
  return ui::AccessibleRole::kTextField;
}

moxcore::Utf8String UI_HotText::UI_GetAccessibleValue() const {
  return IsValueUnknown() ? moxcore::Utf8String() : moxcore::string::UTF16to8(GetTextToEdit() + mLabel);
}

bool UI_HotText::UI_DoAccessibleAction() {
  if (IsDisabled()) {
    return false;
  }
  OpenEdit();
  return true;
}

}  // namespace moxui::controls
