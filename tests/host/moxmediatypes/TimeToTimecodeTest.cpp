#include <moxmediatypes/Timecode.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

namespace moxmediatypes {
namespace {

using Limits = std::numeric_limits<std::int64_t>;

std::string Shown(TickTime time, FrameRate rate, int code) {
  const auto text = TimeToTimecode(time, rate, TimeDisplay(code), 0);
  return {text.begin(), text.end()};
}

std::string ShownFrame(std::int64_t frame, FrameRate rate, int code) {
  return Shown(TickTime(frame, rate), rate, code);
}

TEST(TimeToTimecode, ShowsTimeZeroOfEachFormat) {
  EXPECT_EQ(ShownFrame(0, FrameRate::k2997, 102), "00;00;00;00");
  EXPECT_EQ(ShownFrame(0, FrameRate::k2997, 103), "00:00:00:00");
  EXPECT_EQ(ShownFrame(0, FrameRate::k25, 101), "00:00:00:00");
  EXPECT_EQ(ShownFrame(0, FrameRate::k24, 109), "0");
  EXPECT_EQ(ShownFrame(0, FrameRate::k24, 111), "0+00");
  EXPECT_EQ(ShownFrame(0, FrameRate::k24, 112), "0+00");
  EXPECT_EQ(ShownFrame(0, FrameRate::PerSecond(48000), 200), "0");
  EXPECT_EQ(ShownFrame(0, FrameRate::PerSecond(48000), 201), "0");
}

TEST(TimeToTimecode, DropsTwoLabelsAMinuteAt2997) {
  EXPECT_EQ(ShownFrame(1799, FrameRate::k2997, 102), "00;00;59;29");
  EXPECT_EQ(ShownFrame(1800, FrameRate::k2997, 102), "00;01;00;02");
  EXPECT_EQ(ShownFrame(3597, FrameRate::k2997, 102), "00;01;59;29");
  EXPECT_EQ(ShownFrame(3598, FrameRate::k2997, 102), "00;02;00;02");
  EXPECT_EQ(ShownFrame(17981, FrameRate::k2997, 102), "00;09;59;29");
  EXPECT_EQ(ShownFrame(17982, FrameRate::k2997, 102), "00;10;00;00");
  EXPECT_EQ(ShownFrame(17983, FrameRate::k2997, 102), "00;10;00;01");
  EXPECT_EQ(ShownFrame(107892, FrameRate::k2997, 102), "01;00;00;00");
  EXPECT_EQ(ShownFrame(2589407, FrameRate::k2997, 102), "23;59;59;29");
}

TEST(TimeToTimecode, DropsFourLabelsAMinuteAt5994) {
  EXPECT_EQ(ShownFrame(3599, FrameRate::k5994, 106), "00;00;59;59");
  EXPECT_EQ(ShownFrame(3600, FrameRate::k5994, 106), "00;01;00;04");
  EXPECT_EQ(ShownFrame(35963, FrameRate::k5994, 106), "00;09;59;59");
  EXPECT_EQ(ShownFrame(35964, FrameRate::k5994, 106), "00;10;00;00");
  EXPECT_EQ(ShownFrame(215784, FrameRate::k5994, 106), "01;00;00;00");
}

TEST(TimeToTimecode, LabelsByTheRateAndNotByTheCode) {
  EXPECT_EQ(ShownFrame(3600, FrameRate::k5994, 102), "00;01;00;04");
  EXPECT_EQ(ShownFrame(1800, FrameRate::k2997, 106), "00;01;00;02");
  EXPECT_EQ(ShownFrame(49, FrameRate::k50, 101), "00:00:00:49");
  EXPECT_EQ(ShownFrame(24, FrameRate::k24, 103), "00:00:01:00");
  EXPECT_EQ(ShownFrame(15, FrameRate::k15, 108), "00:00:01:00");
}

TEST(TimeToTimecode, DropsNothingWhereTheRateHasNoDropFrame) {
  EXPECT_EQ(ShownFrame(1500, FrameRate::k25, 102), "00:01:00:00");
  EXPECT_EQ(ShownFrame(1440, FrameRate::k23976, 106), "00:01:00:00");
}

TEST(TimeToTimecode, CountsFractionalRatesAtTheirWholeNumber) {
  EXPECT_EQ(ShownFrame(1800, FrameRate::k2997, 103), "00:01:00:00");
  EXPECT_EQ(ShownFrame(24, FrameRate::k23976, 110), "00:00:01:00");
  EXPECT_EQ(ShownFrame(3600, FrameRate::k5994, 107), "00:01:00:00");
}

// A day of 2592000 labels is 86.4 s longer than a day; a clock that wrapped by the clock's day would wrap
// here.
TEST(TimeToTimecode, GoesOnWhereTheClockHasADay) {
  const TickTime day(86'400 * kTicksPerSecond);
  EXPECT_EQ(Shown(day, FrameRate::k2997, 103), "23:58:33:20");
  EXPECT_EQ(Shown(day, FrameRate::k2997, 102), "24;00;00;02") << "drop-frame labels gain 2.6 frames a day";
}

TEST(TimeToTimecode, CountsHoursBeyondADay) {
  EXPECT_EQ(ShownFrame(25LL * 3600 * 25, FrameRate::k25, 101), "25:00:00:00");
  EXPECT_EQ(ShownFrame(100LL * 3600 * 25, FrameRate::k25, 101), "100:00:00:00");
  EXPECT_EQ(ShownFrame(24LL * 107892, FrameRate::k2997, 102), "24;00;00;00");
}

TEST(TimeToTimecode, ShowsTheFrameThatContainsTheTime) {
  EXPECT_EQ(Shown(TickTime(FrameRate::k25.GetTicksPerFrame() - 1), FrameRate::k25, 101), "00:00:00:00");
  EXPECT_EQ(Shown(TickTime(FrameRate::k25.GetTicksPerFrame()), FrameRate::k25, 101), "00:00:00:01");
  EXPECT_EQ(Shown(TickTime(-1), FrameRate::k25, 101), "-00:00:00:01");
  EXPECT_EQ(Shown(TickTime(-FrameRate::k25.GetTicksPerFrame()), FrameRate::k25, 101), "-00:00:00:01");
  EXPECT_EQ(Shown(TickTime(-FrameRate::k25.GetTicksPerFrame() - 1), FrameRate::k25, 101), "-00:00:00:02");
  EXPECT_EQ(Shown(TickTime(254015999), FrameRate::k25, 201), "0");
  EXPECT_EQ(Shown(TickTime(-1), FrameRate::k25, 201), "-1");
}

TEST(TimeToTimecode, ShowsTheMagnitudeOfANegativeTime) {
  EXPECT_EQ(ShownFrame(-1800, FrameRate::k2997, 102), "-00;01;00;02");
  EXPECT_EQ(ShownFrame(-41, FrameRate::k24, 111), "-1+01");
  EXPECT_EQ(ShownFrame(-12, FrameRate::k24, 109), "-12");
}

TEST(TimeToTimecode, CountsFeetOfFilm) {
  EXPECT_EQ(ShownFrame(39, FrameRate::k24, 111), "0+39");
  EXPECT_EQ(ShownFrame(40, FrameRate::k24, 111), "1+00");
  EXPECT_EQ(ShownFrame(15, FrameRate::k24, 112), "0+15");
  EXPECT_EQ(ShownFrame(16, FrameRate::k24, 112), "1+00");
  EXPECT_EQ(ShownFrame(16 * 12345 + 7, FrameRate::k24, 112), "12345+07");
}

TEST(TimeToTimecode, CountsSamplesAndMilliseconds) {
  const FrameRate rate = FrameRate::PerSecond(44100);
  EXPECT_EQ(Shown(TickTime(kTicksPerSecond), rate, 200), "44100");
  EXPECT_EQ(Shown(TickTime(kTicksPerSecond), rate, 201), "1000");
  EXPECT_EQ(Shown(TickTime(kTicksPerSecond * 5 / 2), FrameRate::kInvalid, 201), "2500");
}

TEST(TimeToTimecode, TakesACodeWithoutMeaningForTimecode) {
  for (const int code : {-1, 0, 99, 114, 199, 202, 999, 1000}) {
    EXPECT_EQ(ShownFrame(1800, FrameRate::k2997, code), "00:01:00:00") << code;
  }
}

TEST(TimeToTimecode, GivesFramesTheDigitsOfTheHighest) {
  const FrameRate rate = FrameRate::PerSecond(120);
  EXPECT_EQ(ShownFrame(7, rate, 108), "00:00:00:007");
  EXPECT_EQ(ShownFrame(119, rate, 108), "00:00:00:119");
  EXPECT_EQ(ShownFrame(99, FrameRate::PerSecond(100), 108), "00:00:00:99");
  EXPECT_EQ(ShownFrame(5, FrameRate::PerSecond(5), 108), "00:00:01:00");
}

TEST(TimeToTimecode, ShowsTimeZeroWithoutARate) {
  for (const FrameRate rate : {FrameRate::kInvalid, FrameRate(0), FrameRate(-8475667200)}) {
    const TickTime time(kTicksPerSecond);
    EXPECT_EQ(Shown(time, rate, 102), "00:00:00:00");
    EXPECT_EQ(Shown(time, rate, 109), "0");
    EXPECT_EQ(Shown(time, rate, 111), "0+00");
    EXPECT_EQ(Shown(time, rate, 200), "0");
    EXPECT_EQ(Shown(-time, rate, 102), "00:00:00:00");
  }
}

TEST(TimeToTimecode, ShowsTheInvalidTimeAsItsTicks) {
  EXPECT_EQ(Shown(TickTime::kInvalid, FrameRate::k25, 101), "-111:06:40:00");
}

TEST(TimeToTimecode, IgnoresTheStyle) {
  const TickTime time(1234567890123);
  EXPECT_EQ(TimeToTimecode(time, FrameRate::k25, TimeDisplay(101), 0xffffffff),
            TimeToTimecode(time, FrameRate::k25, TimeDisplay(101)));
}

// 2^63 ticks are 36310201 seconds, that is 10086 hours, 10 minutes and 1 second, and 19638775808 ticks.
TEST(TimeToTimecode, ShowsTheEndsOfTheRange) {
  EXPECT_EQ(Shown(TickTime(Limits::max()), FrameRate(1), 109), "9223372036854775807");
  EXPECT_EQ(Shown(TickTime(Limits::min()), FrameRate(1), 109), "-9223372036854775808");
  EXPECT_EQ(Shown(TickTime(Limits::max()), FrameRate::k25, 101), "10086:10:01:01");
  EXPECT_EQ(Shown(TickTime(Limits::min()), FrameRate::k25, 101), "-10086:10:01:02");
  EXPECT_EQ(Shown(TickTime(Limits::max()), FrameRate(Limits::max() - 1), 101), "00:00:01:00");
  EXPECT_EQ(Shown(TickTime(Limits::min()), FrameRate(1), 101), "-10086:10:01:019638775808");
}

}  // namespace
}  // namespace moxmediatypes
