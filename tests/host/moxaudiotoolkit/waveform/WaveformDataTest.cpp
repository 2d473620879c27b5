#include <moxaudiotoolkit/waveform/WaveformData.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <stdexcept>
#include <vector>

namespace moxaudiotoolkit::waveform {
namespace {

constexpr std::size_t kHuge = std::numeric_limits<std::size_t>::max();

TEST(WaveformData, HasThreeTypes) {
  EXPECT_EQ(static_cast<int>(WaveformDataType::kNone), 0);
  EXPECT_EQ(static_cast<int>(WaveformDataType::kSamples), 1);
  EXPECT_EQ(static_cast<int>(WaveformDataType::kPeaks), 2);
}

TEST(WaveformData, PropertiesAreTypeThenSlotsThenChannels) {
  const WaveformDataProperties properties{WaveformDataType::kPeaks, 3, 2};
  EXPECT_EQ(properties.type, WaveformDataType::kPeaks);
  EXPECT_EQ(properties.dataSlots, 3U);
  EXPECT_EQ(properties.channelCount, 2U);
}

TEST(WaveformData, IsNothingByDefault) {
  const WaveformData data;
  EXPECT_EQ(data.GetType(), WaveformDataType::kNone);
  EXPECT_EQ(data.GetChannelCount(), 0U);
  EXPECT_EQ(data.GetDataSlots(), 0U);
  EXPECT_TRUE(data.GetWaveformBuffer().empty());
}

TEST(WaveformData, GivesBackWhatItWasMadeFrom) {
  const WaveformDataProperties properties{WaveformDataType::kPeaks, 3, 2};
  const std::vector<float> pairs{1, 0, 2, 0, 3, 0, 4, -1, 5, -1, 6, -1};
  const WaveformData data(properties, pairs);
  EXPECT_EQ(data.GetType(), WaveformDataType::kPeaks);
  EXPECT_EQ(data.GetChannelCount(), 2U);
  EXPECT_EQ(data.GetDataSlots(), 3U);
  EXPECT_EQ(data.GetWaveformBuffer(), pairs);
  EXPECT_EQ(data.GetProperties(), properties);
}

TEST(WaveformData, PeaksTakeTwoFloatsASlot) {
  EXPECT_NO_THROW(WaveformData({WaveformDataType::kPeaks, 5, 3}, std::vector<float>(30)));
  EXPECT_THROW(WaveformData({WaveformDataType::kPeaks, 5, 3}, std::vector<float>(15)), std::invalid_argument);
  EXPECT_THROW(WaveformData({WaveformDataType::kPeaks, 5, 3}, std::vector<float>(31)), std::invalid_argument);
}

TEST(WaveformData, SamplesTakeOneFloatASlot) {
  EXPECT_NO_THROW(WaveformData({WaveformDataType::kSamples, 5, 3}, std::vector<float>(15)));
  EXPECT_THROW(WaveformData({WaveformDataType::kSamples, 5, 3}, std::vector<float>(14)),
               std::invalid_argument);
  EXPECT_THROW(WaveformData({WaveformDataType::kSamples, 5, 3}, std::vector<float>(30)),
               std::invalid_argument);
}

TEST(WaveformData, NoneTakesNoFloatsWhateverItsChannels) {
  EXPECT_NO_THROW(WaveformData({WaveformDataType::kNone, 0, 6}, {}));
  EXPECT_THROW(WaveformData({WaveformDataType::kNone, 1, 1}, std::vector<float>(1)), std::invalid_argument);
}

TEST(WaveformData, ChannelsWithoutSlotsTakeNoFloats) {
  EXPECT_NO_THROW(WaveformData({WaveformDataType::kPeaks, 0, 6}, {}));
  EXPECT_NO_THROW(WaveformData({WaveformDataType::kSamples, 44, 0}, {}));
}

TEST(WaveformData, RefusesSizesThatOverflow) {
  EXPECT_THROW(WaveformData({WaveformDataType::kSamples, kHuge / 2 + 1, 2}, {}), std::invalid_argument);
  EXPECT_THROW(WaveformData({WaveformDataType::kPeaks, kHuge / 2 + 1, 1}, {}), std::invalid_argument);
  EXPECT_THROW(WaveformData({WaveformDataType::kPeaks, kHuge, kHuge}, std::vector<float>(2)),
               std::invalid_argument);
}

TEST(WaveformData, RefusesUnknownTypes) {
  EXPECT_THROW(WaveformData({static_cast<WaveformDataType>(3), 0, 0}, {}), std::invalid_argument);
}

TEST(WaveformData, TellsTheSizesThatDisagree) {
  try {
    WaveformData({WaveformDataType::kPeaks, 5, 3}, std::vector<float>(7));
    FAIL() << "taken";
  } catch (const std::invalid_argument& error) {
    EXPECT_STREQ(error.what(), "Waveform data of 3 channels with 5 slots takes 30 floats, not 7");
  }
}

}  // namespace
}  // namespace moxaudiotoolkit::waveform
