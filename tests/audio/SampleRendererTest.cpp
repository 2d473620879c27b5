#include "PeakPictures.h"
#include "PlainPeakRenderer.h"
#include "PlainSampleRenderer.h"
#include "RecordedSamples.h"

#include <moxcore/config/Errors.h>
#include <moxcore/utility/MemoryRecycler.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/testing/FailingSupplier.h>
#include <moxui/testing/RecordingSupplier.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace {

using audio_tests::CurvePoints;
using audio_tests::MakeChannels;
using audio_tests::MakeData;
using audio_tests::Only;
using audio_tests::OpenWaveformDraw;
using audio_tests::RecordSamples;
using audio_tests::SampleRegion;
using moxmediaui::LayeredChannelDrawingStyle;
using moxmediaui::PointT;
using moxmediaui::RectT;
using moxmediaui::WaveformData;
using moxui::testing::RecordedCall;
using moxui::testing::Refusal;
using ::testing::HasSubstr;

/// Works out beforehand some of what curves have in common, in parts.
void WorkOutSome(OpenWaveformDraw& draw, int columns, int manner) {
  int const reserved = manner == 1 ? columns / 2 : columns + 1;
  if (manner == 2) {
    // For another view, which is of no use for this one.
    double const left = draw.GetViewLeft();
    double const samplesPerPixel = draw.GetSamplesPerPixel();
    draw.SetViewRange(left + 0.3, samplesPerPixel * 1.1);
    draw.ReserveCurve(reserved);
    draw.WorkOutCurve(0, reserved);
    draw.SetViewRange(left, samplesPerPixel);
  }
  draw.ReserveCurve(reserved);
  if (manner != 3) {
    draw.WorkOutCurve(columns / 3, columns + 1);
    draw.WorkOutCurve(-4, columns / 3);
  }
}

TEST(SampleRenderer, CallsWhatThePlainRendererCallsForAnySettings) {
  std::mt19937 random(99);
  auto const roll = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); };
  int drawn = 0;
  int several = 0;
  for (int i = 0; i < 400; ++i) {
    OpenWaveformDraw draw;
    SampleRegion region;
    region.rect = {roll(0, 3) == 0 ? roll(0, 9) : 0, roll(0, 3) == 0 ? roll(-9, 9) : 0, roll(1, 120),
                   roll(1, 120)};
    double const spp = std::vector{
        1.0, 0.5, 0.3, 1.0 / 3.0, 0.05, 2.5, 44.0, 1.0 / 30.0}[static_cast<std::size_t>(roll(0, 7))];
    draw.SetViewRange(roll(-500, 500) * 0.37, spp);
    int const visible = static_cast<int>(region.rect.Right() * spp) + roll(0, 4);
    auto const channels = MakeChannels(random, roll(1, 4), visible + roll(0, 9) * 9);
    draw.SetDrawCenterlines(roll(0, 1) == 0);
    draw.SetDrawSampleDots(roll(0, 3) != 0);
    draw.SetLayeredChannels(roll(0, 1) == 0);
    auto const style = static_cast<LayeredChannelDrawingStyle>(roll(0, 1));
    draw.SetLayeredChannelDrawingStyle(style);
    draw.SetWaveformScalingStyle(static_cast<moxmediaui::WaveformScalingStyle>(roll(0, 1)));
    draw.SetChannelColors({{0.1f, 0.5f, 0.9f, 0.4f}});
    draw.SetZoom(roll(0, 2) == 0 ? 1.7f : 1.0f);
    draw.SetGain(roll(0, 2) == 0 ? 0.6f : 1.0f);
    if (roll(0, 1) == 0) {
      draw.SetEnabledChannels({false, true});
    }
    region.scale = roll(0, 3) == 0 ? 2.0f : 1.0f;
    if (roll(0, 1) == 0) {
      RectT<int> ignored;
      double const first = draw.GetViewLeft() + roll(-20, 120) * spp;
      draw.SetSelection(region.rect, static_cast<std::int64_t>(first),
                        static_cast<std::int64_t>(roll(0, 80) * spp) + 1, ignored);
    }
    if (int const manner = roll(0, 4); manner > 0) {
      WorkOutSome(draw, region.rect.width, manner);
    }
    std::vector<RecordedCall> expected;
    int layer = 1;
    int pieces = 0;
    for (auto const& piece :
         audio_tests::FindRegionsPlainly(draw, false, region.rect, draw.GetGain(), 1.0f)) {
      region.left = piece.left;
      region.width = piece.width;
      region.selected = piece.selected;
      region.gain = piece.gain;
      auto const calls = audio_tests::DrawSamplesPlainly(draw, style, channels, region, layer);
      expected.insert(expected.end(), calls.begin(), calls.end());
      layer += static_cast<int>(channels.size());
      ++pieces;
    }
    ASSERT_EQ(RecordSamples(draw, MakeData(channels), region.rect, region.scale), expected) << i;
    drawn += expected.empty() ? 0 : 1;
    several += pieces > 1 && !expected.empty() ? 1 : 0;
  }
  EXPECT_GT(drawn, 200);
  EXPECT_GT(several, 30);
}

