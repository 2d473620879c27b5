#include "SoundBytes.h"
#include "TemporaryFolder.h"

#include <moxaudiotoolkit/AudioFile.h>
#include <moxaudiotoolkit/AudioFileError.h>
#include <moxaudiotoolkit/AudioFileWriter.h>

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <iterator>
#include <limits>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

namespace moxaudiotoolkit {
namespace {

using testing::TemporaryFolder;
using testing::Tones;

using Channels = std::vector<std::vector<float>>;

struct FormatCase {
  std::string name;
  AudioFileFormat format;
  std::string text;
  float loss;  // of a sample, at most
};

class AudioFileFormats : public ::testing::TestWithParam<FormatCase> {};

void PrintTo(const FormatCase& format, std::ostream* stream) {
  *stream << format.name;
}

std::string FormatCaseName(const ::testing::TestParamInfo<FormatCase>& info) {
  return info.param.name;
}

// Lossy codecs keep a tone's energy, not its samples; the loss allowed for them is that of the level.
float Level(const std::vector<float>& samples) {
  double sum = 0.0;
  for (const float sample : samples) {
    sum += static_cast<double>(sample) * sample;
  }
  return static_cast<float>(std::sqrt(sum / static_cast<double>(samples.size())));
}

constexpr int kFrames = 48000;

TEST_P(AudioFileFormats, ComesBackAsItWasWritten) {
  const TemporaryFolder folder;
  const Channels tones = Tones(2, kFrames);
  WriteAudioFile(folder / "sound", GetParam().format, 48000, tones);
  AudioFile file(folder / "sound");
  EXPECT_EQ(file.GetProperties().format, GetParam().text);
  EXPECT_EQ(file.GetProperties().sampleRate, 48000);
  EXPECT_EQ(file.GetProperties().channelCount, 2);
  ASSERT_EQ(file.GetProperties().frames, kFrames);
  const Channels read = file.ReadChannels(0, kFrames);
  for (std::size_t c = 0; c < 2; ++c) {
    EXPECT_NEAR(Level(read[c]), Level(tones[c]), 0.02F);
    for (std::size_t i = 0; i < kFrames; ++i) {
      ASSERT_NEAR(read[c][i], tones[c][i], GetParam().loss) << "channel " << c << ", frame " << i;
    }
  }
}

TEST_P(AudioFileFormats, ReadsARangeAsItReadsTheWhole) {
  const TemporaryFolder folder;
  constexpr std::int64_t kLongFrames = 200000;
  WriteAudioFile(folder / "sound", GetParam().format, 48000, Tones(2, kLongFrames));
  AudioFile file(folder / "sound");
  const Channels all = file.ReadChannels(0, kLongFrames);
  for (const std::int64_t first : {30000, 1, 199500, 0, 20000, 20100, 150000, 149000, 120000}) {
    const Channels part = file.ReadChannels(first, 500);
    for (std::size_t c = 0; c < 2; ++c) {
      for (std::size_t i = 0; i < 500; ++i) {
        // Decoders that carry a state from packet to packet end up a rounding apart.
        ASSERT_NEAR(part[c][i], all[c][static_cast<std::size_t>(first) + i], 1e-5F) << first << " + " << i;
      }
    }
  }
}

TEST_P(AudioFileFormats, HoldsLoudSamplesWithoutWrapping) {
  const TemporaryFolder folder;
  Channels loud(1, std::vector<float>(kFrames));
  for (std::size_t i = 0; i < kFrames; ++i) {
    loud[0][i] = i / 100 % 2 == 0 ? 3.0F : -3.0F;
  }
  WriteAudioFile(folder / "sound", GetParam().format, 48000, loud);
  const std::vector<float> read = AudioFile(folder / "sound").ReadChannels(0, kFrames)[0];
  for (std::size_t i = 10050; i < 40000; i += 100) {  // in the middle between two edges
    ASSERT_GT(read[i] * loud[0][i], 0.0F) << i;
  }
}

INSTANTIATE_TEST_SUITE_P(
    All, AudioFileFormats,
    ::testing::Values(
        FormatCase{"WavInt16", AudioFileFormat::kWavInt16, "WAV (Microsoft), Signed 16 bit PCM",
                   1.0F / 32768},
        FormatCase{"WavInt24", AudioFileFormat::kWavInt24, "WAV (Microsoft), Signed 24 bit PCM",
                   1.5F / 8388608},
        FormatCase{"WavFloat", AudioFileFormat::kWavFloat, "WAV (Microsoft), 32 bit float", 0.0F},
        FormatCase{"AiffInt16", AudioFileFormat::kAiffInt16, "AIFF (Apple/SGI), Signed 16 bit PCM",
                   1.0F / 32768},
        FormatCase{"FlacInt16", AudioFileFormat::kFlacInt16,
                   "FLAC (Free Lossless Audio Codec), Signed 16 bit PCM", 1.0F / 32768},
        FormatCase{"FlacInt24", AudioFileFormat::kFlacInt24,
                   "FLAC (Free Lossless Audio Codec), Signed 24 bit PCM", 1.5F / 8388608},
        FormatCase{"OggVorbis", AudioFileFormat::kOggVorbis, "OGG (OGG Container format), Vorbis", 0.2F},
        FormatCase{"OggOpus", AudioFileFormat::kOggOpus, "OGG (OGG Container format), Opus", 0.2F},
        FormatCase{"Mp3", AudioFileFormat::kMp3, "MPEG-1/2 Audio, MPEG Layer III", 0.2F}),
    FormatCaseName);

TEST(WriteAudioFile, WholeNumbersOfSixteenBitsComeBackExactly) {
  const TemporaryFolder folder;
  Channels steps(1);
  for (int value = -32768; value < 32768; value += 7) {
    steps[0].push_back(static_cast<float>(value) / 32768.0F);
  }
  for (const AudioFileFormat format :
       {AudioFileFormat::kWavInt16, AudioFileFormat::kAiffInt16, AudioFileFormat::kFlacInt16}) {
    WriteAudioFile(folder / "sound", format, 48000, steps);
    EXPECT_EQ(AudioFile(folder / "sound").ReadChannels(0, 100000), steps);
  }
}

TEST(WriteAudioFile, NotANumberIsWrittenAsSilence) {
  const TemporaryFolder folder;
  const Channels channels{{0.5F, std::numeric_limits<float>::quiet_NaN(), 0.25F}};
  WriteAudioFile(folder / "sound", AudioFileFormat::kWavInt24, 48000, channels);
  EXPECT_EQ(AudioFile(folder / "sound").ReadChannels(0, 3), (Channels{{0.5F, 0.0F, 0.25F}}));
}

TEST(WriteAudioFile, ReplacesWhatIsThere) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("sound.wav", std::vector<std::uint8_t>(100000, 1));
  WriteAudioFile(path, AudioFileFormat::kWavInt16, 48000, Tones(1, 10));
  EXPECT_EQ(AudioFile(path).GetProperties().frames, 10);
}

TEST(WriteAudioFile, LeavesTheOldFileAndNothingElseWhenItFails) {
  const TemporaryFolder folder;
  const std::vector<std::uint8_t> old(10, 1);
  const std::string path = folder.Write("sound.mp3", old);
  EXPECT_THROW(WriteAudioFile(path, AudioFileFormat::kMp3, 48000, Tones(6, 10)), AudioFileError);
  EXPECT_EQ(testing::ReadBytes(path), old);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.GetPath()), {}), 1);
}

