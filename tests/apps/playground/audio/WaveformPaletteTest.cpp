#include "audio/WaveformPalette.h"
#include "program/HexColor.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace playground {
namespace {

// What large marks need, and what text needs, by WCAG 2.
constexpr double kMarkContrast = 3.0;
constexpr double kTextContrast = 4.5;

class PaletteOfEachTheme : public testing::TestWithParam<ThemeChoice> {
 protected:
  WaveformPalette const palette = PaletteOf(GetParam());
};

TEST_P(PaletteOfEachTheme, WavesStandOutFromTheirGround) {
  for (std::size_t i = 0; i < palette.channels.size(); ++i) {
    EXPECT_GE(ContrastOf(palette.channels[i], palette.Color(WaveformColor::kBackground)), kTextContrast) << i;
  }
  EXPECT_GE(ContrastOf(palette.wave, palette.Color(WaveformColor::kBackground)), kTextContrast);
}

TEST_P(PaletteOfEachTheme, SelectedWavesStandOutFromTheSelection) {
  ASSERT_EQ(palette.selectedChannels.size(), palette.channels.size());
  for (std::size_t i = 0; i < palette.selectedChannels.size(); ++i) {
    EXPECT_GE(ContrastOf(palette.selectedChannels[i], palette.Color(WaveformColor::kSelectionBackground)),
              kTextContrast)
        << i;
  }
  EXPECT_GE(ContrastOf(palette.selectedWave, palette.Color(WaveformColor::kSelectionBackground)),
            kTextContrast);
}

TEST_P(PaletteOfEachTheme, ChannelsDifferFromEachOther) {
  for (std::size_t i = 0; i < palette.channels.size(); ++i) {
    EXPECT_EQ(std::count(palette.channels.begin(), palette.channels.end(), palette.channels[i]), 1) << i;
  }
}

INSTANTIATE_TEST_SUITE_P(Themes, PaletteOfEachTheme,
                         testing::Values(ThemeChoice::kDark, ThemeChoice::kLight, ThemeChoice::kHighContrast),
                         [](auto const& theme) {
                           std::string name(ThemeName(theme.param));
                           name.erase(std::remove(name.begin(), name.end(), '-'), name.end());
                           return name;
                         });

TEST(WaveformPalette, MeasuresContrastAsItIsDefined) {
  EXPECT_NEAR(ContrastOf(ColorOfNumber(0x000000), ColorOfNumber(0xFFFFFF)), 21.0, 1e-9);
  EXPECT_NEAR(ContrastOf(ColorOfNumber(0x808080), ColorOfNumber(0x808080)), 1.0, 1e-9);
  EXPECT_NEAR(ContrastOf(ColorOfNumber(0x767676), ColorOfNumber(0xFFFFFF)), 4.54, 0.005);
  EXPECT_LT(ContrastOf(ColorOfNumber(0x777777), ColorOfNumber(0xFFFFFF)), kTextContrast);
}

TEST(WaveformPalette, WritesLegiblyOnEveryGround) {
  for (unsigned red = 0; red <= 0xFF; red += 0x11) {
    for (unsigned green = 0; green <= 0xFF; green += 0x11) {
      for (unsigned blue = 0; blue <= 0xFF; blue += 0x11) {
        auto const ground = ColorOfNumber(red << 16 | green << 8 | blue);
        EXPECT_GE(ContrastOf(InkOn(ground), ground), kTextContrast) << HexFromColor(ground);
        EXPECT_EQ(InkOn(ground).alpha, 1.0f);
      }
    }
  }
}

TEST(WaveformPalette, MarksOfTheThemesSelectionAreSeen) {
  for (ThemeChoice const theme : {ThemeChoice::kDark, ThemeChoice::kLight, ThemeChoice::kHighContrast}) {
    auto const palette = PaletteOf(theme);
    EXPECT_GE(ContrastOf(palette.ink, palette.Color(WaveformColor::kSelectionBackground)), kMarkContrast);
  }
}

}  // namespace
}  // namespace playground
