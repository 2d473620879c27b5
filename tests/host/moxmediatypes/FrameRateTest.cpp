#include "AllRates.h"

#include <moxmediatypes/FrameRate.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <vector>

namespace moxmediatypes {
namespace {

constexpr auto kMost = std::numeric_limits<std::int64_t>::max();

TEST(FrameRate, LastsAWholeNumberOfTicks) {
  std::vector<std::int64_t> ticks;
  for (const FrameRate rate : kAllRates) {
    ticks.push_back(rate.GetTicksPerFrame());
  }
  EXPECT_EQ(ticks, (std::vector<std::int64_t>{16934400000, 10594584000, 10584000000, 10160640000, 8475667200,
                                              8467200000, 5292000000, 5080320000, 4237833600, 4233600000}));
}

TEST(FrameRate, IsInvalidUnlessGiven) {
  EXPECT_EQ(FrameRate(), FrameRate::kInvalid);
  EXPECT_EQ(FrameRate::kInvalid.GetTicksPerFrame(), 9223372036854775807);
}

TEST(FrameRate, IsNoRateWhenItsFramesHaveNoLength) {
  for (const FrameRate rate : {FrameRate::kInvalid, FrameRate(0), FrameRate(-1), FrameRate(-kMost)}) {
    EXPECT_FALSE(rate.IsValid()) << rate.GetTicksPerFrame();
    EXPECT_EQ(rate.GetNominalFramesPerSecond(), 0);
  }
  EXPECT_TRUE(FrameRate(1).IsValid());
  EXPECT_TRUE(FrameRate(kMost - 1).IsValid());
}

TEST(FrameRate, CountsWholeFramesToASecond) {
  std::vector<std::int64_t> nominal;
  for (const FrameRate rate : kAllRates) {
    nominal.push_back(rate.GetNominalFramesPerSecond());
  }
  EXPECT_EQ(nominal, (std::vector<std::int64_t>{15, 24, 24, 25, 30, 30, 48, 50, 60, 60}));
}

TEST(FrameRate, RoundsTheCountToTheNearest) {
  EXPECT_EQ(FrameRate(8467200001).GetNominalFramesPerSecond(), 30);
  EXPECT_EQ(FrameRate(8467199999).GetNominalFramesPerSecond(), 30);
  EXPECT_EQ(FrameRate(20321280000).GetNominalFramesPerSecond(), 13) << "of 12.5 frames a second";
  EXPECT_EQ(FrameRate(1).GetNominalFramesPerSecond(), 254016000000);
}

TEST(FrameRate, CountsOneFrameAtLeast) {
  EXPECT_EQ(FrameRate(2540160000000).GetNominalFramesPerSecond(), 1);
  EXPECT_EQ(FrameRate(kMost - 1).GetNominalFramesPerSecond(), 1);
}

TEST(FrameRate, IsMadeOfSamplesASecond) {
  EXPECT_EQ(FrameRate::PerSecond(48000).GetTicksPerFrame(), 5292000);
  EXPECT_EQ(FrameRate::PerSecond(44100).GetTicksPerFrame(), 5760000);
  EXPECT_EQ(FrameRate::PerSecond(25), FrameRate::k25);
  EXPECT_EQ(FrameRate::PerSecond(47952).GetTicksPerFrame(), 5297297) << "5297297.297 rounded";
}

TEST(FrameRate, IsInvalidForSamplesWithoutLength) {
  EXPECT_EQ(FrameRate::PerSecond(0), FrameRate::kInvalid);
  EXPECT_EQ(FrameRate::PerSecond(-48000), FrameRate::kInvalid);
  EXPECT_EQ(FrameRate::PerSecond(kMost), FrameRate::kInvalid);
  EXPECT_EQ(FrameRate::PerSecond(2 * kTicksPerSecond).GetTicksPerFrame(), 1);
  EXPECT_EQ(FrameRate::PerSecond(2 * kTicksPerSecond + 1), FrameRate::kInvalid);
}

TEST(FrameRate, AllowsDropFrameOnlyAt2997And5994) {
  for (const FrameRate rate : kAllRates) {
    EXPECT_EQ(rate.AllowsDropFrame(), rate == FrameRate::k2997 || rate == FrameRate::k5994);
  }
  EXPECT_FALSE(FrameRate::kInvalid.AllowsDropFrame());
  EXPECT_FALSE(FrameRate(8475667201).AllowsDropFrame());
}

}  // namespace
}  // namespace moxmediatypes
