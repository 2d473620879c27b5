#include "controls/KeyTable.h"

#include "program/Localized.h"
#include "shell/Painting.h"

#include <utility>

namespace playground {
namespace {

using moxui::RectT;
using moxui::controls::UI_StaticText;
using moxui::ui::ThemeColorID;

constexpr float kHeadingHeight = 28.0f;
constexpr float kLineHeight = 24.0f;

}  // namespace

KeyTable::KeyTable(std::vector<KeyLine> const& keys, float keyWidth) : mKeyWidth(keyWidth) {
  mHeading = AddText(Text16("$$$/playground/keys/heading=Keyboard"), ThemeColorID::kGray7);
  mHeading->SetFontIndex(moxui::ui::FontIndex::kSmall);
  for (KeyLine const& line : keys) {
    mLines.push_back({.keys = AddText(Text16(line.keys), ThemeColorID::kGray9),
                      .text = AddText(Text16(line.text), ThemeColorID::kGray8)});
  }
}

KeyTable::~KeyTable() = default;

moxcore::utility::IntrusivePtr<UI_StaticText> KeyTable::AddText(moxcore::Utf16String text,
                                                                ThemeColorID colour) {
  auto made = moxcore::utility::MakeIntrusive<UI_StaticText>(std::move(text));
  made->SetCustomThemeColor(ThemeColorID::kDefaultText, colour);
  ChildPushBack(made);
  return made;
}

float KeyTable::GetHeight() const {
  return kHeadingHeight + kLineHeight * static_cast<float>(mLines.size());
}

void KeyTable::UI_SizeChanged(RectT<float> const& rect) {
  UI_SubView::UI_SizeChanged(rect);
  mHeading->UI_SetLocalRectF(Placed({0.0f, 0.0f, rect.width, kHeadingHeight}, rect.width));
  float top = kHeadingHeight;
  for (Line const& line : mLines) {
    line.keys->UI_SetLocalRectF(Placed({0.0f, top, mKeyWidth - 8.0f, kLineHeight}, rect.width));
    line.text->UI_SetLocalRectF(Placed({mKeyWidth, top, rect.width - mKeyWidth, kLineHeight}, rect.width));
    top += kLineHeight;
  }
}

}  // namespace playground
