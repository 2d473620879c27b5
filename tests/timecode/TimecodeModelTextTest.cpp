// What a user types into a timecode field, and what becomes of its value.
#include "TimecodeTestValues.h"

#include <gtest/gtest.h>

#include <random>

namespace timecode_tests {
namespace {

using moxmediaui::InvalidDisplay;
using moxmediaui::TimecodeModel;

constexpr FrameRate k25(10160640000);
constexpr TimeDisplay kTimecode25(101);

TimecodeModel At(TickTime time, TimeDisplay format = kTimecode25, FrameRate rate = k25) {
  TimecodeModel model;
  model.SetFormat(format, rate);
  model.SetTime(time);
  return model;
}

struct EntryCase {
  char const* name;
  char16_t const* text;
  TickTime value;
};

class Entry : public ::testing::TestWithParam<EntryCase> {};

TEST_P(Entry, IntoAFieldAtOneMinute) {
  TimecodeModel model = At(kMinute);
  EXPECT_EQ(model.SetText(GetParam().text), GetParam().value != kMinute);
  EXPECT_EQ(model.GetValue(), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(
    TimecodeModel, Entry,
    ::testing::Values(
        EntryCase{"Absolute", u"00:00:02:00", Seconds(2)}, EntryCase{"DigitsAlone", u"3.", Seconds(3)},
        EntryCase{"FullWidth", u"\uFF10\uFF10\uFF1A\uFF10\uFF10\uFF1A\uFF10\uFF17\uFF1A\uFF10\uFF10",
                  Seconds(7)},
        EntryCase{"BackASecond", u"-00:00:01:00", Seconds(59)},
        EntryCase{"OnASecond", u"+00:00:01:00", Seconds(61)},
        EntryCase{"FullWidthMinus", u"\uFF0D100", Seconds(59)},
        EntryCase{"FullWidthPlus", u"\uFF0B100", Seconds(61)},
        EntryCase{"BackBeyondTheLowerBound", u"-10:00:00", Seconds(0)},
        EntryCase{"OnBeyondTheUpperBound", u"+200:00:00:00", kHundredHours},
        EntryCase{"AbsoluteBeyondTheUpperBound", u"200:00:00:00", kHundredHours},
        EntryCase{"RelativeZero", u"+0", kMinute}, EntryCase{"SameTimeInOtherDigits", u"1:00:00", kMinute},
        EntryCase{"ItsOwnText", u"00:01:00:00", kMinute}, EntryCase{"OneDigit", u"5", TickTime(5, k25)},
        EntryCase{"LoneMinus", u"-", kMinute}, EntryCase{"LonePlus", u"+", kMinute},
        EntryCase{"Empty", u"", kMinute}, EntryCase{"Letters", u"later", kMinute},
        EntryCase{"LoneSurrogate", u"\xD800", kMinute}, EntryCase{"Emoji", u"\xD83C\xDFAC", kMinute},
        EntryCase{"RightToLeftMark", u"\u200F00:00:02:00", kMinute},
        EntryCase{"Placeholder", u"--:--:--:--", kMinute}),
    [](auto const& test) { return test.param.name; });

// A value between two frames can't be typed; a field that was opened and left must not lose it.
TEST(TimecodeModel, ATextThatWasNotEditedLeavesAValueBetweenFrames) {
  TimecodeModel model = At(Seconds(5) + TickTime(12345));
  EXPECT_FALSE(model.SetText(model.GetText()));
  EXPECT_EQ(model.GetValue(), Seconds(5) + TickTime(12345));
  EXPECT_FALSE(model.SetText(u"\uFF10\uFF10:00:05:00"));
  EXPECT_EQ(model.GetValue(), Seconds(5) + TickTime(12345));
  EXPECT_TRUE(model.SetText(u"5:00"));
  EXPECT_EQ(model.GetValue(), Seconds(5));
}

TEST(TimecodeModel, AnEntryGivesTheInvalidTimeAValue) {
  TimecodeModel model = At(kNoTime);
  EXPECT_FALSE(model.SetText(u"00:00:00:00"));  // what is shown
  EXPECT_EQ(model.GetValue(), kNoTime);
  EXPECT_TRUE(model.SetText(u"0"));
  EXPECT_EQ(model.GetValue(), TickTime());
}

// From so far below even a day on ends at the lower bound.
TEST(TimecodeModel, ARelativeEntryLeadsFromTheInvalidTimeToTheLowerBound) {
  TimecodeModel model = At(kNoTime);
  model.SetMinTime(Seconds(3));
  EXPECT_TRUE(model.SetText(u"+24:00:00:00"));
  EXPECT_EQ(model.GetValue(), Seconds(3));
}

// The text of a value without the offset denotes a time of the next day.
TEST(TimecodeModel, AnEntryBeforeTheOffsetIsOneOfTheNextDay) {
  TimecodeModel model = At({});
  model.SetOffset(kHour);
  EXPECT_TRUE(model.SetText(u"0"));
  EXPECT_EQ(model.GetValue(), Seconds(24 * 3600));
  EXPECT_EQ(model.GetTime(), Seconds(23 * 3600));
  EXPECT_TRUE(model.SetText(u"00:59:59:24"));
  EXPECT_EQ(model.GetValue(), Seconds(25 * 3600) - TickTime(1, k25));
  EXPECT_TRUE(model.SetText(u"1:00:00:00"));
  EXPECT_EQ(model.GetValue(), kHour);
}

TEST(TimecodeModel, AnEntryOfTheNextDayIsClamped) {
  TimecodeModel model = At({});
  model.SetOffset(kHour);
  model.SetMaxTime(Seconds(7200));
  EXPECT_TRUE(model.SetText(u"0"));
  EXPECT_EQ(model.GetValue(), Seconds(3 * 3600));
}

struct DayCase {
  int format;
  std::int64_t rate;
  TickTime day;
};

class DayOfAFormat : public ::testing::TestWithParam<DayCase> {};

TEST_P(DayOfAFormat, IsWhatAnEntryBeforeTheOffsetGains) {
  TimecodeModel model = At({}, TimeDisplay(GetParam().format), FrameRate(GetParam().rate));
  model.SetOffset(kHour);
  model.SetMinTime(Seconds(-1000000));
  ASSERT_EQ(model.GetValue(), kHour);
  EXPECT_TRUE(model.SetText(u"0"));
  EXPECT_EQ(model.GetValue(), GetParam().day);
}

// At 29.97 and 23.976 the labels of a day without drop-frame take longer than a day, by a thousandth. Without
// a rate a day has no frames.
INSTANTIATE_TEST_SUITE_P(
    TimecodeModel, DayOfAFormat,
    ::testing::Values(DayCase{101, 10160640000, Seconds(86400)}, DayCase{104, 8467200000, Seconds(86400)},
                      DayCase{102, 8475667200, TickTime(2589408, FrameRate(8475667200))},
                      DayCase{103, 8475667200, TickTime(2592000, FrameRate(8475667200))},
                      DayCase{110, 10594584000, TickTime(2073600, FrameRate(10594584000))},
                      DayCase{106, 4237833600, TickTime(5178816, FrameRate(4237833600))},
                      DayCase{109, 10160640000, Seconds(86400)}, DayCase{112, 10584000000, Seconds(86400)},
                      DayCase{200, 5292000, Seconds(86400)},
                      // 23:59:59 and 24 milliseconds, and a frame
                      DayCase{201, 10160640000,
                              Seconds(86399) + TickTime(std::int64_t{24} * 254016000) + TickTime(1, k25)},
                      DayCase{101, 9223372036854775807, TickTime()}, DayCase{101, 0, TickTime()},
                      DayCase{101, -5, TickTime()}));

TEST(TimecodeModel, ReadsWhatItsFormatShows) {
  TimecodeModel feet = At({}, kFeet35, FrameRate(10584000000));
  EXPECT_TRUE(feet.SetText(u"2+03"));
  EXPECT_EQ(feet.GetValue(), TickTime(35, FrameRate(10584000000)));
  TimecodeModel milliseconds = At({}, kMilliseconds);
  EXPECT_TRUE(milliseconds.SetText(u"1500"));
  EXPECT_EQ(milliseconds.GetValue(), TickTime(381024000000));
}

TEST(TimecodeModel, SurvivesAnyText) {
  std::mt19937 random(20240607);
  std::u16string const often = u"0123456789:;.,+- \u3000\uFF10\uFF1A\uFF0D\xD83C\xDFAC\u200F";
  for (int i = 0; i < 200000; ++i) {
    moxcore::Utf16String text;
    for (auto length = random() % 24; length > 0; --length) {
      text.push_back(random() % 8 == 0 ? static_cast<char16_t>(random()) : often[random() % often.size()]);
    }
    TimecodeModel model = At(kMinute, TimeDisplay(100 + static_cast<int>(random() % 14)));
    model.SetText(text);
    ASSERT_GE(model.GetValue(), TickTime());
    ASSERT_LE(model.GetValue(), kHundredHours);
  }
}

}  // namespace
}  // namespace timecode_tests
