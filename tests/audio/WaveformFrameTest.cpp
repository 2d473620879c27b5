#include "PeakPictures.h"

#include <moxcore/config/Errors.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/testing/RecordingSupplier.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace {

using audio_tests::MakePeaks;
using audio_tests::MakeSamples;
using audio_tests::OpenWaveformDraw;
using moxmediaui::ColorRGBA;
using moxmediaui::RectT;
using moxmediaui::WaveformData;
using moxmediaui::WaveformDataType;
using moxui::testing::RecordedCall;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

std::shared_ptr<WaveformData> MakeNothing(std::size_t channels) {
  return std::make_shared<WaveformData>(
      moxmediaui::WaveformDataProperties{WaveformDataType::kNone, 0, channels}, std::vector<float>{});
}

class WaveformFrame : public ::testing::Test {
 protected:
  void Draw(std::shared_ptr<WaveformData> const& data, RectT<int> const& rect, float scale = 1.0f) {
    moxui::scriber::Scriber scriber(&mSupplier, mSurface.Get());
    mDraw.Draw(&scriber, data, rect, scale);
  }
  std::vector<RecordedCall> OnSurface() const { return mSupplier.GetCallsOf(0); }
  std::vector<RectT<float>> Fills() const {
    std::vector<RectT<float>> rects;
    for (RecordedCall const& call : mSupplier.GetCalls("FillRect")) {
      rects.push_back(call.rect);
    }
    return rects;
  }
  /// Rectangles that backgrounds were clipped to, in order.
  std::vector<RectT<float>> Clips() const {
    std::vector<RectT<float>> rects;
    for (RecordedCall const& call : mSupplier.GetCalls("ClipToPath")) {
      auto const& segment = call.path.at(0);
      rects.push_back({segment.points[0].x, segment.points[0].y, segment.numbers[0], segment.numbers[1]});
    }
    return rects;
  }
  void Select(std::int64_t left, std::int64_t width) {
    RectT<int> ignored;
    mDraw.SetSelection({0, 0, 100, 100}, left, width, ignored);
  }

  moxui::testing::RecordingSupplier mSupplier;
  moxui::scriber::SurfaceP mSurface = mSupplier.NewOffscreenSurface(400, 300, 1.0f);
  OpenWaveformDraw mDraw;
};

TEST_F(WaveformFrame, WithoutChannelsTheControlColourFillsAll) {
  mDraw.SetControlColor({0.1f, 0.2f, 0.3f, 1.0f});
  RecordedCall const fill{
      .operation = "FillRect", .surface = 0, .rect = {0, 0, 50, 40}, .colour = {0.1f, 0.2f, 0.3f, 1.0f}};
  Draw(MakeNothing(0), {7, 8, 50, 40});
  EXPECT_THAT(OnSurface(), ElementsAre(fill));
  Draw(MakePeaks(0, 50, {}), {7, 8, 50, 40});
  EXPECT_THAT(OnSurface(), ElementsAre(fill, fill));
}

// A count of channels is one of 32 bits with a sign.
TEST_F(WaveformFrame, ANegativeNumberOfChannelsIsNone) {
  mDraw.SetControlColor({0.1f, 0.2f, 0.3f, 1.0f});
  for (std::size_t const channels : {std::size_t{1} << 31, std::size_t{0xFFFFFFFF}}) {
    Draw(MakeNothing(channels), {0, 0, 50, 40});
    ASSERT_EQ(OnSurface().size(), 1u);
    EXPECT_EQ(OnSurface()[0].rect, (RectT<float>{0, 0, 50, 40}));
    EXPECT_EQ(OnSurface()[0].colour, mDraw.GetControlColor());
    mSupplier.Clear();
  }
}

TEST_F(WaveformFrame, RectanglesWithoutAreaDrawNothing) {
  for (RectT<int> const& rect : {RectT<int>{0, 0, 0, 10}, RectT<int>{0, 0, 10, 0}, RectT<int>{0, 0, -5, 10},
                                 RectT<int>{0, 0, 10, std::numeric_limits<int>::min()}}) {
    Draw(MakeNothing(2), rect);
    Draw(MakeNothing(0), rect);
  }
  EXPECT_THAT(OnSurface(), IsEmpty());
}

