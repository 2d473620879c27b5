#include "SoundBytes.h"
#include "TemporaryFolder.h"

#include <moxaudiotoolkit/AudioFile.h>
#include <moxaudiotoolkit/AudioFileError.h>
#include <moxaudiotoolkit/AudioFileWriter.h>

#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <limits>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace moxaudiotoolkit {
namespace {

using testing::ByteWriter;
using testing::CafBytes;
using testing::TemporaryFolder;
using testing::Tones;
using testing::WavBytes;

using Channels = std::vector<std::vector<float>>;

// A float WAV file in memory.
AudioFile FloatFile(const Channels& channels) {
  const TemporaryFolder folder;
  WriteAudioFile(folder / "sound", AudioFileFormat::kWavFloat, 48000, channels);
  return AudioFile(testing::ReadBytes(folder / "sound"), "sound");
}

Channels Cut(const Channels& channels, std::size_t first, std::size_t count) {
  Channels cut;
  for (const std::vector<float>& samples : channels) {
    cut.emplace_back(samples.begin() + static_cast<std::ptrdiff_t>(first),
                     samples.begin() + static_cast<std::ptrdiff_t>(first + count));
  }
  return cut;
}

TEST(AudioFile, TellsItsProperties) {
  const TemporaryFolder folder;
  WriteAudioFile(folder / "sound.wav", AudioFileFormat::kWavInt24, 44100, Tones(3, 22050));
  const AudioFile file(folder / "sound.wav");
  EXPECT_EQ(file.GetName(), folder / "sound.wav");
  EXPECT_EQ(file.GetProperties().frames, 22050);
  EXPECT_EQ(file.GetProperties().sampleRate, 44100);
  EXPECT_EQ(file.GetProperties().channelCount, 3);
  EXPECT_EQ(file.GetProperties().format, "WAV (Microsoft), Signed 24 bit PCM");
  EXPECT_DOUBLE_EQ(file.GetProperties().duration, 0.5);
}

TEST(AudioFile, OpensNamesInUtf8) {
  const TemporaryFolder folder;
  const std::string path = folder / "Gr\u00fc\u00dfe \u97f3 \U0001F3B5.wav";
  WriteAudioFile(path, AudioFileFormat::kWavInt16, 48000, Tones(1, 10));
  EXPECT_EQ(AudioFile(path).GetProperties().frames, 10);
}

TEST(AudioFile, ContentsTellTheFormatNotTheName) {
  const TemporaryFolder folder;
  WriteAudioFile(folder / "sound.mp3", AudioFileFormat::kFlacInt16, 48000, Tones(1, 10));
  EXPECT_EQ(AudioFile(folder / "sound.mp3").GetProperties().format,
            "FLAC (Free Lossless Audio Codec), Signed 16 bit PCM");
}

TEST(AudioFile, OpensAHeaderWithoutSamples) {
  AudioFile file(WavBytes({.dataBytes = 0}, 0), "silent");
  EXPECT_EQ(file.GetProperties().frames, 0);
  EXPECT_EQ(file.GetProperties().duration, 0.0);
  EXPECT_EQ(file.ReadChannels(0, 100), Channels(1));
}

TEST(AudioFile, OpensAWavWhoseLengthWasNeverWritten) {
  for (const std::uint32_t unknown : {0xFFFFFFFFU, 0x7FFFF000U}) {
    EXPECT_EQ(AudioFile(WavBytes({.dataBytes = unknown}), "piped").GetProperties().frames, 100);
  }
}

TEST(AudioFile, CountsTheFramesOfAStreamOfUnknownLength) {
  const Channels tones = Tones(2, 100000);
  const TemporaryFolder folder;
  WriteAudioFile(folder / "sound", AudioFileFormat::kFlacInt24, 48000, tones);
  std::vector<std::uint8_t> bytes = testing::ReadBytes(folder / "sound");
  const Channels expected = AudioFile(bytes, "known").ReadChannels(70000, 500);
  testing::SetFlacFrames(bytes, 0);
  AudioFile file(bytes, "stream");
  EXPECT_EQ(file.GetProperties().frames, 100000);
  EXPECT_EQ(file.ReadChannels(70000, 500), expected);
}

TEST(AudioFile, GivesUpCountingWhenNobodyWantsItAnyMore) {
  const TemporaryFolder folder;
  WriteAudioFile(folder / "sound", AudioFileFormat::kFlacInt24, 48000, Tones(1, 50000));
  std::vector<std::uint8_t> bytes = testing::ReadBytes(folder / "sound");
  testing::SetFlacFrames(bytes, 0);
  std::ofstream(folder / "stream", std::ios::binary)
      .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  std::atomic<bool> cancelled = false;
  EXPECT_EQ(AudioFile(folder / "stream", &cancelled).GetProperties().frames, 50000);
  cancelled = true;
  try {
    const AudioFile file(folder / "stream", &cancelled);
    FAIL() << "opened";
  } catch (const AudioFileError& error) {
    EXPECT_EQ(error.GetFault(), AudioFileFault::kCancelled);
  }
  EXPECT_EQ(AudioFile(folder / "sound", &cancelled).GetProperties().frames, 50000) << "nothing to count";
}

TEST(AudioFile, ReadsChannelsInterleaved) {
  AudioFile file = FloatFile({{0.1F, 0.2F, 0.3F}, {-0.1F, -0.2F, -0.3F}});
  std::vector<float> samples(4);
  EXPECT_EQ(file.ReadInterleaved(1, samples), 2);
  EXPECT_EQ(samples, (std::vector<float>{0.2F, -0.2F, 0.3F, -0.3F}));
}

TEST(AudioFile, ReadsWholeFramesOnly) {
  AudioFile file = FloatFile({{0.1F, 0.2F, 0.3F}, {-0.1F, -0.2F, -0.3F}});
  std::vector<float> samples(3, 9.0F);
  EXPECT_EQ(file.ReadInterleaved(0, samples), 1);
  EXPECT_EQ(samples, (std::vector<float>{0.1F, -0.1F, 9.0F}));
  EXPECT_EQ(file.ReadInterleaved(0, std::span(samples).first(1)), 0);
  EXPECT_EQ(file.ReadInterleaved(0, {}), 0);
}

TEST(AudioFile, ReadsLessWhereItEnds) {
  AudioFile file = FloatFile({{0.1F, 0.2F, 0.3F}});
  std::vector<float> samples(5, 9.0F);
  EXPECT_EQ(file.ReadInterleaved(2, samples), 1);
  EXPECT_EQ(samples, (std::vector<float>{0.3F, 9.0F, 9.0F, 9.0F, 9.0F}));
  EXPECT_EQ(file.ReadInterleaved(3, samples), 0);
  EXPECT_EQ(file.ReadInterleaved(std::numeric_limits<std::int64_t>::max(), samples), 0);
}

TEST(AudioFile, RefusesFramesBeforeTheFirst) {
  AudioFile file = FloatFile({{0.1F, 0.2F, 0.3F}});
  std::vector<float> samples(5);
  EXPECT_THROW(file.ReadInterleaved(-1, samples), std::out_of_range);
  EXPECT_THROW(file.ReadChannels(std::numeric_limits<std::int64_t>::min(), 1), std::out_of_range);
}

TEST(AudioFile, ReadsAnyRangePerChannel) {
  const Channels tones = Tones(3, 100000);
  AudioFile file = FloatFile(tones);
  EXPECT_EQ(file.ReadChannels(0, 100000), tones);
  EXPECT_EQ(file.ReadChannels(99990, 1000), Cut(tones, 99990, 10));
  EXPECT_EQ(file.ReadChannels(12345, 50000), Cut(tones, 12345, 50000));
  EXPECT_EQ(file.ReadChannels(0, 1), Cut(tones, 0, 1));
  EXPECT_EQ(file.ReadChannels(5, std::numeric_limits<std::int64_t>::max()), Cut(tones, 5, 99995));
  EXPECT_EQ(file.ReadChannels(0, 0), Channels(3));
  EXPECT_EQ(file.ReadChannels(0, -1), Channels(3));
  EXPECT_EQ(file.ReadChannels(100000, 10), Channels(3));
  EXPECT_EQ(file.ReadChannels(std::numeric_limits<std::int64_t>::max(), 10), Channels(3));
}

TEST(AudioFile, ReadsOnAfterItWasMoved) {
  const Channels tones = Tones(1, 1000);
  AudioFile first = FloatFile(tones);
  AudioFile second(std::move(first));
  EXPECT_EQ(second.ReadChannels(10, 10), Cut(tones, 10, 10));
  AudioFile third = FloatFile(Tones(1, 5));
  third = std::move(second);
  EXPECT_EQ(third.ReadChannels(20, 10), Cut(tones, 20, 10));
}

TEST(AudioFile, MakesSamplesHarmless) {
  const float infinity = std::numeric_limits<float>::infinity();
  const float notANumber = std::numeric_limits<float>::quiet_NaN();
  AudioFile file = FloatFile({{notANumber, infinity, -infinity, 1e30F, -1e30F, -notANumber, 3.0F, -2.0F}});
  EXPECT_EQ(file.ReadChannels(0, 8)[0],
            (std::vector<float>{0.0F, 65536.0F, -65536.0F, 65536.0F, -65536.0F, 0.0F, 3.0F, -2.0F}));
}

// libsndfile can't wind back the old telephone codecs.
TEST(AudioFile, ReadsAnyRangeOfAnEncodingThatCannotBeWound) {
  ByteWriter writer;
  writer.Text(".snd").Big(24, 4).Big(40000, 4).Big(23, 4).Big(8000, 4).Big(1, 4);
  for (std::uint32_t i = 0; i < 40000; ++i) {
    writer.Big(i * i >> 7, 1);
  }
  AudioFile file(writer.bytes, "telephone");
  const std::int64_t frames = file.GetProperties().frames;
  ASSERT_GE(frames, 80000);
  const Channels all = file.ReadChannels(0, frames);
  EXPECT_EQ(file.ReadChannels(60000, 100), Cut(all, 60000, 100));
  EXPECT_EQ(file.ReadChannels(100, 100), Cut(all, 100, 100));
  EXPECT_EQ(file.ReadChannels(200, 100), Cut(all, 200, 100));
  EXPECT_EQ(file.ReadChannels(79990, 10), Cut(all, 79990, 10));
}

TEST(AudioFile, ReadsBeyondTwoThousandMillionFrames) {
  const TemporaryFolder folder;
  constexpr std::uint64_t kFrames = 3'000'000'000;
  std::vector<std::uint8_t> bytes = CafBytes({.dataBytes = 2 * kFrames}, 0);
  const std::string path = folder.Write("long.caf", bytes);
  std::error_code error;
  std::filesystem::resize_file(path, bytes.size() + 2 * kFrames, error);  // a hole; takes no room on the disk
  ASSERT_FALSE(error) << error.message();
  AudioFile file(path);
  EXPECT_EQ(file.GetProperties().frames, static_cast<std::int64_t>(kFrames));
  EXPECT_EQ(file.ReadChannels(2'999'999'990, 100), Channels(1, std::vector<float>(10)));
  EXPECT_EQ(file.ReadChannels(2'200'000'000, 5), Channels(1, std::vector<float>(5)));
}

}  // namespace
}  // namespace moxaudiotoolkit
