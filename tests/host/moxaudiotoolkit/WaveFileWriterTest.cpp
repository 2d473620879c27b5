#include "SoundBytes.h"
#include "TemporaryFolder.h"

#include <moxaudiotoolkit/AudioFile.h>
#include <moxaudiotoolkit/AudioFileError.h>
#include <moxaudiotoolkit/WaveFileWriter.h>
#include <moxaudiotoolkit/peaks/SampleSource.h>
#include <moxmediatypes/WaveChannelMask.h>

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <bit>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <limits>
#include <stdexcept>

namespace moxaudiotoolkit {
namespace {

using testing::TemporaryFolder;

constexpr WaveSampleType kTypes[] = {WaveSampleType::kInt16, WaveSampleType::kInt24,
                                     WaveSampleType::kFloat32};

std::size_t FilesIn(const std::filesystem::path& folder) {
  return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder), {}));
}

std::uint64_t LittleAt(const std::vector<std::uint8_t>& bytes, std::size_t offset, int count) {
  std::uint64_t value = 0;
  for (int i = count - 1; i >= 0; --i) {
    value = value << 8 | bytes.at(offset + static_cast<std::size_t>(i));
  }
  return value;
}

// Every value that a type can hold at its edges and in between, as a float.
std::vector<float> ValuesOf(WaveSampleType type, std::size_t count) {
  std::vector<float> values;
  const double fullScale = type == WaveSampleType::kInt16 ? 32768.0 : 8388608.0;
  const auto range = static_cast<std::int64_t>(2.0 * fullScale);
  for (std::size_t i = 0; i < count; ++i) {
    const std::int64_t step = static_cast<std::int64_t>(i) * 104729 % range;
    values.push_back(static_cast<float>((static_cast<double>(step) - fullScale) / fullScale));
  }
  values[1] = static_cast<float>((fullScale - 1.0) / fullScale);
  if (type == WaveSampleType::kFloat32) {
    values[2] = 17.25F;
    values[3] = -3.5e-20F;
    values[4] = std::numeric_limits<float>::denorm_min();
  }
  return values;
}

class WaveFileWriterTest : public ::testing::Test {
 protected:
  std::string Path(const std::string& name) const { return mFolder / name; }

  TemporaryFolder mFolder;
};

TEST_F(WaveFileWriterTest, KeepsEverySampleOfEveryTypeAndChannelCount) {
  for (const WaveSampleType type : kTypes) {
    for (const int channels : {1, 2, 3, 6, 256}) {
      const std::int64_t frames = 1001;
      const auto values = ValuesOf(type, static_cast<std::size_t>(frames * channels));
      const std::string path = Path("kept.wav");
      WaveFileWriter writer(path,
                            {.type = type, .sampleRate = 44100, .channelCount = channels, .frames = frames});
      const auto part = static_cast<std::size_t>(300 * channels);
      writer.Write(std::span(values).first(part));
      writer.Write(std::span(values).subspan(part));
      writer.Commit();

      const auto source = OpenSampleSource(path);
      EXPECT_EQ(source->GetProperties().frames, frames);
      EXPECT_EQ(source->GetProperties().channelCount, channels);
      EXPECT_EQ(source->GetProperties().sampleRate, 44100);
      EXPECT_EQ(GetExactWaveType(source->GetProperties()), type);
      EXPECT_TRUE(source->IsParallel());
      std::vector<float> read(values.size());
      source->ReadInterleaved(0, read);
      EXPECT_EQ(read, values) << channels;
      AudioFile decoder(path);
      decoder.ReadInterleaved(0, read);
      EXPECT_EQ(read, values) << channels;
    }
  }
}

