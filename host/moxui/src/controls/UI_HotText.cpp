#include "../skins/BoxPainting.h"
#include "../skins/TextPainting.h"
#include "ControlPainting.h"
#include "PressCapture.h"

#include <moxcore/messaging/BindMessageFunction.h>
#include <moxcore/string/Encoding.h>
#include <moxui/controls/UI_HotText.h>
#include <moxui/scriber/FontInterface.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace moxui::controls {
namespace {

using moxcore::utility::IntrusivePtr;
using ui::ThemeColorID;

constexpr float kTextInset = 4.0f;  // of hot text, which stands where it does in its edit
constexpr float kFrame = 1.0f;
constexpr float kUnderlineGap = 1.0f;  // from the baseline to the line under a text that is pointed at

ThemeColorID TextRole(skins::ControlLook const& look, bool isInBox) {
  switch (look.GetInteraction()) {
    case skins::Interaction::kDisabled:
      return ThemeColorID::kDefaultTextDisabled;
    case skins::Interaction::kPressed:
      return ThemeColorID::kInteractivePressed;
    case skins::Interaction::kHover:
      return ThemeColorID::kInteractiveHover;
    case skins::Interaction::kIdle:
      break;
  }
  return isInBox ? ThemeColorID::kStrongText : ThemeColorID::kInteractive;
}

}  // namespace

UI_HotText::UI_HotText() : mEdit(moxcore::utility::MakeIntrusive<UI_TextEdit>()) {
  SetWantsKeyboardFocus(true);
  mEdit->SetDrawFrame(false);
  mEdit->UI_Hide();
  mEdit->NotifyWhenChanged(moxcore::messaging::BindMessageFunction(this, &UI_HotText::EditCommitted));
  ChildPushBack(mEdit);
}

UI_HotText::UI_HotText(moxcore::Utf16String text) : UI_HotText() {
  mText.text = std::move(text);
}

UI_HotText::~UI_HotText() = default;

// Text and appearance

void UI_HotText::SetText(moxcore::Utf16String const& text) {
  SetValueKnown();
  if (mText.text != text) {
    mText.text = text;
    ShowTextAnew();
  }
}

void UI_HotText::ShowTextAnew() {
  UI_Invalidate();
  UI_TellAccessibleChange(ui::AccessibleChange::kValue);
}

void UI_HotText::SetTextLabel(moxcore::Utf16String label) {
  if (label != mLabel) {
    mLabel = std::move(label);
    ShowTextAnew();
  }
}

template <typename T>
void UI_HotText::StoreText(T ControlText::*field, T value) {
  if (mText.*field != value) {
    mText.*field = value;
    PlaceEdit();
    UI_Invalidate();
  }
}

void UI_HotText::SetAlignment(ControlAlignment alignment) {
  StoreText(&ControlText::alignment, std::optional(alignment));
}

void UI_HotText::SetTextIndent(float indent) {
  StoreText(&ControlText::indent, indent);
}

void UI_HotText::SetTextTruncation(TextTruncation truncation) {
  StoreText(&ControlText::truncation, truncation);
}

void UI_HotText::SetFontIndex(ui::FontIndex index) {
  StoreText(&ControlText::fontIndex, index);
}

void UI_HotText::SetFontSize(float size) {
  StoreText(&ControlText::fontSize, size);
}

void UI_HotText::SetNumericInput(bool inBox) {
  if (std::exchange(mIsInBox, inBox) != inBox) {
    PlaceEdit();
    UI_Invalidate();
  }
}

void UI_HotText::SetSuppressFocusDrawing(bool suppress) {
  if (std::exchange(mSuppressFocusDrawing, suppress) != suppress) {
    UI_Invalidate();
  }
}

moxcore::Utf16String UI_HotText::ShownText() const {
  return IsValueUnknown() ? moxcore::Utf16String(skins::kUnknownText) : GetText() + mLabel;
}

// In own coordinates; the edit has its text in the same place.
RectT<float> UI_HotText::TextBox() const {
  float const inset = mIsInBox ? UI_GetCurrentSkinSet().GetNumber(skins::SkinNumber::kTextInset) : kTextInset;
  bool const fromRight = GetAlignment(mText) == ControlAlignment::kRight;
  return UI_GetLocalRectF(ui::RectSpace::kOwn)
      .Grown({-inset - (fromRight ? 0.0f : mText.indent), -kFrame, -inset - (fromRight ? mText.indent : 0.0f),
              -kFrame});
}

void UI_HotText::PlaceEdit() {
  mEdit->SetAlignment(GetAlignment(mText));
  mEdit->SetFont({}, mText.fontSize > 0.0f ? mText.fontSize : GetThemeFontSize(mText.fontIndex), {});
  mEdit->UI_SetLocalRectF(TextBox());
}

void UI_HotText::UI_SizeChanged(RectT<float> const& rect) {
  UI_InteractiveControlView::UI_SizeChanged(rect);
  PlaceEdit();
}

void UI_HotText::UI_SkinSetUpdated() {
  UI_InteractiveControlView::UI_SkinSetUpdated();
  PlaceEdit();
}

