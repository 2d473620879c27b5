#include <moxui/skins/ControlState.h>
#include <moxui/skins/Design.h>
#include <moxui/skins/DrawButtonParameters.h>
#include <moxui/skins/Theme.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace moxui::ui {
namespace {

using enum ThemeColorID;

// Relative luminance and contrast as WCAG 2.1 defines them.
double Luminance(ColorRGBA const& colour) {
  auto const linear = [](double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.red) + 0.7152 * linear(colour.green) + 0.0722 * linear(colour.blue);
}

double Contrast(ColorRGBA const& a, ColorRGBA const& b) {
  double const first = Luminance(a);
  double const second = Luminance(b);
  double const darker = std::min(first, second);
  double const lighter = std::max(first, second);
  return (lighter + 0.05) / (darker + 0.05);
}

ColorRGBA Over(ColorRGBA const& top, ColorRGBA const& ground) {
  auto const mix = [&](float a, float b) { return a * top.alpha + b * (1.0f - top.alpha); };
  return {mix(top.red, ground.red), mix(top.green, ground.green), mix(top.blue, ground.blue), 1.0f};
}

struct Pair {
  ThemeColorID ink;
  ThemeColorID ground;
};

class ThemeContrast : public ::testing::TestWithParam<ThemeID> {
 protected:
  Theme const& GetTheme() const { return Theme::Get(GetParam()); }
  void ExpectAtLeast(double least, std::vector<Pair> const& pairs) const {
    for (Pair const& pair : pairs) {
      EXPECT_GE(Contrast(GetTheme().GetColor(pair.ink), GetTheme().GetColor(pair.ground)), least)
          << "colour " << static_cast<unsigned>(pair.ink) << " on " << static_cast<unsigned>(pair.ground);
    }
  }
};

TEST_P(ThemeContrast, OfTextIsFourAndAHalfOnEveryGroundItStandsOn) {
  ExpectAtLeast(4.5, {{kDefaultText, kPanelBackground},
                      {kDefaultText, kTabBackground},
                      {kDefaultText, kGray3},
                      {kDefaultText, kGray4},
                      {kStrongText, kFieldFill},
                      {kStrongText, kFieldFillHover},
                      {kPlaceholderText, kFieldFill},
                      {kInteractive, kPanelBackground},
                      {kInteractive, kTabBackground},
                      {kInteractive, kGray3},
                      {kButtonText, kButtonFill},
                      {kButtonTextActive, kButtonFillHover},
                      {kButtonTextActive, kButtonFillPressed},
                      {kButtonTextActive, kButtonFillSelected},
                      {kOnInteractive, kInteractive},
                      {kOnInteractive, kInteractiveHover},
                      {kOnInteractive, kInteractivePressed},
                      {kOnNegative, kNegative},
                      {kOnNegative, kNegativeHover},
                      {kOnNegative, kNegativePressed},
                      {kTableText, kPanelBackground},
                      {kTableText, kTableAlternateRow},
                      {kGray8, kPanelBackground},
                      {kGray9, kPanelBackground}});
}

TEST_P(ThemeContrast, OfSelectedTextIsFourAndAHalf) {
  for (ThemeColorID const ground : {kFieldFill, kPanelBackground}) {
    ColorRGBA const selected = Over(GetTheme().GetColor(kSelectionFill), GetTheme().GetColor(ground));
    EXPECT_GE(Contrast(GetTheme().GetColor(kStrongText), selected), 4.5);
  }
}

TEST_P(ThemeContrast, OfFocusRingsAndActiveOutlinesIsThree) {
  ExpectAtLeast(3.0, {{kFocus, kPanelBackground},
                      {kFocus, kTabBackground},
                      {kFocus, kGray3},
                      {kFieldOutline, kPanelBackground},
                      {kFieldOutline, kTabBackground},
                      {kFieldOutlineActive, kPanelBackground},
                      {kFieldOutlineActive, kFieldFillHover},
                      {kButtonOutlineActive, kPanelBackground},
                      {kButtonOutlineActive, kTabBackground},
                      {kScrollBarThumb, kScrollBarTrack},
                      {kScrollBarThumbActive, kScrollBarTrack},
                      {kScrollBarThumbPressed, kScrollBarTrack},
                      {kNegative, kPanelBackground},
                      {kInteractive, kFieldOutlineDisabled}});
}

TEST_P(ThemeContrast, OfTheRangeBandAgainstTheEmptyTrackIsThree) {
  ThemeColorID const band = GetTheme().IsLight() ? kRangeBandLight : kRangeBandDark;
  ExpectAtLeast(3.0, {{band, kProgressBarEmptyFill}});
}

TEST_P(ThemeContrast, OfAButtonsLabelHoldsInEveryStateAndAppearance) {
  using skins::ControlState::kPressed;
  using skins::ControlState::kRollover;
  class Provider : public ThemeProvider {
   public:
    explicit Provider(Theme const& theme) : mTheme(theme) {}
    Theme const& GetTheme() const override { return mTheme; }

   private:
    Theme const& mTheme;
  };
  Provider const provider(GetTheme());
  for (unsigned const state : {0u, kRollover, kPressed, kPressed | kRollover}) {
    for (auto const variant : {skins::ButtonVariant::kPlain, skins::ButtonVariant::kPrimary,
                               skins::ButtonVariant::kSecondary, skins::ButtonVariant::kNegative}) {
      for (bool const selected : {false, true}) {
        skins::DrawButtonParameters parameters(skins::ButtonComponents(variant), state);
        parameters.SetTheme(&provider);
        parameters.SetSelectedAppearance(selected);
        ColorRGBA const label = GetButtonColor(parameters, skins::design::ButtonProperty::kLabel);
        ColorRGBA const fill = GetButtonColor(parameters, skins::design::ButtonProperty::kFill);
        EXPECT_GE(Contrast(label, fill), 4.5) << "state " << state << " selected " << selected;
      }
    }
  }
}

std::string NameOfTheme(::testing::TestParamInfo<ThemeID> const& info) {
  std::string name(Theme::Get(info.param).GetName());
  std::erase(name, ' ');
  return name;
}

INSTANTIATE_TEST_SUITE_P(Themes, ThemeContrast,
                         ::testing::Values(ThemeID::kDark, ThemeID::kLight, ThemeID::kHighContrast),
                         NameOfTheme);

TEST(Contrast, OfBlackOnWhiteIsTwentyOne) {
  EXPECT_NEAR(Contrast(ColorRGBAFixed::Black, ColorRGBAFixed::White), 21.0, 1e-9);
}

TEST(Contrast, OfADisabledTextIsBelowTheBoundThatItIsExemptFrom) {
  Theme const& dark = Theme::Get(ThemeID::kDark);
  EXPECT_LT(Contrast(dark.GetColor(kDefaultTextDisabled), dark.GetColor(kPanelBackground)), 4.5);
}

}  // namespace
}  // namespace moxui::ui
