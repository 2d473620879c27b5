#include "../../src/audio/SampleGain.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using moxmediaui::ApplySampleGain;
using moxmediaui::SampleGain;
using moxmediaui::WaveformDataProperties;
using moxmediaui::WaveformDataType;

constexpr std::size_t kSlots = 53;    // ten samples of a view
constexpr std::size_t kFirst = 21;    // the first of them
constexpr std::size_t kVisible = 10;  // at positions 99 to 108 of a view that begins at 100.75

bool AllEnabled(int /*channel*/) {
  return true;
}

/// Indexes of the samples of three channels of ones that took a gain of 2, all channels one after another.
std::vector<std::size_t> TouchedBy(SampleGain gain, bool (*isEnabled)(int) = AllEnabled) {
  gain.factor = 2.0f;
  std::vector<float> samples(3 * kSlots, 1.0f);
  ApplySampleGain({WaveformDataType::kSamples, kSlots, 3}, isEnabled, gain, samples);
  std::vector<std::size_t> touched;
  for (std::size_t i = 0; i < samples.size(); ++i) {
    if (samples[i] != 1.0f) {
      EXPECT_EQ(samples[i], 2.0f);
      touched.push_back(i);
    }
  }
  return touched;
}

std::vector<std::size_t> InChannels(std::vector<std::size_t> const& channels, std::size_t first,
                                    std::size_t count) {
  std::vector<std::size_t> indexes;
  for (std::size_t const channel : channels) {
    for (std::size_t i = 0; i < count; ++i) {
      indexes.push_back(channel * kSlots + kFirst + first + i);
    }
  }
  return indexes;
}

// Index 21 holds the sample at 99: 102 is three further on.
TEST(SampleGain, TakesInTheLeftPositionAndLeavesOutTheRight) {
  EXPECT_EQ(TouchedBy({.viewLeft = 100.75, .left = 102, .width = 4}), InChannels({0, 1, 2}, 3, 4));
  EXPECT_EQ(TouchedBy({.viewLeft = 100.75, .left = 102, .width = 1}), InChannels({0, 1, 2}, 3, 1));
  EXPECT_TRUE(TouchedBy({.viewLeft = 100.75, .left = 102, .width = 0}).empty());
  EXPECT_TRUE(TouchedBy({.viewLeft = 100.75, .left = 102, .width = -3}).empty());
}

TEST(SampleGain, TouchesFortyThreeSamplesLessThanTheRunHolds) {
  EXPECT_EQ(TouchedBy({.viewLeft = 100.75, .left = 0, .width = 1000}), InChannels({0, 1, 2}, 0, kVisible));
  EXPECT_EQ(TouchedBy({.viewLeft = 100.75, .left = 0, .width = 100}), InChannels({0, 1, 2}, 0, 1));
  EXPECT_EQ(TouchedBy({.viewLeft = 100.75, .left = 108, .width = 9}), InChannels({0, 1, 2}, 9, 1));
  EXPECT_TRUE(TouchedBy({.viewLeft = 100.75, .left = 0, .width = 99}).empty());
  EXPECT_TRUE(TouchedBy({.viewLeft = 100.75, .left = 109, .width = 9}).empty());
}

// -0.75 becomes 0, so that the first sample is at -1.
TEST(SampleGain, TheViewsLeftEdgeIsTruncatedTowardZero) {
  EXPECT_EQ(TouchedBy({.viewLeft = -0.75, .left = -1, .width = 1}), InChannels({0, 1, 2}, 0, 1));
  EXPECT_EQ(TouchedBy({.viewLeft = -7.5, .left = -8, .width = 2}), InChannels({0, 1, 2}, 0, 2));
}

TEST(SampleGain, LeavesDisabledChannelsAlone) {
  EXPECT_EQ(TouchedBy({.viewLeft = 100.0, .left = 99, .width = 2}, [](int channel) { return channel != 1; }),
            InChannels({0, 2}, 0, 2));
}

TEST(SampleGain, ARunOfPaddingHasNoSamples) {
  for (std::size_t const slots : {std::size_t{0}, std::size_t{1}, std::size_t{42}, std::size_t{43}}) {
    std::vector<float> samples(slots, 1.0f);
    ApplySampleGain({WaveformDataType::kSamples, slots, 1}, AllEnabled,
                    {.left = -100, .width = 1000, .factor = 2.0f}, samples);
    EXPECT_EQ(samples, std::vector<float>(slots, 1.0f));
  }
  std::vector<float> one(44, 1.0f);
  ApplySampleGain({WaveformDataType::kSamples, 44, 1}, AllEnabled,
                  {.left = -100, .width = 1000, .factor = 2.0f}, one);
  EXPECT_EQ(one[kFirst], 2.0f);
}

// Asking each of them whether it is enabled would take minutes.
TEST(SampleGain, ChannelsWithoutSamplesAreNotCounted) {
  int asked = 0;
  std::vector<float> none;
  ApplySampleGain(
      {WaveformDataType::kSamples, 0, (std::size_t{1} << 32) + 1},
      [&](int /*channel*/) { return ++asked < 0; }, {.left = -100, .width = 1000, .factor = 2.0f}, none);
  EXPECT_EQ(asked, 0);
}

TEST(SampleGain, PositionsAtTheEndOfTheNumbersAreHeld) {
  constexpr auto kMost = std::numeric_limits<std::int64_t>::max();
  EXPECT_EQ(TouchedBy({.viewLeft = 100.0, .left = -kMost, .width = kMost}).size(), 0u);
  EXPECT_EQ(TouchedBy({.viewLeft = 100.0, .left = 5, .width = kMost}).size(), 3 * kVisible);
  EXPECT_TRUE(TouchedBy({.viewLeft = 1e300, .left = 5, .width = 10}).empty());
}

}  // namespace
