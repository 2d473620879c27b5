#include "playback/BlockStore.h"
#include "playback/BlocksAhead.h"
#include "playback/SourceWalk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace playground {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::int64_t kBlock = BlockStore::kFrames;

TEST(SourceWalk, SkippingManyFramesIsSkippingThemOneByOne) {
  std::mt19937 random(7);
  auto const number = [&](int low, int high) { return std::uniform_int_distribution(low, high)(random); };
  constexpr double kSteps[] = {1.0, -1.0, 2.0, -8.0, 0.25, -0.5, 64.0};
  for (int round = 0; round < 3000; ++round) {
    SourceWalk walk(number(1, 60));
    walk.SetStep(kSteps[number(0, 6)]);
    if (number(0, 1) == 1) {
      int const begin = number(0, 60);
      walk.SetLoop(FrameRange{begin, begin + number(0, 20)});
    }
    if (number(0, 2) == 0) {
      walk.SetStop(number(0, 60));
    }
    walk.MoveTo(number(0, 60));
    SourceWalk byOne = walk;
    int const count = number(0, 200);
    for (int i = 0; i < count; ++i) {
      if (!byOne.HasEnded()) {
        EXPECT_GE(byOne.Position(), 0.0);
        EXPECT_LT(byOne.Position(), static_cast<double>(walk.Frames()));
      }
      byOne.Skip(1);
    }
    walk.Skip(count);
    EXPECT_EQ(walk, byOne) << round;
  }
}

TEST(SourceWalk, CountsTheFramesToItsEnd) {
  SourceWalk walk(10);
  EXPECT_EQ(walk.FramesToTurn(), 10);
  walk.SetStep(4.0);
  EXPECT_EQ(walk.FramesToTurn(), 3);
  walk.MoveTo(9.0);
  walk.SetStep(-4.0);
  EXPECT_EQ(walk.FramesToTurn(), 3);
  walk.Skip(3);
  EXPECT_TRUE(walk.HasEnded());
  EXPECT_EQ(walk.FramesToTurn(), 0);
  walk.SetStep(1.0);
  EXPECT_FALSE(walk.HasEnded()) << "the other way it goes on";
}

TEST(SourceWalk, StopBehindItDoesNotCount) {
  SourceWalk walk(10);
  walk.SetStop(4);
  walk.MoveTo(4.0);
  EXPECT_EQ(walk.FramesToTurn(), 6);
  walk.MoveTo(3.0);
  EXPECT_EQ(walk.FramesToTurn(), 1);
}

TEST(SourceWalk, AnEmptySoundHasEnded) {
  SourceWalk walk;
  walk.MoveTo(0.0);
  EXPECT_TRUE(walk.HasEnded());
  walk.Skip(5);
  EXPECT_EQ(walk.Position(), 0.0);
}

TEST(BlocksAhead, AreThoseTheWalkComesThrough) {
  SourceWalk walk(10 * kBlock);
  walk.MoveTo(static_cast<double>(7 * kBlock + 5));
  EXPECT_THAT(BlocksAhead(walk, 8), ElementsAre(7, 8, 9));
  EXPECT_THAT(BlocksAhead(walk, 2), ElementsAre(7, 8));
  walk.SetStep(-1.0);
  EXPECT_THAT(BlocksAhead(walk, 3), ElementsAre(7, 6, 5));
}

TEST(BlocksAhead, GoRoundTheLoop) {
  SourceWalk walk(10 * kBlock);
  walk.SetLoop(FrameRange{2 * kBlock + 1, 6 * kBlock});
  walk.MoveTo(static_cast<double>(4 * kBlock));
  EXPECT_THAT(BlocksAhead(walk, 9), ElementsAre(4, 5, 2, 3));
  walk.SetStep(-2.0);
  EXPECT_THAT(BlocksAhead(walk, 9), ElementsAre(4, 3, 2, 5));
  walk.SetStep(1.0);
  walk.MoveTo(static_cast<double>(8 * kBlock));
  EXPECT_THAT(BlocksAhead(walk, 9), ElementsAre(8, 9)) << "it isn't come to";
}

TEST(BlocksAhead, EndOfTheSoundIsInItsLastBlock) {
  SourceWalk walk(kBlock);
  walk.MoveTo(static_cast<double>(kBlock));
  EXPECT_THAT(BlocksAhead(walk, 3), ElementsAre(0));
  EXPECT_THAT(BlocksAhead(SourceWalk(), 3), IsEmpty());
}

}  // namespace
}  // namespace playground