TEST_F(WaveformFrame, RectanglesBeyondTheEndOfTheNumbersDrawNothing) {
  constexpr int kMost = std::numeric_limits<int>::max();
  Draw(MakeNothing(2), {kMost, 0, 10, 10});
  Draw(MakeNothing(2), {0, 1, 10, kMost});
  EXPECT_THAT(OnSurface(), IsEmpty());
}

// Two strips of 2^30 rows each end beyond the largest int.
TEST_F(WaveformFrame, StripsThatEndBeyondTheEndOfTheNumbersAreHeld) {
  constexpr int kMost = std::numeric_limits<int>::max();
  mDraw.SetEnabledChannels({true, true});
  Select(10, 20);
  Draw(MakeNothing(2), {0, 0, 100, kMost});
  constexpr float kStrip = 1073741824.0f;
  EXPECT_THAT(Clips(), ElementsAre(RectT<float>{0, 0, 10, 2 * kStrip}, RectT<float>{30, 0, 70, 2 * kStrip},
                                   RectT<float>{10, kStrip, 20, kStrip}, RectT<float>{10, 0, 20, kStrip}));
}

TEST_F(WaveformFrame, PeaksThatDontFitIntoAnImageDrawNothing) {
  for (RectT<int> const& rect :
       {RectT<int>{0, 0, 4, 32769}, RectT<int>{0, 0, 4, std::numeric_limits<int>::max()},
        RectT<int>{0, 0, 32768, 4}}) {
    Draw(MakePeaks(1, rect.width, std::vector<float>(static_cast<std::size_t>(rect.width) * 2, 0.5f)), rect);
  }
  EXPECT_THAT(mSupplier.GetCalls("NewImage"), IsEmpty());
  Draw(MakePeaks(1, 4, std::vector<float>(8, 0.5f)), {0, 0, 4, 32767});
  Draw(MakePeaks(1, 32767, std::vector<float>(65534, 0.5f)), {0, 0, 32767, 4});
  EXPECT_EQ(mSupplier.GetCalls("NewImage").size(), 2u);
  // So much of a longer one fits.
  mDraw.SetPaintedColumns(32760, 32768);
  Draw(MakePeaks(1, 32768, std::vector<float>(65536, 0.5f)), {0, 0, 32768, 4});
  EXPECT_EQ(mSupplier.GetCalls("NewImage").size(), 3u);
}

TEST_F(WaveformFrame, TooFewRowsForTheChannelsDrawNothing) {
  Draw(MakeNothing(3), {0, 0, 10, 4});
  EXPECT_THAT(OnSurface(), IsEmpty());
  Draw(MakeNothing(10000), {0, 0, 10, 1000});
  EXPECT_THAT(OnSurface(), IsEmpty());
  Draw(MakeNothing(3), {0, 0, 10, 5});
  EXPECT_FALSE(OnSurface().empty());
}

TEST_F(WaveformFrame, TenThousandChannelsFindTheirRows) {
  mDraw.SetDrawCenterlines(false);
  Draw(MakePeaks(10000, 2, std::vector<float>(40000, 0.5f)), {0, 0, 2, 19999});
  auto const images = mSupplier.GetCalls("DrawImage");
  ASSERT_EQ(images.size(), 1u);
  EXPECT_EQ(images[0].image.height, 19999);
  mSupplier.Clear();
  mDraw.SetLayeredChannels(true);
  Draw(MakePeaks(10000, 2, std::vector<float>(40000, 0.5f)), {0, 0, 2, 20});
  EXPECT_EQ(mSupplier.GetCalls("DrawImage").size(), 1u);
}

TEST_F(WaveformFrame, ScalesWithoutMeaningDrawNothing) {
  float const nan = std::numeric_limits<float>::quiet_NaN();
  float const infinity = std::numeric_limits<float>::infinity();
  for (float const scale : {0.0f, -0.0f, -1.0f, nan, infinity, -infinity, 1e-30f, 1e30f}) {
    Draw(MakePeaks(1, 10, std::vector<float>(20, 0.5f)), {0, 0, 10, 20}, scale);
    EXPECT_THAT(OnSurface(), IsEmpty()) << scale;
  }
  mDraw.SetLayeredChannels(true);
  Draw(MakePeaks(1, 10, std::vector<float>(20, 0.5f)), {0, 0, 10, 20}, 0.0f);
  EXPECT_THAT(OnSurface(), IsEmpty());
}

