#include "presets/FactoryPresets.h"
#include "presets/WaveformPreset.h"
#include "program/HexColor.h"

#include <moxmediaui/Preset.h>

#include <gtest/gtest.h>

#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <tuple>

namespace playground {
namespace {

using moxappsupport::presets::ParsePresetListText;
using moxcore::serialization::GetJSONUTF8String;
using moxcore::serialization::JSONConvert;
using moxcore::serialization::JSONParse;
using Convert = JSONConvert<WaveformPresetData>;

// Every setting that a preset keeps, other than it is in new settings.
WaveformStyle AllOther() {
  WaveformStyle style;
  for (std::size_t i = 0; i < style.colors.size(); ++i) {
    style.colors[i] = ColorOfNumber(0x102030 + static_cast<unsigned>(i));
  }
  style.coloredChannels = !style.coloredChannels;
  style.waveColor = ColorOfNumber(0xabcdef);
  style.selectedWaveColor = ColorOfNumber(0xfedcba);
  style.deriveSelectionColors = !style.deriveSelectionColors;
  style.layered = !style.layered;
  style.firstLayerStrong = !style.firstLayerStrong;
  style.peakStyle = PeakStyle::kRectified;
  style.squareRoot = !style.squareRoot;
  style.rms = !style.rms;
  style.clipMarks = !style.clipMarks;
  style.sampleDots = !style.sampleDots;
  style.detail = DetailChoice::kSamples;
  style.rulerUnit = RulerUnit::kSamples;
  style.centerlines = !style.centerlines;
  style.dividers = !style.dividers;
  style.timeGrid = !style.timeGrid;
  style.timeGridSpacing = 25;
  style.amplitudeDivisions = 7;
  style.alignBottom = !style.alignBottom;
  style.drawScale = 1.5;
  style.zoom = 0.3;
  style.gainDecibel = -7.25;
  style.gainWholeRange = !style.gainWholeRange;
  return style;
}

WaveformPresetData Read(std::string_view text) {
  auto const value = JSONParse(text.data(), text.size());
  if (!value) {
    throw std::logic_error("not well-formed");
  }
  return Convert::FromJSON(*value);
}

// A setting that is added has no name here, and nothing is built until somebody gives it one; it is to be
// written and read then, as AllOther shows.
TEST(WaveformPreset, EverySettingIsAmongThoseThatAreTried) {
  auto const names = [](WaveformStyle const& style) {
    auto const& [colors, coloredChannels, waveColor, selectedWaveColor, deriveSelectionColors, layered,
                 firstLayerStrong, peakStyle, squareRoot, rms, clipMarks, sampleDots, detail, rulerUnit,
                 centerlines, dividers, timeGrid, timeGridSpacing, amplitudeDivisions, alignBottom, drawScale,
                 zoom, gainDecibel, gainWholeRange] = style;
    return std::tie(colors, coloredChannels, waveColor, selectedWaveColor, deriveSelectionColors, layered,
                    firstLayerStrong, peakStyle, squareRoot, rms, clipMarks, sampleDots, detail, rulerUnit,
                    centerlines, dividers, timeGrid, timeGridSpacing, amplitudeDivisions, alignBottom,
                    drawScale, zoom, gainDecibel, gainWholeRange);
  };
  WaveformStyle const newStyle;
  WaveformStyle const other = AllOther();
  std::apply(
      [&](auto const&... values) {
        std::apply([&](auto const&... others) { EXPECT_TRUE(((values != others) && ...)); }, names(other));
      },
      names(newStyle));
}

TEST(WaveformPreset, KeepsEverySetting) {
  WaveformPresetData const data{AllOther()};
  EXPECT_EQ(Read(GetJSONUTF8String(Convert::ToJSON(data))), data);
}

TEST(WaveformPreset, TakesWhatIsAbsentFromNewSettings) {
  EXPECT_EQ(Read("{}"), WaveformPresetData());
  WaveformPresetData zoomed;
  zoomed.style.zoom = 4.0;
  EXPECT_EQ(Read(R"({"zoom": 4, "fromALaterVersion": [1]})"), zoomed);
}

class BadWaveformPreset : public testing::TestWithParam<std::string_view> {};

TEST_P(BadWaveformPreset, IsRefused) {
  auto const value = JSONParse(GetParam().data(), GetParam().size());
  ASSERT_NE(value, nullptr) << "well-formed all the same";
  EXPECT_THROW(Convert::FromJSON(*value), std::exception) << GetParam();
}

INSTANTIATE_TEST_SUITE_P(
    Texts, BadWaveformPreset,
    testing::Values("[]", "null", "7", R"({"zoom": "2"})", R"({"zoom": 0})", R"({"zoom": -1})",
                    R"({"zoom": 1e9})", R"({"gainDecibel": 25})", R"({"gainDecibel": -24.1})",
                    R"({"drawScale": 0.5})", R"({"drawScale": 100})", R"({"rms": 1})",
                    R"({"peakStyle": "sideways"})", R"({"peakStyle": 1})", R"({"timeGridSpacing": 25})",
                    R"({"amplitudeGrid": ""})", R"({"colors": []})", R"({"colors": {"wave": "red"}})",
                    R"({"colors": {"wave": 16}})", R"({"colors": {"background": "#12"}})"));

TEST(FactoryPresets, AreReadAsTheyAreWritten) {
  auto const text = FactoryPresetsText();
  auto const presets = ParsePresetListText<WaveformPresetData>(text.c_str(), text.size());
  ASSERT_EQ(presets.size(), 5u);
  EXPECT_EQ(presets[0].name, "$$$/playground/presets/standard=Standard");
  EXPECT_EQ(presets[0].data, WaveformPresetData()) << "what the program begins with";
  std::set<moxcore::Guid> guids;
  for (std::size_t i = 0; i < presets.size(); ++i) {
    EXPECT_TRUE(guids.insert(presets[i].guid).second);
    EXPECT_EQ(presets[i].type, WaveformPresetType());
    EXPECT_TRUE(moxappsupport::presets::IsProtectedPreset(presets[i].flags));
    EXPECT_TRUE(i == 0 || presets[i - 1].sortOrder < presets[i].sortOrder);
    EXPECT_TRUE(i == 0 || !(presets[i].data == presets[0].data));
  }
}

}  // namespace
}  // namespace playground
