#include <moxmediaui/Module.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/testing/RecordingSupplier.h>

#include <gtest/gtest.h>

#include <limits>
#include <utility>

namespace {

std::pair<int, int> RangeOf(int oldStart, int oldWidth, int newStart, int newWidth) {
  std::pair<int, int> range{-1, -1};
  moxmediaui::utility::GetUpdateRange(oldStart, oldWidth, newStart, newWidth, range.first, range.second);
  return range;
}

TEST(UpdateRange, IsTheStripThatCameOrWentOnTheRight) {
  EXPECT_EQ(RangeOf(10, 5, 10, 8), (std::pair{15, 3}));
  EXPECT_EQ(RangeOf(10, 8, 10, 5), (std::pair{15, 3}));
}

TEST(UpdateRange, IsTheStripThatCameOrWentOnTheLeft) {
  EXPECT_EQ(RangeOf(10, 8, 13, 5), (std::pair{10, 3}));
  EXPECT_EQ(RangeOf(13, 5, 10, 8), (std::pair{10, 3}));
}

TEST(UpdateRange, IsBothSpansAndTheGapWhenNoEdgeStands) {
  EXPECT_EQ(RangeOf(10, 5, 30, 5), (std::pair{10, 25}));
  EXPECT_EQ(RangeOf(10, 30, 15, 5), (std::pair{10, 30}));
}

TEST(UpdateRange, ASpanWithoutWidthDoesntCount) {
  EXPECT_EQ(RangeOf(0, 0, 7, 3), (std::pair{7, 3}));
  EXPECT_EQ(RangeOf(7, 3, 0, 0), (std::pair{7, 3}));
  EXPECT_EQ(RangeOf(5, 0, 6, 0), (std::pair{6, 0}));
}

TEST(UpdateRange, EqualSpansHaveNothingToUpdate) {
  EXPECT_EQ(RangeOf(4, 6, 4, 6).second, 0);
}

TEST(UpdateRange, WidthsAreComparedAsTheyAre) {
  // Only zero is no width: a width of -2 ends at 8, where the other span ends.
  EXPECT_EQ(RangeOf(10, -2, 5, 3), (std::pair{5, 5}));
}

TEST(UpdateRange, WorksAtTheEndsOfTheNumbers) {
  constexpr int kMost = std::numeric_limits<int>::max();
  EXPECT_EQ(RangeOf(kMost, 5, kMost, 8).second, 3);
}

TEST(BlendMode, AsksNothingOfASurface) {
  moxui::testing::RecordingSupplier supplier;
  moxui::scriber::SurfaceP const surface = supplier.NewOffscreenSurface(10, 10, 1.0f);
  supplier.Clear();
  moxmediaui::utility::SetBlendModeToCopy(surface.Get(), true);
  moxmediaui::utility::SetBlendModeToCopy(surface.Get(), false);
  EXPECT_TRUE(supplier.GetCalls().empty());
  // There need not even be one.
  moxmediaui::utility::SetBlendModeToCopy(nullptr, true);
}

}  // namespace
