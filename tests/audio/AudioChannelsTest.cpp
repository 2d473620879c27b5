#include "OpenWaveformDraw.h"

#include <moxui/scriber/ColorConversion.h>

#include <gtest/gtest.h>

namespace {

using audio_tests::OpenWaveformDraw;
using moxmediaui::AudioDataDrawBase;
using moxmediaui::ColorRGBA;

constexpr ColorRGBA kWhite{1.0f, 1.0f, 1.0f, 1.0f};
constexpr ColorRGBA kGrey{0.5f, 0.5f, 0.5f, 1.0f};
constexpr ColorRGBA kBuiltInGreen{0.294f, 0.953f, 0.655f, 1.0f};
constexpr ColorRGBA kRed{1.0f, 0.0f, 0.0f, 1.0f};
constexpr ColorRGBA kBlue{0.0f, 0.0f, 1.0f, 0.5f};

void ExpectNear(ColorRGBA const& actual, ColorRGBA const& expected) {
  EXPECT_NEAR(actual.red, expected.red, 1e-6);
  EXPECT_NEAR(actual.green, expected.green, 1e-6);
  EXPECT_NEAR(actual.blue, expected.blue, 1e-6);
  EXPECT_EQ(actual.alpha, expected.alpha);
}

TEST(AudioChannels, StartWithTheHousePaletteAndEverythingEnabled) {
  OpenWaveformDraw draw;
  EXPECT_EQ(draw.GetControlColor(), (ColorRGBA{0, 0, 0, 1}));
  EXPECT_EQ(draw.GetBackgroundColor(), (ColorRGBA{0, 0, 0, 1}));
  EXPECT_EQ(draw.GetSelectionBackgroundColor(), (ColorRGBA{0.965f, 0.965f, 1, 1}));
  EXPECT_EQ(draw.GetCenterlineColor(), (ColorRGBA{0.663f, 0.016f, 0.016f, 1}));
  EXPECT_EQ(draw.GetGridlineColor(false), (ColorRGBA{0, 0.208f, 0, 1}));
  EXPECT_EQ(draw.GetDividerColor(), kGrey);
  EXPECT_EQ(draw.GetChannelColors(), std::vector{kWhite});
  EXPECT_TRUE(draw.GetDrawCenterlines());
  EXPECT_TRUE(draw.GetDrawCenterLines());
  EXPECT_TRUE(draw.GetDrawDividers());
  EXPECT_FALSE(draw.GetLayeredChannels());
  EXPECT_FALSE(draw.GetColoredChannels());
  EXPECT_EQ(draw.GetViewLeft(), 0.0);
  EXPECT_EQ(draw.GetSamplesPerPixel(), 1.0);
  EXPECT_EQ(draw.GetVerticalChannelAlignment(), moxmediaui::VerticalChannelAlignment::kTop);
  EXPECT_TRUE(draw.GetHorizontalGridlinePositions().empty());
  EXPECT_TRUE(draw.GetVerticalGridlinePositions().empty());
  std::vector<bool> enabled{true};
  draw.GetEnabledChannels(enabled);
  EXPECT_TRUE(enabled.empty());
}

TEST(AudioChannels, AChannelTakesTheFirstColourUnlessChannelsAreColoured) {
  OpenWaveformDraw draw;
  EXPECT_EQ(draw.GetChannelColor(0), kWhite);
  EXPECT_EQ(draw.GetChannelColor(-1), kGrey);
  draw.SetChannelColors({kRed, kBlue});
  EXPECT_EQ(draw.GetChannelColor(1), kRed);
  draw.SetColoredChannels(true);
  EXPECT_EQ(draw.GetChannelColor(1), kBlue);
  EXPECT_EQ(draw.GetChannelColor(2), kRed);
}

TEST(AudioChannels, WithoutColoursTheBuiltInGreenStandsIn) {
  OpenWaveformDraw draw;
  draw.SetChannelColors({});
  EXPECT_EQ(draw.GetChannelColor(0), kBuiltInGreen);
  EXPECT_EQ(draw.GetChannelColor(-1), kGrey);
}

TEST(AudioChannels, DisablingOneGrowsTheListWithTheOthersEnabled) {
  OpenWaveformDraw draw;
  draw.EnableChannel(3, false);
  std::vector<bool> enabled;
  draw.GetEnabledChannels(enabled);
  EXPECT_EQ(enabled, (std::vector<bool>{true, true, true, false}));
  EXPECT_EQ(draw.GetChannelColor(3), kGrey);
  EXPECT_EQ(draw.GetChannelColor(2), kWhite);
  EXPECT_TRUE(draw.IsChannelEnabled(4));
  EXPECT_FALSE(draw.IsChannelEnabled(-1));
}

TEST(AudioChannels, ANegativeChannelIsTheFirst) {
  OpenWaveformDraw draw;
  draw.EnableChannel(-5, false);
  EXPECT_FALSE(draw.IsChannelEnabled(0));
  std::vector<bool> enabled;
  draw.GetEnabledChannels(enabled);
  EXPECT_EQ(enabled, std::vector<bool>{false});
}

TEST(AudioChannels, NothingSaidIsNeitherEnabledNorDisabled) {
  OpenWaveformDraw draw;
  EXPECT_FALSE(draw.IsAnyChannelEnabled());
  EXPECT_FALSE(draw.IsAnyChannelDisabled());
  EXPECT_TRUE(draw.IsChannelEnabled(0));
  draw.SetEnabledChannels({true, false});
  EXPECT_TRUE(draw.IsAnyChannelEnabled());
  EXPECT_TRUE(draw.IsAnyChannelDisabled());
}

TEST(AudioChannels, CopiesAreIndependent) {
  OpenWaveformDraw draw;
  draw.SetChannelColors({kRed});
  draw.SetVerticalGridlinePositions({1, 2});
  draw.SetViewRange(7.0, 3.0);
  draw.EnableChannel(1, false);
  OpenWaveformDraw const copy(draw);
  draw.SetChannelColors({kBlue});
  draw.SetVerticalGridlinePositions({});
  draw.EnableChannel(1, true);
  EXPECT_EQ(copy.GetChannelColors(), std::vector{kRed});
  EXPECT_EQ(copy.GetVerticalGridlinePositions(), (std::vector<std::int32_t>{1, 2}));
  EXPECT_EQ(copy.GetViewLeft(), 7.0);
  EXPECT_FALSE(copy.IsChannelEnabled(1));
  draw = copy;
  EXPECT_FALSE(draw.IsChannelEnabled(1));
}

// Black ground, white selection: brightness (0 - 0.5) * 0.5 + 1 = 0.75 and saturation (0 - 0) * 0.05 = 0.
TEST(AudioChannels, LinesKeepTheirContrastOnALightSelection) {
  OpenWaveformDraw draw;
  draw.SetSelectionBackgroundColor(kWhite);
  ExpectNear(draw.GetColorWithinSelection({0.5f, 0.5f, 0.5f, 0.25f}), {0.75f, 0.75f, 0.75f, 0.25f});
  // Pure red has brightness 1 and saturation 1: 0.5, and 0.05 of saturation.
  ExpectNear(draw.GetColorWithinSelection(kRed), {0.5f, 0.475f, 0.475f, 1.0f});
}

// White ground, black selection: brightness (0.5 - 1) * 0.2 + 0 = -0.1, which is held to black.
TEST(AudioChannels, LinesOnADarkSelectionAreHeldToWhatAColourCanBe) {
  OpenWaveformDraw draw;
  draw.SetBackgroundColor(kWhite);
  draw.SetSelectionBackgroundColor({0, 0, 0, 1});
  ExpectNear(draw.GetColorWithinSelection(kGrey), {0, 0, 0, 1});
  // Equal brightness of both grounds takes the same branch: (1 - 0.2) * 0.2 + 0.2, saturation 1 * 0.8.
  draw.SetBackgroundColor({0.2f, 0.2f, 0.2f, 1});
  draw.SetSelectionBackgroundColor({0.2f, 0.2f, 0.2f, 1});
  ExpectNear(draw.GetColorWithinSelection(kRed), {0.36f, 0.072f, 0.072f, 1.0f});
}

TEST(AudioChannels, TheGridsColourFollowsTheSelectionOnlyWhenAsked) {
  OpenWaveformDraw draw;
  draw.SetGridlineColor(kRed);
  draw.SetSelectionBackgroundColor(kWhite);
  EXPECT_EQ(draw.GetGridlineColor(false), kRed);
  ExpectNear(draw.GetGridlineColor(true), {0.5f, 0.475f, 0.475f, 1.0f});
}

TEST(AudioChannels, AWaveInASelectionTakesItsOwnColourOrIsDerived) {
  OpenWaveformDraw draw;
  draw.SetChannelColors({kRed, kBlue});
  draw.SetSelectionBackgroundColor(kWhite);
  EXPECT_EQ(draw.GetWaveformColor(0, false), kRed);
  // Derived: saturation (1 - 0) * 0.95, brightness (1 - 0) * 0.2 + 0.
  ExpectNear(draw.GetWaveformColor(0, true), {0.2f, 0.01f, 0.01f, 1.0f});
  draw.SetSelectionChannelColors({kBlue, kGrey});
  EXPECT_EQ(draw.GetWaveformColor(1, true), kBlue);
  draw.SetColoredChannels(true);
  EXPECT_EQ(draw.GetWaveformColor(1, true), kGrey);
  EXPECT_EQ(draw.GetWaveformColor(2, true), kBlue);
  draw.EnableChannel(1, false);
  EXPECT_EQ(draw.GetWaveformColor(1, true), kGrey);
  EXPECT_EQ(draw.GetWaveformColor(-1, true), kGrey);
}

// White ground, dark selection: saturation (1 - 0) * 0.2, brightness (1 - 1) * 0.8 + 1.
TEST(AudioChannels, AWaveInADarkSelectionRestsOnTheGroundsBrightness) {
  OpenWaveformDraw draw;
  draw.SetChannelColors({kRed});
  draw.SetBackgroundColor(kWhite);
  draw.SetSelectionBackgroundColor({0.1f, 0.1f, 0.1f, 1});
  ExpectNear(draw.GetWaveformColor(0, true), {1.0f, 0.8f, 0.8f, 1.0f});
}

}  // namespace