TEST_F(WaveFileWriterTest, TellsThePlacesOfChannels) {
  for (const std::uint32_t mask : {0x4U, 0x3U, 0x3FU, 0x63FU, 0x3FFFFU}) {
    const int channels = std::popcount(mask);
    for (const WaveSampleType type : kTypes) {
      const auto values = ValuesOf(type, static_cast<std::size_t>(10 * channels));
      const std::string path = Path("places.wav");
      const WaveFormat format{
          .type = type, .sampleRate = 48000, .channelCount = channels, .frames = 10, .channelMask = mask};
      WaveFileWriter writer(path, format);
      writer.Write(values);
      writer.Commit();

      const auto header = MakeWaveHeader(format);
      EXPECT_EQ(LittleAt(header, 20, 2), 0xFFFEU);
      EXPECT_EQ(LittleAt(header, 40, 4), mask);
      const auto layout = moxmediatypes::GetLayoutOfWaveMask(mask, static_cast<std::size_t>(channels));
      AudioFile decoder(path);
      EXPECT_EQ(decoder.GetProperties().channelLayout, layout) << mask;
      const auto source = OpenSampleSource(path);
      EXPECT_TRUE(source->IsParallel());
      EXPECT_EQ(source->GetProperties().channelLayout, layout);
      std::vector<float> read(values.size());
      source->ReadInterleaved(0, read);
      EXPECT_EQ(read, values);
    }
  }
}

TEST_F(WaveFileWriterTest, WithoutPlacesTellsOfNoLayout) {
  for (const int channels : {1, 2, 6}) {
    const std::string path = Path("plain.wav");
    WaveFileWriter writer(path, {.sampleRate = 48000, .channelCount = channels, .frames = 1});
    writer.Write(std::vector<float>(static_cast<std::size_t>(channels)));
    writer.Commit();
    EXPECT_TRUE(AudioFile(path).GetProperties().channelLayout.empty()) << channels;
  }
}

// Whatever a mask says, the samples are read.
TEST_F(WaveFileWriterTest, MaskThatDoesNotGoWithItsChannelsDoesNoHarm) {
  for (const std::uint32_t mask : {0xFFFFFFFFU, 0x80000000U, 0x1U, 0x3FFFFU}) {
    const std::string path = Path("odd.wav");
    WaveFileWriter writer(path, {.sampleRate = 48000, .channelCount = 3, .frames = 1, .channelMask = mask});
    writer.Write(std::vector<float>{0.25F, 0.5F, 0.75F});
    writer.Commit();
    AudioFile file(path);
    std::vector<float> read(3);
    file.ReadInterleaved(0, read);
    EXPECT_EQ(read, (std::vector<float>{0.25F, 0.5F, 0.75F})) << mask;
    const auto& layout = file.GetProperties().channelLayout;
    EXPECT_TRUE(layout.empty() || layout.size() == 3) << mask;
  }
}

TEST_F(WaveFileWriterTest, LimitsWhatIsBeyondFullScaleAndRoundsToTheNearest) {
  const std::vector<float> samples{2.0F, -2.0F, 1.0F, 0.4F / 32768.0F, 0.6F / 32768.0F, -0.6F / 32768.0F};
  const std::string path = Path("limited.wav");
  WaveFileWriter writer(path, {.type = WaveSampleType::kInt16,
                               .sampleRate = 48000,
                               .channelCount = 1,
                               .frames = static_cast<std::int64_t>(samples.size())});
  writer.Write(samples);
  writer.Commit();
  std::vector<float> read(samples.size());
  OpenSampleSource(path)->ReadInterleaved(0, read);
  EXPECT_EQ(read, (std::vector<float>{32767.0F / 32768.0F, -1.0F, 32767.0F / 32768.0F, 0.0F, 1.0F / 32768.0F,
                                      -1.0F / 32768.0F}));
}

