#include "OpenWaveformDraw.h"

#include <moxcore/config/Errors.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/testing/FailingSupplier.h>
#include <moxui/testing/RecordingSupplier.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace {

using audio_tests::OpenWaveformDraw;
using moxmediaui::ColorRGBA;
using moxmediaui::RectT;
using moxui::scriber::Scriber;
using moxui::testing::RecordedCall;
using moxui::testing::RecordedSegment;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Kind = RecordedSegment::Kind;

std::vector<RecordedSegment> Lines(std::vector<std::array<float, 4>> const& lines) {
  std::vector<RecordedSegment> segments;
  for (auto const& [x1, y1, x2, y2] : lines) {
    segments.push_back({Kind::kMoveTo, {{x1, y1}}, {}});
    segments.push_back({Kind::kLineTo, {{x2, y2}}, {}});
  }
  return segments;
}

class AudioChrome : public ::testing::Test {
 protected:
  moxui::testing::RecordingSupplier mSupplier;
  moxui::scriber::SurfaceP mSurface = mSupplier.NewOffscreenSurface(400, 300, 1.0f);
  Scriber mScriber{&mSupplier, mSurface.Get()};
  OpenWaveformDraw mDraw;

  std::vector<RecordedCall> OnSurface() const { return mSupplier.GetCallsOf(0); }
};

TEST_F(AudioChrome, GridLinesAreOneStrokeWithoutSmoothing) {
  mDraw.SetHorizontalGridlinePositions({0, 49, 50, -1});
  mDraw.SetVerticalGridlinePositions({0, 99, 100, -1});
  ColorRGBA const colour{0.1f, 0.2f, 0.3f, 0.4f};
  mDraw.DrawGridLines(&mScriber, {10, 20, 100, 50}, colour, 8, 3.0f);
  EXPECT_THAT(OnSurface(), ElementsAre(RecordedCall{.operation = "SaveState", .surface = 0},
                                       RecordedCall{.operation = "SetSmoothing", .surface = 0, .mode = 0},
                                       RecordedCall{.operation = "StrokePath",
                                                    .surface = 0,
                                                    .colour = colour,
                                                    .number = 1.0f,
                                                    .path = Lines({{10, 20.5f, 110, 20.5f},
                                                                   {10, 69.5f, 110, 69.5f},
                                                                   {10.5f, 19, 10.5f, 71},
                                                                   {109.5f, 19, 109.5f, 71}})},
                                       RecordedCall{.operation = "RestoreState", .surface = 0}));
}

TEST_F(AudioChrome, StripsOfSevenRowsCarryNoGrid) {
  mDraw.SetVerticalGridlinePositions({5});
  mDraw.DrawGridLines(&mScriber, {0, 0, 100, 50}, {}, 7, 1.0f);
  EXPECT_THAT(OnSurface(), IsEmpty());
  mDraw.DrawGridLines(&mScriber, {0, 0, 100, 50}, {}, 8, 1.0f);
  EXPECT_EQ(OnSurface().size(), 4u);
}

TEST_F(AudioChrome, AGridWithoutPositionsIsNoGrid) {
  mDraw.DrawGridLines(&mScriber, {0, 0, 100, 50}, {}, 100, 1.0f);
  EXPECT_THAT(OnSurface(), IsEmpty());
}

TEST_F(AudioChrome, CentreLinesReachAPixelBeyondAndIgnoreTheTop) {
  mDraw.DrawCenterLines(&mScriber, {10, 20, 100, 101}, true, 2, 49, 50, 24.5f, 2.0f);
  EXPECT_THAT(OnSurface(),
              ElementsAre(RecordedCall{.operation = "StrokePath",
                                       .surface = 0,
                                       .colour = mDraw.GetCenterlineColor(),
                                       .number = 1.0f,
                                       .path = Lines({{9, 24.5f, 111, 24.5f}, {9, 74.5f, 111, 74.5f}})}));
}

TEST_F(AudioChrome, CentreLinesOfARectangleLeftOfZeroBeginAtMinusOne) {
  mDraw.SetLayeredChannels(true);
  mDraw.DrawCenterLines(&mScriber, {-30, 0, 100, 101}, false, 5, 49, -1, 24.5f, 1.0f);
  ASSERT_EQ(OnSurface().size(), 1u);
  EXPECT_EQ(OnSurface()[0].path, Lines({{-1, 24.5f, 101, 24.5f}}));
}

TEST_F(AudioChrome, CentreLinesCanBeSwitchedOff) {
  mDraw.SetDrawCenterlines(false);
  mDraw.DrawCenterLines(&mScriber, {0, 0, 100, 101}, false, 2, 49, 50, 24.5f, 1.0f);
  EXPECT_THAT(mSupplier.GetCalls("NewPen"), IsEmpty());
}

TEST_F(AudioChrome, DividersEndAtTheWidthWhereverTheRectangleBegins) {
  mDraw.DrawDividerLines(&mScriber, {10, 20, 100, 150}, false, 3, 49, 50, 1.0f);
  EXPECT_THAT(OnSurface(), ElementsAre(RecordedCall{.operation = "SaveState", .surface = 0},
                                       RecordedCall{.operation = "SetSmoothing", .surface = 0, .mode = 0},
                                       RecordedCall{.operation = "StrokePath",
                                                    .surface = 0,
                                                    .colour = mDraw.GetDividerColor(),
                                                    .number = 1.0f,
                                                    .path = Lines({{10, 70, 100, 70}, {10, 120, 100, 120}})},
                                       RecordedCall{.operation = "RestoreState", .surface = 0}));
}