// 81 rows at scale 2 are 40 units: (40 - 1) / 2 = 19 and a stride of 20, doubled.
TEST_F(WaveformFrame, ChannelHeightsFollowTheUnscaledHeight) {
  Draw(MakePeaks(2, 1, std::vector<float>(4, 0.0f)), {0, 0, 1, 81}, 2.0f);
  EXPECT_EQ(mSupplier.GetCalls("DrawImage").at(0).image.height, 40 + 38);
  // Three rows are left over below.
  EXPECT_THAT(Fills(), ElementsAre(RectT<float>{0, 78, 1, 3}));
  // The centre of 38 rows is 19.5: silence is a hairline at row 19.
  EXPECT_NE(mSupplier.GetCalls("DrawImage")[0].image.bytes[19 * 4], 0);
}

TEST_F(WaveformFrame, NothingToDrawStillHasGroundLinesAndRemains) {
  Draw(MakeNothing(2), {0, 0, 100, 101});
  EXPECT_THAT(Clips(), ElementsAre(RectT<float>{0, 0, 100, 101}));
  // One ground, then one row below two strips of 49 rows that stand 50 apart: 99 to 101.
  EXPECT_THAT(Fills(), ElementsAre(RectT<float>{0, 0, 100, 101}, RectT<float>{0, 99, 100, 2}));
  EXPECT_EQ(mSupplier.GetCalls("StrokePath").size(), 2u);  // centre lines, dividers
}

TEST_F(WaveformFrame, RemainsLieAboveWhenChannelsAreAlignedWithTheBottom) {
  mDraw.SetVerticalChannelAlignment(moxmediaui::VerticalChannelAlignment::kBottom);
  Draw(MakeNothing(2), {0, 5, 100, 101});
  EXPECT_THAT(Fills(), ElementsAre(RectT<float>{0, 5, 100, 101}, RectT<float>{0, 0, 100, 7}));
}

// So does any alignment but that with the top.
TEST_F(WaveformFrame, AnAlignmentWithoutANameIsThatWithTheBottom) {
  mDraw.SetVerticalChannelAlignment(static_cast<moxmediaui::VerticalChannelAlignment>(2));
  Draw(MakePeaks(2, 100, std::vector<float>(400, 0.5f)), {0, 0, 100, 101});
  EXPECT_THAT(Fills(), ElementsAre(RectT<float>{0, 0, 100, 2}));
  EXPECT_EQ(mSupplier.GetCalls("DrawImage").at(0).point.y, 2.0f);
}

TEST_F(WaveformFrame, LayeredChannelsHaveOneGroundToARegion) {
  mDraw.SetLayeredChannels(true);
  mDraw.SetEnabledChannels({true, true});
  Select(10, 20);
  Draw(MakeNothing(2), {0, 0, 100, 101});
  EXPECT_THAT(Clips(), ElementsAre(RectT<float>{0, 0, 10, 101}, RectT<float>{30, 0, 70, 101},
                                   RectT<float>{10, 0, 20, 101}));
}

// Also where the strip lost a row to have a middle, so that its stride is -1.
TEST_F(WaveformFrame, LayeredChannelsHaveNoDividers) {
  ColorRGBA const divider{0.1f, 0.2f, 0.3f, 1.0f};
  mDraw.SetDividerColor(divider);
  auto const dividers = [&] {
    auto strokes = mSupplier.GetCalls("StrokePath");
    std::erase_if(strokes, [&](RecordedCall const& call) { return call.colour != divider; });
    mSupplier.Clear();
    return strokes.size();
  };
  for (int const height : {100, 101}) {
    RectT<int> const rect{0, 0, 100, height};
    mDraw.SetLayeredChannels(true);
    Draw(MakeNothing(2), rect);
    EXPECT_EQ(dividers(), 0u) << height;
    Draw(MakePeaks(2, 100, std::vector<float>(400, 0.5f)), rect);
    EXPECT_EQ(dividers(), 0u) << height;
    mDraw.SetLayeredChannels(false);
    Draw(MakeNothing(2), rect);
    EXPECT_EQ(dividers(), 1u) << height;
  }
}

