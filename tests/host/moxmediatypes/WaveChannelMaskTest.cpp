#include <moxmediatypes/WaveChannelMask.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace moxmediatypes {
namespace {

using Label = AudioChannelLabel;
using ::testing::ElementsAre;

AudioChannelLayout Layout(const std::vector<Label>& labels) {
  return {labels.begin(), labels.end()};
}

const std::vector<Label> kFiveOne{Label::kLeft,         Label::kRight,        Label::kCenter,
                                  Label::kLowFrequency, Label::kLeftSurround, Label::kRightSurround};
const std::vector<Label> kSevenOne{Label::kLeft,
                                   Label::kRight,
                                   Label::kCenter,
                                   Label::kLowFrequency,
                                   Label::kLeftRearSurround,
                                   Label::kRightRearSurround,
                                   Label::kLeftSideSurround,
                                   Label::kRightSideSurround};

void ExpectFault(const std::vector<Label>& labels, WaveMaskFault fault, std::size_t channel,
                 std::size_t earlier = 0) {
  const WaveMaskResult result = GetWaveChannelMask(Layout(labels));
  EXPECT_EQ(result.fault, fault);
  EXPECT_EQ(result.mask, 0U);
  EXPECT_EQ(result.channel, channel);
  EXPECT_EQ(result.earlier, earlier);
}

TEST(WaveChannelMask, OfCommonLayoutsIsTheCommonOne) {
  EXPECT_EQ(GetWaveChannelMask(Layout({Label::kCenter})).mask, 0x4U);
  EXPECT_EQ(GetWaveChannelMask(CreateStereoChannelLayout()).mask, 0x3U);
  EXPECT_EQ(
      GetWaveChannelMask(Layout({Label::kLeft, Label::kRight, Label::kLeftSurround, Label::kRightSurround}))
          .mask,
      0x33U);
  EXPECT_EQ(GetWaveChannelMask(Layout(kFiveOne)).mask, 0x3FU);
  EXPECT_EQ(GetWaveChannelMask(Layout(kSevenOne)).mask, 0x63FU);
}

TEST(WaveChannelMask, HasEachOfItsPlaces) {
  const AudioChannelLayout all = GetLayoutOfWaveMask(0x3FFFF, kWavePlaceCount);
  EXPECT_EQ(GetWaveChannelMask(all).mask, 0x3FFFFU);
  for (const AudioChannelDescription channel : all) {
    EXPECT_TRUE(GetWaveChannelDescriptions().contains(channel)) << channel.GetNumber();
    EXPECT_NE(GetWaveChannelMask({channel}).mask, 0U) << channel.GetNumber();
  }
  EXPECT_EQ(GetWaveChannelDescriptions().size(), 20U);
}

TEST(WaveChannelMask, PutsSurroundToTheSidesOfRearChannels) {
  EXPECT_EQ(
      GetWaveChannelMask(Layout({Label::kLeft, Label::kRight, Label::kLeftRearSurround,
                                 Label::kRightRearSurround, Label::kLeftSurround, Label::kRightSurround}))
          .mask,
      0x633U);
  EXPECT_EQ(GetWaveChannelMask(Layout({Label::kLeftSurround, Label::kLeftSideSurround})).mask, 0x210U);
  // Three pairs have but two places.
  ExpectFault({Label::kLeftRearSurround, Label::kLeftSurround, Label::kLeftSideSurround},
              WaveMaskFault::kTwice, 2, 1);
}

TEST(WaveChannelMask, IsNoneForChannelsWithoutLabels) {
  for (const AudioChannelLayout& layout :
       {AudioChannelLayout(), CreateMonoChannelLayout(), AudioChannelLayout(40)}) {
    const WaveMaskResult result = GetWaveChannelMask(layout);
    EXPECT_EQ(result.fault, WaveMaskFault::kNone);
    EXPECT_EQ(result.mask, 0U);
  }
}

TEST(WaveChannelMask, SaysWhatItCannotSay) {
  ExpectFault({Label::kLeft, Label::kUnnamed, Label::kRight}, WaveMaskFault::kUnnamed, 1);
  ExpectFault({Label::kUnnamed, Label::kRight}, WaveMaskFault::kUnnamed, 0);
  ExpectFault({Label::kLeft, Label::kRight, Label::kLowFrequency2}, WaveMaskFault::kNoPlace, 2);
  ExpectFault({Label::kAmbisonic0}, WaveMaskFault::kNoPlace, 0);
  ExpectFault({Label{4711}}, WaveMaskFault::kNoPlace, 0);
  ExpectFault({Label::kLeft, Label::kRight, Label::kLeft}, WaveMaskFault::kTwice, 2, 0);
  ExpectFault({Label::kRight, Label::kLeft}, WaveMaskFault::kOrder, 1, 0);
  // As on film.
  ExpectFault({Label::kLeft, Label::kCenter, Label::kRight, Label::kLeftSurround, Label::kRightSurround,
               Label::kLowFrequency},
              WaveMaskFault::kOrder, 2, 1);
}

TEST(WaveChannelMask, ReadBackIsTheLayout) {
  for (const auto& labels : {kFiveOne, kSevenOne, {Label::kLeft, Label::kRight}}) {
    const AudioChannelLayout layout = Layout(labels);
    EXPECT_EQ(GetLayoutOfWaveMask(GetWaveChannelMask(layout).mask, layout.size()), layout);
  }
  // 5.1 is written with its surround channels at the sides as well.
  EXPECT_EQ(GetLayoutOfWaveMask(0x60F, 6), Layout(kFiveOne));
}

TEST(WaveChannelMask, OfAFileNeedNotGoWithItsChannels) {
  EXPECT_THAT(GetLayoutOfWaveMask(0x3, 3), ElementsAre(Label::kLeft, Label::kRight, Label::kUnnamed));
  EXPECT_THAT(GetLayoutOfWaveMask(0xFFFFFFFF, 1), ElementsAre(Label::kLeft));
  EXPECT_THAT(GetLayoutOfWaveMask(0x80000000, 1), ElementsAre(Label::kUnnamed));
  EXPECT_THAT(GetLayoutOfWaveMask(0x3F, 0), ElementsAre());
  const std::vector<int> places{17, -1, 0, 18};
  EXPECT_THAT(GetLayoutOfWavePlaces(places),
              ElementsAre(Label::kRightTopRear, Label::kUnnamed, Label::kLeft, Label::kUnnamed));
}

}  // namespace
}  // namespace moxmediatypes
