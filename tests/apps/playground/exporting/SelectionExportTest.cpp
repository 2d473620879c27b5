#include "exporting/SelectionExport.h"
#include "playground/SoundFiles.h"
#include "playground/TemporaryFolder.h"

#include <moxaudiotoolkit/AudioFileError.h>
#include <moxaudiotoolkit/AudioFileWriter.h>
#include <moxaudiotoolkit/WaveFileWriter.h>
#include <moxaudiotoolkit/peaks/PeakBuilder.h>
#include <moxaudiotoolkit/peaks/PeakDataFile.h>
#include <moxaudiotoolkit/peaks/PeakPyramid.h>
#include <moxaudiotoolkit/peaks/SampleSource.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <condition_variable>
#include <mutex>
#include <stdexcept>

namespace playground {
namespace {

using moxaudiotoolkit::OpenSampleSource;
using moxaudiotoolkit::SampleSource;
using moxaudiotoolkit::SampleSourceProperties;
using moxaudiotoolkit::WaveSampleType;
using State = FileExport::State;

// Samples that tell of their place: whole numbers of as many bits as the source has.
class RampSource : public SampleSource {
 public:
  RampSource(std::int64_t frames, int channels, int bits)
      : SampleSource({.frames = frames, .sampleRate = 48000, .channelCount = channels, .integerBits = bits}) {
  }

  void ReadInterleaved(std::int64_t firstFrame, std::span<float> destination) const override {
    int const channels = GetProperties().channelCount;
    int const bits = GetProperties().integerBits == 0 ? 24 : GetProperties().integerBits;
    std::int64_t const range = std::int64_t{1} << bits;
    for (std::size_t i = 0; i < destination.size(); ++i) {
      std::int64_t const place = firstFrame * channels + static_cast<std::int64_t>(i);
      auto const value = static_cast<double>(place * 7919 % range - range / 2);
      destination[i] = static_cast<float>(value / (static_cast<double>(range) / 2.0));
    }
  }
};

// Reads so far and no farther until it is told to.
class GatedSource : public RampSource {
 public:
  explicit GatedSource(std::int64_t gate) : RampSource(4'000'000, 1, 16), mGate(gate) {}

  void ReadInterleaved(std::int64_t firstFrame, std::span<float> destination) const override {
    if (firstFrame >= mGate) {
      std::unique_lock lock(mMutex);
      mIsThere = true;
      mChanged.notify_all();
      mChanged.wait(lock, [this] { return mIsOpen; });
    }
    RampSource::ReadInterleaved(firstFrame, destination);
  }
  void WaitUntilThere() const {
    std::unique_lock lock(mMutex);
    mChanged.wait(lock, [this] { return mIsThere; });
  }
  void Open() const {
    std::lock_guard const lock(mMutex);
    mIsOpen = true;
    mChanged.notify_all();
  }

 private:
  std::int64_t mGate;
  mutable std::mutex mMutex;
  mutable std::condition_variable mChanged;
  mutable bool mIsThere = false;
  mutable bool mIsOpen = false;
};

class BrokenSource : public RampSource {
 public:
  BrokenSource() : RampSource(1'000'000, 1, 16) {}
  void ReadInterleaved(std::int64_t firstFrame, std::span<float> destination) const override {
    if (firstFrame > 200'000) {
      throw moxaudiotoolkit::AudioFileError(moxaudiotoolkit::AudioFileFault::kNotReadable, "a.wav",
                                            "$$$/test/gone=The disk is gone.");
    }
    RampSource::ReadInterleaved(firstFrame, destination);
  }
};

class SelectionExportTest : public testing::Test {
 protected:
  std::string Path(std::string const& name = "out.wav") const { return (folder.Path() / name).string(); }
  std::size_t FileCount() const {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder.Path()), {}));
  }
  // The file is the part of the source, sample for sample.
  void ExpectExact(SampleSource const& source, ExportRequest const& request, WaveSampleType type) {
    auto const file = OpenSampleSource(request.path);
    SampleSourceProperties const& properties = file->GetProperties();
    ASSERT_EQ(properties.frames, request.end - request.begin);
    ASSERT_EQ(properties.channelCount, static_cast<int>(request.channels.size()));
    EXPECT_EQ(properties.sampleRate, source.GetProperties().sampleRate);
    EXPECT_EQ(GetExactWaveType(properties), type);
    auto const frames = static_cast<std::size_t>(properties.frames);
    auto const channels = static_cast<std::size_t>(source.GetProperties().channelCount);
    std::vector<float> expected(frames * channels);
    std::vector<float> written(frames * request.channels.size());
    source.ReadInterleaved(request.begin, expected);
    file->ReadInterleaved(0, written);
    for (std::size_t frame = 0; frame < frames; ++frame) {
      for (std::size_t i = 0; i < request.channels.size(); ++i) {
        ASSERT_EQ(written[frame * request.channels.size() + i],
                  expected[frame * channels + request.channels[i]])
            << frame;
      }
    }
  }

  TemporaryFolder folder;
};