// The strip of 100 rows gave one up to have a middle.
TEST_F(WaveformFrame, ALayeredStripOfEvenHeightLeavesARow) {
  mDraw.SetLayeredChannels(true);
  Draw(MakeNothing(2), {0, 0, 100, 100});
  EXPECT_THAT(Fills(), ElementsAre(RectT<float>{0, 0, 100, 100}, RectT<float>{0, 99, 100, 1}));
  mSupplier.Clear();
  mDraw.SetVerticalChannelAlignment(moxmediaui::VerticalChannelAlignment::kBottom);
  Draw(MakeNothing(2), {0, 0, 100, 100});
  EXPECT_THAT(Fills(), ElementsAre(RectT<float>{0, 0, 100, 100}, RectT<float>{0, 0, 100, 1}));
}

// Strips stand at 0 and 50 whatever the rectangle's top; the selection is what of them lies within it.
TEST_F(WaveformFrame, ASelectionKeepsWithinARectangleThatBeginsLower) {
  mDraw.SetEnabledChannels({true, true});
  Select(10, 20);
  Draw(MakeNothing(2), {0, 5, 100, 101});
  EXPECT_THAT(Clips(), ElementsAre(RectT<float>{0, 0, 10, 101}, RectT<float>{30, 0, 70, 101},
                                   RectT<float>{10, 50, 20, 49}, RectT<float>{10, 5, 20, 44}));
  auto const fills = Fills();
  ASSERT_EQ(fills.size(), 7u);
  // The last strip ends at 99, the rectangle at 106.
  EXPECT_EQ(fills[4], (RectT<float>{0, 99, 10, 7}));
  EXPECT_EQ(fills[5], (RectT<float>{30, 99, 70, 7}));
  EXPECT_EQ(fills[6], (RectT<float>{10, 99, 20, 7}));
}

TEST_F(WaveformFrame, ASelectionKeepsWithinARectangleThatBeginsHigher) {
  mDraw.SetEnabledChannels({true, true});
  Select(10, 20);
  Draw(MakeNothing(2), {0, -5, 100, 101});
  EXPECT_THAT(Clips(), ElementsAre(RectT<float>{0, 0, 10, 101}, RectT<float>{30, 0, 70, 101},
                                   RectT<float>{10, 50, 20, 46}, RectT<float>{10, 0, 20, 49}));
  EXPECT_EQ(Fills().size(), 4u);  // grounds; the rectangle ends at 96, above the last strip's end
}

// The first channel's strip ends at 49, above the rectangle.
TEST_F(WaveformFrame, AStripOutsideTheRectangleIsClippedToNothing) {
  mDraw.SetEnabledChannels({true, true});
  Select(10, 20);
  Draw(MakeNothing(2), {0, 60, 100, 101});
  EXPECT_THAT(Clips(), ElementsAre(RectT<float>{0, 0, 10, 101}, RectT<float>{30, 0, 70, 101},
                                   RectT<float>{10, 60, 20, 39}, RectT<float>{0, 0, 0, 0}));
  auto const fills = Fills();
  ASSERT_EQ(fills.size(), 7u);
  // From the last strip's end to the rectangle's, at 161.
  EXPECT_EQ(fills[4], (RectT<float>{0, 99, 10, 62}));
  EXPECT_EQ(fills[5], (RectT<float>{30, 99, 70, 62}));
  EXPECT_EQ(fills[6], (RectT<float>{10, 99, 20, 62}));
}

