#include "TimecodeTestValues.h"

#include <gtest/gtest.h>

namespace timecode_tests {
namespace {

using moxmediaui::InvalidDisplay;
using moxmediaui::TimecodeModel;

TEST(TimecodeModel, StartsAtZeroOfAHundredHoursInDropFrame) {
  TimecodeModel const model;
  EXPECT_EQ(model.GetValue(), TickTime());
  EXPECT_EQ(model.GetMinTime(), TickTime());
  EXPECT_EQ(model.GetMaxTime(), kHundredHours);
  EXPECT_EQ(model.GetOffset(), TickTime());
  EXPECT_EQ(model.GetFrameRate(), FrameRate(8475667200));
  EXPECT_EQ(model.GetFormat(), TimeDisplay(102));
  EXPECT_EQ(model.GetStyle(), 0u);
  EXPECT_EQ(model.GetInvalidDisplay(), InvalidDisplay::kTimeZero);
  EXPECT_EQ(model.GetText(), u"00;00;00;00");
}

// Steps follow what is shown until they are given a format and a rate of their own.
TEST(TimecodeModel, StepsInTheFormatShownAtFirst) {
  TimecodeModel model;
  EXPECT_EQ(model.GetQuantizeFormat(), kDropFrame);
  EXPECT_EQ(model.GetQuantizeRate(), FrameRate(8475667200));
  model.SetQuantization(kFrameCount, FrameRate(10584000000));
  EXPECT_EQ(model.GetQuantizeFormat(), kFrameCount);
  EXPECT_EQ(model.GetQuantizeRate(), FrameRate(10584000000));
  model.SetQuantization(kNoFormat, FrameRate(9223372036854775807));
  EXPECT_EQ(model.GetQuantizeFormat(), kDropFrame);
  EXPECT_EQ(model.GetQuantizeRate(), FrameRate(8475667200));
}

struct ClampCase {
  char const* name;
  std::int64_t minSeconds;
  std::int64_t maxSeconds;
  std::int64_t setSeconds;
  std::int64_t valueSeconds;
};

class ClampedTime : public ::testing::TestWithParam<ClampCase> {};

TEST_P(ClampedTime, LiesWithinTheBounds) {
  TimecodeModel model;
  model.SetMinTime(Seconds(GetParam().minSeconds));
  model.SetMaxTime(Seconds(GetParam().maxSeconds));
  model.SetTime(Seconds(GetParam().setSeconds));
  EXPECT_EQ(model.GetValue(), Seconds(GetParam().valueSeconds));
}

// With crossed bounds the lower one is asked first.
INSTANTIATE_TEST_SUITE_P(
    TimecodeModel, ClampedTime,
    ::testing::Values(ClampCase{"Within", 10, 20, 15, 15}, ClampCase{"AtTheLowerBound", 10, 20, 10, 10},
                      ClampCase{"AtTheUpperBound", 10, 20, 20, 20}, ClampCase{"Below", 10, 20, 9, 10},
                      ClampCase{"Above", 10, 20, 21, 20}, ClampCase{"NegativeBounds", -20, -10, 0, -10},
                      ClampCase{"OnePoint", 10, 10, 30, 10}, ClampCase{"CrossedAndBelowBoth", 20, 10, 5, 20},
                      ClampCase{"CrossedAndBetween", 20, 10, 15, 20},
                      ClampCase{"CrossedAndAtTheLower", 20, 10, 20, 10},
                      ClampCase{"CrossedAndAboveBoth", 20, 10, 25, 10}),
    [](auto const& test) { return test.param.name; });

TEST(TimecodeModel, TellsWhetherTheValueChanged) {
  TimecodeModel model;
  EXPECT_TRUE(model.SetTime(Seconds(5)));
  EXPECT_FALSE(model.SetTime(Seconds(5)));
  EXPECT_TRUE(model.SetTime(kNoTime));
  EXPECT_FALSE(model.SetTime(kNoTime));
  EXPECT_TRUE(model.SetTime(Seconds(-3)));  // zero
  EXPECT_FALSE(model.SetTime(Seconds(-4)));
}

TEST(TimecodeModel, BoundsMoveTheValueInside) {
  TimecodeModel model;
  model.SetTime(Seconds(10));
  EXPECT_FALSE(model.SetMinTime(Seconds(5)));
  EXPECT_TRUE(model.SetMinTime(Seconds(12)));
  EXPECT_EQ(model.GetValue(), Seconds(12));
  EXPECT_FALSE(model.SetMaxTime(Seconds(30)));
  EXPECT_TRUE(model.SetMaxTime(Seconds(11)));  // crossed: neither checks the other
  EXPECT_EQ(model.GetValue(), Seconds(11));
  EXPECT_EQ(model.GetMinTime(), Seconds(12));
  EXPECT_EQ(model.GetMaxTime(), Seconds(11));
}

// An equal bound isn't set, so that what an earlier crossing left stays.
TEST(TimecodeModel, AnEqualBoundClampsNothing) {
  TimecodeModel model;
  model.SetMinTime(Seconds(12));
  model.SetMaxTime(Seconds(11));
  ASSERT_EQ(model.GetValue(), Seconds(11));
  EXPECT_FALSE(model.SetMaxTime(Seconds(11)));
  EXPECT_EQ(model.GetValue(), Seconds(11));
  EXPECT_TRUE(model.SetMaxTime(Seconds(13)));
  EXPECT_EQ(model.GetValue(), Seconds(12));
}

TEST(TimecodeModel, BoundsLeaveTheInvalidTime) {
  TimecodeModel model;
  model.SetTime(kNoTime);
  EXPECT_FALSE(model.SetMinTime(Seconds(5)));
  EXPECT_FALSE(model.SetMaxTime(Seconds(6)));
  EXPECT_FALSE(model.SetOffset(Seconds(7)));
  EXPECT_EQ(model.GetValue(), kNoTime);
}

TEST(TimecodeModel, AddsTheOffsetToAllThatGoesIn) {
  TimecodeModel model;
  model.SetOffset(kHour);
  EXPECT_EQ(model.GetMinTime(), kHour);
  EXPECT_EQ(model.GetMaxTime(), kHundredHours + kHour);
  EXPECT_EQ(model.GetValue(), kHour);
  model.SetTime(Seconds(10));
  model.SetMinTime(Seconds(5));
  model.SetMaxTime(Seconds(20));
  EXPECT_EQ(model.GetValue(), kHour + Seconds(10));
  EXPECT_EQ(model.GetMinTime(), kHour + Seconds(5));
  EXPECT_EQ(model.GetMaxTime(), kHour + Seconds(20));
  EXPECT_EQ(model.GetTime(), Seconds(10));
}

TEST(TimecodeModel, ShowsTheValueWithTheOffset) {
  TimecodeModel model;
  model.SetFormat(TimeDisplay(101), FrameRate(10160640000));
  model.SetOffset(kHour);
  model.SetTime(Seconds(10));
  EXPECT_EQ(model.GetText(), u"01:00:10:00");
}

TEST(TimecodeModel, AnotherOffsetMovesValueAndBoundsAlong) {
  TimecodeModel model;
  model.SetTime(Seconds(10));
  model.SetMinTime(Seconds(5));
  model.SetMaxTime(Seconds(20));
  EXPECT_TRUE(model.SetOffset(Seconds(100)));
  EXPECT_EQ(model.GetValue(), Seconds(110));
  EXPECT_EQ(model.GetMinTime(), Seconds(105));
  EXPECT_EQ(model.GetMaxTime(), Seconds(120));
  EXPECT_EQ(model.GetTime(), Seconds(10));
  EXPECT_TRUE(model.SetOffset(Seconds(-50)));
  EXPECT_EQ(model.GetValue(), Seconds(-40));
  EXPECT_EQ(model.GetMinTime(), Seconds(-45));
  EXPECT_EQ(model.GetMaxTime(), Seconds(-30));
  EXPECT_FALSE(model.SetOffset(Seconds(-50)));
}

// The offset comes off the invalid time too: no caller is to compare what comes out with it.
TEST(TimecodeModel, AnOffsetShiftsTheInvalidTimeThatIsAskedFor) {
  TimecodeModel model;
  model.SetTime(kNoTime);
  EXPECT_EQ(model.GetTime(), kNoTime);
  model.SetOffset(kHour);
  EXPECT_EQ(model.GetValue(), kNoTime);
  EXPECT_EQ(model.GetTime(), kNoTime - kHour);
}

struct InvalidTextCase {
  InvalidDisplay display;
  int format;
  char16_t const* text;
};

class InvalidTimeText : public ::testing::TestWithParam<InvalidTextCase> {};

TEST_P(InvalidTimeText, IsThatOfItsFormat) {
  TimecodeModel model;
  model.SetTime(kNoTime);
  model.SetInvalidDisplay(GetParam().display);
  model.SetFormat(TimeDisplay(GetParam().format), FrameRate(10160640000));
  EXPECT_EQ(model.GetText(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(TimecodeModel, InvalidTimeText,
                         ::testing::Values(InvalidTextCase{InvalidDisplay::kTimeZero, 101, u"00:00:00:00"},
                                           InvalidTextCase{InvalidDisplay::kTimeZero, 109, u"0"},
                                           InvalidTextCase{InvalidDisplay::kTimeZero, 112, u"0+00"},
                                           InvalidTextCase{InvalidDisplay::kPlaceholder, 109, u"--"},
                                           InvalidTextCase{InvalidDisplay::kPlaceholder, 111, u"-+--"},
                                           InvalidTextCase{InvalidDisplay::kPlaceholder, 112, u"-+--"},
                                           InvalidTextCase{InvalidDisplay::kPlaceholder, 101, u"--:--:--:--"},
                                           InvalidTextCase{InvalidDisplay::kPlaceholder, 102, u"--:--:--:--"},
                                           InvalidTextCase{InvalidDisplay::kPlaceholder, 200, u"--:--:--:--"},
                                           InvalidTextCase{InvalidDisplay::kPlaceholder, 201, u"--:--:--:--"},
                                           InvalidTextCase{InvalidDisplay::kNothing, 102, u""},
                                           InvalidTextCase{InvalidDisplay::kNothing, 109, u""},
                                           InvalidTextCase{InvalidDisplay(3), 101, u"00:00:00:00"},
                                           InvalidTextCase{InvalidDisplay(-1), 109, u"0"}));

TEST(TimecodeModel, AnotherFormatKeepsTheValue) {
  TimecodeModel model;
  model.SetTime(TickTime(123456789));
  EXPECT_TRUE(model.SetFormat(kFrameCount, FrameRate(10584000000)));
  EXPECT_FALSE(model.SetFormat(kFrameCount, FrameRate(10584000000)));
  EXPECT_TRUE(model.SetFormat(kFrameCount, FrameRate(10160640000)));
  EXPECT_TRUE(model.SetFormat(kFeet16, FrameRate(10160640000)));
  EXPECT_EQ(model.GetValue(), TickTime(123456789));
}

}  // namespace
}  // namespace timecode_tests
