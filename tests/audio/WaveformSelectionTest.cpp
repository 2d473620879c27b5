#include "OpenWaveformDraw.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using audio_tests::OpenWaveformDraw;
using moxmediaui::RectT;

constexpr RectT<int> kView{7, 3, 100, 40};
constexpr RectT<int> kNothing{};

/// Selects in a view of one sample to the pixel and gives what has to be drawn again.
class WaveformSelection : public ::testing::Test {
 protected:
  RectT<int> Select(std::int64_t left, std::int64_t width, RectT<int> const& view = kView) {
    RectT<int> update{1, 2, 3, 4};
    mDraw.SetSelection(view, left, width, update);
    return update;
  }
  OpenWaveformDraw mDraw;
};

TEST_F(WaveformSelection, FromNothingToNothingChangesNothing) {
  EXPECT_EQ(Select(100, 0), kNothing);
  EXPECT_EQ(mDraw.GetSelectionLeft(), 0);
  EXPECT_EQ(Select(50, -3), kNothing);
  EXPECT_EQ(mDraw.GetSelectionWidth(), 0);
}

TEST_F(WaveformSelection, ClearedTwiceChangesNothingTheSecondTime) {
  EXPECT_EQ(Select(100, 5), kNothing);  // just beyond the view
  EXPECT_EQ(Select(100, 0), kNothing);
  EXPECT_EQ(Select(100, 0), kNothing);
  EXPECT_EQ(mDraw.GetSelectionLeft(), 100);
  EXPECT_EQ(mDraw.GetSelectionWidth(), 0);
}

TEST_F(WaveformSelection, TheSameAgainChangesNothing) {
  Select(10, 20);
  EXPECT_EQ(Select(10, 20), kNothing);
}

TEST_F(WaveformSelection, OutsideTheViewItIsStoredButNotSeen) {
  EXPECT_EQ(Select(1000, 20), kNothing);
  EXPECT_EQ(mDraw.GetSelectionLeft(), 1000);
  EXPECT_EQ(mDraw.GetSelectionWidth(), 20);
  EXPECT_EQ(Select(-500, 20), kNothing);
}

TEST_F(WaveformSelection, ANewOneIsDrawnWithAColumnMore) {
  EXPECT_EQ(Select(10, 20), (RectT<int>{17, 3, 21, 40}));
}

TEST_F(WaveformSelection, GrowingToTheRightUpdatesTheNewColumns) {
  Select(10, 20);
  EXPECT_EQ(Select(10, 23), (RectT<int>{37, 3, 4, 40}));
}

TEST_F(WaveformSelection, GrowingToTheLeftUpdatesTheNewColumns) {
  Select(10, 20);
  EXPECT_EQ(Select(7, 23), (RectT<int>{14, 3, 4, 40}));
}

TEST_F(WaveformSelection, MovingUpdatesBothSpansAndWhatLiesBetween) {
  Select(10, 5);
  EXPECT_EQ(Select(30, 5), (RectT<int>{17, 3, 26, 40}));
}

TEST_F(WaveformSelection, ClearingUpdatesTheOldSpan) {
  Select(10, 5);
  EXPECT_EQ(Select(10, 0), (RectT<int>{17, 3, 6, 40}));
  EXPECT_EQ(mDraw.GetSelectionWidth(), 0);
}

TEST_F(WaveformSelection, NarrowerThanAPixelStaysVisible) {
  mDraw.SetViewRange(0.0, 1000.0);
  EXPECT_EQ(Select(2100, 50), (RectT<int>{9, 3, 2, 40}));
}

TEST_F(WaveformSelection, EndingAtTheViewsLeftEdgeIsOutside) {
  mDraw.SetViewRange(100.0, 1.0);
  EXPECT_EQ(Select(50, 50), kNothing);
  // Half a sample of it is in the view.
  mDraw = OpenWaveformDraw();
  mDraw.SetViewRange(100.5, 1000.0);
  EXPECT_EQ(Select(50, 51), (RectT<int>{7, 3, 2, 40}));
}

TEST_F(WaveformSelection, WithinTheSamePixelsNothingIsDrawnAgain) {
  mDraw.SetViewRange(0.0, 1000.0);
  Select(2100, 50);
  EXPECT_EQ(Select(2200, 70), kNothing);
  EXPECT_EQ(mDraw.GetSelectionLeft(), 2200);
}

TEST_F(WaveformSelection, AViewWithoutAreaIsNotUpdated) {
  EXPECT_EQ(Select(10, 20, {7, 3, 0, 40}), kNothing);
  EXPECT_EQ(Select(10, 25, {7, 3, 100, 0}), kNothing);
  EXPECT_EQ(mDraw.GetSelectionWidth(), 25);
}

TEST_F(WaveformSelection, OneRectangleMayServeAsViewAndAnswer) {
  RectT<int> rect = kView;
  mDraw.SetSelection(rect, 10, 20, rect);
  EXPECT_EQ(rect, (RectT<int>{17, 3, 21, 40}));
}

TEST_F(WaveformSelection, PositionsAtTheEndOfTheNumbersAreHeld) {
  constexpr auto kMost = std::numeric_limits<std::int64_t>::max();
  EXPECT_EQ(Select(kMost - 1, kMost), kNothing);
  EXPECT_EQ(Select(std::numeric_limits<std::int64_t>::min(), 1), kNothing);
  EXPECT_EQ(Select(-kMost, kMost), kNothing);
  EXPECT_EQ(Select(-5, kMost), (RectT<int>{7, 3, 101, 40}));
}

}  // namespace