TEST_F(WaveformFrame, ASelectionIsLeftRightAndThenItselfByChannelFromTheLast) {
  mDraw.SetEnabledChannels({true, false});
  Select(10, 20);
  Draw(MakeNothing(2), {0, 0, 100, 101});
  EXPECT_THAT(Clips(), ElementsAre(RectT<float>{0, 0, 10, 101}, RectT<float>{30, 0, 70, 101},
                                   RectT<float>{10, 50, 20, 49}, RectT<float>{10, 0, 20, 49}));
  auto const fills = mSupplier.GetCalls("FillRect");
  ASSERT_EQ(fills.size(), 7u);
  EXPECT_EQ(fills[2].colour, mDraw.GetBackgroundColor());  // the disabled channel shows no selection
  EXPECT_EQ(fills[3].colour, mDraw.GetSelectionBackgroundColor());
  // What is left over takes the region's colour.
  EXPECT_EQ(fills[4].colour, mDraw.GetBackgroundColor());
  EXPECT_EQ(fills[6].colour, mDraw.GetSelectionBackgroundColor());
  EXPECT_EQ(fills[6].rect, (RectT<float>{10, 99, 20, 2}));
}

TEST_F(WaveformFrame, WithNothingSaidAboutChannelsASelectionIsIgnored) {
  Select(10, 20);
  Draw(MakeNothing(2), {0, 0, 100, 101});
  EXPECT_THAT(Clips(), ElementsAre(RectT<float>{0, 0, 100, 101}));
  mDraw.SetEnabledChannels({false, false});
  Draw(MakeNothing(2), {0, 0, 100, 101});
  EXPECT_EQ(Clips().size(), 2u);
}

TEST_F(WaveformFrame, ASelectionOutOfSightIsOneRegion) {
  mDraw.SetEnabledChannels({true});
  Select(500, 20);
  Draw(MakeNothing(1), {0, 0, 100, 101});
  EXPECT_THAT(Clips(), ElementsAre(RectT<float>{0, 0, 100, 101}));
}

TEST_F(WaveformFrame, ASelectionAtAnEdgeLeavesOutTheEmptySide) {
  mDraw.SetEnabledChannels({true});
  Select(-20, 30);
  Draw(MakeNothing(1), {0, 0, 100, 101});
  EXPECT_THAT(Clips(), ElementsAre(RectT<float>{10, 0, 90, 101}, RectT<float>{0, 0, 10, 101}));
}

TEST_F(WaveformFrame, AWaveformOfAnotherWidthLeavesTheRegionAsItWas) {
  Draw(MakePeaks(1, 99, std::vector<float>(198, 0.5f)), {0, 0, 100, 101});
  EXPECT_THAT(mSupplier.GetCalls("DrawImage"), IsEmpty());
  EXPECT_THAT(Clips(), IsEmpty());
}

TEST_F(WaveformFrame, AWaveformOfAnotherWidthHasItsDividersAndRemains) {
  mDraw.SetEnabledChannels({true, true});
  Select(10, 20);
  Draw(MakePeaks(2, 99, std::vector<float>(396, 0.5f)), {0, 0, 100, 101});
  EXPECT_THAT(mSupplier.GetCalls("DrawImage"), IsEmpty());
  EXPECT_THAT(Clips(), IsEmpty());
  auto const strokes = mSupplier.GetCalls("StrokePath");
  ASSERT_EQ(strokes.size(), 1u);
  EXPECT_EQ(strokes[0].colour, mDraw.GetDividerColor());
  EXPECT_THAT(Fills(), ElementsAre(RectT<float>{0, 99, 10, 2}, RectT<float>{30, 99, 70, 2},
                                   RectT<float>{10, 99, 20, 2}));
}

TEST_F(WaveformFrame, PeaksHaveNoGroundOfTheirOwn) {
  Draw(MakePeaks(1, 100, std::vector<float>(200, 0.5f)), {0, 0, 100, 101});
  EXPECT_THAT(Clips(), IsEmpty());
  auto const images = mSupplier.GetCalls("DrawImage");
  ASSERT_EQ(images.size(), 1u);
  EXPECT_EQ(images[0].number, 1.0f);
  EXPECT_EQ(images[0].image.format, moxui::scriber::PixelFormat::kBGRX32);
  EXPECT_EQ(mSupplier.GetCalls("NewImage").at(0).number, 400.0f);  // bytes from row to row
}