TEST(SampleRenderer, SomeChannelsAreTheSameAsAmongAll) {
  std::mt19937 random(5);
  auto const data = MakeData(MakeChannels(random, 3, 150));
  OpenWaveformDraw draw;
  RectT<int> const rect{0, 0, 100, 92};
  auto const images = [&] { return Only("DrawImage", RecordSamples(draw, data, rect)); };
  auto const allImages = images();
  auto const allPoints = CurvePoints(RecordSamples(draw, data, rect));
  ASSERT_EQ(allImages.size(), 3u);
  draw.SetPaintedChannels(1, 2);
  ASSERT_EQ(images().size(), 1u);
  EXPECT_EQ(images()[0].rect, allImages[1].rect);
  EXPECT_EQ(CurvePoints(RecordSamples(draw, data, rect)),
            (std::vector<PointT<float>>{allPoints.begin() + 101, allPoints.begin() + 202}));
  draw.SetPaintedChannels(-5, 90);
  EXPECT_EQ(images().size(), 3u);
  draw.SetPaintedChannels(3, 3);
  EXPECT_TRUE(images().empty());
}

TEST(SampleRenderer, TheComparisonNoticesOneStepOfOnePoint) {
  std::mt19937 random(1);
  auto const channels = MakeChannels(random, 1, 200);
  OpenWaveformDraw draw;
  SampleRegion const region{.rect = {0, 0, 50, 50}, .left = 0, .width = 50};
  auto expected =
      audio_tests::DrawSamplesPlainly(draw, LayeredChannelDrawingStyle::kAllAlike, channels, region, 1);
  ASSERT_EQ(RecordSamples(draw, MakeData(channels), region.rect), expected);
  for (RecordedCall& call : expected) {
    if (call.operation == "StrokePath") {
      float& y = call.path.at(25).points.at(0).y;
      y = std::nextafter(y, 1000.0f);
    }
  }
  EXPECT_NE(RecordSamples(draw, MakeData(channels), region.rect), expected);
}

// A selection of samples shows no gain, in or out of the selected range.
TEST(SampleRenderer, ASelectionTakesTheGainAway) {
  std::mt19937 random(2);
  auto const channels = MakeChannels(random, 1, 143);
  OpenWaveformDraw draw;
  draw.SetGain(3.0f);
  draw.SetEnabledChannels({true});
  RectT<int> ignored;
  draw.SetSelection({0, 0, 100, 50}, 30, 40, ignored);
  std::vector<RecordedCall> expected;
  int layer = 1;
  RectT<int> const rect{0, 0, 100, 50};
  for (SampleRegion const& region :
       {SampleRegion{rect, 0, 30, false, 1.0f}, SampleRegion{rect, 70, 30, false, 1.0f},
        SampleRegion{rect, 30, 40, true, 1.0f}}) {
    auto const calls = audio_tests::DrawSamplesPlainly(draw, LayeredChannelDrawingStyle::kAllAlike, channels,
                                                       region, layer++);
    expected.insert(expected.end(), calls.begin(), calls.end());
  }
  EXPECT_EQ(RecordSamples(draw, MakeData(channels), rect), expected);
}

// One of the 101 visible samples more has a dot than has a fade: the last dot is never faded.
TEST(SampleRenderer, FadesTouchAllSamplesButThatOfTheLastDot) {
  constexpr int kCount = 143;
  std::vector<std::vector<float>> channels{std::vector<float>(kCount, 0.5f)};
  OpenWaveformDraw draw;
  draw.SetEnabledChannels({true});
  draw.SetFadeInfo(moxmediaui::FadeType::kIn, -1, 199, true, 0.0f);
  auto const actual = RecordSamples(draw, MakeData(channels), {0, 0, 101, 50});
  for (int i = 0; i <= kCount - 44; ++i) {
    // The sample at index 21 is that of position -1, where the fade begins.
    channels[0][static_cast<std::size_t>(21 + i)] *= static_cast<float>(i) / 200.0f;
  }
  SampleRegion const region{.rect = {0, 0, 101, 50}, .left = 0, .width = 101};
  EXPECT_EQ(actual, audio_tests::DrawSamplesPlainly(draw, LayeredChannelDrawingStyle::kAllAlike, channels,
                                                    region, 1));
}

