#include "AllRates.h"

#include <moxmediatypes/Timecode.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace moxmediatypes {
namespace {

using Limits = std::numeric_limits<std::int64_t>;

constexpr TimeDisplay kDropFrame(102);
constexpr TimeDisplay kNonDropFrame(103);

TEST(HMSFToTime, GivesTheTimeOfATimecode) {
  EXPECT_EQ(HMSFToTime(1, 2, 3, 4, false, FrameRate::k25, TimeDisplay(101)),
            TickTime(3723 * 25 + 4, FrameRate::k25));
  EXPECT_EQ(HMSFToTime(0, 10, 0, 0, false, FrameRate::k2997, kDropFrame), TickTime(17982, FrameRate::k2997));
  EXPECT_EQ(HMSFToTime(0, 10, 0, 0, false, FrameRate::k2997, kNonDropFrame),
            TickTime(18000, FrameRate::k2997));
}

TEST(HMSFToTime, NegatesTheResult) {
  EXPECT_EQ(HMSFToTime(0, 0, 1, 0, true, FrameRate::k24, TimeDisplay(100)), TickTime(-24, FrameRate::k24));
  EXPECT_EQ(HMSFToTime(0, 1, 0, 0, true, FrameRate::k2997, kDropFrame), TickTime(-1800, FrameRate::k2997));
  EXPECT_EQ(HMSFToTime(0, 0, 0, 0, true, FrameRate::k24, TimeDisplay(100)), TickTime());
}

TEST(HMSFToTime, CarriesAndSnapsAsATextDoes) {
  EXPECT_EQ(HMSFToTime(0, 0, 0, 90000, false, FrameRate::k25, TimeDisplay(101)),
            TickTime(90000, FrameRate::k25));
  EXPECT_EQ(HMSFToTime(0, 0, 60, 0, false, FrameRate::k2997, kDropFrame), TickTime(1800, FrameRate::k2997));
  EXPECT_EQ(HMSFToTime(0, 0, 59, 31, false, FrameRate::k2997, kDropFrame), TickTime(1800, FrameRate::k2997));
  EXPECT_EQ(HMSFToTime(0, 0, 60, 3, false, FrameRate::k2997, kDropFrame), TickTime(1801, FrameRate::k2997));
}

// What a field adds to a negative entry: the last frame of a day and one more.
TEST(HMSFToTime, MakesADayOfTheLastFrameAndOneMore) {
  for (const FrameRate rate : kAllRates) {
    const std::int64_t last = rate.GetNominalFramesPerSecond() - 1;
    for (const TimeDisplay display : {kDropFrame, kNonDropFrame, TimeDisplay(109), TimeDisplay(111)}) {
      EXPECT_EQ(HMSFToTime(23, 59, 59, last, false, rate, display) + TickTime(1, rate),
                HMSFToTime(24, 0, 0, 0, false, rate, display));
    }
  }
  EXPECT_EQ(HMSFToTime(24, 0, 0, 0, false, FrameRate::k2997, kDropFrame),
            TickTime(2589408, FrameRate::k2997));
}

TEST(HMSFToTime, BorrowsForCountsBelowZero) {
  EXPECT_EQ(HMSFToTime(0, 0, 1, -1, false, FrameRate::k25, TimeDisplay(101)), TickTime(24, FrameRate::k25));
  EXPECT_EQ(HMSFToTime(0, 0, 0, -1, false, FrameRate::k25, TimeDisplay(101)), TickTime(-1, FrameRate::k25));
  EXPECT_EQ(HMSFToTime(0, 0, 0, -1, true, FrameRate::k25, TimeDisplay(101)), TickTime(1, FrameRate::k25));
  EXPECT_EQ(HMSFToTime(0, 1, 0, -1, false, FrameRate::k2997, kDropFrame), TickTime(1799, FrameRate::k2997));
}

TEST(HMSFToTime, CountsFramesOfFilmAsTimecodeDoes) {
  for (const int code : {109, 111, 112, 999}) {
    EXPECT_EQ(HMSFToTime(0, 0, 2, 3, false, FrameRate::k24, TimeDisplay(code)), TickTime(51, FrameRate::k24));
  }
}

TEST(HMSFToTime, CountsSamplesAndMillisecondsAsFrames) {
  const FrameRate rate = FrameRate::PerSecond(48000);
  EXPECT_EQ(HMSFToTime(0, 0, 0, 480, false, rate, TimeDisplay(200)), TickTime(480, rate));
  EXPECT_EQ(HMSFToTime(0, 0, 1, 1, false, rate, TimeDisplay(200)), TickTime(48001, rate));
  EXPECT_EQ(HMSFToTime(0, 0, 0, 480, false, rate, TimeDisplay(201)), TickTime(480LL * 254016000));
  EXPECT_EQ(HMSFToTime(0, 0, 1, 1, true, rate, TimeDisplay(201)), TickTime(-1001LL * 254016000));
}

TEST(HMSFToTime, GivesTimeZeroWithoutARate) {
  for (const FrameRate rate : {FrameRate::kInvalid, FrameRate(0), FrameRate(-1)}) {
    for (const int code : {102, 109, 111, 200, 201, 999}) {
      EXPECT_EQ(HMSFToTime(23, 59, 59, -1, false, rate, TimeDisplay(code)), TickTime()) << code;
      EXPECT_EQ(HMSFToTime(0, 0, 0, 5, true, rate, TimeDisplay(code)), TickTime()) << code;
    }
  }
}

TEST(HMSFToTime, IsTheEndOfTheRangeBeyondIt) {
  for (const FrameRate rate : {FrameRate(1), FrameRate::k2997, FrameRate(Limits::max() - 1)}) {
    for (const int code : {102, 103, 109, 200, 201}) {
      const TimeDisplay display(code);
      constexpr auto kMost = Limits::max();
      EXPECT_EQ(HMSFToTime(kMost, kMost, kMost, kMost, false, rate, display), TickTime(kMost));
      EXPECT_EQ(HMSFToTime(kMost, kMost, kMost, kMost, true, rate, display), TickTime(Limits::min()));
      EXPECT_EQ(HMSFToTime(Limits::min(), 0, 0, 0, false, rate, display), TickTime(Limits::min()));
      EXPECT_EQ(HMSFToTime(Limits::min(), 0, 0, 0, true, rate, display), TickTime(kMost));
    }
  }
}

TEST(HMSFToTime, IsExactHoweverLargeTheCounts) {
  constexpr std::int64_t kHours = 2'000'000'000'000'000;
  EXPECT_EQ(HMSFToTime(kHours, -60 * kHours, 5, 0, false, FrameRate::k25, TimeDisplay(101)),
            TickTime(125, FrameRate::k25));
  EXPECT_EQ(HMSFToTime(0, 0, 0, Limits::max(), false, FrameRate(1), TimeDisplay(109)),
            TickTime(Limits::max()));
}

}  // namespace
}  // namespace moxmediatypes
