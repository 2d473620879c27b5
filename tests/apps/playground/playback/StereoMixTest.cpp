#include "playback/StereoMix.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace playground {
namespace {

using ::testing::ElementsAre;

TEST(StereoMix, OneAndTwoChannelsStayAsTheyAre) {
  EXPECT_THAT(StereoMix(1), ElementsAre(StereoGain{1.0f, 1.0f}));
  EXPECT_THAT(StereoMix(2), ElementsAre(StereoGain{1.0f, 0.0f}, StereoGain{0.0f, 1.0f}));
}

TEST(StereoMix, FiveOneIsFoldedByTheStandard) {
  std::vector<StereoGain> const gains = StereoMix(6);
  float const front = 1.0f / 2.41421356f;
  EXPECT_FLOAT_EQ(gains[0].left, front);
  EXPECT_FLOAT_EQ(gains[0].right, 0.0f);
  EXPECT_FLOAT_EQ(gains[2].left, front * 0.70710678f);
  EXPECT_FLOAT_EQ(gains[2].right, front * 0.70710678f);
  EXPECT_EQ(gains[3], StereoGain{});
  EXPECT_FLOAT_EQ(gains[4].left, front * 0.70710678f);
  EXPECT_FLOAT_EQ(gains[5].right, front * 0.70710678f);
  EXPECT_FLOAT_EQ(gains[5].left, 0.0f);
}

TEST(StereoMix, FullScaleInAllChannelsDoesNotClip) {
  for (std::size_t channelCount = 1; channelCount <= 256; ++channelCount) {
    std::vector<float> const frame(channelCount, 1.0f);
    std::vector<float> pair(2);
    FoldToStereo(frame, StereoMix(channelCount), pair);
    EXPECT_LE(pair[0], 1.00001f) << channelCount;
    EXPECT_LE(pair[1], 1.00001f) << channelCount;
    EXPECT_GT(pair[0], 0.99f) << channelCount;
  }
}

TEST(StereoMix, OtherCountsGoToTheSidesInTurn) {
  EXPECT_THAT(StereoMix(7),
              ElementsAre(StereoGain{0.25f, 0.0f}, StereoGain{0.0f, 0.25f}, StereoGain{0.25f, 0.0f},
                          StereoGain{0.0f, 0.25f}, StereoGain{0.25f, 0.0f}, StereoGain{0.0f, 0.25f},
                          StereoGain{0.25f, 0.0f}));
}

TEST(StereoMix, DisabledChannelsAreSilentAndTheOthersAsLoudAsBefore) {
  std::vector<StereoGain> const all = StereoMix(6);
  std::vector<StereoGain> const some = StereoMix(6, {false, true, true});
  EXPECT_EQ(some[0], StereoGain{});
  EXPECT_EQ(some[1], all[1]);
  EXPECT_EQ(some[5], all[5]);
}

TEST(StereoMix, FoldsFrameByFrame) {
  std::vector<float> const frames{0.5f, 0.25f, -1.0f, 0.125f};
  std::vector<float> pairs(4);
  FoldToStereo(frames, StereoMix(2), pairs);
  EXPECT_EQ(pairs, frames);
}

}  // namespace
}  // namespace playground
