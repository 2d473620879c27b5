#include "presets/FactoryPresets.h"
#include "presets/WaveformPreset.h"
#include "program/HexColor.h"

#include <moxmediaui/Preset.h>

#include <gtest/gtest.h>

#include <set>
#include <stdexcept>
#include <string>
#include <string_view>

namespace playground {
namespace {

using moxappsupport::presets::ParsePresetListText;
using moxcore::serialization::GetJSONUTF8String;
using moxcore::serialization::JSONConvert;
using moxcore::serialization::JSONParse;
using Convert = JSONConvert<WaveformPresetData>;

// Every setting that a preset keeps, other than it is in new settings.
WaveformSettings AllOther() {
  WaveformSettings settings;
  for (std::size_t i = 0; i < settings.colors.size(); ++i) {
    settings.colors[i] = ColorOfNumber(0x102030 + static_cast<unsigned>(i));
  }
  settings.coloredChannels = !settings.coloredChannels;
  settings.waveColor = ColorOfNumber(0xabcdef);
  settings.selectedWaveColor = ColorOfNumber(0xfedcba);
  settings.deriveSelectionColors = !settings.deriveSelectionColors;
  settings.layered = !settings.layered;
  settings.firstLayerStrong = !settings.firstLayerStrong;
  settings.peakStyle = PeakStyle::kRectified;
  settings.squareRoot = !settings.squareRoot;
  settings.rms = !settings.rms;
  settings.clipMarks = !settings.clipMarks;
  settings.sampleDots = !settings.sampleDots;
  settings.detail = DetailChoice::kSamples;
  settings.rulerUnit = RulerUnit::kSamples;
  settings.centerlines = !settings.centerlines;
  settings.dividers = !settings.dividers;
  settings.timeGrid = !settings.timeGrid;
  settings.timeGridSpacing = 25;
  settings.amplitudeDivisions = 7;
  settings.alignBottom = !settings.alignBottom;
  settings.drawScale = 1.5;
  settings.zoom = 0.3;
  settings.gainDecibel = -7.25;
  settings.gainWholeRange = !settings.gainWholeRange;
  return settings;
}

// The same in what is about one sound.
void MakeSoundsOtherToo(WaveformSettings& settings) {
  settings.SetChannelCount(3);
  settings.enabledChannels[1] = false;
  settings.channelColors[2] = ColorOfNumber(0x123456);
  settings.selectedChannelColors[0] = ColorOfNumber(0x654321);
  settings.fadeDirection = FadeDirection::kOut;
  settings.fadeFamily = FadeFamily::kCosine;
  settings.fadeStart = 5;
  settings.fadeEnd = 99;
  settings.fadeAmount = 3.0;
  settings.playheadInMilliseconds = true;
}

WaveformPresetData Read(std::string_view text) {
  auto const value = JSONParse(text.data(), text.size());
  if (!value) {
    throw std::logic_error("not well-formed");
  }
  return Convert::FromJSON(*value);
}

TEST(WaveformPreset, KeepsEverySettingThatIsNotAboutASound) {
  WaveformPresetData const data = PresetDataOf(AllOther());
  EXPECT_EQ(Read(GetJSONUTF8String(Convert::ToJSON(data))), data);
  EXPECT_EQ(data.settings, AllOther());
}

TEST(WaveformPreset, LeavesOutWhatIsAboutASound) {
  WaveformSettings settings = AllOther();
  MakeSoundsOtherToo(settings);
  EXPECT_EQ(PresetDataOf(settings), PresetDataOf(AllOther()));
}

TEST(WaveformPreset, AppliesAllButWhatIsAboutTheSound) {
  WaveformSettings settings;
  MakeSoundsOtherToo(settings);
  WaveformSettings expected = AllOther();
  MakeSoundsOtherToo(expected);
  ApplyPresetData(PresetDataOf(AllOther()), settings);
  EXPECT_EQ(settings, expected);
}

TEST(WaveformPreset, TakesWhatIsAbsentFromNewSettings) {
  EXPECT_EQ(Read("{}"), WaveformPresetData());
  WaveformPresetData zoomed;
  zoomed.settings.zoom = 4.0;
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
