#include <moxmediatypes/TickTime.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace moxmediatypes {
namespace {

using Limits = std::numeric_limits<std::int64_t>;

constexpr TickTime kFirst(Limits::min());
constexpr TickTime kLast(Limits::max());

TEST(TickTime, IsZeroUnlessGiven) {
  EXPECT_EQ(TickTime().GetTicks(), 0);
}

TEST(TickTime, AddsAndSubtractsTicks) {
  EXPECT_EQ(TickTime(5) + TickTime(7), TickTime(12));
  EXPECT_EQ(TickTime(5) - TickTime(7), TickTime(-2));
  EXPECT_EQ(-TickTime(5), TickTime(-5));
  TickTime time(1);
  time += TickTime(2);
  EXPECT_EQ(time, TickTime(3));
  time -= TickTime(4);
  EXPECT_EQ(time, TickTime(-1));
}

TEST(TickTime, IsOrderedByTicks) {
  EXPECT_LT(TickTime(-1), TickTime(0));
  EXPECT_GT(TickTime(1), TickTime(0));
  EXPECT_LE(TickTime(1), TickTime(1));
  EXPECT_NE(TickTime(1), TickTime(2));
}

TEST(TickTime, StopsAtTheEndsOfTheRange) {
  EXPECT_EQ(kLast + TickTime(1), kLast);
  EXPECT_EQ(kLast + kLast, kLast);
  EXPECT_EQ(kFirst + TickTime(-1), kFirst);
  EXPECT_EQ(kFirst + kFirst, kFirst);
  EXPECT_EQ(kFirst - TickTime(1), kFirst);
  EXPECT_EQ(kLast - TickTime(-1), kLast);
  EXPECT_EQ(kFirst - kLast, kFirst);
  EXPECT_EQ(kLast - kFirst, kLast);
  EXPECT_EQ(TickTime() - kFirst, kLast);
  EXPECT_EQ(-kFirst, kLast);
}

TEST(TickTime, ReachesTheEndsExactly) {
  EXPECT_EQ((kLast - TickTime(1)) + TickTime(1), kLast);
  EXPECT_EQ((kLast + kFirst).GetTicks(), -1);
  EXPECT_EQ(TickTime(-1) - kLast, kFirst);
}

TEST(TickTime, IsMadeOfFrames) {
  EXPECT_EQ(TickTime(1, FrameRate::k2997).GetTicks(), 8475667200);
  EXPECT_EQ(TickTime(-25, FrameRate::k25).GetTicks(), -kTicksPerSecond);
  EXPECT_EQ(TickTime(0, FrameRate::k25), TickTime());
}

TEST(TickTime, OfTooManyFramesIsTheEnd) {
  EXPECT_EQ(TickTime(Limits::max(), FrameRate::k25), kLast);
  EXPECT_EQ(TickTime(Limits::min(), FrameRate::k25), kFirst);
  EXPECT_EQ(TickTime(Limits::min(), FrameRate(1)), kFirst);
  EXPECT_EQ(TickTime(2, FrameRate(Limits::max() - 1)), kLast);
}

TEST(TickTime, OfFramesWithoutLengthIsZero) {
  for (const FrameRate rate : {FrameRate::kInvalid, FrameRate(0), FrameRate(-5)}) {
    EXPECT_EQ(TickTime(1, rate), TickTime()) << rate.GetTicksPerFrame();
    EXPECT_EQ(TickTime(-3, rate), TickTime());
    EXPECT_EQ(TickTime(7).AddFrames(1, rate), TickTime(7));
  }
}

TEST(TickTime, MovesByFrames) {
  TickTime time(100);
  EXPECT_EQ(&time.AddFrames(2, FrameRate::k24), &time);
  EXPECT_EQ(time.GetTicks(), 100 + 2 * 10584000000);
  time.AddFrames(-3, FrameRate::k24);
  EXPECT_EQ(time.GetTicks(), 100 - 10584000000);
  EXPECT_EQ(TickTime(kLast).AddFrames(1, FrameRate::k24), kLast);
  EXPECT_EQ(TickTime(kFirst).AddFrames(-1, FrameRate::k24), kFirst);
}

TEST(TickTime, HasAnInvalidTimeThatIsANumberLikeAnyOther) {
  EXPECT_EQ(TickTime::kInvalid.GetTicks(), -101606400000000000);
  EXPECT_EQ(TickTime::kInvalid.GetTicks() / kTicksPerSecond, -400000);
  EXPECT_TRUE(TickTime::kInvalid.IsInvalid());
  EXPECT_FALSE((TickTime::kInvalid + TickTime(1)).IsInvalid());
  EXPECT_TRUE((TickTime::kInvalid + TickTime(1) - TickTime(1)).IsInvalid());
  EXPECT_FALSE(TickTime().IsInvalid());
}

// All of it is known when a program is compiled.
static_assert(TickTime(3, FrameRate::k30) - TickTime(1, FrameRate::k30) == TickTime(2, FrameRate::k30));

}  // namespace
}  // namespace moxmediatypes
