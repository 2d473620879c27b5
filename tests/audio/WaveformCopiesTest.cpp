// A copy of a waveform drawing draws what the original draws, whatever was set.
#include "PeakPictures.h"
#include "RecordedSamples.h"

#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/testing/RecordingSupplier.h>

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <functional>
#include <ostream>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

using audio_tests::CurvePoints;
using audio_tests::OpenWaveformDraw;
using moxmediaui::ColorRGBA;
using moxmediaui::RectT;
using moxui::testing::RecordedCall;

constexpr ColorRGBA kTeal{0.1f, 0.6f, 0.5f, 0.75f};
constexpr RectT<int> kRect{0, 0, 60, 46};
/// Pixels that peaks can be painted into.
std::array<std::uint32_t, 60 * 46> targetPixels;

struct Setting {
  char const* name;
  std::function<void(OpenWaveformDraw&)> set;
};

void PrintTo(Setting const& setting, std::ostream* stream) {
  *stream << setting.name;
}

/// Everything that is drawn of peaks, samples and of nothing, and the target's pixels.
std::pair<std::vector<RecordedCall>, std::vector<std::uint32_t>> Drawn(OpenWaveformDraw const& draw) {
  moxui::testing::RecordingSupplier supplier;
  moxui::scriber::SurfaceP const surface = supplier.NewOffscreenSurface(100, 100, 1.0f);
  moxui::scriber::Scriber scriber(&supplier, surface.Get());
  std::mt19937 random(4);
  targetPixels.fill(0);
  std::vector<float> pairs;
  for (int i = 0; i < 3 * kRect.width; ++i) {
    pairs.insert(pairs.end(), {static_cast<float>(i % 8) / 8.0f, -0.4f});
  }
  draw.Draw(&scriber, audio_tests::MakePeaks(3, kRect.width, pairs), kRect, 1.0f);
  draw.Draw(&scriber, audio_tests::MakeData(audio_tests::MakeChannels(random, 3, 103)), kRect, 1.0f);
  draw.Draw(&scriber, std::make_shared<moxmediaui::WaveformData>(), kRect, 1.0f);
  return {supplier.GetCalls(), {targetPixels.begin(), targetPixels.end()}};
}

/// One with which every setting can be seen.
OpenWaveformDraw MakeDraw() {
  OpenWaveformDraw draw;
  draw.SetEnabledChannels({true, true, true});
  draw.SetHorizontalGridlinePositions({3, 12, 20});
  draw.SetChannelColors({{1.0f, 0.0f, 0.0f, 1.0f}, {0.0f, 1.0f, 0.0f, 1.0f}});
  draw.SetGain(0.5f);
  RectT<int> ignored;
  draw.SetSelection(kRect, 20, 25, ignored);
  return draw;
}

class WaveformCopies : public testing::TestWithParam<Setting> {};

TEST_P(WaveformCopies, DrawTheSame) {
  OpenWaveformDraw draw = MakeDraw();
  auto const before = Drawn(draw);
  GetParam().set(draw);
  auto const expected = Drawn(draw);
  ASSERT_FALSE(expected == before) << "the setting can't be seen";
  OpenWaveformDraw const copy(draw);
  EXPECT_TRUE(Drawn(copy) == expected);
  OpenWaveformDraw assigned;
  assigned = draw;
  EXPECT_TRUE(Drawn(assigned) == expected);
  // What becomes of the original later is none of theirs.
  draw = MakeDraw();
  EXPECT_TRUE(Drawn(copy) == expected);
  EXPECT_TRUE(Drawn(draw) == before);
}

