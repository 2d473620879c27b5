#include "PlainPeaks.h"
#include "SoundBytes.h"
#include "TemporaryFolder.h"

#include <moxaudiotoolkit/AudioFile.h>
#include <moxaudiotoolkit/AudioFileError.h>
#include <moxaudiotoolkit/AudioFileWriter.h>
#include <moxaudiotoolkit/DecodedAudio.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <random>
#include <span>
#include <stdexcept>
#include <vector>

namespace moxaudiotoolkit {
namespace {

using testing::PeaksOneByOne;
using testing::TemporaryFolder;
using testing::Tones;

using Channels = std::vector<std::vector<float>>;

constexpr std::int64_t kFirst = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kLast = std::numeric_limits<std::int64_t>::max();

std::vector<float> RandomSamples(std::size_t count, unsigned seed) {
  std::mt19937 random(seed);
  std::uniform_real_distribution<float> sample(-1.0F, 1.0F);
  std::vector<float> samples(count);
  std::ranges::generate(samples, [&] { return sample(random); });
  return samples;
}

TEST(DecodedAudio, GivesItsSamplesBack) {
  const Channels tones = Tones(2, 100);
  const DecodedAudio audio(44100, tones);
  EXPECT_EQ(audio.GetSampleRate(), 44100);
  EXPECT_EQ(audio.GetChannelCount(), 2U);
  EXPECT_EQ(audio.GetFrameCount(), 100);
  EXPECT_DOUBLE_EQ(audio.GetDuration(), 100 / 44100.0);
  EXPECT_TRUE(std::ranges::equal(audio.GetSamples(1), tones[1]));
  EXPECT_THROW(audio.GetSamples(2), std::out_of_range);
  EXPECT_THROW(audio.GetPeaks(2, 0, 1), std::out_of_range);
}

TEST(DecodedAudio, MayBeEmpty) {
  const DecodedAudio none(48000, {});
  EXPECT_EQ(none.GetChannelCount(), 0U);
  EXPECT_EQ(none.GetFrameCount(), 0);
  EXPECT_EQ(none.GetMemorySize(), 0U);
  const DecodedAudio silent(48000, Channels(1));
  EXPECT_EQ(silent.GetPeaks(0, kFirst, kLast), PeakPair{});
}

TEST(DecodedAudio, RefusesWhatMakesNoSense) {
  EXPECT_THROW(DecodedAudio(0, Channels(1)), std::invalid_argument);
  EXPECT_THROW(DecodedAudio(48000, Channels{{0.0F}, {}}), std::invalid_argument);
}

TEST(DecodedAudio, MakesSamplesHarmless) {
  const float infinity = std::numeric_limits<float>::infinity();
  const DecodedAudio audio(48000, {{std::numeric_limits<float>::quiet_NaN(), infinity, -infinity, 2.0F}});
  EXPECT_TRUE(std::ranges::equal(audio.GetSamples(0), std::vector<float>{0.0F, 65536.0F, -65536.0F, 2.0F}));
  EXPECT_EQ(audio.GetPeaks(0, 0, 4), (PeakPair{.maximum = 65536.0F, .minimum = -65536.0F}));
}

TEST(DecodedAudio, PeaksOfSamplesOnOneSideOfZeroStayThere) {
  const DecodedAudio audio(48000, {std::vector<float>(1000, 0.5F), std::vector<float>(1000, -0.25F)});
  EXPECT_EQ(audio.GetPeaks(0, 3, 999), (PeakPair{.maximum = 0.5F, .minimum = 0.5F}));
  EXPECT_EQ(audio.GetPeaks(1, 3, 999), (PeakPair{.maximum = -0.25F, .minimum = -0.25F}));
}

TEST(DecodedAudio, WhatLiesOutsideDoesNotCount) {
  const DecodedAudio audio(48000, {{0.5F, 0.25F}});
  EXPECT_EQ(audio.GetPeaks(0, -10, 1), (PeakPair{.maximum = 0.5F, .minimum = 0.5F}));
  EXPECT_EQ(audio.GetPeaks(0, 1, 10), (PeakPair{.maximum = 0.25F, .minimum = 0.25F}));
  EXPECT_EQ(audio.GetPeaks(0, kFirst, kLast), (PeakPair{.maximum = 0.5F, .minimum = 0.25F}));
  EXPECT_EQ(audio.GetPeaks(0, 2, 10), PeakPair{});
  EXPECT_EQ(audio.GetPeaks(0, -10, 0), PeakPair{});
  EXPECT_EQ(audio.GetPeaks(0, 1, 1), PeakPair{});
  EXPECT_EQ(audio.GetPeaks(0, 1, 0), PeakPair{});
}

// Lengths round the sizes of blocks: 64 samples, and four blocks of the level below.
TEST(DecodedAudio, PeaksAreExactForEveryRangeNearTheEdgesOfBlocks) {
  for (const std::size_t frames :
       {1U, 63U, 64U, 65U, 127U, 128U, 255U, 256U, 257U, 320U, 1023U, 1024U, 1025U}) {
    const std::vector<float> samples = RandomSamples(frames, 7);
    const DecodedAudio audio(48000, {samples});
    for (std::size_t begin = 0; begin <= frames; begin += begin % 64 < 2 || begin % 64 == 63 ? 1 : 31) {
      for (std::size_t end = begin; end <= frames; ++end) {
        ASSERT_EQ(audio.GetPeaks(0, static_cast<std::int64_t>(begin), static_cast<std::int64_t>(end)),
                  PeaksOneByOne(std::span(samples).subspan(begin, end - begin)))
            << frames << " frames, from " << begin << " to " << end;
      }
    }
  }
}

TEST(DecodedAudio, PeaksAreExactForRandomRanges) {
  constexpr std::size_t kFrames = 300007;
  const std::vector<float> samples = RandomSamples(kFrames, 11);
  const DecodedAudio audio(48000, {samples});
  std::mt19937 random(13);
  std::uniform_int_distribution<std::size_t> frame(0, kFrames);
  for (int i = 0; i < 500; ++i) {
    const auto [begin, end] = std::minmax({frame(random), frame(random)});
    ASSERT_EQ(audio.GetPeaks(0, static_cast<std::int64_t>(begin), static_cast<std::int64_t>(end)),
              PeaksOneByOne(std::span(samples).subspan(begin, end - begin)))
        << "from " << begin << " to " << end;
  }
}

TEST(DecodedAudio, LevelsTakeATwentyFourthOfTheSamples) {
  const DecodedAudio audio(48000, Channels(2, std::vector<float>(1 << 20)));
  const std::size_t samples = 2 * (std::size_t{1} << 20) * sizeof(float);
  EXPECT_GT(audio.GetMemorySize(), samples);
  EXPECT_LE(audio.GetMemorySize(), samples + samples / 24);
}

TEST(DecodeAudioFile, DecodesTheWholeFile) {
  const TemporaryFolder folder;
  const Channels tones = Tones(3, 100000);
  WriteAudioFile(folder / "sound", AudioFileFormat::kWavFloat, 44100, tones);
  AudioFile file(folder / "sound");
  const auto audio = DecodeAudioFile(file, 10'000'000);
  EXPECT_EQ(audio->GetSampleRate(), 44100);
  ASSERT_EQ(audio->GetChannelCount(), 3U);
  for (std::size_t c = 0; c < 3; ++c) {
    EXPECT_TRUE(std::ranges::equal(audio->GetSamples(c), tones[c]));
  }
}

TEST(DecodeAudioFile, KeepsToTheMemoryAllowed) {
  const TemporaryFolder folder;
  WriteAudioFile(folder / "sound", AudioFileFormat::kWavInt16, 44100, Tones(2, 100000));
  AudioFile file(folder / "sound");
  const std::size_t needed = DecodeAudioFile(file, 10'000'000)->GetMemorySize();
  EXPECT_NO_THROW(DecodeAudioFile(file, needed + needed / 100));
  try {
    DecodeAudioFile(file, needed - 1);
    FAIL() << "decoded";
  } catch (const AudioFileError& error) {
    EXPECT_EQ(error.GetFault(), AudioFileFault::kTooLong);
    EXPECT_EQ(error.GetSoundFile(), folder / "sound");
  }
  EXPECT_THROW(DecodeAudioFile(file, 0), AudioFileError);
}

}  // namespace
}  // namespace moxaudiotoolkit
