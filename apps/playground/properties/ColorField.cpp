#include "properties/ColorField.h"

#include "program/HexColor.h"
#include "program/Localized.h"
#include "properties/NamedColors.h"
#include "shell/Listening.h"
#include "shell/Named.h"
#include "shell/Painting.h"

#include <moxui/scriber/Drawing.h>
#include <moxui/scriber/Scriber.h>

#include <utility>

namespace playground {
namespace {

using moxui::ColorRGBA;
using moxui::RectT;
using moxui::controls::UI_Popup;
using moxui::controls::UI_TextEdit;

// The theme's colour and a divider stand before the named ones.
constexpr std::int64_t kThemeItem = 0;
constexpr std::int64_t kFirstColorItem = 2;

constexpr float kSwatchWidth = 20.0f;
constexpr float kNumberWidth = 76.0f;
constexpr std::size_t kLongestNumber = 9;

}  // namespace

ColorField::ColorField(std::string_view name, ChangeFunction change) : mChange(std::move(change)) {
  mPopup = moxcore::utility::MakeIntrusive<Named<UI_Popup>>(name);
  mPopup->AddItem(Text16("$$$/playground/color/theme=Theme"));
  mPopup->AddSeparator();
  for (NamedColor const& color : NamedColors()) {
    mPopup->AddItem(Text16(color.name));
  }
  mPopup->SetWantsKeyboardFocus(true);
  ChildPushBack(mPopup);
  WhenChanged(*mPopup, this, [](ColorField& field) { field.Chosen(); });

  mNumber = moxcore::utility::MakeIntrusive<UI_TextEdit>();
  mNumber->SetAccessibleName(
      moxcore::Utf8String(Text("$$$/playground/color/numberName=@0 as a number", {name})));
  mNumber->SetMaxLength(kLongestNumber);
  ChildPushBack(mNumber);
  WhenChanged(*mNumber, this, [](ColorField& field) { field.Typed(); });
}

ColorField::~ColorField() = default;

void ColorField::SetValue(ColorRGBA const& color, bool followsTheme) {
  if (!(mColor == color)) {
    mColor = color;
    UI_Invalidate(SwatchRect());
  }
  std::string const number = HexFromColor(color);
  if (!mNumber->UI_TextEditControlHasFocus()) {
    mNumber->SetValue(To16(number), false);
  }
  if (followsTheme) {
    mPopup->SetValue(kThemeItem);
    return;
  }
  auto const named = NamedColors();
  for (std::size_t i = 0; i < named.size(); ++i) {
    if (HexFromColor(ColorOfNumber(named[i].number)) == number) {
      mPopup->SetValue(kFirstColorItem + static_cast<std::int64_t>(i));
      return;
    }
  }
  mPopup->SetValueString(Text16("$$$/playground/color/other=Own"), true, true);
}

void ColorField::Chosen() {
  std::int64_t const item = mPopup->GetValue();
  auto const named = NamedColors();
  if (item == kThemeItem) {
    mChange(std::nullopt);
  } else if (item >= kFirstColorItem && item - kFirstColorItem < static_cast<std::int64_t>(named.size())) {
    mChange(ColorOfNumber(named[static_cast<std::size_t>(item - kFirstColorItem)].number));
  }
}

void ColorField::Typed() {
  if (auto const color = ColorFromHex(To8(mNumber->GetValue()))) {
    mChange(*color);
  }
  // Whatever was typed, the colour in force is what stands there afterwards.
  mNumber->SetValue(To16(HexFromColor(mColor)), false);
}

RectT<float> ColorField::SwatchRect() const {
  RectT<float> const own = UI_GetLocalRectF(false);
  return Placed({0.0f, 0.0f, kSwatchWidth, own.height}, own.width);
}

void ColorField::UI_Draw(moxui::scriber::Scriber* scriber) const {
  RectT<float> const rect = SwatchRect();
  moxui::utils::DrawRect(scriber, rect, mColor);
  moxui::utils::DrawOutline(scriber, rect.Inset(0.5f), ThemeColor(moxui::ui::ThemeColorID::kFieldOutline),
                            1.0f);
  UI_SubView::UI_Draw(scriber);
}

void ColorField::UI_SizeChanged(RectT<float> const& rect) {
  UI_SubView::UI_SizeChanged(rect);
  float const popup = rect.width - kSwatchWidth - kNumberWidth - 2.0f * kRowGap;
  mPopup->UI_SetLocalRectF(Placed({kSwatchWidth + kRowGap, 0.0f, popup, rect.height}, rect.width));
  mNumber->UI_SetLocalRectF(Placed({rect.width - kNumberWidth, 0.0f, kNumberWidth, rect.height}, rect.width));
}

}  // namespace playground
