#include "OpenWaveformDraw.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using audio_tests::OpenWaveformDraw;
using moxmediaui::AudioDataDrawBase;
using moxmediaui::RectT;

struct Bounds {
  bool fits;
  int height;
  int stride;
  friend bool operator==(Bounds const&, Bounds const&) = default;
};

void PrintTo(Bounds const& bounds, std::ostream* stream) {
  *stream << bounds.fits << " height " << bounds.height << " stride " << bounds.stride;
}

Bounds BoundsOf(int height, int channels, bool layered, bool makeOdd) {
  Bounds bounds{false, -99, -99};
  bounds.fits = AudioDataDrawBase::CalculateVerticalChannelBounds(height, channels, layered, makeOdd,
                                                                  bounds.height, bounds.stride);
  return bounds;
}

TEST(AudioGeometry, DividesTheHeightIntoOddStripsWithARowBetween) {
  EXPECT_EQ(BoundsOf(100, 2, false, true), (Bounds{true, 49, 50}));
  EXPECT_EQ(BoundsOf(101, 2, false, true), (Bounds{true, 49, 50}));
  EXPECT_EQ(BoundsOf(101, 2, false, false), (Bounds{true, 50, 51}));
}

TEST(AudioGeometry, NeedsARowForEachChannelAndEachGap) {
  EXPECT_EQ(BoundsOf(2, 2, false, false), (Bounds{false, 2, 0}));
  EXPECT_EQ(BoundsOf(3, 2, false, false), (Bounds{true, 1, 2}));
  EXPECT_EQ(BoundsOf(0, 2, false, false), (Bounds{false, 0, 0}));
  EXPECT_EQ(BoundsOf(-7, 2, true, true), (Bounds{false, 0, 0}));
  EXPECT_EQ(BoundsOf(20000, 10000, false, false), (Bounds{true, 1, 2}));
  EXPECT_EQ(BoundsOf(std::numeric_limits<int>::max(), std::numeric_limits<int>::max(), false, true),
            (Bounds{false, std::numeric_limits<int>::max(), 0}));
}

TEST(AudioGeometry, LayeredChannelsShareOneStrip) {
  EXPECT_EQ(BoundsOf(10, 4, true, true), (Bounds{true, 9, -1}));
  EXPECT_EQ(BoundsOf(10, 4, true, false), (Bounds{true, 10, 0}));
  EXPECT_EQ(BoundsOf(1, 0, true, true), (Bounds{true, 1, 0}));
}

TEST(AudioGeometry, AStripOfTwoRowsBecomesOne) {
  EXPECT_EQ(BoundsOf(2, 1, false, true), (Bounds{true, 1, 2}));
  EXPECT_EQ(BoundsOf(5, 2, false, true), (Bounds{true, 1, 2}));
}

TEST(AudioGeometry, OffsetsFollowLayersAndCentreLines) {
  OpenWaveformDraw draw;
  int height = 0, stride = 0;
  EXPECT_TRUE(draw.GetChannelOffsets(101, 2, height, stride));
  EXPECT_EQ(height, 49);
  draw.SetDrawCenterlines(false);
  EXPECT_TRUE(draw.GetChannelOffsets(101, 2, height, stride));
  EXPECT_EQ(height, 50);
  draw.SetLayeredChannels(true);
  EXPECT_TRUE(draw.GetChannelOffsets(101, 2, height, stride));
  EXPECT_EQ(height, 101);
}

TEST(AudioGeometry, RectanglesOfChannelsStandBelowOneAnother) {
  OpenWaveformDraw draw;
  EXPECT_EQ(draw.GetChannelRect(3, false, 200, 49, 50), (RectT<int>{0, 150, 200, 49}));
  EXPECT_EQ(draw.GetChannelRect(3, true, 200, 49, 50), (RectT<int>{0, 0, 200, 49}));
}