TEST(SampleRenderer, AFadeOutOfSamplesKeepsToItsPositions) {
  constexpr int kCount = 143;
  std::vector<std::vector<float>> channels{std::vector<float>(kCount, 0.5f),
                                           std::vector<float>(kCount, 0.5f)};
  OpenWaveformDraw draw;
  draw.SetEnabledChannels({false, true});
  draw.SetFadeInfo(moxmediaui::FadeType::kOut, 11, 31, true, 0.0f);  // kept as 10 to 30
  auto const actual = RecordSamples(draw, MakeData(channels), {0, 0, 100, 50});
  for (int position = 10; position <= 30; ++position) {
    channels[1][static_cast<std::size_t>(22 + position)] *=
        (20.0f - static_cast<float>(position - 10)) / 20.0f;
  }
  SampleRegion const region{.rect = {0, 0, 100, 50}, .left = 0, .width = 100};
  EXPECT_EQ(actual, audio_tests::DrawSamplesPlainly(draw, LayeredChannelDrawingStyle::kAllAlike, channels,
                                                    region, 1));
}

TEST(SampleRenderer, NothingButPaddingDrawsNoCurve) {
  OpenWaveformDraw draw;
  draw.SetGain(2.0f);
  draw.SetEnabledChannels({true});
  draw.SetFadeInfo(moxmediaui::FadeType::kIn, -10, 100, true, 0.0f);
  RectT<int> ignored;
  draw.SetSelection({0, 0, 100, 50}, 0, 50, ignored);
  for (int count : {0, 1, 20, 21, 42, 43, 44}) {
    std::vector<std::vector<float>> const channels{std::vector<float>(static_cast<std::size_t>(count), 1.0f)};
    EXPECT_TRUE(RecordSamples(draw, MakeData(channels), {0, 0, 100, 50}).empty()) << count;
  }
  EXPECT_FALSE(RecordSamples(draw, MakeData({std::vector<float>(45, 1.0f)}), {0, 0, 100, 50}).empty());
}

struct DotCase {
  double pixelsPerSample;
  float size;
  float lineAlpha;
};

class SampleDots : public ::testing::TestWithParam<DotCase> {};

TEST_P(SampleDots, AreAsLargeAsTheZoomAllows) {
  OpenWaveformDraw draw;
  draw.SetViewRange(0.0, 1.0 / GetParam().pixelsPerSample);
  auto const calls =
      RecordSamples(draw, audio_tests::MakeSamples(1, std::vector<float>(143, 0.0f)), {0, 0, 100, 51});
  int dots = 0;
  for (RecordedCall const& call : calls) {
    if (call.operation == "FillRect") {
      EXPECT_FLOAT_EQ(call.rect.width, GetParam().size);
      EXPECT_FLOAT_EQ(call.rect.height, GetParam().size);
      EXPECT_FLOAT_EQ(call.rect.top + call.rect.height / 2, 25.5f);
      EXPECT_EQ(call.colour.alpha, 1.0f);
      ++dots;
    } else if (call.operation == "NewPen") {
      EXPECT_EQ(call.colour.alpha, GetParam().lineAlpha);
      EXPECT_EQ(call.number, 2.0f);
    }
  }
  EXPECT_GT(dots, 2);
}

INSTANTIATE_TEST_SUITE_P(Zooms, SampleDots,
                         ::testing::Values(DotCase{30.0, 7.0f, 0.8f}, DotCase{21.0, 7.0f, 0.8f},
                                           DotCase{9.0, 3.0f, 0.8f}, DotCase{2.0, 1.0f, 1.0f}));

TEST(SampleRenderer, AConstantIsALevelCurveOfOnePointMoreThanColumns) {
  OpenWaveformDraw draw;
  draw.SetZoom(0.5f);
  draw.SetViewRange(3.0, 0.4);
  auto const points = CurvePoints(
      RecordSamples(draw, audio_tests::MakeSamples(1, std::vector<float>(143, 0.6f)), {0, 0, 100, 51}));
  ASSERT_EQ(points.size(), 101u);
  for (std::size_t i = 0; i < points.size(); ++i) {
    EXPECT_EQ(points[i].x, static_cast<float>(i));
    EXPECT_NEAR(points[i].y, 25.5f - 0.6f * 25.5f * 0.5f, 1e-4);
  }
}

