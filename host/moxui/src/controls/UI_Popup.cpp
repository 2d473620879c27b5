#include "../skins/BoxPainting.h"
#include "../skins/PopupPainting.h"
#include "../skins/TextPainting.h"
#include "ControlPainting.h"

#include <moxcore/string/Encoding.h>
#include <moxui/controls/UI_Popup.h>
#include <moxui/scriber/FontInterface.h>
#include <moxui/scriber/Scriber.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace moxui::controls {
UI_Popup::UI_Popup(PopupType type, PopupVariant variant, ComponentSize size)
    : mType(type), mVariant(variant) {
  SetComponentSize(size);
}

UI_Popup::~UI_Popup() = default;

std::int64_t UI_Popup::AddItem(moxcore::Utf16String text, std::int64_t position) {
  auto const count = static_cast<std::int64_t>(mItems.size());
  std::int64_t const place = position < 0 || position > count ? count : position;
  moxcore::Utf16String const shown = GetShownText();
  mItems.insert(mItems.begin() + place, PopupItem{.text = std::move(text)});
  ItemsChanged(shown);
  return place;
}

std::int64_t UI_Popup::AddSeparator() {
  mItems.push_back({.text = {}, .isSeparator = true});
  return static_cast<std::int64_t>(mItems.size()) - 1;
}

void UI_Popup::SetItems(std::vector<PopupItemDescriptor> const& items) {
  moxcore::Utf16String const shown = GetShownText();
  mItems.clear();
  for (PopupItemDescriptor const& item : items) {
    mItems.push_back({.text = item.text, .isSeparator = item.text.empty(), .isEnabled = item.isEnabled});
  }
  ItemsChanged(shown);
}

void UI_Popup::DeleteAllItems() {
  moxcore::Utf16String const shown = GetShownText();
  mItems.clear();
  mValue = kNoItem;
  mShowsValueString = false;
  ItemsChanged(shown);
}

void UI_Popup::ItemsChanged(moxcore::Utf16String const& shownBefore) {
  UI_Invalidate();
  // The same value may stand for another text now.
  if (GetShownText() != shownBefore) {
    UI_TellAccessibleChange(ui::AccessibleChange::kValue);
  }
}

void UI_Popup::EnableItem(std::int64_t value, bool enabled) {
  if (value >= 0 && value < static_cast<std::int64_t>(mItems.size())) {
    mItems[static_cast<std::size_t>(value)].isEnabled = enabled;
  }
}

void UI_Popup::SetValue(std::int64_t value) {
  if (value != kNoItem) {
    SetValueKnown();
  }
  bool const isOther = std::exchange(mValue, value) != value;
  bool const replacesText = std::exchange(mShowsValueString, false);
  if (isOther || replacesText) {
    UI_Invalidate();
    UI_TellAccessibleChange(ui::AccessibleChange::kValue);
  }
}

void UI_Popup::SetValueString(moxcore::Utf16String text, bool clearsItem, bool repaint) {
  mValueString = std::move(text);
  mShowsValueString = true;
  if (clearsItem) {
    mValue = kNoItem;
  }
  SetValueKnown();
  UI_TellAccessibleChange(ui::AccessibleChange::kValue);
  if (repaint) {
    UI_Invalidate();
  }
}

moxcore::Utf16String UI_Popup::GetShownText() const {
  if (IsValueUnknown()) {
    return moxcore::Utf16String(skins::kUnknownText);
  }
  if (mShowsValueString) {
    return mValueString;
  }
  bool const isItem = mValue >= 0 && mValue < static_cast<std::int64_t>(mItems.size());
  return isItem ? mItems[static_cast<std::size_t>(mValue)].text : moxcore::Utf16String();
}

void UI_Popup::SetPopupVariantType(PopupVariant variant) {
  StoreVisual(mVariant, variant);
}

void UI_Popup::SetTextTruncation(TextTruncation truncation) {
  StoreVisual(mText.truncation, truncation);
}

void UI_Popup::SetDrawDivider(bool draws) {
  StoreVisual(mDrawDivider, draws);
}

void UI_Popup::SetFontIndex(ui::FontIndex index) {
  StoreVisual(mText.fontIndex, index);
}

void UI_Popup::SetFontSize(float size) {
  StoreVisual(mText.fontSize, size);
}

bool UI_Popup::CanChoose(std::int64_t value) const {
  if (value < 0 || value >= static_cast<std::int64_t>(mItems.size())) {
    return false;
  }
  PopupItem const& item = mItems[static_cast<std::size_t>(value)];
  return !item.isSeparator && item.isEnabled;
}

void UI_Popup::Choose(std::int64_t value) {
  if (!CanChoose(value)) {
    return;
  }
  bool const isChange = value != mValue || mShowsValueString || IsValueUnknown();
  SetValue(value);
  if (isChange || mAlwaysNotify) {
    SendValueChangedMessage();
  }
}

void UI_Popup::UI_Draw(scriber::Scriber* scriber) const {
  skins::ControlLook const look = GetControlLook(*this);
  RectT<float> const rect = UI_GetLocalRectF(ui::RectSpace::kOwn);
  if (!rect.IsEmpty()) {
    bool const isQuiet = mVariant == PopupVariant::kQuiet || GetComponents().IsQuiet();
    skins::PaintPopupBox(scriber, rect, {.drawDivider = mDrawDivider, .isQuiet = isQuiet}, look);
    if (scriber::FontP const font = GetControlFont(mText, *this, scriber->GetSupplier())) {
      RectT<float> const box = skins::GetPopupLayout(rect, *look.skinSet).text;
      skins::DrawTextLine(scriber, GetShownText(), box, GetAlignment(mText), mText.truncation, *font,
                          skins::GetPopupTextColor(look));
    }
    if (ShowsFocusRing()) {
      skins::DrawFocusRing(scriber, rect, look.Number(skins::SkinNumber::kCornerRadius),
                           look.Color(ui::ThemeColorID::kFocus));
    }
  }
  // NOLINTNEXTLINE(bugprone-parent-virtual-call): in place of what UI_Button does
  ui::UI_SubView::UI_Draw(scriber);
}

ExtentT<float> UI_Popup::UI_GetRecommendedSize(scriber::Scriber* scriber) const {
  skins::SkinSet const& skinSet = UI_GetCurrentSkinSet();
  float widest = 0.0f;
  if (scriber::FontP const font = GetControlFont(mText, *this, scriber->GetSupplier())) {
    for (PopupItem const& item : mItems) {
      widest = std::max(widest, std::ceil(font->GetWidth(item.text)));
    }
  }
  RectT<float> const probe(0.0f, 0.0f, 100.0f, 10.0f);
  float const around = probe.width - skins::GetPopupLayout(probe, skinSet).text.width;
  return {widest + around,
          GetControlHeight(skinSet, skins::SkinNumber::kPopupHeight, GetComponents().GetComponentSize())};
}

ui::AccessibleRole UI_Popup::UI_GetAccessibleRole() const {
  return ui::AccessibleRole::kComboBox;
}

moxcore::Utf8String UI_Popup::UI_GetAccessibleValue() const {
  return IsValueUnknown() ? moxcore::Utf8String() : moxcore::string::UTF16to8(GetShownText());
}

ui::AccessibleState UI_Popup::UI_GetAccessibleState() const {
  ui::AccessibleState state = UI_Button::UI_GetAccessibleState();
  state.hasPopup = true;
  state.isExpandable = true;
  state.isExpanded = IsDown();
  return state;
}

}  // namespace moxui::controls