TEST_F(WaveFileWriterTest, OddDataEndsInAByteOfItsOwnThatTheSizesTellOf) {
  const std::string path = Path("odd.wav");
  WaveFileWriter writer(
      path, {.type = WaveSampleType::kInt24, .sampleRate = 48000, .channelCount = 1, .frames = 3});
  writer.Write(std::vector<float>{0.25F, 0.5F, 0.75F});
  writer.Commit();
  EXPECT_EQ(std::filesystem::file_size(path), 44u + 10u);
  std::ifstream stream(path, std::ios::binary);
  std::vector<std::uint8_t> bytes(54);
  stream.read(reinterpret_cast<char*>(bytes.data()), 54);
  EXPECT_EQ(LittleAt(bytes, 4, 4), 46u);
  EXPECT_EQ(LittleAt(bytes, 40, 4), 9u);
}

TEST_F(WaveFileWriterTest, FilesOfMoreThan32BitsOfSizeAreRF64) {
  // A mono file of 16 bits: 36 bytes stand between the first eight and the samples.
  const auto header = [](std::int64_t frames) {
    return MakeWaveHeader(
        {.type = WaveSampleType::kInt16, .sampleRate = 48000, .channelCount = 1, .frames = frames});
  };
  const std::int64_t most = (0xFFFFFFFFLL - 36) / 2;
  const auto last = header(most);
  EXPECT_EQ(std::string(last.begin(), last.begin() + 4), "RIFF");
  EXPECT_EQ(LittleAt(last, 4, 4), 36u + 2u * static_cast<std::uint64_t>(most));
  EXPECT_EQ(last.size(), 44u);
  const auto first = header(most + 1);
  EXPECT_EQ(std::string(first.begin(), first.begin() + 4), "RF64");
  EXPECT_EQ(LittleAt(first, 4, 4), 0xFFFFFFFFu);
  EXPECT_EQ(std::string(first.begin() + 12, first.begin() + 16), "ds64");
  const std::uint64_t data = 2 * static_cast<std::uint64_t>(most + 1);
  EXPECT_EQ(LittleAt(first, 20, 8), data + first.size() - 8);
  EXPECT_EQ(LittleAt(first, 28, 8), data);
  EXPECT_EQ(LittleAt(first, 36, 8), static_cast<std::uint64_t>(most + 1));
}

