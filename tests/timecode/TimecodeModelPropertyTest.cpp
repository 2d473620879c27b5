// Long random lives of a timecode value, next to a plain one that lives the same.
#include "PlainTimecodeModel.h"
#include "TimecodeTestValues.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <random>

namespace timecode_tests {
namespace {

using moxmediaui::TimecodeModel;
using StepSize = TimecodeModel::StepSize;

constexpr std::array<std::int64_t, 6> kRates = {10594584000, 10160640000, 8475667200,
                                                4237833600,  4233600000,  5292000};
constexpr std::array kFormats = {100, 102, 106, 109, 111, 112, 200, 201};

/// Two models that are told the same.
class TwinModels {
 public:
  explicit TwinModels(unsigned seed) : mRandom(seed) {}

  void Step() {
    switch (Below(8)) {
      case 0:
        return SetTime(Below(8) == 0 ? PlainTimecodeModel::kNoTime : AnyTicks());
      case 1:
        return SetBound(&TimecodeModel::SetMinTime, &PlainTimecodeModel::SetMinTime);
      case 2:
        return SetBound(&TimecodeModel::SetMaxTime, &PlainTimecodeModel::SetMaxTime);
      case 3:
        return SetBound(&TimecodeModel::SetOffset, &PlainTimecodeModel::SetOffset);
      case 4:
        return SetFormats();
      case 5:
        return Enter();
      default:
        return Increment();
    }
  }
  void ExpectAlike() const {
    ASSERT_EQ(model.GetValue().GetTicks(), plain.value);
    ASSERT_EQ(model.GetMinTime().GetTicks(), plain.minTime);
    ASSERT_EQ(model.GetMaxTime().GetTicks(), plain.maxTime);
    ASSERT_EQ(model.GetOffset().GetTicks(), plain.offset);
    ASSERT_EQ(model.GetTime().GetTicks(), plain.value - plain.offset);
    ASSERT_EQ(model.GetText(), plain.Text());
  }

  TimecodeModel model;
  PlainTimecodeModel plain;

 private:
  std::uint64_t Below(std::uint64_t end) { return mRandom() % end; }
  /// Times around zero, whole seconds more often than not, so that times meet.
  std::int64_t AnyTicks() {
    auto const seconds = static_cast<std::int64_t>(Below(41)) - 20;
    auto const rest = Below(3) == 0 ? static_cast<std::int64_t>(Below(254016000000)) : 0;
    return seconds * 254016000000 * (Below(4) == 0 ? 3600 : 1) + rest;
  }
  void SetTime(std::int64_t ticks) {
    std::int64_t const before = plain.value;
    plain.SetTime(ticks);
    EXPECT_EQ(model.SetTime(TickTime(ticks)), plain.value != before);
  }
  void SetBound(bool (TimecodeModel::*setter)(TickTime),
                void (PlainTimecodeModel::*plainSetter)(std::int64_t)) {
    std::int64_t const ticks = AnyTicks();
    std::int64_t const before = plain.value;
    (plain.*plainSetter)(ticks);
    EXPECT_EQ((model.*setter)(TickTime(ticks)), plain.value != before);
  }
  void SetFormats() {
    plain.rate = kRates[Below(kRates.size())];
    plain.format = kFormats[Below(kFormats.size())];
    bool const quantizes = Below(2) == 0;
    plain.quantizeRate = quantizes ? kRates[Below(kRates.size())] : std::numeric_limits<std::int64_t>::max();
    plain.quantizeFormat = quantizes ? kFormats[Below(kFormats.size())] : 999;
    model.SetFormat(TimeDisplay(plain.format), FrameRate(plain.rate));
    model.SetQuantization(TimeDisplay(plain.quantizeFormat), FrameRate(plain.quantizeRate));
  }
  void Enter() {
    constexpr std::array kTexts = {u"0", u"+0", u"-100", u"+1:00:00:00", u"2:00:00", u"12345",
                                   u"-", u"x",  u"5+08", u"-3+01",       u"3..",     u"+250"};
    moxcore::Utf16String const text = Below(6) == 0 ? plain.Text() : kTexts[Below(kTexts.size())];
    std::int64_t const before = plain.value;
    plain.SetText(text);
    EXPECT_EQ(model.SetText(text), plain.value != before);
  }
  void Increment() {
    int const count = static_cast<int>(Below(4001)) - 2000;
    bool const large = Below(2) == 0;
    std::int64_t const before = plain.value;
    plain.Increment(count, large);
    EXPECT_EQ(model.Increment(count, large ? StepSize::kLarge : StepSize::kFrames), plain.value != before);
  }

