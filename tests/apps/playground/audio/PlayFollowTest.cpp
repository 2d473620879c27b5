#include "audio/PlayFollow.h"

#include <gtest/gtest.h>

namespace playground {
namespace {

constexpr std::int64_t kSecond = 1'000'000'000;

// A thousand columns of ten samples.
Viewport View(double left) {
  Viewport view;
  view.SetFrames(1'000'000);
  view.SetWidth(1000);
  view.Show(left, left + 10'000.0);
  return view;
}

TEST(PlayFollow, LeavesAPlayheadInSightAlone) {
  PlayFollow follow;
  EXPECT_FALSE(follow.Follow(View(0.0), 0.0, true, 0));
  EXPECT_FALSE(follow.Follow(View(0.0), 9'999.0, true, 0));
}

TEST(PlayFollow, TurnsAPageThatBeginsWithThePlayhead) {
  PlayFollow follow;
  EXPECT_EQ(follow.Follow(View(0.0), 10'000.0, true, 0), 10'000.0);
  EXPECT_EQ(follow.Follow(View(50'000.0), 10.0, true, 0), 10.0) << "round a loop";
}

TEST(PlayFollow, BackwardThePageEndsWithThePlayhead) {
  PlayFollow follow;
  EXPECT_EQ(follow.Follow(View(50'000.0), 49'990.0, false, 0), 40'000.0);
}

TEST(PlayFollow, UserWhoScrollsIsNotDisturbedForAWhile) {
  PlayFollow follow;
  follow.ViewChanged(View(0.0), 9'000.0, 5 * kSecond);
  EXPECT_FALSE(follow.Follow(View(0.0), 10'500.0, true, 5 * kSecond + kSecond / 2));
  EXPECT_TRUE(follow.Follow(View(0.0), 10'500.0, true, 6 * kSecond));
}

TEST(PlayFollow, UserWhoScrolledAwayIsLeftAloneUntilThePlayheadIsBack) {
  PlayFollow follow;
  follow.ViewChanged(View(50'000.0), 1'000.0, 0);
  EXPECT_FALSE(follow.Follow(View(50'000.0), 30'000.0, true, 60 * kSecond));
  EXPECT_FALSE(follow.Follow(View(50'000.0), 55'000.0, true, 61 * kSecond)) << "in sight again";
  EXPECT_TRUE(follow.Follow(View(50'000.0), 60'000.0, true, 62 * kSecond));
}

TEST(PlayFollow, ANewPlayGoesToThePlayhead) {
  PlayFollow follow;
  follow.ViewChanged(View(50'000.0), 1'000.0, 0);
  follow.Begin();
  EXPECT_EQ(follow.Follow(View(50'000.0), 1'000.0, true, 0), 1'000.0);
}

TEST(PlayFollow, StaysAtTheEndOfTheSound) {
  PlayFollow follow;
  EXPECT_FALSE(follow.Follow(View(990'000.0), 1'000'000.0, true, 0));
}

}  // namespace
}  // namespace playground