TEST(WriteAudioFile, RefusesFoldersThatAreNotThere) {
  const TemporaryFolder folder;
  try {
    WriteAudioFile(folder / "none/sound.wav", AudioFileFormat::kWavInt16, 48000, Tones(1, 10));
    FAIL() << "written";
  } catch (const AudioFileError& error) {
    EXPECT_EQ(error.GetFault(), AudioFileFault::kNotWritable);
    EXPECT_EQ(error.GetSoundFile(), folder / "none/sound.wav");
  }
}

TEST(WriteAudioFile, RefusesWhatFormatsCannotHold) {
  const TemporaryFolder folder;
  const std::string path = folder / "sound";
  EXPECT_THROW(WriteAudioFile(path, AudioFileFormat::kOggOpus, 44100, Tones(1, 10)), AudioFileError);
  EXPECT_THROW(WriteAudioFile(path, AudioFileFormat::kFlacInt16, 48000, Tones(9, 10)), AudioFileError);
  EXPECT_THROW(WriteAudioFile(path, AudioFileFormat::kWavFloat, 48000, {}), AudioFileError);
  EXPECT_THROW(WriteAudioFile(path, AudioFileFormat::kWavFloat, 48000, Tones(257, 1)), AudioFileError);
  EXPECT_THROW(WriteAudioFile(path, AudioFileFormat::kWavFloat, 0, Tones(1, 10)), AudioFileError);
  EXPECT_THROW(WriteAudioFile(path, static_cast<AudioFileFormat>(99), 48000, Tones(1, 10)), AudioFileError);
}

TEST(WriteAudioFile, RefusesChannelsOfDifferentLengths) {
  const TemporaryFolder folder;
  EXPECT_THROW(WriteAudioFile(folder / "sound", AudioFileFormat::kWavFloat, 48000, Channels{{1.0F}, {}}),
               std::invalid_argument);
}

}  // namespace
}  // namespace moxaudiotoolkit
