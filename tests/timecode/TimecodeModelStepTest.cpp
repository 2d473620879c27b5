#include "TimecodeTestValues.h"

#include <gtest/gtest.h>

#include <limits>

namespace timecode_tests {
namespace {

using moxmediaui::TimecodeModel;
using StepSize = TimecodeModel::StepSize;

constexpr std::int64_t k24 = 10584000000;
constexpr std::int64_t kTicksOf25 = 10160640000;
constexpr std::int64_t kTicksOf2997 = 8475667200;
constexpr std::int64_t k48000 = 5292000;

struct StepCase {
  int format;
  std::int64_t rate;
  int count;
  StepSize size;
  TickTime distance;
};

class Step : public ::testing::TestWithParam<StepCase> {};

TEST_P(Step, MovesTheValue) {
  TimecodeModel model;
  model.SetFormat(TimeDisplay(GetParam().format), FrameRate(GetParam().rate));
  model.SetTime(kHour + TickTime(7));
  EXPECT_EQ(model.Increment(GetParam().count, GetParam().size), GetParam().distance != TickTime());
  EXPECT_EQ(model.GetValue() - kHour - TickTime(7), GetParam().distance);
}

constexpr auto kFrames = StepSize::kFrames;
constexpr auto kLarge = StepSize::kLarge;

// A second of timecode is thirty frames at 29.97; steps that reach over a minute land on labels that exist.
INSTANTIATE_TEST_SUITE_P(
    TimecodeModel, Step,
    ::testing::Values(
        StepCase{101, kTicksOf25, 1, kFrames, TickTime(kTicksOf25)},
        StepCase{101, kTicksOf25, -3, kFrames, TickTime(-3 * kTicksOf25)},
        StepCase{101, kTicksOf25, 0, kFrames, TickTime()}, StepCase{101, kTicksOf25, 2, kLarge, Seconds(2)},
        StepCase{101, kTicksOf25, -2, kLarge, Seconds(-2)},
        StepCase{102, kTicksOf2997, 1, kFrames, TickTime(kTicksOf2997)},
        StepCase{102, kTicksOf2997, -1, kLarge, TickTime(-30 * kTicksOf2997)},
        StepCase{102, kTicksOf2997, 1798, kFrames, TickTime(1798 * kTicksOf2997)},
        StepCase{109, k24, 5, kFrames, TickTime(5 * k24)}, StepCase{109, k24, 1, kLarge, TickTime(100 * k24)},
        StepCase{109, k24, -2, kLarge, TickTime(-200 * k24)}, StepCase{111, k24, 1, kFrames, TickTime(k24)},
        StepCase{111, k24, 1, kLarge, TickTime(40 * k24)},
        StepCase{112, k24, -2, kLarge, TickTime(-32 * k24)},
        StepCase{112, k24, -2, kFrames, TickTime(-2 * k24)},
        StepCase{200, k48000, 10, kFrames, TickTime(10 * k48000)},
        StepCase{200, k48000, 1, kLarge, Seconds(1)},
        StepCase{201, k48000, 10, kFrames, TickTime(std::int64_t{10} * 254016000)},
        StepCase{201, k48000, -1, kLarge, Seconds(-1)},
        StepCase{101, std::numeric_limits<std::int64_t>::max(), 4, kFrames, TickTime()},
        StepCase{112, std::numeric_limits<std::int64_t>::max(), 4, kLarge, TickTime()},
        StepCase{101, 0, 4, kLarge, TickTime()}, StepCase{109, -1, 4, kFrames, TickTime()}));

TEST(TimecodeModel, StepsInItsQuantizationWhateverItShows) {
  TimecodeModel model;
  model.SetFormat(TimeDisplay(101), FrameRate(kTicksOf25));
  model.SetQuantization(kFrameCount, FrameRate(k24));
  EXPECT_TRUE(model.Increment(1, kLarge));
  EXPECT_EQ(model.GetValue(), TickTime(100 * k24));
  EXPECT_EQ(model.GetText(), u"00:00:04:04");
  model.SetQuantization(kNoFormat, FrameRate(k24));
  EXPECT_TRUE(model.Increment(1, kFrames));
  EXPECT_EQ(model.GetValue(), TickTime(101 * k24));
}

TEST(TimecodeModel, StepsEndAtTheBounds) {
  TimecodeModel model;
  model.SetFormat(TimeDisplay(101), FrameRate(kTicksOf25));
  model.SetMaxTime(Seconds(1));
  EXPECT_FALSE(model.Increment(-1, kFrames));
  EXPECT_TRUE(model.Increment(24, kFrames));
  EXPECT_TRUE(model.Increment(24, kFrames));
  EXPECT_EQ(model.GetValue(), Seconds(1));
  EXPECT_FALSE(model.Increment(1, kFrames));
}

TEST(TimecodeModel, AStepFromTheInvalidTimeLeadsToTheLowerBound) {
  for (int const format : {101, 112}) {
    TimecodeModel model;
    model.SetFormat(TimeDisplay(format), FrameRate(kTicksOf25));
    model.SetMinTime(Seconds(3));
    model.SetTime(kNoTime);
    EXPECT_FALSE(model.Increment(0, kFrames));
    EXPECT_EQ(model.GetValue(), kNoTime);
    EXPECT_TRUE(model.Increment(1, kFrames));
    EXPECT_EQ(model.GetValue(), Seconds(3));
  }
}

TEST(TimecodeModel, StepsOfAnySizeStayWithinTheBounds) {
  constexpr int kMost = std::numeric_limits<int>::max();
  constexpr int kLeast = std::numeric_limits<int>::min();
  for (int const format : {101, 102, 109, 111, 112, 200, 201, 999}) {
    for (auto const size : {kFrames, kLarge}) {
      TimecodeModel model;
      model.SetFormat(TimeDisplay(format), FrameRate(kTicksOf25));
      model.Increment(kLeast, size);
      EXPECT_EQ(model.GetValue(), TickTime());
      model.Increment(kMost, size);
      EXPECT_GT(model.GetValue(), TickTime());
      EXPECT_LE(model.GetValue(), kHundredHours);
      model.Increment(kLeast, size);
      EXPECT_EQ(model.GetValue(), TickTime());
    }
  }
}

}  // namespace
}  // namespace timecode_tests