INSTANTIATE_TEST_SUITE_P(
    Settings, WaveformCopies,
    testing::Values(
        Setting{"ControlColor", [](OpenWaveformDraw& draw) { draw.SetControlColor(kTeal); }},
        Setting{"BackgroundColor", [](OpenWaveformDraw& draw) { draw.SetBackgroundColor(kTeal); }},
        Setting{"SelectionBackgroundColor",
                [](OpenWaveformDraw& draw) { draw.SetSelectionBackgroundColor(kTeal); }},
        Setting{"CenterlineColor", [](OpenWaveformDraw& draw) { draw.SetCenterlineColor(kTeal); }},
        Setting{"GridlineColor", [](OpenWaveformDraw& draw) { draw.SetGridlineColor(kTeal); }},
        Setting{"DividerColor", [](OpenWaveformDraw& draw) { draw.SetDividerColor(kTeal); }},
        Setting{"ChannelColors", [](OpenWaveformDraw& draw) { draw.SetChannelColors({kTeal}); }},
        Setting{"SelectionChannelColors",
                [](OpenWaveformDraw& draw) { draw.SetSelectionChannelColors({kTeal}); }},
        Setting{"Centerlines", [](OpenWaveformDraw& draw) { draw.SetDrawCenterlines(false); }},
        Setting{"Dividers", [](OpenWaveformDraw& draw) { draw.SetDrawDividers(false); }},
        Setting{"Layered", [](OpenWaveformDraw& draw) { draw.SetLayeredChannels(true); }},
        Setting{"Colored", [](OpenWaveformDraw& draw) { draw.SetColoredChannels(true); }},
        Setting{"HorizontalLines",
                [](OpenWaveformDraw& draw) {
                  draw.SetHorizontalGridlinePositions({5, 13, 21});
                }},
        Setting{"VerticalLines", [](OpenWaveformDraw& draw) { draw.SetVerticalGridlinePositions({30}); }},
        Setting{"Alignment",
                [](OpenWaveformDraw& draw) {
                  draw.SetVerticalChannelAlignment(moxmediaui::VerticalChannelAlignment::kBottom);
                }},
        Setting{"ViewRange", [](OpenWaveformDraw& draw) { draw.SetViewRange(3.0, 0.8); }},
        Setting{"EnabledChannels", [](OpenWaveformDraw& draw) { draw.EnableChannel(1, false); }},
        Setting{"Selection",
                [](OpenWaveformDraw& draw) {
                  RectT<int> ignored;
                  draw.SetSelection(kRect, 10, 20, ignored);
                }},
        Setting{"Zoom", [](OpenWaveformDraw& draw) { draw.SetZoom(0.3f); }},
        Setting{"Gain", [](OpenWaveformDraw& draw) { draw.SetGain(0.3f); }},
        Setting{"GainWholeRange", [](OpenWaveformDraw& draw) { draw.SetGainWholeRange(true); }},
        Setting{
            "Fade",
            [](OpenWaveformDraw& draw) { draw.SetFadeInfo(moxmediaui::FadeType::kOut, 5, 55, false, 2.0f); }},
        Setting{"SampleDots", [](OpenWaveformDraw& draw) { draw.SetDrawSampleDots(false); }},
        Setting{"PeakStyle",
                [](OpenWaveformDraw& draw) {
                  draw.SetPeakDataDrawStyle(moxmediaui::PeakDataDrawStyle::kRectified);
                }},
        Setting{"Scaling",
                [](OpenWaveformDraw& draw) {
                  draw.SetWaveformScalingStyle(moxmediaui::WaveformScalingStyle::kSquareRoot);
                }},
        Setting{"FirstStrong",
                [](OpenWaveformDraw& draw) {
                  draw.SetLayeredChannels(true);
                  draw.SetLayeredChannelDrawingStyle(moxmediaui::LayeredChannelDrawingStyle::kFirstStrong);
                }},
        Setting{"PaintedColumns", [](OpenWaveformDraw& draw) { draw.SetPaintedColumns(7, 33); }},
        Setting{"PaintedChannels", [](OpenWaveformDraw& draw) { draw.SetPaintedChannels(1, 2); }},
        Setting{"PeakTarget",
                [](OpenWaveformDraw& draw) {
                  draw.SetPeakTarget({.pixels = targetPixels.data(), .pixelsPerRow = kRect.width});
                }}),
    [](auto const& setting) { return std::string(setting.param.name); });

// Layers alike and the first one strong differ in more than being layers.
TEST(WaveformCopy, KeepsTheStyleOfLayers) {
  OpenWaveformDraw draw = MakeDraw();
  draw.SetLayeredChannels(true);
  auto const alike = Drawn(draw);
  draw.SetLayeredChannelDrawingStyle(moxmediaui::LayeredChannelDrawingStyle::kFirstStrong);
  auto const firstStrong = Drawn(draw);
  EXPECT_FALSE(firstStrong == alike);
  EXPECT_TRUE(Drawn(OpenWaveformDraw(draw)) == firstStrong);
}

// Another thread may be drawing with them.
TEST(WaveformCopy, KeepsItsWeightsWhereTheyAreWhileTheOriginalTakesRoomForMore) {
  moxmediaui::CurveScratch scratch;
  scratch.Reserve(4);
  scratch.WorkOut(1, 0.5f);
  moxmediaui::CurveScratch copy(scratch);
  auto const* const weights = &copy.WeightsAt(0, 1, 0.5f);
  EXPECT_EQ(&scratch.WeightsAt(0, 1, 0.5f), weights) << "shared";
  scratch.Reserve(100'000);
  EXPECT_NE(&scratch.WeightsAt(0, 1, 0.5f), weights);
  EXPECT_EQ(&copy.WeightsAt(0, 1, 0.5f), weights);
}

TEST(WaveformCopy, KeepsTheCurveThatWasWorkedOut) {
  std::mt19937 random(11);
  auto const data = audio_tests::MakeData(audio_tests::MakeChannels(random, 1, 200));
  OpenWaveformDraw draw;
  draw.SetViewRange(0.25, 0.7);
  auto const points = [&](OpenWaveformDraw const& drawing) {
    return CurvePoints(audio_tests::RecordSamples(drawing, data, {0, 0, 100, 50}));
  };
  auto const expected = points(draw);
  draw.ReserveCurve(101);
  draw.WorkOutCurve(0, 101);
  OpenWaveformDraw const copy(draw);
  draw.ReserveCurve(10);
  draw.SetViewRange(7.0, 0.3);
  draw.WorkOutCurve(0, 10);
  EXPECT_EQ(points(copy), expected);
  draw.ReserveCurve(0);
  draw.SetViewRange(0.25, 0.7);
  EXPECT_EQ(points(draw), expected);
}

}  // namespace
