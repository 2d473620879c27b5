#include "AllRates.h"

#include <moxmediatypes/TimeDisplay.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <vector>

namespace moxmediatypes {
namespace {

using testing::ElementsAre;

// The codes for which `question` is true.
template <class Question>
std::vector<int> Codes(Question question) {
  std::vector<int> codes;
  for (int code = -1; code <= 1000; ++code) {
    if (question(TimeDisplay(code))) {
      codes.push_back(code);
    }
  }
  return codes;
}

TEST(TimeDisplay, IsDropFrameTimecodeUnlessGiven) {
  EXPECT_EQ(TimeDisplay().GetType(), 102);
}

TEST(TimeDisplay, IsComparedByItsCode) {
  EXPECT_EQ(TimeDisplay(109), TimeDisplay(TimeDisplay::kFrames));
  EXPECT_NE(TimeDisplay(109), TimeDisplay(110));
  EXPECT_EQ(TimeDisplay(-7).GetType(), -7);
}

TEST(TimeDisplay, DropsLabelsInTwoFormats) {
  EXPECT_THAT(Codes(IsTimeDisplayDropFrame), ElementsAre(102, 106));
}

TEST(TimeDisplay, LeavesDropFrameAChoiceInFourFormats) {
  EXPECT_THAT(Codes(IsDropFrameApplicableForTimeDisplay), ElementsAre(102, 103, 106, 107));
}

TEST(TimeDisplay, ShowsHoursMinutesSecondsAndFramesInTimecodes) {
  EXPECT_THAT(Codes([](TimeDisplay display) { return IsHMSFTimeDisplay(display, false); }),
              ElementsAre(100, 101, 102, 103, 104, 105, 106, 107, 108, 110, 113));
}

TEST(TimeDisplay, CountsMillisecondsAmongTimecodesOnRequest) {
  EXPECT_THAT(Codes([](TimeDisplay display) { return IsHMSFTimeDisplay(display, true); }),
              ElementsAre(100, 101, 102, 103, 104, 105, 106, 107, 108, 110, 113, 201));
}

TEST(TimeDisplay, ShowsFeetInTwoFormats) {
  EXPECT_THAT(Codes(IsFeetFramesDisplay), ElementsAre(111, 112));
}

TEST(TimeDisplay, KnowsTheFramesOfAFoot) {
  EXPECT_EQ(GetFramesPerFoot(TimeDisplay(111)), 40);
  EXPECT_EQ(GetFramesPerFoot(TimeDisplay(112)), 16);
  EXPECT_EQ(GetFramesPerFoot(TimeDisplay(109)), 0);
}

std::vector<int> FormatsOfAllRates(bool dropFrame, bool acceptNearest) {
  std::vector<int> codes;
  for (const FrameRate rate : kAllRates) {
    codes.push_back(
        GetTimeDisplayForFrameRate(rate, dropFrame, acceptNearest, TimeDisplay(999), false).GetType());
  }
  return codes;
}

TEST(GetTimeDisplayForFrameRate, GivesTheTimecodeOfTheRate) {
  for (const bool acceptNearest : {false, true}) {
    EXPECT_THAT(FormatsOfAllRates(true, acceptNearest),
                ElementsAre(104, 110, 100, 101, 102, 104, 113, 105, 106, 108));
    EXPECT_THAT(FormatsOfAllRates(false, acceptNearest),
                ElementsAre(104, 110, 100, 101, 103, 104, 113, 105, 107, 108));
  }
}

int Nearest(std::int64_t ticks) {
  return GetTimeDisplayForFrameRate(FrameRate(ticks), true, true, TimeDisplay(999), false).GetType();
}

TEST(GetTimeDisplayForFrameRate, TakesTheNearestRateForAnother) {
  EXPECT_EQ(Nearest(8475667201), 102);
  EXPECT_EQ(Nearest(8467200001), 104);
  EXPECT_EQ(Nearest(254016000000 / 12), 104) << "of 12 frames a second";
  EXPECT_EQ(Nearest(254016000000 / 32), 104);
  EXPECT_EQ(Nearest(254016000000 / 40), 113);
  EXPECT_EQ(Nearest(254016000000 / 120), 108);
  EXPECT_EQ(Nearest(1), 108);
  EXPECT_EQ(Nearest(std::numeric_limits<std::int64_t>::max() - 1), 104);
}

TEST(GetTimeDisplayForFrameRate, TakesTheSlowerOfTwoRatesAsNear) {
  EXPECT_EQ(Nearest(254016000000 / 49), 113) << "49 frames a second lie between 48 and 50";
  EXPECT_EQ(Nearest(254016000000 / 49 - 1), 105);
}

TEST(GetTimeDisplayForFrameRate, GivesWhatIsAskedForWhenTheRateIsUnknown) {
  const TimeDisplay fallback(102);
  EXPECT_EQ(GetTimeDisplayForFrameRate(FrameRate(8475667201), true, false, fallback, false), fallback);
  for (const FrameRate rate : {FrameRate::kInvalid, FrameRate(0), FrameRate(-8475667200)}) {
    EXPECT_EQ(GetTimeDisplayForFrameRate(rate, true, true, TimeDisplay(109), false), TimeDisplay(109));
    EXPECT_EQ(GetTimeDisplayForFrameRate(rate, true, false, fallback, false), fallback);
  }
}

TEST(GetTimeDisplayForFrameRate, KnowsNoChoiceOfTheUser) {
  EXPECT_EQ(GetTimeDisplayForFrameRate(FrameRate::k24, true, true, TimeDisplay(102), true), TimeDisplay(100));
}

}  // namespace
}  // namespace moxmediatypes
