#include "../skins/BoxPainting.h"
#include "ControlPainting.h"

#include <moxcore/string/Encoding.h>
#include <moxui/controls/UI_TextEdit.h>
#include <moxui/skins/LayoutDirection.h>
#include <moxui/ui/KeyboardEvent.h>
#include <moxui/ui/MouseEvent.h>

#include <utility>

namespace moxui::controls {
namespace {

using moxcore::utility::IntrusivePtr;

constexpr float kRecommendedWidth = 120.0f;
constexpr float kFrame = 1.0f;

}  // namespace

UI_TextEdit::UI_TextEdit() : mEdit(moxcore::utility::MakeIntrusive<OS_EditText>()) {
  SetWantsKeyboardFocus(true);
  mEdit->SetEditedFunction([this] { TextEdited(); });
  ChildPushBack(mEdit);
}

UI_TextEdit::~UI_TextEdit() {
  mEdit->SetEditedFunction({});
}

moxcore::Utf16String UI_TextEdit::GetValue() const {
  return mEdit->GetText();
}

void UI_TextEdit::SetValue(moxcore::Utf16String text, bool notify) {
  SetValueKnown();
  mEdit->SetText(std::move(text));
  // What code has set is no edit that a loss of the focus would have to commit.
  mTextAtBegin = GetValue();
  mWasUnknownAtBegin = false;
  if (notify) {
    SendValueChangedMessage();
  }
}

void UI_TextEdit::SetLabelText(moxcore::Utf8String const& text) {
  SetValue(moxcore::string::UTF8to16(text), false);
}

moxcore::messaging::Connection UI_TextEdit::NotifyWhenTextEdited(MessageHandler function) {
  return mEditListeners.Add(std::move(function));
}

void UI_TextEdit::SetFont(moxcore::Utf8String name, float size, moxcore::Utf8String style) {
  mEdit->SetFont(std::move(name), size, std::move(style));
}

void UI_TextEdit::SetAlignment(ControlAlignment alignment) {
  mAlignment = alignment;
  PlaceEdit();
}

void UI_TextEdit::SetPlaceholder(moxcore::Utf16String text) {
  mEdit->SetPlaceholder(std::move(text));
}

void UI_TextEdit::SetReadOnly(bool readOnly) {
  mEdit->SetReadOnly(readOnly);
}

void UI_TextEdit::SetMaxLength(std::size_t units) {
  mEdit->SetMaxLength(units);
}

void UI_TextEdit::SetDrawFrame(bool draws) {
  if (std::exchange(mDrawFrame, draws) != draws) {
    PlaceEdit();
    UI_Invalidate();
  }
}

// The text without a frame begins at the very edge, as a text that isn't edited does.
void UI_TextEdit::PlaceEdit() {
  RectT<float> const rect = UI_GetLocalRectF(ui::RectSpace::kOwn);
  float const inset = mDrawFrame ? UI_GetCurrentSkinSet().GetNumber(skins::SkinNumber::kTextInset) : 0.0f;
  float const frame = mDrawFrame ? kFrame : 0.0f;
  mEdit->UI_SetLocalRectF(rect.Grown({-inset, -frame, -inset, -frame}));
  mEdit->SetAlignment(mAlignment.value_or(skins::GetLeadingAlignment()));
}

void UI_TextEdit::UI_SizeChanged(RectT<float> const& rect) {
  UI_ControlView::UI_SizeChanged(rect);
  PlaceEdit();
}

void UI_TextEdit::UI_SkinSetUpdated() {
  UI_ControlView::UI_SkinSetUpdated();
  PlaceEdit();
}

void UI_TextEdit::UI_Draw(scriber::Scriber* scriber) const {
  RectT<float> const rect = UI_GetLocalRectF(ui::RectSpace::kOwn);
  if (mDrawFrame && !rect.IsEmpty()) {
    skins::ControlLook const look = GetControlLook(*this);
    skins::DrawFieldBox(scriber, rect, look);
    if (UI_TextEditControlHasFocus()) {
      skins::DrawFocusRing(scriber, rect, look.Number(skins::SkinNumber::kCornerRadius),
                           look.Color(ui::ThemeColorID::kFocus));
    }
  }
  UI_ControlView::UI_Draw(scriber);
}

PaddingT<float> UI_TextEdit::UI_GetDrawOverhang() const {
  float const reach = skins::kFocusRingReach;
  return {reach, reach, reach, reach};
}

ExtentT<float> UI_TextEdit::UI_GetRecommendedSize(scriber::Scriber*) const {
  return {kRecommendedWidth, UI_GetCurrentSkinSet().GetNumber(skins::SkinNumber::kTextEditHeight)};
}

// Editing

bool UI_TextEdit::UI_GainKeyboardFocus(ui::FocusChangeReason reason) {
  return mEdit->UI_GainKeyboardFocus(reason);
}

bool UI_TextEdit::UI_WantsKeyboardFocus() const {
  return UI_ControlView::UI_WantsKeyboardFocus() && !IsDisabled();
}

bool UI_TextEdit::UI_DoMouseEvent(ui::UI_Node* node, ui::MouseEvent const& event) {
  if (UI_ControlView::UI_DoMouseEvent(node, event)) {
    return true;
  }
  // The frame around the text counts as its nearest place.
  if (node == this && event.IsAction(ui::PointerAction::kPress) && event.IsButton(ui::MouseButton::kLeft) &&
      !IsDisabled()) {
    IntrusivePtr<UI_TextEdit> const self(this);
    UI_GainKeyboardFocus(ui::FocusChangeReason::kPointer);
    PointT<float> const inEdit =
        event.GetPosition() - mEdit->UI_GetLocalRectF(ui::RectSpace::kParent).TopLeft();
    std::size_t const position = mEdit->GetPositionAt(inEdit);
    mEdit->SetSelection({.anchor = position, .caret = position});
    return true;
  }
  return false;
}

void UI_TextEdit::UI_FocusChanged(ui::FocusChangeReason reason) {
  UI_ControlView::UI_FocusChanged(reason);
  bool const isLoss = reason == ui::FocusChangeReason::kLost || reason == ui::FocusChangeReason::kDeactivated;
  if (!isLoss && !mIsEditing && UI_TextEditControlHasFocus()) {
    mIsEditing = true;
    mTextAtBegin = GetValue();
    mWasUnknownAtBegin = IsValueUnknown();
  } else if (isLoss && mIsEditing) {
    mIsEditing = false;
    if (GetValue() != mTextAtBegin) {
      Commit();
    }
  }
}

bool UI_TextEdit::UI_DoKeyboardEvent(ui::UI_Node* node, ui::KeyboardEvent const& event) {
  bool const isDown = event.IsAction(ui::KeyAction::kKeyDown) && event.GetModKey().IsEmpty();
  if (!isDown || !UI_TextEditControlHasFocus() || IsDisabled()) {
    return UI_ControlView::UI_DoKeyboardEvent(node, event);
  }
  IntrusivePtr<UI_TextEdit> const self(this);
  switch (event.GetCode()) {
    case ui::KeyboardCode::kReturn:
    case ui::KeyboardCode::kEnter:
      Commit();
      if (mReturnEndsEditing) {
        UI_LoseKeyboardFocus();
      }
      return true;
    case ui::KeyboardCode::kEscape:
      Restore();
      UI_LoseKeyboardFocus();
      return true;
    default:
      return UI_ControlView::UI_DoKeyboardEvent(node, event);
  }
}

// Whoever followed the typing hears that it has been taken back.
void UI_TextEdit::Restore() {
  bool const isOtherText = GetValue() != mTextAtBegin;
  mEdit->SetText(mTextAtBegin);
  if (mWasUnknownAtBegin) {
    SetValueUnknown();
  }
  if (isOtherText) {
    UI_ControlChangedMessage message(*this, true);
    SendControlMessages(mEditListeners, message);
  }
}

void UI_TextEdit::Commit() {
  SetValueKnown();
  mWasUnknownAtBegin = false;
  mTextAtBegin = GetValue();
  SendValueChangedMessage();
}

void UI_TextEdit::TextEdited() {
  SetValueKnown();
  UI_ControlChangedMessage message(*this, true);
  SendControlMessages(mEditListeners, message);
}

bool UI_TextEdit::UI_InvalidateOnMouseOverChange(bool) {
  return !IsDisabled();
}

}  // namespace moxui::controls