// At 44 samples to the pixel each point's window begins where the one before ended. The second point shows
// the first one's window again; the third has its own.
TEST(SampleRenderer, AWindowThatMovedByItsOwnLengthIsKept) {
  OpenWaveformDraw draw;
  draw.SetViewRange(0.0, 44.0);
  std::vector<float> run(44, 0.5f);
  run.insert(run.end(), 44, -0.25f);
  run.insert(run.end(), 44, 0.75f);
  auto const points = CurvePoints(RecordSamples(draw, audio_tests::MakeSamples(1, run), {0, 0, 2, 51}));
  ASSERT_EQ(points.size(), 3u);
  EXPECT_NEAR(points[0].y, 25.5f - 0.5f * 25.5f, 1e-4);
  EXPECT_EQ(points[1].y, points[0].y);
  EXPECT_NEAR(points[2].y, 25.5f - 0.75f * 25.5f, 1e-4);
}

// The first point asks for the window at -1, which none that was filled may be taken for.
TEST(SampleRenderer, LeftOfTheSamplesTheCurveDoesntShowWhatWasDrawnBefore) {
  auto const data = audio_tests::MakeSamples(1, std::vector<float>(143, 0.5f));
  RectT<int> const rect{-1, 0, 40, 51};
  OpenWaveformDraw draw;
  auto const expected = RecordSamples(draw, data, rect);
  RecordSamples(draw, audio_tests::MakeSamples(1, std::vector<float>(143, -0.9f)), {0, 0, 40, 51});
  EXPECT_EQ(RecordSamples(draw, data, rect), expected);
  EXPECT_NEAR(CurvePoints(expected).at(0).y, 25.5f - 0.5f * 25.5f, 1e-4);
}

// Two samples belong to the view and take the fade, three have a dot.
TEST(SampleRenderer, TheLastOfThreeDotsOfTwoSamplesIsNotFaded) {
  OpenWaveformDraw draw;
  draw.SetViewRange(0.0, 2.0);
  auto dots = Only("FillRect", RecordSamples(draw, audio_tests::MakeSamples(1, std::vector<float>(45, 0.0f)),
                                             {0, 0, 100, 51}));
  ASSERT_EQ(dots.size(), 3u);
  EXPECT_EQ(dots[2].rect, (RectT<float>{0.25f, 25.0f, 1.0f, 1.0f}));
  draw.SetEnabledChannels({true});
  draw.SetFadeInfo(moxmediaui::FadeType::kIn, -1, 101, true, 0.0f);
  dots = Only("FillRect", RecordSamples(draw, audio_tests::MakeSamples(1, std::vector<float>(45, 1.0f)),
                                        {0, 0, 100, 51}));
  ASSERT_EQ(dots.size(), 3u);
  EXPECT_FLOAT_EQ(dots[0].rect.top, 25.0f);
  EXPECT_FLOAT_EQ(dots[1].rect.top, 25.0f - 0.25f);
  EXPECT_FLOAT_EQ(dots[2].rect.top, 25.0f - 25.5f);
}

struct OpacityCase {
  char const* name;
  bool layered;
  LayeredChannelDrawingStyle style;
  float lastChannel;
  float firstChannel;
};

class SampleLayers : public ::testing::TestWithParam<OpacityCase> {};

TEST_P(SampleLayers, AreDrawnFromTheLastChannelToTheFirstAtTheirOpacity) {
  OpenWaveformDraw draw;
  draw.SetLayeredChannels(GetParam().layered);
  draw.SetLayeredChannelDrawingStyle(GetParam().style);
  // The regions begin at the rectangle's left edge, and the rectangle's own place is added to theirs.
  auto const images =
      Only("DrawImage",
           RecordSamples(draw, audio_tests::MakeSamples(2, std::vector<float>(143, 0.5f)), {7, 3, 50, 101}));
  ASSERT_EQ(images.size(), 2u);
  EXPECT_EQ(images[0].number, GetParam().lastChannel);
  EXPECT_EQ(images[1].number, GetParam().firstChannel);
  float const height = GetParam().layered ? 101.0f : 49.0f;
  EXPECT_EQ(images[0].rect, (RectT<float>{14.0f, GetParam().layered ? 3.0f : 53.0f, 50.0f, height}));
  EXPECT_EQ(images[1].rect, (RectT<float>{14.0f, 3.0f, 50.0f, height}));
}