  std::mt19937_64 mRandom;
};

class TimecodeLife : public ::testing::TestWithParam<unsigned> {};

TEST_P(TimecodeLife, IsThatOfThePlainModel) {
  TwinModels twins(GetParam());
  for (int step = 0; step < 20000; ++step) {
    twins.Step();
    ASSERT_NO_FATAL_FAILURE(twins.ExpectAlike()) << "step " << step;
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, TimecodeLife, ::testing::Range(1u, 9u));

// The plain model is no copy of the other one: it notices one that forgets a bound.
TEST(TimecodeLifeComparison, NoticesAForgottenBound) {
  TwinModels twins(1);
  twins.plain.SetMinTime(254016000000);
  EXPECT_NE(twins.model.GetValue().GetTicks(), twins.plain.value);
}

TEST(TimecodeModel, MovesAnOffsetThereAndBackWithoutLoss) {
  std::mt19937_64 random(7);
  std::uniform_int_distribution<std::int64_t> ticks(-(1LL << 56), 1LL << 56);
  for (int i = 0; i < 100000; ++i) {
    TimecodeModel model;
    model.SetMinTime(TickTime(ticks(random)));
    model.SetMaxTime(TickTime(ticks(random)));
    model.SetTime(TickTime(ticks(random)));
    TimecodeModel const before = model;
    TickTime const time = model.GetTime();
    bool const isOrdered = model.GetMinTime() <= model.GetMaxTime();
    model.SetOffset(TickTime(ticks(random)));
    if (isOrdered) {
      ASSERT_EQ(model.GetTime(), time);
      ASSERT_LE(model.GetMinTime(), model.GetValue());
      ASSERT_LE(model.GetValue(), model.GetMaxTime());
      model.SetOffset({});
      ASSERT_EQ(model, before);
    }
  }
}

// Sums stop at the ends of 64 bits: a value stays a value.
TEST(TimecodeModel, HoldsTimesAtTheEndsOfTheRange) {
  constexpr TickTime kLeast(std::numeric_limits<std::int64_t>::min());
  constexpr TickTime kMost(std::numeric_limits<std::int64_t>::max());
  for (TickTime const offset : {kLeast, kMost, kNoTime, TickTime(1), TickTime(-1)}) {
    TimecodeModel model;
    model.SetMinTime(kLeast);
    model.SetMaxTime(kMost);
    for (TickTime const time : {kLeast, kMost, TickTime()}) {
      model.SetTime(time);
      model.SetOffset(offset);
      EXPECT_LE(model.GetMinTime(), model.GetValue());
      EXPECT_LE(model.GetValue(), model.GetMaxTime());
      EXPECT_FALSE(model.GetText().empty());
      model.Increment(std::numeric_limits<int>::max(), StepSize::kLarge);
      model.Increment(std::numeric_limits<int>::min(), StepSize::kLarge);
      model.SetText(u"+99999999999999999999:00:00:00");
      model.SetText(u"-99999999999999999999:00:00:00");
      EXPECT_LE(model.GetMinTime(), model.GetValue());
      EXPECT_LE(model.GetValue(), model.GetMaxTime());
    }
  }
}

}  // namespace
}  // namespace timecode_tests