TEST_F(SelectionExportTest, KeepsEachSampleInTheSmallestTypeThatDoes) {
  for (auto const& [bits, type] : {std::pair{8, WaveSampleType::kInt16},
                                   {16, WaveSampleType::kInt16},
                                   {20, WaveSampleType::kInt24},
                                   {24, WaveSampleType::kInt24},
                                   {0, WaveSampleType::kFloat32}}) {
    auto const source = std::make_shared<RampSource>(200'000, 3, bits);
    ExportRequest const request{source, 1'234, 198'765, {0, 1, 2}, Path()};
    FileExport running(request.path, ExportOfSelection(request));
    running.Wait();
    ASSERT_EQ(running.GetState(), State::kDone) << running.Problem();
    EXPECT_EQ(running.Progress(), 1.0);
    ExpectExact(*source, request, type);
  }
}

TEST_F(SelectionExportTest, WritesTheChannelsAskedForAlone) {
  auto const source = std::make_shared<RampSource>(100'000, 6, 16);
  ExportRequest const request{source, 10, 99'990, {0, 2, 5}, Path()};
  FileExport running(request.path, ExportOfSelection(request));
  running.Wait();
  ASSERT_EQ(running.GetState(), State::kDone);
  ExpectExact(*source, request, WaveSampleType::kInt16);
}

TEST_F(SelectionExportTest, OneFrameAndHundredsOfChannelsAreNothingSpecial) {
  auto const source = std::make_shared<RampSource>(1'000, 256, 24);
  ExportRequest request{source, 999, 1'000, {}, Path()};
  for (std::size_t channel = 0; channel < 256; ++channel) {
    request.channels.push_back(channel);
  }
  FileExport running(request.path, ExportOfSelection(request));
  running.Wait();
  ASSERT_EQ(running.GetState(), State::kDone);
  ExpectExact(*source, request, WaveSampleType::kInt24);
}

TEST_F(SelectionExportTest, AFileReplacesItselfByAPartOfItself) {
  std::string const path = WriteTone(folder.Path(), "tone.wav").string();
  auto const source = OpenSampleSource(path);
  std::int64_t const frames = source->GetProperties().frames;
  ExportRequest const request{source, frames / 4, frames / 2, {0, 1}, path};
  FileExport running(request.path, ExportOfSelection(request));
  running.Wait();
  ASSERT_EQ(running.GetState(), State::kDone) << running.Problem();
  ExpectExact(*source, request, WaveSampleType::kInt16);
  EXPECT_EQ(FileCount(), 1u);
}

TEST_F(SelectionExportTest, CancelledOneLeavesTheOldFileAndNothingElse) {
  WriteBytes(folder.Path(), "out.wav", "old");
  auto const source = std::make_shared<GatedSource>(1'000'000);
  FileExport running(Path(), ExportOfSelection({source, 0, 4'000'000, {0}, Path()}));
  source->WaitUntilThere();
  EXPECT_EQ(running.GetState(), State::kRunning);
  EXPECT_GT(running.Progress(), 0.2);
  EXPECT_LT(running.Progress(), 0.5);
  EXPECT_EQ(FileCount(), 2u);
  running.Cancel();
  source->Open();
  running.Wait();
  EXPECT_EQ(running.GetState(), State::kCancelled);
  EXPECT_EQ(running.Problem(), "");
  EXPECT_EQ(FileCount(), 1u);
  EXPECT_EQ(std::filesystem::file_size(Path()), 3u);
}

TEST_F(SelectionExportTest, DestructionCancels) {
  auto const source = std::make_shared<GatedSource>(0);
  {
    FileExport const running(Path(), ExportOfSelection({source, 0, 4'000'000, {0}, Path()}));
    source->WaitUntilThere();
    EXPECT_EQ(FileCount(), 1u);
    source->Open();
  }
  for (auto const& entry : std::filesystem::directory_iterator(folder.Path())) {
    EXPECT_EQ(entry.path().filename(), "out.wav");
  }
}

TEST_F(SelectionExportTest, SourceThatCannotBeReadFailsWithItsReason) {
  FileExport running(Path(),
                     ExportOfSelection({std::make_shared<BrokenSource>(), 0, 1'000'000, {0}, Path()}));
  running.Wait();
  EXPECT_EQ(running.GetState(), State::kFailed);
  EXPECT_EQ(running.Problem(), "The disk is gone.");
  EXPECT_EQ(FileCount(), 0u);
}

TEST_F(SelectionExportTest, PeaksComeBackFromTheirFile) {
  auto const source = std::make_shared<RampSource>(100'000, 2, 16);
  moxaudiotoolkit::PeakBuilder builder(source);
  builder.Wait();
  auto const pyramid = builder.GetPyramid();
  for (bool const has8Bits : {false, true}) {
    std::string const path = Path("peaks.dat");
    FileExport running(path, ExportOfPeaks(pyramid, path, has8Bits));
    running.Wait();
    ASSERT_EQ(running.GetState(), State::kDone) << running.Problem();
    auto const data = moxaudiotoolkit::ReadPeakData(path);
    EXPECT_EQ(data.version, 2);
    EXPECT_EQ(data.has8Bits, has8Bits);
    EXPECT_EQ(data.channelCount, 2);
    EXPECT_EQ(data.sampleRate, 48000);
    EXPECT_EQ(data.samplesPerPixel, 256);
    ASSERT_EQ(data.length, 391u);
    double const unit = has8Bits ? 128.0 : 32768.0;
    for (std::int64_t pair = 0; pair < 391; ++pair) {
      auto const expected =
          pyramid->GetRange(1, pair * 256, std::min<std::int64_t>(pair * 256 + 256, 100'000));
      auto const at = static_cast<std::size_t>(pair) * 4 + 2;
      EXPECT_NEAR(data.values[at] / unit, expected.minimum, 0.51 / unit);
      EXPECT_NEAR(data.values[at + 1] / unit, std::min<double>(expected.maximum, (unit - 1) / unit),
                  0.51 / unit);
    }
  }
}

TEST_F(SelectionExportTest, FolderThatIsGoneFailsWithTheReason) {
  ExportRequest const request{std::make_shared<RampSource>(1000, 1, 16), 0, 1000, {0}, Path("gone/out.wav")};
  FileExport running(request.path, ExportOfSelection(request));
  running.Wait();
  EXPECT_EQ(running.GetState(), State::kFailed);
  EXPECT_THAT(running.Problem(), testing::HasSubstr("there is no such file"));
}

}  // namespace
}  // namespace playground