INSTANTIATE_TEST_SUITE_P(
    Styles, SampleLayers,
    ::testing::Values(OpacityCase{"Apart", false, LayeredChannelDrawingStyle::kAllAlike, 0.9f, 0.9f},
                      OpacityCase{"ApartWithTheFirstStrong", false, LayeredChannelDrawingStyle::kFirstStrong,
                                  0.9f, 0.9f},
                      OpacityCase{"AllAlike", true, LayeredChannelDrawingStyle::kAllAlike, 0.7f, 0.7f},
                      OpacityCase{"FirstStrong", true, LayeredChannelDrawingStyle::kFirstStrong, 0.6f, 0.9f}),
    [](auto const& test) { return std::string(test.param.name); });

TEST(SampleRenderer, SamplesAndViewsWithoutMeaningDoNoHarm) {
  float const nan = std::numeric_limits<float>::quiet_NaN();
  float const infinity = std::numeric_limits<float>::infinity();
  std::vector<float> run(200, 0.5f);
  run[30] = nan;
  run[60] = infinity;
  run[90] = -1e38f;
  auto const data = audio_tests::MakeSamples(2, run);
  for (double const left : {0.0, -1e18, 1e300, -1e300, std::nan(""), HUGE_VAL, 9.3e18}) {
    for (double const spp : {1.0, 0.0, -2.0, 1e-300, 1e300, std::nan(""), HUGE_VAL}) {
      OpenWaveformDraw draw;
      draw.SetViewRange(left, spp);
      draw.SetEnabledChannels({true});
      draw.SetFadeInfo(moxmediaui::FadeType::kIn, -10, 100, true, 2.0f);
      for (RectT<int> const& rect : {RectT<int>{0, 0, 60, 40}, RectT<int>{-20, 0, 60, 40}}) {
        // Each channel has its curve, wherever its points may lie.
        auto const points = CurvePoints(RecordSamples(draw, data, rect));
        EXPECT_EQ(points.size(), 2u * 61u) << left << ' ' << spp;
      }
      EXPECT_FALSE(draw.GetAmplitudeFromPixelOffset(1, 7, data) < 0.0f);
    }
  }
}

TEST(SampleRenderer, WithoutLayersImagesPensOrPathsItRaisesTheNullPointerException) {
  auto const data = audio_tests::MakeSamples(1, std::vector<float>(143, 0.5f));
  for (auto const& [refusal, typeName] :
       {std::pair{Refusal::kLayer, "SurfaceInterface"}, std::pair{Refusal::kSnapshot, "ImageInterface"},
        std::pair{Refusal::kPen, "PenInterface"}, std::pair{Refusal::kPath, "PathInterface"}}) {
    moxui::testing::RecordingSupplier recording;
    moxui::testing::FailingSupplier supplier(recording);
    moxui::scriber::SurfaceP const surface = supplier.NewOffscreenSurface(100, 100, 1.0f);
    moxui::scriber::Scriber scriber(&supplier, surface.Get());
    OpenWaveformDraw draw;
    draw.SetDrawCenterlines(false);
    supplier.Refuse(refusal,
                    refusal == Refusal::kPath ? 1 : 0);  // the first path is that of the ground's clip
    try {
      draw.Draw(&scriber, data, {0, 0, 100, 50}, 1.0f);
      ADD_FAILURE() << "nothing raised without " << typeName;
    } catch (moxcore::config::mox_exception const& error) {
      EXPECT_THAT(error.what(), HasSubstr(typeName));
    }
  }
}

TEST(PeakRendererFailures, WithoutAnImageItRaisesTheNullPointerExceptionAndLeaksNothing) {
  moxui::testing::RecordingSupplier recording;
  moxui::testing::FailingSupplier supplier(recording);
  moxui::scriber::SurfaceP const surface = recording.NewOffscreenSurface(100, 100, 1.0f);
  moxui::scriber::Scriber scriber(&supplier, surface.Get());
  supplier.Refuse(Refusal::kImage);
  OpenWaveformDraw const draw;
  moxcore::utility::MemoryRecycler::ReleaseRetained();
  try {
    draw.Draw(&scriber, audio_tests::MakePeaks(1, 100, std::vector<float>(200, 0.5f)), {0, 0, 100, 50}, 1.0f);
    ADD_FAILURE() << "nothing raised";
  } catch (moxcore::config::mox_exception const& error) {
    EXPECT_THAT(error.what(), HasSubstr("BufferImageInterface"));
  }
  EXPECT_EQ(recording.GetLiveObjectCount(), 1);  // the surface
  // The pixels went back to the pool.
  EXPECT_GE(moxcore::utility::MemoryRecycler::GetRetainedBytes(), 100u * 50u * 4u);
}

}  // namespace
