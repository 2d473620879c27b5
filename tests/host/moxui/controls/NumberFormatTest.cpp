#include <moxui/controls/NumberFormat.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>

namespace moxui::controls {
namespace {

constexpr NumberRange kRange{.minimum = -100.0, .maximum = 1000.0};
constexpr double kLargest = std::numeric_limits<double>::max();

moxcore::Utf16String Shown(double value, NumberFormat const& format) {
  return FormatNumber(value, format, kRange);
}

std::optional<double> Read(moxcore::Utf16String const& text,
                           NumberFormat const& format = {.decimalPlaces = 2},
                           moxcore::Utf16String const& label = {}) {
  return ParseNumber(text, format, label);
}

TEST(FormatNumber, RoundsToItsPlaces) {
  EXPECT_EQ(Shown(12.345, {}), u"12");
  EXPECT_EQ(Shown(12.346, {.decimalPlaces = 2}), u"12.35");
  EXPECT_EQ(Shown(2.0, {.decimalPlaces = 3}), u"2.000");
  EXPECT_EQ(Shown(-0.5, {.decimalPlaces = 1}), u"-0.5");
  EXPECT_EQ(Shown(1.0, {.decimalPlaces = -7}), u"1");
  EXPECT_EQ(Shown(0.5, {.decimalPlaces = 99}).size(), 2u + kMostDecimalPlaces);
}

TEST(FormatNumber, HasNoMinusZero) {
  EXPECT_EQ(Shown(-0.0, {.decimalPlaces = 1}), u"0.0");
  EXPECT_EQ(Shown(-0.001, {.decimalPlaces = 2}), u"0.00");
}

TEST(FormatNumber, AlwaysSignAndPadSign) {
  EXPECT_EQ(Shown(3.0, {.alwaysSign = true}), u"+3");
  EXPECT_EQ(Shown(0.0, {.alwaysSign = true}), u"+0");
  EXPECT_EQ(Shown(-3.0, {.alwaysSign = true}), u"-3");
  EXPECT_EQ(Shown(3.0, {.padSign = true}), u"\u20073");
  EXPECT_EQ(Shown(-3.0, {.padSign = true}), u"-3");
  EXPECT_EQ(Shown(3.0, {.alwaysSign = true, .padSign = true}), u"+3");
}

TEST(FormatNumber, LeadingSpacesMakeAllNumbersOfTheRangeAsLong) {
  NumberFormat const format{.decimalPlaces = 1, .leadingSpaces = true};
  EXPECT_EQ(Shown(1000.0, format), u"1000.0");
  EXPECT_EQ(Shown(2.5, format), u"\u2007\u2007\u20072.5");
  EXPECT_EQ(Shown(-2.5, format), u"\u2007\u2007-2.5");
  EXPECT_EQ(FormatNumber(2.5, format, {.minimum = -kLargest, .maximum = kLargest}), u"2.5");
}

TEST(FormatNumber, NoTrailingZeros) {
  NumberFormat const format{.decimalPlaces = 3, .noTrailingZeros = true};
  EXPECT_EQ(Shown(1.5, format), u"1.5");
  EXPECT_EQ(Shown(2.0, format), u"2");
  EXPECT_EQ(Shown(100.0, format), u"100");
  EXPECT_EQ(Shown(100.0, {.noTrailingZeros = true}), u"100");
}

TEST(FormatNumber, SeparatesThousands) {
  NumberFormat const format{.decimalPlaces = 4, .useSeparator = true};
  EXPECT_EQ(Shown(999.0, format), u"999.0000");
  EXPECT_EQ(Shown(1000.0, format), u"1,000.0000");
  EXPECT_EQ(Shown(-1234567.25, format), u"-1,234,567.2500");
}

TEST(FormatNumber, NormalTurnsTheOthersOff) {
  EXPECT_EQ(Shown(1000.0, {.decimalPlaces = 1,
                           .normal = true,
                           .alwaysSign = true,
                           .padSign = true,
                           .leadingSpaces = true,
                           .noTrailingZeros = true,
                           .useSeparator = true}),
            u"1000.0");
}

TEST(FormatNumber, TakesEveryDouble) {
  EXPECT_EQ(Shown(std::nan(""), {}), u"");
  EXPECT_EQ(Shown(std::numeric_limits<double>::infinity(), {}), u"");
  EXPECT_EQ(Shown(kLargest, {.useSeparator = true}), u"1.7976931348623157e+308");
  EXPECT_EQ(Shown(-kLargest, {.leadingSpaces = true}), u"-1.7976931348623157e+308");
  EXPECT_EQ(Shown(999999999999999.0, {.useSeparator = true}), u"999,999,999,999,999");
  EXPECT_EQ(Shown(5e-324, {.decimalPlaces = 15}), u"0.000000000000000");
}

TEST(ParseNumber, ReadsWhatIsShown) {
  for (double const value : {0.0, -12.5, 1234567.25, 0.01, -1000.0}) {
    for (bool const on : {false, true}) {
      NumberFormat const format{
          .decimalPlaces = 2, .alwaysSign = on, .leadingSpaces = on, .useSeparator = on};
      EXPECT_EQ(Read(Shown(value, format), format), value);
    }
  }
  EXPECT_EQ(Read(Shown(kLargest, {})), kLargest);
}

TEST(ParseNumber, ReadsSignsBlanksAndFullWidth) {
  EXPECT_EQ(Read(u"  +12 "), 12.0);
  EXPECT_EQ(Read(u"\u22121.5"), -1.5);
  EXPECT_EQ(Read(u"\uFF11\uFF12\uFF0E\uFF15"), 12.5);
  EXPECT_EQ(Read(u"1 234.5"), 1234.5);
  EXPECT_EQ(Read(u"1\u202F234"), 1234.0);
  EXPECT_EQ(Read(u".5"), 0.5);
  EXPECT_EQ(Read(u"5."), 5.0);
  EXPECT_EQ(Read(u"1e3"), 1000.0);
}

TEST(ParseNumber, TakesPointAndCommaForWhatTheyAre) {
  EXPECT_EQ(Read(u"1,234.5"), 1234.5);
  EXPECT_EQ(Read(u"1.234,5"), 1234.5);
  EXPECT_EQ(Read(u"1,5"), 1.5);
  EXPECT_EQ(Read(u"0,125"), 0.125);
  EXPECT_EQ(Read(u"1,234"), 1234.0);
  EXPECT_EQ(Read(u"1,234", {.decimalPlaces = 3}), 1.234);
  EXPECT_EQ(Read(u"1,234", {.decimalPlaces = 3, .useSeparator = true}), 1234.0);
  EXPECT_EQ(Read(u"1,234,567"), 1234567.0);
  EXPECT_EQ(Read(u"1,23,456"), std::nullopt);
  EXPECT_EQ(Read(u"1.234.5"), std::nullopt);
}

TEST(ParseNumber, PassesOverTheLabel) {
  EXPECT_EQ(Read(u"12 px", {}, u" px"), 12.0);
  EXPECT_EQ(Read(u"12px", {}, u" px"), 12.0);
  EXPECT_EQ(Read(u"12", {}, u" px"), 12.0);
  EXPECT_EQ(Read(u"50%", {}, u"%"), 50.0);
  EXPECT_EQ(Read(u"12 pt", {}, u" px"), std::nullopt);
}

TEST(ParseNumber, RefusesAllElse) {
  for (moxcore::Utf16String const& text :
       {moxcore::Utf16String(), moxcore::Utf16String(u"-"), moxcore::Utf16String(u"+"),
        moxcore::Utf16String(u"."), moxcore::Utf16String(u"--1"), moxcore::Utf16String(u"+-1"),
        moxcore::Utf16String(u"1-"), moxcore::Utf16String(u"abc"), moxcore::Utf16String(u"nan"),
        moxcore::Utf16String(u"inf"), moxcore::Utf16String(u"1e999"), moxcore::Utf16String(u"0x10"),
        moxcore::Utf16String(u"1..2"), moxcore::Utf16String(u"\xD800"), moxcore::Utf16String(u"1\u200F2"),
        moxcore::Utf16String(u"\U0001F3AC"), moxcore::Utf16String(u"1\0", 2),
        moxcore::Utf16String(100000, u'9')}) {
    EXPECT_EQ(Read(text), std::nullopt);
  }
}

TEST(AddSteps, LeavesNoBitsBehind) {
  double value = 0.0;
  for (int i = 0; i < 3; ++i) {
    value = AddSteps(value, 1.0, 0.1);
  }
  EXPECT_EQ(value, 0.3);
  EXPECT_EQ(AddSteps(1.0, -10.0, 0.1), 0.0);
  EXPECT_EQ(AddSteps(1e12, 1.0, 0.5), 1e12 + 0.5);
}

}  // namespace
}  // namespace moxui::controls