void UI_HotText::UI_Draw(scriber::Scriber* scriber) const {
  RectT<float> const rect = UI_GetLocalRectF(ui::RectSpace::kOwn);
  skins::ControlLook const look = GetControlLook(*this);
  bool const isEditing = IsEditing();
  if ((mIsInBox || isEditing) && !rect.IsEmpty()) {
    skins::DrawFieldBox(scriber, rect, look);
  }
  scriber::FontP const font = GetControlFont(mText, *this, scriber->GetSupplier());
  if (font && !isEditing) {
    ColorRGBA const colour = look.Color(TextRole(look, mIsInBox));
    moxcore::Utf16String const shown = ShownText();
    RectT<float> const box = TextBox();
    skins::DrawTextLine(scriber, shown, box, GetAlignment(mText), mText.truncation, *font, colour);
    auto const interaction = look.GetInteraction();
    bool const isPointedAt =
        interaction == skins::Interaction::kHover || interaction == skins::Interaction::kPressed;
    if (isPointedAt && !mIsInBox) {
      float const width = std::min(std::ceil(font->GetWidth(shown)), box.width);
      float const spare = box.width - width;
      ControlAlignment const alignment = GetAlignment(mText);
      float const share = alignment == ControlAlignment::kLeft    ? 0.0f
                          : alignment == ControlAlignment::kRight ? 1.0f
                                                                  : 0.5f;
      scriber->GetSurface()->FillRect({std::round(box.left + spare * share),
                                       skins::GetCenteredBaseline(box, *font) + kUnderlineGap, width, 1.0f},
                                      colour);
    }
  }
  bool const showsRing = isEditing || (mFocusVisibility.ShowsRing() && UI_HasKeyboardFocus(true));
  if (showsRing && !mSuppressFocusDrawing) {
    skins::DrawFocusRing(scriber, rect, look.Number(skins::SkinNumber::kCornerRadius),
                         look.Color(ThemeColorID::kFocus));
  }
  UI_InteractiveControlView::UI_Draw(scriber);
}

PaddingT<float> UI_HotText::UI_GetDrawOverhang() const {
  float const reach = skins::kFocusRingReach;
  return {reach, reach, reach, reach};
}

ExtentT<float> UI_HotText::UI_GetRecommendedSize(scriber::Scriber* scriber) const {
  scriber::FontP const font = GetControlFont(mText, *this, scriber->GetSupplier());
  float const width = font ? std::ceil(font->GetWidth(ShownText())) : 0.0f;
  float const beside = UI_GetLocalRectF(ui::RectSpace::kOwn).width - TextBox().width;
  return {width + beside, UI_GetCurrentSkinSet().GetNumber(skins::SkinNumber::kTextEditHeight)};
}

// The edit

void UI_HotText::OpenEdit() {
  if (IsDisabled() || IsEditing()) {
    return;
  }
  IntrusivePtr<UI_HotText> const self(this);
  bool const hasFocus = UI_HasKeyboardFocus(true);
  mEditOpenedByKey = hasFocus && mFocusVisibility.ShowsRing();
  // The focus is given up first: its loss, told to this control, would close the edit inside of it.
  if (hasFocus) {
    UI_LoseKeyboardFocus();
  }
  mEdit->SetAccessibleName(UI_GetAccessibleName());
  mEdit->SetValue(IsValueUnknown() ? moxcore::Utf16String() : GetTextToEdit(), false);
  PlaceEdit();
  mEdit->UI_Show();
  UI_Invalidate();
  if (!mEdit->UI_GainKeyboardFocus(ui::FocusChangeReason::kByCode)) {
    CloseEdit();
  }
}

void UI_HotText::EditCommitted(moxcore::messaging::Message* /*message*/) {
  if (TakeTypedText(mEdit->GetValue()) || mAlwaysNotify) {
    SendValueChangedMessage();
  }
}

bool UI_HotText::TakeTypedText(moxcore::Utf16String const& text) {
  bool const changes = IsValueUnknown() || text != GetText();
  SetText(text);
  return changes;
}

void UI_HotText::CloseEdit() {
  if (mEdit->UI_IsShown()) {
    mEdit->UI_Hide();
    UI_Invalidate();
  }
}

void UI_HotText::UI_FocusChanged(ui::FocusChangeReason reason) {
  IntrusivePtr<UI_HotText> const self(this);
  UI_InteractiveControlView::UI_FocusChanged(reason);
  mFocusVisibility.FocusChanged(reason);
  bool const isLoss = reason == ui::FocusChangeReason::kLost || reason == ui::FocusChangeReason::kDeactivated;
  if (isLoss) {
    CloseEdit();
  }
}

bool UI_HotText::UI_WantsKeyboardFocus() const {
  return UI_InteractiveControlView::UI_WantsKeyboardFocus() && !IsDisabled();
}

void UI_HotText::KeyUsed() {
  if (mFocusVisibility.KeyUsed()) {
    UI_Invalidate();
  }
}

}  // namespace moxui::controls
