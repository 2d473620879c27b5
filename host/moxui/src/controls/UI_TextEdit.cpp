#include "../skins/BoxPainting.h"
#include "ControlPainting.h"

#include <moxcore/messaging/BindMessageFunction.h>
#include <moxcore/string/Encoding.h>
#include <moxui/controls/UI_ScrollBar.h>
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
constexpr float kAboveLines = 3.0f;  // from the frame to the first of several lines
constexpr float kRecommendedLines = 3.0f;

}  // namespace

UI_TextEdit::UI_TextEdit() : mEdit(moxcore::utility::MakeIntrusive<OS_EditText>()) {
  SetWantsKeyboardFocus(true);
  mEdit->SetEditedFunction([this] { TextEdited(); });
  mEdit->SetScrolledFunction([this] { EditScrolled(); });
  ChildPushBack(mEdit);
}

UI_TextEdit::~UI_TextEdit() {
  mEdit->SetEditedFunction({});
  mEdit->SetScrolledFunction({});
}

moxcore::Utf16String UI_TextEdit::GetValue() const {
  return mEdit->GetText();
}

void UI_TextEdit::SetValue(moxcore::Utf16String const& text, bool notify) {
  SetValueKnown();
  mEdit->SetText(text);
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

void UI_TextEdit::SetMultiLine(bool multiLine) {
  if (multiLine == IsMultiLine()) {
    return;
  }
  if (multiLine) {
    mScrollBar = moxcore::utility::MakeIntrusive<UI_ScrollBar>(Orientation::kVertical);
    mScrollBar->NotifyWhenChangedInteractively(
        moxcore::messaging::BindMessageFunction(this, &UI_TextEdit::BarMoved));
    mScrollBar->UI_Hide();
    ChildPushBack(mScrollBar);
  } else {
    ChildRemove(mScrollBar.Get());
    mScrollBar.Reset();
  }
  mEdit->SetMultiLine(multiLine);
  PlaceEdit();
  UI_Invalidate();
}

// The text without a frame begins at the very edge, as a text that isn't edited does.
void UI_TextEdit::PlaceEdit() {
  if (std::exchange(mIsPlacing, true)) {
    return;
  }
  RectT<float> const rect = UI_GetLocalRectF(ui::RectSpace::kOwn);
  float const inset = mDrawFrame ? UI_GetCurrentSkinSet().GetNumber(skins::SkinNumber::kTextInset) : 0.0f;
  float const frame = mDrawFrame ? kFrame + (IsMultiLine() ? kAboveLines : 0.0f) : 0.0f;
  RectT<float> text = rect.Grown({-inset, -frame, -inset, -frame});
  mEdit->SetAlignment(mAlignment.value_or(skins::GetLeadingAlignment()));
  if (mScrollBar && mScrollBar->UI_IsShown()) {
    float const bar = UI_ScrollBar::GetThickness();
    text.width -= bar;
    text.left += skins::IsRightToLeft() ? bar : 0.0f;
  }
  mEdit->UI_SetLocalRectF(text);
  PlaceScrollBar();
  mIsPlacing = false;
}

void UI_TextEdit::PlaceScrollBar() {
  if (!mScrollBar) {
    return;
  }
  float const bar = UI_ScrollBar::GetThickness();
  RectT<float> const rect = UI_GetLocalRectF(ui::RectSpace::kOwn).Grown({-kFrame, -kFrame, -kFrame, -kFrame});
  mScrollBar->UI_SetLocalRectF(
      {skins::IsRightToLeft() ? rect.left : rect.Right() - bar, rect.top, bar, rect.height});
  mScrollBar->SetLengths(mEdit->GetContentHeight(), mEdit->UI_GetLocalRectF(ui::RectSpace::kOwn).height);
  mScrollBar->SetOffset(mEdit->GetScrollOffset());
}

// Lines that become narrower beside the bar need it all the more: it doesn't come and go by turns.
void UI_TextEdit::EditScrolled() {
  if (!mScrollBar || mIsPlacing) {
    return;
  }
  PlaceScrollBar();
  if (mScrollBar->IsNeeded() != mScrollBar->UI_IsShown()) {
    mScrollBar->UI_Show(mScrollBar->IsNeeded());
    PlaceEdit();
  }
}

void UI_TextEdit::BarMoved(moxcore::messaging::Message* /*message*/) {
  mEdit->SetScrollOffset(mScrollBar->GetOffset());
}

void UI_TextEdit::UI_SizeChanged(RectT<float> const& rect) {
  UI_ControlView::UI_SizeChanged(rect);
  PlaceEdit();
  EditScrolled();
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
  float const height = UI_GetCurrentSkinSet().GetNumber(skins::SkinNumber::kTextEditHeight);
  return {kRecommendedWidth, IsMultiLine() ? height * kRecommendedLines : height};
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

bool UI_TextEdit::Commits(ui::KeyboardEvent const& event) const {
  return event.CompareShortcut(ui::KeyboardCode::kReturn, {}) ||
         event.CompareShortcut(ui::KeyboardCode::kEnter, {}) ||
         (IsMultiLine() && event.CompareShortcut(ui::KeyboardCode::kReturn, ui::ModKey::kCommand));
}

bool UI_TextEdit::UI_DoKeyboardEvent(ui::UI_Node* node, ui::KeyboardEvent const& event) {
  if (!event.IsAction(ui::KeyAction::kKeyDown) || !UI_TextEditControlHasFocus() || IsDisabled()) {
    return UI_ControlView::UI_DoKeyboardEvent(node, event);
  }
  IntrusivePtr<UI_TextEdit> const self(this);
  if (Commits(event)) {
    Commit();
    if (mReturnEndsEditing) {
      UI_LoseKeyboardFocus();
    }
    return true;
  }
  if (event.CompareShortcut(ui::KeyboardCode::kEscape, {})) {
    Restore();
    UI_LoseKeyboardFocus();
    return true;
  }
  return UI_ControlView::UI_DoKeyboardEvent(node, event);
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
