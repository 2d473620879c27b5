#include "../controls/RunningLook.h"

#include <moxui/skins/Design.h>
#include <moxui/skins/Look.h>
#include <moxui/skins/SkinSet.h>
#include <moxui/skins/Theme.h>
#include <moxui/skins/ThemeChanged.h>
#include <moxui/skins/ThemeColors.h>
#include <moxui/skins/ThemeFont.h>

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <string>

namespace moxui::ui {
namespace {

using testing::RunningLook;

unsigned Hex(ColorRGBA const& colour) {
  auto const byte = [](float channel) { return static_cast<unsigned>(std::lround(channel * 255.0f)); };
  return byte(colour.red) << 16 | byte(colour.green) << 8 | byte(colour.blue);
}

TEST(Theme, HasTheGrayScaleOfItsTable) {
  constexpr std::array<unsigned, 10> kDark = {0x1B1B1D, 0x222222, 0x303030, 0x464648, 0x5C5C60,
                                              0x7B7B80, 0x9D9DA3, 0xC9C9CE, 0xF2F2F4, 0x3D3D40};
  constexpr std::array<unsigned, 10> kLight = {0xFFFFFF, 0xF4F4F5, 0xE4E4E7, 0xCDCDD2, 0xB2B2B9,
                                               0x8A8A92, 0x6A6A72, 0x3F3F46, 0x18181B, 0xD8D8DC};
  constexpr std::array<unsigned, 10> kContrast = {0x000000, 0x0A0A0A, 0x1C1C1C, 0x5A5A5A, 0x8C8C8C,
                                                  0xB4B4B4, 0xD0D0D0, 0xF0F0F0, 0xFFFFFF, 0x6E6E6E};
  for (int i = 1; i <= 10; ++i) {
    auto const index = static_cast<std::size_t>(i - 1);
    EXPECT_EQ(Hex(Theme::Get(ThemeID::kDark).GetGray(i)), kDark[index]);
    EXPECT_EQ(Hex(Theme::Get(ThemeID::kLight).GetGray(i)), kLight[index]);
    EXPECT_EQ(Hex(Theme::Get(ThemeID::kHighContrast).GetGray(i)), kContrast[index]);
  }
}

TEST(Theme, HoldsGrayIndicesToTheScale) {
  EXPECT_EQ(Theme::Get(ThemeID::kDark).GetGray(0), Theme::Get(ThemeID::kDark).GetGray(1));
  EXPECT_EQ(Theme::Get(ThemeID::kDark).GetGray(11), Theme::Get(ThemeID::kDark).GetGray(10));
}

TEST(Theme, HasItsInteractiveColourForHotTextAndFocus) {
  for (auto const& [id, hex] : {std::pair(ThemeID::kDark, 0x4DA3FFu), std::pair(ThemeID::kLight, 0x0B63C5u),
                                std::pair(ThemeID::kHighContrast, 0xFFE600u)}) {
    RunningLook const look(true, id);
    EXPECT_EQ(Hex(skins::utilities::GetInteractiveControlColor()), hex);
    EXPECT_EQ(Hex(skins::utilities::GetFocusColor()), hex);
  }
}

TEST(Theme, SelectionIsTheInteractiveColourAtAQuarter) {
  ColorRGBA const selection = Theme::Get(ThemeID::kLight).GetColor(ThemeColorID::kSelectionFill);
  EXPECT_EQ(Hex(selection), 0x0B63C5u);
  EXPECT_FLOAT_EQ(selection.alpha, 0.25f);
}

TEST(Theme, IsLightOrDarkAndHighContrastCountsAsDark) {
  for (auto const& [id, isLight] : {std::pair(ThemeID::kDark, false), std::pair(ThemeID::kLight, true),
                                    std::pair(ThemeID::kHighContrast, false)}) {
    RunningLook const look(true, id);
    EXPECT_EQ(skins::utilities::GetIsLightTheme(), isLight);
    EXPECT_EQ(skins::utilities::GetIsDarkTheme(), !isLight);
    EXPECT_EQ(skins::utilities::GetIsLightTheme(GetDefaultThemeProvider()), isLight);
  }
}

TEST(Theme, DefaultProviderAndNullMeanTheRunningTheme) {
  RunningLook const look(true, ThemeID::kLight);
  EXPECT_EQ(GetDefaultThemeProvider()->GetTheme().GetID(), ThemeID::kLight);
  EXPECT_EQ(skins::utilities::GetPrismaGrayColor(nullptr, 5), skins::utilities::GetPrismaGrayColor(5));
  EXPECT_EQ(skins::utilities::GetPrismaGrayColor(GetDefaultThemeProvider(), 5),
            Theme::Get(ThemeID::kLight).GetGray(5));
}

TEST(Theme, AnswersTheColourNumbersThatClientsAskFor) {
  Theme const& theme = Theme::Get();
  EXPECT_EQ(static_cast<unsigned>(ThemeColorID::kDefaultText), 305u);
  EXPECT_EQ(GetColor(305u), skins::utilities::GetDefaultTextColor());
  EXPECT_EQ(GetColor(331u),
            skins::design::GetTableColor(nullptr, skins::design::TableProperty::kAlternateRow, 1));
  EXPECT_EQ(GetColor(324u), skins::design::GetTableColor(skins::design::TableProperty::kEdgeLine, nullptr));
  EXPECT_EQ(GetColor(253u), skins::design::GetTableColor(skins::design::TableProperty::kText, nullptr));
  EXPECT_EQ(GetColor(251u), skins::design::GetTableColor(skins::design::TableProperty::kGridLine, nullptr));
  EXPECT_EQ(skins::design::GetPrismaColor(skins::design::PrismaColorID::kRangeBandDark),
            theme.GetColor(static_cast<ThemeColorID>(129)));
  EXPECT_EQ(skins::design::GetPrismaColor(skins::design::PrismaColorID::kRangeBandLight),
            theme.GetColor(static_cast<ThemeColorID>(130)));
}

struct NamedColor {
  char const* name;
  ColorRGBA (*get)(ThemeProvider const*);
  ThemeColorID role;
};

class ColorByName : public ::testing::TestWithParam<NamedColor> {};

TEST_P(ColorByName, IsThatOfItsRoleInEachTheme) {
  for (ThemeID const id : {ThemeID::kDark, ThemeID::kLight, ThemeID::kHighContrast}) {
    RunningLook const look(true, id);
    ColorRGBA const expected = Theme::Get(id).GetColor(GetParam().role);
    EXPECT_EQ(GetParam().get(nullptr), expected);
    EXPECT_EQ(GetParam().get(GetDefaultThemeProvider()), expected);
    EXPECT_GT(expected.alpha, 0.0f);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Roles, ColorByName,
    ::testing::Values(
        NamedColor{"TabBackground", skins::utilities::GetTabBackgroundColor, ThemeColorID::kTabBackground},
        NamedColor{"ScrollBarThumb", skins::utilities::GetScrollBarThumbColor, ThemeColorID::kScrollBarThumb},
        NamedColor{"ProgressBarEmptyFill", skins::utilities::GetProgressBarEmptyFillColor,
                   ThemeColorID::kProgressBarEmptyFill},
        NamedColor{"ProgressBarOuterLine", skins::utilities::GetProgressBarOuterLineColor,
                   ThemeColorID::kProgressBarOuterLine}),
    [](auto const& one) { return std::string(one.param.name); });

TEST(Theme, EvenTableRowsHaveThePanelsGround) {
  using skins::design::TableProperty;
  EXPECT_EQ(skins::design::GetTableColor(nullptr, TableProperty::kAlternateRow, 0),
            GetColor(ThemeColorID::kPanelBackground));
  EXPECT_NE(skins::design::GetTableColor(nullptr, TableProperty::kAlternateRow, 1),
            GetColor(ThemeColorID::kPanelBackground));
}

TEST(Theme, FontsHaveTheirSizes) {
  EXPECT_EQ(GetFontName(FontIndex::kText), "Open Sans");
  EXPECT_EQ(GetFontName(FontIndex::kSmall), "Open Sans");
  EXPECT_FLOAT_EQ(GetFontSize(FontIndex::kText), 12.0f);
  EXPECT_FLOAT_EQ(GetFontSize(FontIndex::kSmall), 11.0f);
  EXPECT_FLOAT_EQ(GetFontSize(FontIndex::kTitle), 13.0f);
}

TEST(SkinSet, HasTheSizesOfBothLooks) {
  using skins::SkinNumber;
  skins::SkinSet const& classic = skins::SkinSet::Get(false);
  skins::SkinSet const& v7 = skins::SkinSet::Get(true);
  EXPECT_FLOAT_EQ(classic.GetNumber(SkinNumber::kControlHeight), 20.0f);
  EXPECT_FLOAT_EQ(v7.GetNumber(SkinNumber::kControlHeight), 24.0f);
  EXPECT_FLOAT_EQ(classic.GetNumber(SkinNumber::kCornerRadius), 2.0f);
  EXPECT_FLOAT_EQ(v7.GetNumber(SkinNumber::kCornerRadius), 4.0f);
  EXPECT_FLOAT_EQ(classic.GetNumber(SkinNumber::kCellTextFontSize), 11.0f);
  EXPECT_FLOAT_EQ(v7.GetNumber(SkinNumber::kCellTextFontSize), 12.0f);
}

TEST(Look, DecidesTheDelayOfToolTips) {
  {
    RunningLook const look(true);
    EXPECT_EQ(skins::GetToolTipDelay(), 200);
  }
  RunningLook const look(false);
  EXPECT_EQ(skins::GetToolTipDelay(), 400);
}

class ThemeChanged : public ::testing::Test {
 protected:
  void TearDown() override {
    for (auto const& function : mInstalled) {
      RemoveThemeChangedFunction(function);
    }
  }
  std::shared_ptr<ThemeChangedFunction> Install(ThemeChangedFunction function) {
    auto const shared = std::make_shared<ThemeChangedFunction>(std::move(function));
    InstallThemeChangedFunction(shared);
    mInstalled.push_back(shared);
    return shared;
  }

  RunningLook mLook{true, ThemeID::kDark};
  std::vector<std::shared_ptr<ThemeChangedFunction>> mInstalled;
};

TEST_F(ThemeChanged, IsToldAfterTheNewThemeAnswers) {
  std::vector<ThemeID> heard;
  Install([&] { heard.push_back(Theme::Get().GetID()); });
  SetCurrentTheme(ThemeID::kLight);
  SetCurrentTheme(ThemeID::kLight);
  SetCurrentTheme(ThemeID::kHighContrast);
  EXPECT_EQ(heard, (std::vector{ThemeID::kLight, ThemeID::kHighContrast}));
}

TEST_F(ThemeChanged, IsToldOfASwitchOfTheLook) {
  std::vector<bool> heard;
  Install([&] { heard.push_back(skins::IsRunningV7OrBeyond()); });
  skins::SetRunningV7OrBeyond(false);
  skins::SetRunningV7OrBeyond(false);
  EXPECT_EQ(heard, std::vector{false});
}

TEST_F(ThemeChanged, IsNotToldAnyMoreOnceRemoved) {
  int calls = 0;
  auto const function = Install([&] { ++calls; });
  RemoveThemeChangedFunction(function);
  SetCurrentTheme(ThemeID::kLight);
  EXPECT_EQ(calls, 0);
}

TEST_F(ThemeChanged, TellsAFunctionInstalledTwiceOnce) {
  int calls = 0;
  auto const function = Install([&] { ++calls; });
  InstallThemeChangedFunction(function);
  SetCurrentTheme(ThemeID::kLight);
  EXPECT_EQ(calls, 1);
}

TEST_F(ThemeChanged, FunctionsMayRemoveOthersAndThemselvesWhileCalled) {
  int calls = 0;
  std::shared_ptr<ThemeChangedFunction> first;
  std::shared_ptr<ThemeChangedFunction> second;
  first = Install([&] {
    ++calls;
    RemoveThemeChangedFunction(first);
    RemoveThemeChangedFunction(second);
  });
  second = Install([&] { ++calls; });
  SetCurrentTheme(ThemeID::kLight);
  EXPECT_EQ(calls, 1);
  SetCurrentTheme(ThemeID::kDark);
  EXPECT_EQ(calls, 1);
}

}  // namespace
}  // namespace moxui::ui