TEST(AudioGeometry, PixelsOfASampleDontShimmerWhileScrollingWithinAPixel) {
  OpenWaveformDraw draw;
  draw.SetViewRange(1000.0, 10.0);
  std::int64_t const pixel = draw.GetPixelPositionFromSample(1234.0);
  EXPECT_EQ(pixel, 23);
  for (double left = 1000.0; left < 1010.0; left += 0.25) {
    draw.SetViewRange(left, 10.0);
    EXPECT_EQ(draw.GetPixelPositionFromSample(1234.0), pixel) << left;
  }
}

TEST(AudioGeometry, PositionsAreTruncatedTowardZeroBothSides) {
  OpenWaveformDraw draw;
  draw.SetViewRange(-15.0, 10.0);
  EXPECT_EQ(draw.GetPixelPositionFromSample(-5.0), 1);  // 0 - -1
  EXPECT_EQ(draw.GetPixelPositionFromSample(9.0), 1);
  EXPECT_DOUBLE_EQ(draw.GetSampleFromPixelPosition(3), 15.0);
  draw.SetViewRange(0.25, 0.5);
  EXPECT_DOUBLE_EQ(draw.GetSampleFromPixelPosition(-1), -0.25);
}

TEST(AudioGeometry, PositionsWithoutMeaningStayNumbers) {
  OpenWaveformDraw draw;
  draw.SetViewRange(5.0, 0.0);
  EXPECT_EQ(draw.GetPixelPositionFromSample(7.0), 0);
  EXPECT_EQ(draw.GetPixelPositionFromSample(-7.0), std::numeric_limits<std::int64_t>::min());
  draw.SetViewRange(std::nan(""), 1.0);
  EXPECT_EQ(draw.GetPixelPositionFromSample(7.0), 7);
  EXPECT_EQ(draw.GetPixelPositionFromSample(1e300), std::numeric_limits<std::int64_t>::max());
}

TEST(AudioGeometry, AViewRangeThatIsNearlyTheSameIsNotStored) {
  AudioDataDrawBase draw;
  draw.SetViewRange(1e6, 100.0);
  draw.SetViewRange(1e6 * (1 + 1e-13), 100.0 * (1 + 1e-13));
  EXPECT_EQ(draw.GetViewLeft(), 1e6);
  EXPECT_EQ(draw.GetSamplesPerPixel(), 100.0);
  // A real change of one of the two stores both.
  double const slightlyMore = 1e6 * (1 + 1e-13);
  draw.SetViewRange(slightlyMore, 200.0);
  EXPECT_EQ(draw.GetViewLeft(), slightlyMore);
  EXPECT_EQ(draw.GetSamplesPerPixel(), 200.0);
  draw.SetViewRange(slightlyMore + 1e-4, 200.0);
  EXPECT_EQ(draw.GetViewLeft(), slightlyMore + 1e-4);
}

TEST(AudioGeometry, NearnessIsTheSameForNegativePositions) {
  AudioDataDrawBase draw;
  draw.SetViewRange(-1e6, 100.0);
  draw.SetViewRange(-1e6 * (1 + 1e-13), 100.0);
  EXPECT_EQ(draw.GetViewLeft(), -1e6);
  draw.SetViewRange(-1e6 * (1 + 1e-11), 100.0);
  EXPECT_EQ(draw.GetViewLeft(), -1e6 * (1 + 1e-11));
  draw.SetViewRange(0.0, 100.0);
  draw.SetViewRange(-1e-30, 100.0);
  EXPECT_EQ(draw.GetViewLeft(), -1e-30);
}

TEST(AudioGeometry, GridLinesNeedPositionsAndEightRows) {
  OpenWaveformDraw draw;
  EXPECT_FALSE(draw.GetDrawGridLines(100));
  draw.SetVerticalGridlinePositions({3});
  EXPECT_FALSE(draw.GetDrawGridLines(7));
  EXPECT_TRUE(draw.GetDrawGridLines(8));
  draw.SetVerticalGridlinePositions({});
  draw.SetHorizontalGridlinePositions({-1});
  EXPECT_TRUE(draw.GetDrawGridLines(8));
}

}  // namespace