TEST_F(AudioChrome, LayeredDividersStayWhereTheFirstIs) {
  mDraw.DrawDividerLines(&mScriber, {0, 0, 100, 150}, true, 3, 49, 50, 1.0f);
  EXPECT_EQ(mSupplier.GetCalls("StrokePath").at(0).path, Lines({{0, 50, 100, 50}, {0, 50, 100, 50}}));
}

TEST_F(AudioChrome, OneChannelHasNoDivider) {
  mDraw.DrawDividerLines(&mScriber, {0, 0, 100, 150}, false, 1, 49, 50, 1.0f);
  mDraw.DrawDividerLines(&mScriber, {0, 0, 100, 150}, false, 0, 49, 50, 1.0f);
  mDraw.SetDrawDividers(false);
  mDraw.DrawDividerLines(&mScriber, {0, 0, 100, 150}, false, 3, 49, 50, 1.0f);
  EXPECT_THAT(OnSurface(), IsEmpty());
}

TEST_F(AudioChrome, ABackgroundFillsTheWholeRectangleThroughItsClip) {
  mDraw.SetVerticalGridlinePositions({5});
  mDraw.DrawBackground(&mScriber, {1, 2, 100, 50}, {20, 0, 30, 50}, true, 1, 49, 50, 24.5f, 1.0f);
  std::vector<RecordedCall> const calls = OnSurface();
  ASSERT_EQ(calls.size(), 9u);
  EXPECT_EQ(calls[0].operation, "SaveState");
  EXPECT_EQ(
      calls[1],
      (RecordedCall{
          .operation = "ClipToPath", .surface = 0, .mode = 1, .path = {{Kind::kRect, {{20, 0}}, {30, 50}}}}));
  EXPECT_EQ(calls[2], (RecordedCall{.operation = "FillRect",
                                    .surface = 0,
                                    .rect = {1, 2, 100, 50},
                                    .colour = mDraw.GetSelectionBackgroundColor()}));
  EXPECT_EQ(calls[5].operation, "StrokePath");
  EXPECT_EQ(calls[5].colour, mDraw.GetGridlineColor(true));
  EXPECT_EQ(calls[7].operation, "StrokePath");
  EXPECT_EQ(calls[7].colour, mDraw.GetCenterlineColor());
  EXPECT_EQ(calls[8].operation, "RestoreState");
}

TEST_F(AudioChrome, ABackgroundOutsideASelectionTakesThePlainColours) {
  mDraw.SetVerticalGridlinePositions({5});
  mDraw.SetDrawCenterlines(false);
  mDraw.DrawBackground(&mScriber, {1, 2, 100, 50}, {20, 0, 30, 50}, false, 1, 49, 50, 24.5f, 1.0f);
  std::vector<RecordedCall> const calls = OnSurface();
  ASSERT_EQ(calls.size(), 8u);
  EXPECT_EQ(calls[2].colour, mDraw.GetBackgroundColor());
  EXPECT_EQ(calls[5].colour, mDraw.GetGridlineColor(false));
}

TEST_F(AudioChrome, RectanglesAtTheEndOfTheNumbersAreDrawnWithoutOverflow) {
  constexpr int kMost = std::numeric_limits<int>::max();
  mDraw.SetHorizontalGridlinePositions({1});
  mDraw.SetVerticalGridlinePositions({1});
  mDraw.DrawGridLines(&mScriber, {kMost, kMost, kMost, kMost}, {}, 8, 1.0f);
  mDraw.DrawCenterLines(&mScriber, {kMost, kMost, kMost, kMost}, false, 2, kMost, kMost, 0.5f, 1.0f);
  mDraw.DrawDividerLines(&mScriber, {kMost, kMost, kMost, kMost}, false, 3, kMost, kMost, 1.0f);
  EXPECT_EQ(mSupplier.GetCalls("StrokePath").size(), 3u);
}

struct MissingCase {
  moxui::testing::Refusal refusal;
  char const* typeName;
};

class AudioChromeWithoutTools : public ::testing::TestWithParam<MissingCase> {};

TEST_P(AudioChromeWithoutTools, RaisesTheNullPointerExceptionWithTheTypesName) {
  moxui::testing::RecordingSupplier recording;
  moxui::scriber::SurfaceP const surface = recording.NewOffscreenSurface(100, 100, 1.0f);
  moxui::testing::FailingSupplier supplier(recording);
  supplier.Refuse(GetParam().refusal);
  Scriber scriber(&supplier, surface.Get());
  OpenWaveformDraw draw;
  draw.SetVerticalGridlinePositions({5});
  RectT<int> const rect{0, 0, 100, 100};
  auto const expectFailure = [&](auto&& work) {
    try {
      work();
      ADD_FAILURE() << "nothing raised";
    } catch (moxcore::config::mox_exception const& error) {
      EXPECT_THAT(error.what(), ::testing::HasSubstr(GetParam().typeName));
    }
  };
  expectFailure([&] { draw.DrawGridLines(&scriber, rect, {}, 50, 1.0f); });
  expectFailure([&] { draw.DrawCenterLines(&scriber, rect, false, 2, 49, 50, 24.5f, 1.0f); });
  expectFailure([&] { draw.DrawDividerLines(&scriber, rect, false, 2, 49, 50, 1.0f); });
  expectFailure([&] { draw.DrawBackground(&scriber, rect, rect, false, 2, 49, 50, 24.5f, 1.0f); });
  // Whatever was saved is restored.
  EXPECT_EQ(recording.GetCalls("SaveState").size(), recording.GetCalls("RestoreState").size());
}

INSTANTIATE_TEST_SUITE_P(PensAndPaths, AudioChromeWithoutTools,
                         ::testing::Values(MissingCase{moxui::testing::Refusal::kPen, "PenInterface"},
                                           MissingCase{moxui::testing::Refusal::kPath, "PathInterface"}),
                         [](auto const& test) { return std::string(test.param.typeName); });

}  // namespace
