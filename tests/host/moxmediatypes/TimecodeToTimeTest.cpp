#include "LiteralTimecode.h"

#include <moxcore/string/TextOperations.h>
#include <moxmediatypes/Timecode.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

namespace moxmediatypes {
namespace {

using Limits = std::numeric_limits<std::int64_t>;

TickTime Read(std::u16string_view text, FrameRate rate = FrameRate::k25, int code = 101) {
  return TimecodeToTime(text, rate, TimeDisplay(code), 0);
}

TickTime Frames(std::int64_t frames, FrameRate rate = FrameRate::k25) {
  return TickTime(frames, rate);
}

// Hours, minutes, seconds and frames of 25 a second.
TickTime At(std::int64_t hours, std::int64_t minutes, std::int64_t seconds, std::int64_t frames) {
  return Frames(((hours * 60 + minutes) * 60 + seconds) * 25 + frames);
}

TEST(TimecodeToTime, ReadsHoursMinutesSecondsAndFrames) {
  EXPECT_EQ(Read(u"01:02:03:04"), At(1, 2, 3, 4));
  EXPECT_EQ(Read(u"100:00:00:00"), At(100, 0, 0, 0));
}

TEST(TimecodeToTime, TakesAnySeparator) {
  for (const auto* text : {u"1:2:3:4", u"1;2;3;4", u"1.2.3.4", u"1,2,3,4", u"1:2;3.4", u"1,2:3;4"}) {
    EXPECT_EQ(Read(text), At(1, 2, 3, 4));
  }
}

TEST(TimecodeToTime, ReadsFieldsFromTheRight) {
  EXPECT_EQ(Read(u"3:04"), At(0, 0, 3, 4));
  EXPECT_EQ(Read(u"2:03:04"), At(0, 2, 3, 4));
  EXPECT_EQ(Read(u"1:00"), At(0, 0, 1, 0));
}

TEST(TimecodeToTime, TakesMissingFieldsForZero) {
  EXPECT_EQ(Read(u"1:"), At(0, 0, 1, 0));
  EXPECT_EQ(Read(u":05"), At(0, 0, 0, 5));
  EXPECT_EQ(Read(u"1::05"), At(0, 1, 0, 5));
  EXPECT_EQ(Read(u"1:::"), At(1, 0, 0, 0));
  EXPECT_EQ(Read(u":::5"), At(0, 0, 0, 5));
  EXPECT_EQ(Read(u".5"), At(0, 0, 0, 5));
  EXPECT_EQ(Read(u"1:02."), At(0, 1, 2, 0));
}

TEST(TimecodeToTime, TakesDigitsAloneInPairs) {
  EXPECT_EQ(Read(u"5"), At(0, 0, 0, 5));
  EXPECT_EQ(Read(u"12"), At(0, 0, 0, 12));
  EXPECT_EQ(Read(u"100"), At(0, 0, 1, 0));
  EXPECT_EQ(Read(u"1234"), At(0, 0, 12, 34)) << "the 34 frames are carried";
  EXPECT_EQ(Read(u"12345678"), At(12, 34, 56, 78));
  EXPECT_EQ(Read(u"123456789"), At(123, 45, 67, 89));
  EXPECT_EQ(Read(u"0000000000000000000000000000000100"), At(0, 0, 1, 0));
}

TEST(TimecodeToTime, TakesATrailingPeriodForTwoZeros) {
  EXPECT_EQ(Read(u"3."), At(0, 0, 3, 0));
  EXPECT_EQ(Read(u"3.."), At(0, 3, 0, 0));
  EXPECT_EQ(Read(u"3..."), At(3, 0, 0, 0));
  EXPECT_EQ(Read(u"1234."), At(0, 12, 34, 0));
  EXPECT_EQ(Read(u"1234.."), At(12, 34, 0, 0));
  EXPECT_EQ(Read(u"1234..."), At(1234, 0, 0, 0));
  EXPECT_EQ(Read(u"-3."), -At(0, 0, 3, 0));
  EXPECT_TRUE(Read(u"3....").IsInvalid());
}

TEST(TimecodeToTime, TakesOtherTrailingSeparatorsForEmptyFields) {
  EXPECT_EQ(Read(u"1234:"), At(0, 0, 1234, 0));
  EXPECT_EQ(Read(u"3.:"), At(0, 3, 0, 0));
}

TEST(TimecodeToTime, CarriesValuesBeyondTheirRange) {
  EXPECT_EQ(Read(u"0:0:0:25"), At(0, 0, 1, 0));
  EXPECT_EQ(Read(u"0:0:75:0"), At(0, 1, 15, 0));
  EXPECT_EQ(Read(u"0:90:0:0"), At(1, 30, 0, 0));
  EXPECT_EQ(Read(u"0:59:59:25"), At(1, 0, 0, 0));
  EXPECT_EQ(Read(u"0:0:0:90000"), At(1, 0, 0, 0));
}

TEST(TimecodeToTime, SnapsADroppedLabelForward) {
  const FrameRate rate = FrameRate::k2997;
  EXPECT_EQ(Read(u"00:01:00:00", rate, 102), Frames(1800, rate));
  EXPECT_EQ(Read(u"00:01:00:01", rate, 102), Frames(1800, rate));
  EXPECT_EQ(Read(u"00:01:00:02", rate, 102), Frames(1800, rate));
  EXPECT_EQ(Read(u"00:01:00:03", rate, 102), Frames(1801, rate));
  EXPECT_EQ(Read(u"00:00:59:29", rate, 102), Frames(1799, rate));
  EXPECT_EQ(Read(u"00:10:00:00", rate, 102), Frames(17982, rate));
  EXPECT_EQ(Read(u"00:10:00:01", rate, 102), Frames(17983, rate));
  EXPECT_EQ(Read(u"00:11:00:01", rate, 102), Frames(19782, rate));
  for (const auto* text : {u"00:01:00:00", u"00:01:00:01", u"00:01:00:02", u"00:01:00:03", u"00:01:00:04"}) {
    EXPECT_EQ(Read(text, FrameRate::k5994, 106), Frames(3600, FrameRate::k5994));
  }
}

TEST(TimecodeToTime, SnapsWhatCarriesToADroppedLabel) {
  const FrameRate rate = FrameRate::k2997;
  EXPECT_EQ(Read(u"0:0:59:30", rate, 102), Frames(1800, rate));
  EXPECT_EQ(Read(u"0:0:59:31", rate, 102), Frames(1800, rate));
  EXPECT_EQ(Read(u"0:0:59:32", rate, 102), Frames(1800, rate));
  EXPECT_EQ(Read(u"0:0:60:3", rate, 102), Frames(1801, rate));
  EXPECT_EQ(Read(u"6000", rate, 102), Frames(1800, rate));
}

TEST(TimecodeToTime, DropsByTheFormatAndNotByTheText) {
  const FrameRate rate = FrameRate::k2997;
  EXPECT_EQ(Read(u"01:00:00:00", rate, 102), Frames(107892, rate));
  EXPECT_EQ(Read(u"01;00;00;00", rate, 102), Frames(107892, rate));
  EXPECT_EQ(Read(u"01;00;00;00", rate, 103), Frames(108000, rate));
  EXPECT_EQ(Read(u"01;00;00;00", FrameRate::k30, 102), Frames(108000, FrameRate::k30));
}

TEST(TimecodeToTime, ReadsASignedAmount) {
  EXPECT_EQ(Read(u"-00:00:01:00"), -At(0, 0, 1, 0));
  EXPECT_EQ(Read(u"+10"), At(0, 0, 0, 10));
  EXPECT_EQ(Read(u"-:5"), -At(0, 0, 0, 5));
  EXPECT_EQ(Read(u"-0"), TickTime());
  EXPECT_EQ(Read(u"-00;01;00;02", FrameRate::k2997, 102), Frames(-1800, FrameRate::k2997));
}

TEST(TimecodeToTime, ReadsFeetAndFrames) {
  EXPECT_EQ(Read(u"5+08", FrameRate::k24, 111), Frames(208, FrameRate::k24));
  EXPECT_EQ(Read(u"5+08", FrameRate::k24, 112), Frames(88, FrameRate::k24));
  EXPECT_EQ(Read(u"5+", FrameRate::k24, 112), Frames(80, FrameRate::k24));
  EXPECT_EQ(Read(u"88", FrameRate::k24, 112), Frames(88, FrameRate::k24));
  EXPECT_EQ(Read(u"0+100", FrameRate::k24, 112), Frames(100, FrameRate::k24));
}

TEST(TimecodeToTime, ReadsSignedFeet) {
  EXPECT_EQ(Read(u"+5", FrameRate::k24, 112), Frames(5, FrameRate::k24));
  EXPECT_EQ(Read(u"+5+1", FrameRate::k24, 112), Frames(81, FrameRate::k24));
  EXPECT_EQ(Read(u"-5+1", FrameRate::k24, 112), Frames(-81, FrameRate::k24));
  EXPECT_EQ(Read(u"-+5", FrameRate::k24, 112), Frames(-5, FrameRate::k24));
}

TEST(TimecodeToTime, ReadsCounts) {
  EXPECT_EQ(Read(u"1234", FrameRate::k24, 109), Frames(1234, FrameRate::k24));
  EXPECT_EQ(Read(u"-7", FrameRate::k24, 109), Frames(-7, FrameRate::k24));
  const FrameRate rate = FrameRate::PerSecond(48000);
  EXPECT_EQ(Read(u"48000", rate, 200), TickTime(kTicksPerSecond));
  EXPECT_EQ(Read(u"1500", rate, 201), TickTime(kTicksPerSecond / 2 * 3));
  EXPECT_EQ(Read(u"1500", FrameRate::kInvalid, 201), TickTime(kTicksPerSecond / 2 * 3));
}

TEST(TimecodeToTime, RefusesSeparatorsInCounts) {
  for (const auto* text : {u"1:00", u"1;00", u"1,000", u"3.", u"1+2", u"1 2"}) {
    for (const int code : {109, 200, 201}) {
      EXPECT_TRUE(Read(text, FrameRate::k24, code).IsInvalid());
    }
  }
  EXPECT_TRUE(Read(u"1:00", FrameRate::k24, 111).IsInvalid());
  EXPECT_TRUE(Read(u"3.", FrameRate::k24, 112).IsInvalid());
  EXPECT_TRUE(Read(u"1+2+3", FrameRate::k24, 112).IsInvalid());
}

TEST(TimecodeToTime, TrimsWhiteSpace) {
  EXPECT_EQ(Read(u" 1:00\t\r\n"), At(0, 0, 1, 0));
  EXPECT_EQ(Read(u"\u00a0\u2003-5\u3000"), -At(0, 0, 0, 5));
}

TEST(TimecodeToTime, RefusesWhatIsNoTime) {
  for (const int code : {101, 102, 109, 111, 112, 200, 201, 999}) {
    for (const auto* text :
         {u"",        u" ",         u"+",          u"-",           u":",      u";",      u".",
          u",",       u"::",        u"...",        u"-:",          u"-+",     u"+ 5",    u"- 5",
          u"--5",     u"1:2:3:4:5", u"::::5",      u"5::::",       u"1 :2",   u"x",      u"5f",
          u"0x10",    u"1e3",       u"1/2",        u"5%",          u"\u0665", u"\uff15", u"\u200e5",
          u"5\u200f", u"\ufeff5",   u"\U0001f3ac", u"--:--:--:--", u"-+--"}) {
      EXPECT_TRUE(Read(text, FrameRate::k25, code).IsInvalid())
          << testing::PrintToString(std::u16string(text)) << " in " << code;
    }
  }
}

TEST(TimecodeToTime, RefusesBrokenTexts) {
  EXPECT_TRUE(Read(std::u16string(1, char16_t{0xd800})).IsInvalid());
  EXPECT_TRUE(Read(std::u16string{u'1', char16_t{0xdc00}}).IsInvalid());
  EXPECT_TRUE(Read(std::u16string_view(u"1\0"
                                       u"2",
                                       3))
                  .IsInvalid());
  EXPECT_TRUE(Read(std::u16string(1, char16_t{0xffff})).IsInvalid());
}

TEST(TimecodeToTime, ReadsWideCharactersOnceTheyAreFolded) {
  const auto folded = [](moxcore::Utf16String text) {
    EXPECT_TRUE(Read(text).IsInvalid()) << "before";
    moxcore::string::ConvertFullWidthAndIdeographicCharacters(text);
    return Read(text);
  };
  EXPECT_EQ(folded(u"\uff10\uff11\uff1a\uff12\uff13\uff1b\uff14\uff15\uff1a\uff16"), At(1, 23, 45, 6));
  EXPECT_EQ(folded(u"\uff0b\uff17\uff18\uff19"), At(0, 0, 7, 89));
  EXPECT_EQ(folded(u"\uff0d\uff11\uff0e"), -At(0, 0, 1, 0));
  EXPECT_EQ(folded(u"\uff11\uff0c\uff12"), At(0, 0, 1, 2));
  EXPECT_EQ(folded(u"\u30fc\uff11\u3002\u3002"), -At(0, 1, 0, 0));
  EXPECT_EQ(folded(u"\u2212\uff11\u3000"), -At(0, 0, 0, 1));
}

TEST(TimecodeToTime, IsTheEndOfTheRangeBeyondIt) {
  const std::u16string nines(1000, u'9');
  for (const int code : {101, 102, 109, 111, 112, 200, 201, 999}) {
    for (const FrameRate rate :
         {FrameRate(1), FrameRate::k25, FrameRate::k2997, FrameRate(Limits::max() - 1)}) {
      EXPECT_EQ(Read(nines, rate, code), TickTime(Limits::max())) << code;
      EXPECT_EQ(Read(u"-" + nines, rate, code), TickTime(Limits::min())) << code;
    }
  }
  EXPECT_EQ(Read(nines + u":" + nines + u":" + nines + u":" + nines), TickTime(Limits::max()));
  EXPECT_EQ(Read(nines + u"...", FrameRate::k2997, 102), TickTime(Limits::max()));
  EXPECT_EQ(Read(u"-" + nines + u"+" + nines, FrameRate::k24, 111), TickTime(Limits::min()));
}

TEST(TimecodeToTime, ReachesTheEndsExactly) {
  EXPECT_EQ(Read(u"9223372036854775806", FrameRate(1), 109), TickTime(Limits::max() - 1));
  EXPECT_EQ(Read(u"9223372036854775807", FrameRate(1), 109), TickTime(Limits::max()));
  EXPECT_EQ(Read(u"9223372036854775808", FrameRate(1), 109), TickTime(Limits::max()));
  EXPECT_EQ(Read(u"-9223372036854775807", FrameRate(1), 109), TickTime(-Limits::max()));
  EXPECT_EQ(Read(u"-9223372036854775808", FrameRate(1), 109), TickTime(Limits::min()));
  EXPECT_EQ(Read(u"-9223372036854775809", FrameRate(1), 109), TickTime(Limits::min()));
  EXPECT_EQ(Read(u"18446744073709551616", FrameRate(1), 109), TickTime(Limits::max()));
}

TEST(TimecodeToTime, GivesTimeZeroWithoutARate) {
  for (const FrameRate rate : {FrameRate::kInvalid, FrameRate(0), FrameRate(-1)}) {
    for (const int code : {102, 109, 111, 200}) {
      EXPECT_EQ(Read(u"1234", rate, code), TickTime());
      EXPECT_EQ(Read(u"-99999999999999999999999", rate, code), TickTime());
      EXPECT_TRUE(Read(u"x", rate, code).IsInvalid());
    }
  }
}

TEST(TimecodeToTime, IgnoresTheStyle) {
  EXPECT_EQ(TimecodeToTime(u"1:00", FrameRate::k25, TimeDisplay(101), 0xffffffff), At(0, 0, 1, 0));
}

}  // namespace
}  // namespace moxmediatypes