TEST_F(WaveformFrame, ANullWaveformRaisesTheNullPointerException) {
  try {
    Draw(nullptr, {0, 0, 100, 101});
    ADD_FAILURE() << "nothing raised";
  } catch (moxcore::config::mox_exception const& error) {
    EXPECT_THAT(error.what(), HasSubstr("WaveformData"));
  }
  EXPECT_NO_THROW(Draw(nullptr, {0, 0, 0, 0}));
}

TEST_F(WaveformFrame, DrawingLeavesTheSettingsAndTheDataAlone) {
  mDraw.SetEnabledChannels({true});
  mDraw.SetFadeInfo(moxmediaui::FadeType::kIn, 0, 100, true, 0.0f);
  mDraw.SetGain(3.0f);
  auto const data = MakePeaks(1, 100, std::vector<float>(200, 0.5f));
  Draw(data, {0, 0, 100, 101});
  EXPECT_EQ(data->GetWaveformBuffer(), std::vector<float>(200, 0.5f));
  EXPECT_EQ(mDraw.GetGain(), 3.0f);
}

TEST(WaveformDrawByDefault, ShowsLinearPeaksAndDotsUnchangedAndNothingSelected) {
  OpenWaveformDraw const draw;
  EXPECT_EQ(draw.GetZoom(), 1.0f);
  EXPECT_EQ(draw.GetGain(), 1.0f);
  EXPECT_EQ(draw.GetSelectionLeft(), 0);
  EXPECT_EQ(draw.GetSelectionWidth(), 0);
  EXPECT_THAT(draw.GetSelectionChannelColors(), IsEmpty());
  EXPECT_EQ(draw.GetFadeType(), moxmediaui::FadeType::kNone);
  EXPECT_EQ(draw.GetFadeStart(), 0);
  EXPECT_EQ(draw.GetFadeEnd(), 0);
  EXPECT_TRUE(draw.GetDrawSampleDots());
  EXPECT_EQ(draw.GetPeakDataDrawStyle(), moxmediaui::PeakDataDrawStyle::kBipolar);
  EXPECT_EQ(draw.GetWaveformScalingStyle(), moxmediaui::WaveformScalingStyle::kLinear);
  // A straight line: exponential, without an amount.
  EXPECT_EQ(draw.GetFadeValue(0.25f, 0.0f), 0.25f);
}

TEST_F(WaveformFrame, AWaveformDrawIsCopiedWithAllItsSettings) {
  mDraw.SetZoom(2.0f);
  mDraw.SetGain(3.0f);
  mDraw.SetFadeInfo(moxmediaui::FadeType::kIn, 5, 6, false, 1.5f);
  mDraw.SetDrawSampleDots(false);
  mDraw.SetPeakDataDrawStyle(moxmediaui::PeakDataDrawStyle::kRectified);
  mDraw.SetWaveformScalingStyle(moxmediaui::WaveformScalingStyle::kSquareRoot);
  mDraw.SetSelectionChannelColors({{1, 0, 0, 1}});
  Select(4, 5);
  OpenWaveformDraw const copy(mDraw);
  EXPECT_EQ(copy.GetZoom(), 2.0f);
  EXPECT_EQ(copy.GetGain(), 3.0f);
  EXPECT_EQ(copy.GetFadeType(), moxmediaui::FadeType::kIn);
  EXPECT_EQ(copy.GetFadeStart(), 5);
  EXPECT_EQ(copy.GetFadeEnd(), 6);
  EXPECT_EQ(copy.GetFadeValue(0.25f, 0.0f), mDraw.GetFadeValue(0.25f, 0.0f));
  EXPECT_FALSE(copy.GetDrawSampleDots());
  EXPECT_EQ(copy.GetPeakDataDrawStyle(), moxmediaui::PeakDataDrawStyle::kRectified);
  EXPECT_EQ(copy.GetWaveformScalingStyle(), moxmediaui::WaveformScalingStyle::kSquareRoot);
  EXPECT_EQ(copy.GetSelectionChannelColors(), (std::vector<ColorRGBA>{{1, 0, 0, 1}}));
  EXPECT_EQ(copy.GetSelectionLeft(), 4);
  EXPECT_EQ(copy.GetSelectionWidth(), 5);
}

}  // namespace
