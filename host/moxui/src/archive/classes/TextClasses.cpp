#include "../ArchiveClasses.h"

#include <moxui/controls/UI_HotTextNumber.h>
#include <moxui/controls/UI_StaticText.h>

namespace moxui::archive {

namespace {

using controls::UI_HotText;
using controls::UI_HotTextNumber;
using controls::UI_StaticText;

template <class Text>
void SetAlignment(Text& text, PropertyValue const& value) {
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
    {"alignment", SetAlignment<UI_StaticText>},
    {"textAlignment", SetAlignment<UI_StaticText>},
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

template <auto kSetter>
void SetBoolean(UI_HotTextNumber& number, PropertyValue const& value) {
  (number.*kSetter)(value.AsBoolean());
}

template <auto kSetter>
void SetDouble(UI_HotTextNumber& number, PropertyValue const& value) {
  (number.*kSetter)(value.AsDouble());
}

void SetNumericInput(UI_HotText& text, PropertyValue const& value) {
  text.SetNumericInput(value.AsBoolean());
}

constexpr Property<UI_HotText> kHotText[] = {
    {"text", [](UI_HotText& text, PropertyValue const& value) { text.SetText(value.AsText()); }},
    {"textLabel", [](UI_HotText& text, PropertyValue const& value) { text.SetTextLabel(value.AsText()); }},
    {"alignment", SetAlignment<UI_HotText>},
    {"textAlignment", SetAlignment<UI_HotText>},
    {"textIndent", [](UI_HotText& text, PropertyValue const& value) { text.SetTextIndent(value.AsFloat()); }},
    {"textTruncation",
     [](UI_HotText& text, PropertyValue const& value) {
       text.SetTextTruncation(value.AsEnumeration(controls::TextTruncation::kMiddle));
     }},
    {"fontSize", [](UI_HotText& text, PropertyValue const& value) { text.SetFontSize(value.AsFloat()); }},
    {"fontSizeID",
     [](UI_HotText& text, PropertyValue const& value) {
       text.SetFontIndex(value.AsEnumeration(ui::FontIndex::kTitle));
     }},
    {"numericInput", SetNumericInput},
};

constexpr Property<UI_HotTextNumber> kHotTextNumber[] = {
    {"minValue", SetDouble<&UI_HotTextNumber::SetMinValue>},
    {"maxValue", SetDouble<&UI_HotTextNumber::SetMaxValue>},
    {"increment", SetDouble<&UI_HotTextNumber::SetIncrement>},
    {"shiftIncrement", SetDouble<&UI_HotTextNumber::SetShiftIncrement>},
    {"cmdIncrement", SetDouble<&UI_HotTextNumber::SetCmdIncrement>},
    {"decimalPlaces",
     [](UI_HotTextNumber& number, PropertyValue const& value) {
       number.SetDecimalPlaces(value.AsChoice(controls::kMostDecimalPlaces + 1));
     }},
    {"formatAlwaysSign", SetBoolean<&UI_HotTextNumber::SetFormatAlwaysSign>},
    {"formatLeadingSpaces", SetBoolean<&UI_HotTextNumber::SetFormatLeadingSpaces>},
    {"formatNoLocalization", SetBoolean<&UI_HotTextNumber::SetFormatNoLocalization>},
    {"formatNoTrailingZeros", SetBoolean<&UI_HotTextNumber::SetFormatNoTrailingZeros>},
    {"formatNormal", SetBoolean<&UI_HotTextNumber::SetFormatNormal>},
    {"formatPadSign", SetBoolean<&UI_HotTextNumber::SetFormatPadSign>},
    {"formatUseSeparator", SetBoolean<&UI_HotTextNumber::SetFormatUseSeparator>},
    {"numericInput",
     [](UI_HotTextNumber& number, PropertyValue const& value) { SetNumericInput(number, value); }},
};

constexpr SectionOf<UI_StaticText> kStaticTextSection{kStaticText};
constexpr SectionOf<UI_HotText> kHotTextSection{kHotText};
constexpr SectionOf<UI_HotTextNumber> kHotTextNumberSection{kHotTextNumber};

constexpr ArchiveClass kTextClasses[] = {
    {"moxui::controls::UI_StaticText", Make<UI_StaticText>, &kStaticTextSection},
    {"moxui::controls::UI_HotText", Make<UI_HotText>, &kHotTextSection},
    {"moxui::controls::UI_HotTextNumber", Make<UI_HotTextNumber>, &kHotTextNumberSection},
};

}  // namespace

std::span<ArchiveClass const> TextClasses() {
  return kTextClasses;
}

}  // namespace moxui::archive
