#include "SoundBytes.h"
#include "TemporaryFolder.h"

#include <moxaudiotoolkit/AudioFile.h>
#include <moxaudiotoolkit/AudioFileWriter.h>
#include <moxaudiotoolkit/peaks/SampleSource.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace moxaudiotoolkit {
namespace {

constexpr std::int64_t kFrames = 700'000;
// What is decoded for a jump at most, however long the sound is, and what is read after it.
constexpr std::int64_t kMostForAJump = 200'000;
constexpr std::int64_t kRead = 1000;

class VorbisJumps : public ::testing::Test {
 protected:
  std::string Write(const std::vector<std::vector<float>>& samples) {
    std::string path = mFolder / "a.ogg";
    WriteAudioFile(path, AudioFileFormat::kOggVorbis, 48000, samples);
    return path;
  }

  static std::vector<float> Read(AudioFile& file, std::int64_t frame, std::int64_t count) {
    std::vector<float> samples(static_cast<std::size_t>(count * file.GetProperties().channelCount));
    EXPECT_EQ(file.ReadInterleaved(frame, samples), count);
    return samples;
  }

  // What a file gives at some places, one after the other, is what it gives from its start, and so much is
  // decoded for the place that takes most.
  static std::int64_t MostDecodedFor(AudioFile& file, const std::vector<float>& whole,
                                     const std::vector<std::int64_t>& places) {
    const std::int64_t channels = file.GetProperties().channelCount;
    std::int64_t most = 0;
    for (const std::int64_t place : places) {
      const std::int64_t before = file.GetDecodedFrames();
      const std::vector<float> samples = Read(file, place, kRead);
      EXPECT_TRUE(std::equal(samples.begin(), samples.end(), whole.begin() + place * channels)) << place;
      most = std::max(most, file.GetDecodedFrames() - before);
    }
    return most;
  }

  testing::TemporaryFolder mFolder;
};

TEST_F(VorbisJumps, DecodeLittleWhereTheSoundWasDecodedBefore) {
  for (const std::size_t channels : {1, 2}) {
    AudioFile file(Write(testing::Tones(channels, kFrames)));
    const std::vector<float> whole = Read(file, 0, kFrames);
    EXPECT_EQ(file.GetDecodedFrames(), kFrames);
    AudioFile other = file.OpenAgain();
    const std::vector<std::int64_t> places{650'000, 300'000, 500'001, 420'000, 699'000, 12, 262'144};
    EXPECT_LE(MostDecodedFor(other, whole, places), kMostForAJump);
    EXPECT_LE(MostDecodedFor(file, whole, places), kMostForAJump);
  }
}

TEST_F(VorbisJumps, DecodeEverythingWhereNothingIsKnown) {
  const std::string path = Write(testing::Tones(1, kFrames));
  AudioFile file(path);
  const std::vector<float> whole = Read(file, 0, kFrames);
  AudioFile fresh(path);
  EXPECT_EQ(fresh.FindStart(650'000), 0);
  EXPECT_GE(MostDecodedFor(fresh, whole, {650'000}), 650'000);
  EXPECT_LE(MostDecodedFor(fresh, whole, {400'000, 600'000}), kMostForAJump);
}

TEST_F(VorbisJumps, AreExactWhereNoPlaceDiffersFromAnother) {
  std::vector<std::vector<float>> samples = testing::Tones(1, kFrames);
  std::fill(samples[0].begin() + 1000, samples[0].end(), 0.0F);
  AudioFile file(Write(samples));
  const std::vector<float> whole = Read(file, 0, kFrames);
  MostDecodedFor(file, whole, {650'000, 300'000, 100});
}

TEST_F(VorbisJumps, OfASourceBeginWhereItsPeaksWereRead) {
  const auto source = OpenSampleSource(Write(testing::Tones(2, kFrames)));
  EXPECT_EQ(source->FindStart(600'000), 0);
  constexpr auto kPoints = static_cast<std::size_t>((kFrames + kSamplesPerPoint - 1) / kSamplesPerPoint);
  std::vector<float> values(6 * kPoints);
  const PeakRun runs[] = {
      {values.data(), values.data() + kPoints, values.data() + 2 * kPoints},
      {values.data() + 3 * kPoints, values.data() + 4 * kPoints, values.data() + 5 * kPoints}};
  source->ReadPeaks(0, kFrames, runs);
  const std::int64_t start = source->FindStart(600'000);
  EXPECT_LE(start, 600'000);
  EXPECT_GE(start, 600'000 - kMostForAJump);
}

TEST_F(VorbisJumps, ArentNeededWhereJumpsAreExact) {
  WriteAudioFile(mFolder / "a.flac", AudioFileFormat::kFlacInt16, 48000, testing::Tones(1, 5000));
  EXPECT_EQ(AudioFile(mFolder / "a.flac").FindStart(4000), 4000);
}

}  // namespace
}  // namespace moxaudiotoolkit
