#include "SoundBytes.h"
#include "TemporaryFolder.h"

#include <moxaudiotoolkit/AudioFile.h>
#include <moxaudiotoolkit/AudioFileError.h>
#include <moxaudiotoolkit/AudioFileWriter.h>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

namespace moxaudiotoolkit {
namespace {

using testing::ByteWriter;
using testing::CafBytes;
using testing::TemporaryFolder;
using testing::WavBytes;

// The superuser reads what nobody may read: somebody else does as long as this lives.
class WithoutPrivileges {
 public:
  WithoutPrivileges() {
    if (mBefore == 0 && seteuid(kNobody) != 0) {
      throw std::runtime_error("the test can't do without privileges");
    }
  }
  ~WithoutPrivileges() {
    if (mBefore == 0) {
      EXPECT_EQ(seteuid(mBefore), 0);
    }
  }
  WithoutPrivileges(const WithoutPrivileges&) = delete;
  WithoutPrivileges& operator=(const WithoutPrivileges&) = delete;

 private:
  static constexpr uid_t kNobody = 65534;
  uid_t mBefore = geteuid();
};

// The fault of an action that must fail, naming the file.
template <class Action>
AudioFileFault FaultOf(const std::string& file, Action action) {
  try {
    action();
  } catch (const AudioFileError& error) {
    EXPECT_EQ(error.GetSoundFile(), file);
    EXPECT_FALSE(error.GetReason().empty());
    EXPECT_TRUE(std::string(error.what()).ends_with("\": " + error.GetReason())) << error.what();
    return error.GetFault();
  }
  ADD_FAILURE() << file << " was taken";
  return {};
}

AudioFileFault FaultOfPath(const std::string& path) {
  return FaultOf(path, [&] { AudioFile file(path); });
}

// The fault of a file with these bytes, which must be the same on disk and in memory.
AudioFileFault FaultOfBytes(const std::vector<std::uint8_t>& bytes) {
  const TemporaryFolder folder;
  const AudioFileFault onDisk = FaultOfPath(folder.Write("sound", bytes));
  EXPECT_EQ(FaultOf("name", [&] { AudioFile file(bytes, "name"); }), onDisk);
  return onDisk;
}

TEST(AudioFileBadInput, MissingFile) {
  const TemporaryFolder folder;
  EXPECT_EQ(FaultOfPath(folder / "missing.wav"), AudioFileFault::kNotFound);
  EXPECT_EQ(FaultOfPath(folder / "missing/sound.wav"), AudioFileFault::kNotFound);
}

TEST(AudioFileBadInput, PathsThatAreNone) {
  EXPECT_EQ(FaultOfPath(""), AudioFileFault::kNotFound);
  EXPECT_EQ(FaultOfPath(std::string("a\0b", 3)), AudioFileFault::kNotFound);
  EXPECT_EQ(FaultOfPath(std::string(10000, 'a')), AudioFileFault::kNotFound);
}

TEST(AudioFileBadInput, ErrorsAreSentencesThatNameTheFile) {
  const AudioFileError error(AudioFileFault::kEmpty, "/sounds/gr\u00fcn.wav",
                             "$$$/moxaudiotoolkit/Error/Ends=It ends after @0 of @1 frames.", {"7", "9"});
  EXPECT_STREQ(error.what(), "\"/sounds/gr\u00fcn.wav\": It ends after 7 of 9 frames.");
  EXPECT_EQ(error.GetReason(), "It ends after 7 of 9 frames.");
  EXPECT_TRUE(error.ShowToUser());
}

TEST(AudioFileBadInput, UnreadableFile) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("sound.wav", WavBytes({}));
  EXPECT_EQ(AudioFile(path).GetProperties().frames, 100);
  // The way to it stays open: what can't be read is the file.
  std::filesystem::permissions(folder.Path(), std::filesystem::perms::all);
  std::filesystem::permissions(path, std::filesystem::perms::none);
  const WithoutPrivileges user;
  EXPECT_EQ(FaultOfPath(path), AudioFileFault::kNotReadable);
}

TEST(AudioFileBadInput, FolderPipeAndDevice) {
  const TemporaryFolder folder;
  const std::string pipe = folder / "pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(FaultOfPath(folder.GetPath()), AudioFileFault::kNotAFile);
  EXPECT_EQ(FaultOfPath(pipe), AudioFileFault::kNotAFile);
  EXPECT_EQ(FaultOfPath("/dev/zero"), AudioFileFault::kNotAFile);
}

TEST(AudioFileBadInput, EmptyFile) {
  EXPECT_EQ(FaultOfBytes({}), AudioFileFault::kEmpty);
}

TEST(AudioFileBadInput, OtherFormats) {
  EXPECT_EQ(FaultOfBytes(ByteWriter().Text("\x89PNG\r\n\x1a\n").Big(13, 4).Text("IHDR").Fill(500, 7).bytes),
            AudioFileFault::kNotAudio);
  EXPECT_EQ(FaultOfBytes(ByteWriter().Text("Once upon a time there was a sound. ").Fill(300, 'z').bytes),
            AudioFileFault::kNotAudio);
  EXPECT_EQ(FaultOfBytes(ByteWriter().Fill(4096, 0).bytes), AudioFileFault::kNotAudio);
  EXPECT_EQ(FaultOfBytes({0x52}), AudioFileFault::kNotAudio);
}

TEST(AudioFileBadInput, HeaderCutShort) {
  std::vector<std::uint8_t> bytes = WavBytes({});
  bytes.resize(20);
  EXPECT_EQ(FaultOfBytes(bytes), AudioFileFault::kDamaged);
}

TEST(AudioFileBadInput, SamplesCutShortInWav) {
  std::vector<std::uint8_t> bytes = WavBytes({});
  bytes.pop_back();
  EXPECT_EQ(FaultOfBytes(bytes), AudioFileFault::kTruncated);
  bytes.resize(100);
  EXPECT_EQ(FaultOfBytes(bytes), AudioFileFault::kTruncated);
}

TEST(AudioFileBadInput, SamplesCutShortInAiff) {
  const TemporaryFolder folder;
  WriteAudioFile(folder / "sound", AudioFileFormat::kAiffInt16, 44100, testing::Tones(2, 1000));
  std::vector<std::uint8_t> bytes = testing::ReadBytes(folder / "sound");
  bytes.resize(bytes.size() / 2);
  EXPECT_EQ(FaultOfBytes(bytes), AudioFileFault::kTruncated);
}

TEST(AudioFileBadInput, SamplesCutShortInCompressedFiles) {
  for (const AudioFileFormat format : {AudioFileFormat::kFlacInt16, AudioFileFormat::kMp3}) {
    const TemporaryFolder folder;
    WriteAudioFile(folder / "sound", format, 44100, testing::Tones(2, 50000));
    std::vector<std::uint8_t> bytes = testing::ReadBytes(folder / "sound");
    bytes.resize(bytes.size() / 2);
    AudioFile file(bytes, "cut");
    EXPECT_EQ(FaultOf("cut", [&] { file.ReadChannels(0, 50000); }), AudioFileFault::kTruncated);
    EXPECT_EQ(file.ReadChannels(0, 1000)[1].size(), 1000U) << "what is there can still be read";
  }
}

TEST(AudioFileBadInput, OggThatIsCutShortNeverGivesMoreThanItHolds) {
  for (const AudioFileFormat format : {AudioFileFormat::kOggVorbis, AudioFileFormat::kOggOpus}) {
    const TemporaryFolder folder;
    WriteAudioFile(folder / "sound", format, 48000, testing::Tones(2, 200000));
    std::vector<std::uint8_t> bytes = testing::ReadBytes(folder / "sound");
    const std::vector<std::uint8_t> header(bytes.begin(), bytes.begin() + 100);
    EXPECT_EQ(FaultOfBytes(header), AudioFileFault::kDamaged);
    bytes.resize(bytes.size() / 2);
    AudioFile file(bytes, "cut");
    const std::int64_t frames = file.GetProperties().frames;
    EXPECT_LT(frames, 200000);
    EXPECT_EQ(file.ReadChannels(0, 200000)[0].size(), static_cast<std::size_t>(frames));
  }
}

TEST(AudioFileBadInput, NoChannelsAndTooMany) {
  EXPECT_EQ(FaultOfBytes(WavBytes({.channels = 0})), AudioFileFault::kBadChannelCount);
  EXPECT_EQ(FaultOfBytes(WavBytes({.channels = 257, .dataBytes = 51400}, 51400)),
            AudioFileFault::kBadChannelCount);
  EXPECT_EQ(FaultOfBytes(WavBytes({.channels = 60000, .dataBytes = 120000}, 120000)),
            AudioFileFault::kBadChannelCount);
}

TEST(AudioFileBadInput, As256ChannelsAreTheMost) {
  AudioFile file(WavBytes({.channels = 256, .dataBytes = 5120}, 5120), "wide");
  EXPECT_EQ(file.GetProperties().channelCount, 256);
  EXPECT_EQ(file.ReadChannels(0, 100).size(), 256U);
}

TEST(AudioFileBadInput, AbsurdSampleRates) {
  EXPECT_EQ(FaultOfBytes(WavBytes({.rate = 0})), AudioFileFault::kBadSampleRate);
  EXPECT_EQ(FaultOfBytes(WavBytes({.rate = 0xFFFFFFFFU})), AudioFileFault::kBadSampleRate);
  EXPECT_EQ(FaultOfBytes(WavBytes({.rate = 2'000'000'000})), AudioFileFault::kBadSampleRate);
  EXPECT_EQ(FaultOfBytes(WavBytes({.rate = 10'000'001})), AudioFileFault::kBadSampleRate);
  EXPECT_EQ(FaultOfBytes(CafBytes({.rate = 1e30})), AudioFileFault::kBadSampleRate);
}

TEST(AudioFileBadInput, HighestSampleRateIsTaken) {
  EXPECT_EQ(AudioFile(WavBytes({.rate = 10'000'000}), "fast").GetProperties().sampleRate, 10'000'000);
}

TEST(AudioFileBadInput, AbsurdLengths) {
  EXPECT_EQ(FaultOfBytes(CafBytes({.dataBytes = std::uint64_t{1} << 61})), AudioFileFault::kDamaged);
  EXPECT_EQ(FaultOfBytes(CafBytes({.dataBytes = ~std::uint64_t{0} - 10})), AudioFileFault::kDamaged);
}

TEST(AudioFileBadInput, LengthThatTheBytesCannotHold) {
  const TemporaryFolder folder;
  WriteAudioFile(folder / "sound", AudioFileFormat::kFlacInt16, 44100, testing::Tones(1, 1000));
  std::vector<std::uint8_t> bytes = testing::ReadBytes(folder / "sound");
  testing::SetFlacFrames(bytes, (std::uint64_t{1} << 36) - 1);
  EXPECT_EQ(FaultOfBytes(bytes), AudioFileFault::kDamaged);
}

TEST(AudioFileBadInput, LengthThatIsNotKeptIsMetWhereItEnds) {
  const TemporaryFolder folder;
  WriteAudioFile(folder / "sound", AudioFileFormat::kFlacInt16, 44100, testing::Tones(1, 1000));
  std::vector<std::uint8_t> bytes = testing::ReadBytes(folder / "sound");
  testing::SetFlacFrames(bytes, 10'000'000);
  AudioFile file(bytes, "liar");
  EXPECT_EQ(FaultOf("liar", [&] { file.ReadChannels(0, 10'000'000); }), AudioFileFault::kTruncated);
  EXPECT_EQ(FaultOf("liar", [&] { file.ReadChannels(5'000'000, 10); }), AudioFileFault::kTruncated);
}

TEST(AudioFileBadInput, UnknownEncoding) {
  EXPECT_EQ(FaultOfBytes(WavBytes({.bits = 77})), AudioFileFault::kDamaged);
}

TEST(AudioFileBadInput, FileThatShrinksWhileItIsRead) {
  const TemporaryFolder folder;
  const std::string path = folder / "sound.wav";
  WriteAudioFile(path, AudioFileFormat::kWavInt16, 44100, testing::Tones(2, 200000));
  AudioFile file(path);
  EXPECT_EQ(file.ReadChannels(0, 1000)[0].size(), 1000U);
  std::filesystem::resize_file(path, 50000);
  EXPECT_EQ(FaultOf(path, [&] { file.ReadChannels(0, 200000); }), AudioFileFault::kTruncated);
  EXPECT_EQ(FaultOf(path, [&] { file.ReadChannels(150000, 10); }), AudioFileFault::kTruncated);
  EXPECT_EQ(file.ReadChannels(0, 1000)[0].size(), 1000U);
}

TEST(AudioFileBadInput, CompressedFileThatShrinksWhileItIsRead) {
  for (const AudioFileFormat format :
       {AudioFileFormat::kFlacInt16, AudioFileFormat::kOggVorbis, AudioFileFormat::kMp3}) {
    const TemporaryFolder folder;
    const std::string path = folder / "sound";
    WriteAudioFile(path, format, 44100, testing::Tones(1, 200000));
    AudioFile file(path);
    std::filesystem::resize_file(path, std::filesystem::file_size(path) / 2);
    EXPECT_EQ(FaultOf(path, [&] { file.ReadChannels(0, 200000); }), AudioFileFault::kTruncated);
  }
}

}  // namespace
}  // namespace moxaudiotoolkit