TEST_F(WaveFileWriterTest, LongFilesAreReadAgainAtFullLength) {
  for (const WaveSampleType type : kTypes) {
    for (const int channels : {1, 8}) {
      const WaveFormat format{
          .type = type, .sampleRate = 192000, .channelCount = channels, .frames = 16'588'800'000};
      const std::int64_t sampleSize = type == WaveSampleType::kInt16   ? 2
                                      : type == WaveSampleType::kInt24 ? 3
                                                                       : 4;
      const auto header = MakeWaveHeader(format);
      const std::string path = mFolder.Write("long.wav", header);
      const std::int64_t size =
          static_cast<std::int64_t>(header.size()) + format.frames * channels * sampleSize;
      ASSERT_EQ(truncate(path.c_str(), size), 0);
      const auto source = OpenSampleSource(path);
      EXPECT_EQ(source->GetProperties().frames, format.frames);
      EXPECT_EQ(AudioFile(path).GetProperties().frames, format.frames);
    }
  }
}

TEST_F(WaveFileWriterTest, NothingIsLeftAndTheOldFileStaysWithoutACommit) {
  const std::string path = mFolder.Write("old.wav", {1, 2, 3});
  {
    WaveFileWriter writer(
        path, {.type = WaveSampleType::kFloat32, .sampleRate = 48000, .channelCount = 1, .frames = 4});
    writer.Write(std::vector<float>{0.5F, 0.5F});
    EXPECT_EQ(FilesIn(mFolder.GetPath()), 2u);
    EXPECT_THROW(writer.Commit(), std::logic_error);
    EXPECT_THROW(writer.Write(std::vector<float>(3)), std::invalid_argument);
  }
  EXPECT_EQ(FilesIn(mFolder.GetPath()), 1u);
  EXPECT_EQ(std::filesystem::file_size(path), 3u);
}

TEST_F(WaveFileWriterTest, NewFileIsAsPrivateAsTheOneThatItReplaces) {
  namespace fs = std::filesystem;
  constexpr fs::perms kOwner = fs::perms::owner_read | fs::perms::owner_write;
  const std::string path = mFolder.Write("sound.wav", std::vector<std::uint8_t>(10));
  for (const fs::perms perms : {kOwner, kOwner | fs::perms::group_read | fs::perms::others_exec}) {
    fs::permissions(path, perms);
    WaveFileWriter writer(path, {.sampleRate = 8000, .channelCount = 1, .frames = 1});
    writer.Write(std::vector<float>{0.5F});
    writer.Commit();
    EXPECT_EQ(fs::status(path).permissions(), perms);
    EXPECT_EQ(AudioFile(path).GetProperties().frames, 1);
  }
}

TEST_F(WaveFileWriterTest, FullDiskIsToldOfAtOnceAndNothingIsLeft) {
  struct rlimit old {};
  getrlimit(RLIMIT_FSIZE, &old);
  const auto handler = signal(SIGXFSZ, SIG_IGN);
  const rlimit small{20'000, old.rlim_max};
  setrlimit(RLIMIT_FSIZE, &small);
  std::string reason;
  try {
    WaveFileWriter writer(
        Path("big.wav"),
        {.type = WaveSampleType::kFloat32, .sampleRate = 48000, .channelCount = 2, .frames = 10'000});
    for (int i = 0; i < 100; ++i) {
      writer.Write(std::vector<float>(200));
    }
    writer.Commit();
  } catch (const AudioFileError& error) {
    EXPECT_EQ(error.GetFault(), AudioFileFault::kNotWritable);
    reason = error.GetReason();
  }
  setrlimit(RLIMIT_FSIZE, &old);
  signal(SIGXFSZ, handler);
  EXPECT_NE(reason.find("files can't be that large"), std::string::npos) << reason;
  EXPECT_EQ(FilesIn(mFolder.GetPath()), 0u);
}

TEST_F(WaveFileWriterTest, FolderThatIsNotThereIsToldOf) {
  try {
    WaveFileWriter(Path("nowhere/a.wav"), {.sampleRate = 48000, .channelCount = 1, .frames = 0});
    FAIL();
  } catch (const AudioFileError& error) {
    EXPECT_EQ(error.GetFault(), AudioFileFault::kNotWritable);
    EXPECT_NE(error.GetReason().find("there is no such file"), std::string::npos) << error.GetReason();
  }
}

TEST_F(WaveFileWriterTest, ImpossibleFormatsAreRefused) {
  for (const WaveFormat& format : {WaveFormat{.sampleRate = 0, .channelCount = 1},
                                   {.sampleRate = 48000, .channelCount = 0},
                                   {.sampleRate = 48000, .channelCount = 257},
                                   {.sampleRate = 48000, .channelCount = 1, .frames = -1},
                                   {.sampleRate = 10'000'001, .channelCount = 1}}) {
    EXPECT_THROW(WaveFileWriter(Path("no.wav"), format), AudioFileError);
  }
  EXPECT_EQ(FilesIn(mFolder.GetPath()), 0u);
}

TEST(ExactWaveType, IsTheSmallestThatHoldsWholeNumbers) {
  const auto type = [](int bits) { return GetExactWaveType({.integerBits = bits}); };
  EXPECT_EQ(type(8), WaveSampleType::kInt16);
  EXPECT_EQ(type(16), WaveSampleType::kInt16);
  EXPECT_EQ(type(20), WaveSampleType::kInt24);
  EXPECT_EQ(type(24), WaveSampleType::kInt24);
  EXPECT_EQ(type(0), WaveSampleType::kFloat32);
  EXPECT_EQ(type(32), WaveSampleType::kFloat32);
}

}  // namespace
}  // namespace moxaudiotoolkit
