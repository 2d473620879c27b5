#include "../ArchiveClasses.h"

#include <moxui/controls/UI_StaticText.h>

namespace moxui::archive {

namespace {

using controls::UI_StaticText;

void SetAlignment(UI_StaticText& text, PropertyValue const& value) {
  text.SetAlignment(value.AsAlignment());
}

/// A tone that the theme doesn't change, for texts over pictures.
void SetStaticColor(UI_StaticText& text, PropertyValue const& value) {
  enum class StaticColor { kNone, kWhite, kBlack };
  switch (value.AsEnumeration(StaticColor::kBlack)) {
    case StaticColor::kNone:
      text.ClearCustomTextColor();
      break;
    case StaticColor::kWhite:
      text.SetCustomTextColor(ColorRGBAFixed::White);
      break;
    case StaticColor::kBlack:
      text.SetCustomTextColor(ColorRGBAFixed::Black);
      break;
  }
}

constexpr Property<UI_StaticText> kStaticText[] = {
    {"text", [](UI_StaticText& text, PropertyValue const& value) { text.SetValue(value.AsText()); }},
    {"alignment", SetAlignment},
    {"textAlignment", SetAlignment},
    {"textIndent",
     [](UI_StaticText& text, PropertyValue const& value) { text.SetTextIndent(value.AsFloat()); }},
    {"textTruncation",
     [](UI_StaticText& text, PropertyValue const& value) {
       text.SetTextTruncation(value.AsEnumeration(controls::TextTruncation::kMiddle));
     }},
    {"multiLine",
     [](UI_StaticText& text, PropertyValue const& value) { text.SetMultiLine(value.AsBoolean()); }},
    {"fontSize", [](UI_StaticText& text, PropertyValue const& value) { text.SetFontSize(value.AsFloat()); }},
    {"fontSizeID",
     [](UI_StaticText& text, PropertyValue const& value) {
       text.SetFontIndex(value.AsEnumeration(ui::FontIndex::kTitle));
     }},
    {"staticColor", SetStaticColor},
};

constexpr SectionOf<UI_StaticText> kStaticTextSection{kStaticText};

constexpr ArchiveClass kClasses[] = {
    {"moxui::controls::UI_StaticText", Make<UI_StaticText>, &kStaticTextSection}};

}  // namespace

std::span<ArchiveClass const> TextClasses() {
  return kClasses;
}

}  // namespace moxui::archive
