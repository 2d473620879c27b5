#include <moxaudiotoolkit/DecodedAudio.h>
#include <moxaudiotoolkit/DemoSound.h>

#include <gtest/gtest.h>

#include <algorithm>

namespace moxaudiotoolkit {
namespace {

// Made once for all tests.
const DecodedAudio* Sound() {
  static const auto sound = SynthesiseDemoSound();
  return sound.get();
}

TEST(DemoSound, IsTwelveSecondsOfSixChannels) {
  const auto* const sound = Sound();
  EXPECT_EQ(sound->GetSampleRate(), 48000);
  EXPECT_EQ(sound->GetChannelCount(), 6U);
  EXPECT_DOUBLE_EQ(sound->GetDuration(), 12.0);
}

TEST(DemoSound, IsTheSameAtEachCall) {
  const auto* const first = Sound();
  const auto second = SynthesiseDemoSound();
  for (std::size_t c = 0; c < first->GetChannelCount(); ++c) {
    EXPECT_TRUE(std::ranges::equal(first->GetSamples(c), second->GetSamples(c))) << c;
  }
}

TEST(DemoSound, EveryChannelIsLoudAndWithinFullScale) {
  const auto* const sound = Sound();
  for (std::size_t c = 0; c < sound->GetChannelCount(); ++c) {
    const PeakPair peaks = sound->GetPeaks(c, 0, sound->GetFrameCount());
    EXPECT_GT(peaks.maximum, 0.75F) << c;
    EXPECT_LT(peaks.minimum, -0.4F) << c;
    EXPECT_LE(peaks.maximum, 1.0F) << c;
    EXPECT_GE(peaks.minimum, -1.0F) << c;
  }
}

TEST(DemoSound, ChannelsDiffer) {
  const auto* const sound = Sound();
  for (std::size_t a = 0; a < sound->GetChannelCount(); ++a) {
    for (std::size_t b = a + 1; b < sound->GetChannelCount(); ++b) {
      EXPECT_FALSE(std::ranges::equal(sound->GetSamples(a), sound->GetSamples(b))) << a << " and " << b;
    }
  }
}

// Syllables, bursts and clicks have rests between them, so that there is something to see.
TEST(DemoSound, SpeechBurstsAndClicksHaveRests) {
  const auto* const sound = Sound();
  for (const std::size_t c : {2U, 4U, 5U}) {
    int rests = 0;
    for (std::int64_t begin = 0; begin < sound->GetFrameCount(); begin += 2400) {
      rests += sound->GetPeaks(c, begin, begin + 2400).maximum < 0.02F ? 1 : 0;
    }
    EXPECT_GE(rests, 5) << c;
  }
}

}  // namespace
}  // namespace moxaudiotoolkit
