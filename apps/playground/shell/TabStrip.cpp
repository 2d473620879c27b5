#include "shell/TabStrip.h"

#include "program/AppearanceState.h"
#include "program/Localized.h"
#include "shell/Painting.h"

#include <moxui/scriber/Drawing.h>
#include <moxui/ui/KeyboardEvent.h>

#include <cmath>
#include <utility>

namespace playground {
namespace {

using moxui::RectT;
using moxui::ui::FontIndex;
using moxui::ui::KeyboardCode;
using moxui::ui::ThemeColorID;

constexpr float kTabPadding = 12.0f;
constexpr float kMarkHeight = 2.0f;

}  // namespace

TabStrip::TabStrip() = default;
TabStrip::~TabStrip() = default;

void TabStrip::SetTabs(std::vector<moxcore::Utf16String> tabs) {
  mTabs = std::move(tabs);
  mValue = 0;
  ItemsChanged();
}

void TabStrip::SetValue(std::size_t tab) {
  if (tab < mTabs.size() && tab != mValue) {
    mValue = tab;
    UI_Invalidate();
  }
}

RectT<float> TabStrip::ItemRect(std::size_t tab) const {
  RectT<float> const own = UI_GetLocalRectF(false);
  float left = 0.0f;
  for (std::size_t i = 0; i < mTabs.size(); ++i) {
    float const width =
        std::ceil((LabelWidth(mTabs[i], FontIndex::kText) + 2.0f * kTabPadding) / 4.0f) * 4.0f;
    if (i == tab) {
      return Placed({left, 0.0f, width, own.height}, own.width);
    }
    left += width;
  }
  return {};
}

void TabStrip::Choose(std::size_t tab) {
  if (tab < mTabs.size() && tab != mValue) {
    SetValue(tab);
    SendValueChangedMessage();
  }
}

void TabStrip::UI_Draw(moxui::scriber::Scriber* scriber) const {
  RectT<float> const own = UI_GetLocalRectF(false);
  moxui::utils::DrawRect(scriber, {0.0f, own.height - 1.0f, own.width, 1.0f},
                         ThemeColor(ThemeColorID::kGray3));
  for (std::size_t i = 0; i < mTabs.size(); ++i) {
    RectT<float> const rect = ItemRect(i);
    bool const chosen = i == mValue;
    ThemeColorID const color =
        chosen ? ThemeColorID::kGray9 : (HoveredItem() == i ? ThemeColorID::kGray8 : ThemeColorID::kGray7);
    DrawLabel(scriber, mTabs[i], rect, moxui::scriber::TextAlignment::kCenter, FontIndex::kText,
              ThemeColor(color));
    if (chosen) {
      moxui::utils::DrawRect(scriber,
                             {rect.left + kTabPadding, rect.Bottom() - kMarkHeight,
                              rect.width - 2.0f * kTabPadding, kMarkHeight},
                             ThemeColor(ThemeColorID::kInteractive));
      if (UI_HasKeyboardFocus()) {
        DrawInnerFocusRing(scriber, rect.Inset(2.0f));
      }
    }
  }
}

moxui::PaddingT<float> TabStrip::UI_GetDrawOverhang() const {
  return {};
}

bool TabStrip::UI_DoKeyboardEvent(moxui::ui::UI_Node*, moxui::ui::KeyboardEvent const& event) {
  if (!event.IsAction(moxui::ui::KeyAction::kKeyDown) || !event.GetModKey().IsEmpty() || mTabs.empty()) {
    return false;
  }
  KeyboardCode code = event.GetCode();
  if (CurrentAppearance().rightToLeft && (code == KeyboardCode::kLeft || code == KeyboardCode::kRight)) {
    code = code == KeyboardCode::kLeft ? KeyboardCode::kRight : KeyboardCode::kLeft;
  }
  switch (code) {
    case KeyboardCode::kLeft:
      Choose(mValue == 0 ? 0 : mValue - 1);
      return true;
    case KeyboardCode::kRight:
      Choose(mValue + 1);
      return true;
    case KeyboardCode::kHome:
      Choose(0);
      return true;
    case KeyboardCode::kEnd:
      Choose(mTabs.size() - 1);
      return true;
    default:
      return false;
  }
}

moxcore::Utf8String TabStrip::UI_GetAccessibleName() const {
  return moxcore::Utf8String(Text("$$$/playground/states=States"));
}

moxcore::Utf8String TabStrip::UI_GetAccessibleValue() const {
  return mValue < mTabs.size() ? moxcore::Utf8String(To8(mTabs[mValue])) : moxcore::Utf8String();
}

}  // namespace playground
