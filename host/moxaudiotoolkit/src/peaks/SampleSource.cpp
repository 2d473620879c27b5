#include "BlockScan.h"
#include "RawSource.h"

#include <moxaudiotoolkit/AudioFile.h>
#include <moxaudiotoolkit/AudioFileError.h>
#include <moxaudiotoolkit/DecodedAudio.h>
#include <moxaudiotoolkit/peaks/SampleSource.h>

#include <algorithm>
#include <mutex>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace moxaudiotoolkit {
namespace {

constexpr std::size_t kBlockFloats = std::size_t{1} << 16;  // read at a time

// A file whose samples only a decoder tells. One decoder goes through the file for peaks, another jumps to
// where a view looks.
class DecodedFileSource : public SampleSource {
 public:
  DecodedFileSource(const SampleSourceProperties& properties, AudioFile file)
      : SampleSource(properties), mPeakFile(std::move(file)) {}

  bool IsParallel() const override { return false; }
  std::int64_t FindStart(std::int64_t frame) const override { return mPeakFile.FindStart(frame); }

  void ReadInterleaved(std::int64_t firstFrame, std::span<float> destination) const override {
    const std::lock_guard lock(mViewMutex);
    if (!mViewFile) {
      mViewFile = std::make_unique<AudioFile>(mPeakFile.OpenAgain());
      if (mViewFile->GetProperties().channelCount != GetProperties().channelCount) {
        mViewFile.reset();
        ThrowReplaced();
      }
    }
    ReadFrom(*mViewFile, firstFrame, destination);
  }

  void ReadPeaks(std::int64_t firstFrame, std::int64_t frameCount,
                 std::span<const PeakRun> runs) const override {
    const std::lock_guard lock(mPeakMutex);
    const auto channelCount = runs.size();
    const auto points = std::max<std::size_t>(kBlockFloats / channelCount / kSamplesPerPoint, 1);
    const auto blockFrames = static_cast<std::int64_t>(points) * kSamplesPerPoint;
    std::vector<float> samples(static_cast<std::size_t>(std::min(blockFrames, frameCount)) * channelCount);
    for (std::int64_t done = 0; done < frameCount; done += blockFrames) {
      const std::int64_t count = std::min(blockFrames, frameCount - done);
      const std::span<float> block = std::span(samples).first(static_cast<std::size_t>(count) * channelCount);
      ReadFrom(mPeakFile, firstFrame + done, block);
      ScanFloats(block, runs, static_cast<std::size_t>(done / kSamplesPerPoint));
    }
  }

 private:
  const std::string& GetName() const { return mPeakFile.GetName(); }

  [[noreturn]] void ThrowReplaced() const {
    throw AudioFileError(AudioFileFault::kDamaged, GetName(),
                         "$$$/moxaudiotoolkit/Error/Replaced=The file was replaced while it was read.");
  }

  void ReadFrom(AudioFile& file, std::int64_t firstFrame, std::span<float> destination) const {
    const std::int64_t got = file.ReadInterleaved(firstFrame, destination);
    if (got * GetProperties().channelCount != static_cast<std::int64_t>(destination.size())) {
      ThrowReplaced();
    }
  }

  mutable std::mutex mPeakMutex;
  mutable AudioFile mPeakFile;
  mutable std::mutex mViewMutex;
  mutable std::unique_ptr<AudioFile> mViewFile;
};

class MemorySource : public SampleSource {
 public:
  MemorySource(const SampleSourceProperties& properties, std::shared_ptr<const DecodedAudio> audio)
      : SampleSource(properties), mAudio(std::move(audio)) {}

  void ReadInterleaved(std::int64_t firstFrame, std::span<float> destination) const override {
    const std::size_t channelCount = mAudio->GetChannelCount();
    for (std::size_t channel = 0; channel < channelCount; ++channel) {
      const std::span<const float> samples = mAudio->GetSamples(channel).subspan(
          static_cast<std::size_t>(firstFrame), destination.size() / channelCount);
      for (std::size_t i = 0; i < samples.size(); ++i) {
        destination[i * channelCount + channel] = samples[i];
      }
    }
  }

 private:
  std::shared_ptr<const DecodedAudio> mAudio;
};

}  // namespace

SampleSource::~SampleSource() = default;

void SampleSource::ReadPeaks(std::int64_t firstFrame, std::int64_t frameCount,
                             std::span<const PeakRun> runs) const {
  const std::size_t channelCount = runs.size();
  const auto points = std::max<std::size_t>(kBlockFloats / channelCount / kSamplesPerPoint, 1);
  const auto blockFrames = static_cast<std::int64_t>(points) * kSamplesPerPoint;
  std::vector<float> samples(static_cast<std::size_t>(std::min(blockFrames, frameCount)) * channelCount);
  for (std::int64_t done = 0; done < frameCount; done += blockFrames) {
    const auto count = static_cast<std::size_t>(std::min(blockFrames, frameCount - done));
    const std::span<float> block = std::span(samples).first(count * channelCount);
    ReadInterleaved(firstFrame + done, block);
    ScanFloats(block, runs, static_cast<std::size_t>(done / kSamplesPerPoint));
  }
}

std::shared_ptr<const SampleSource> OpenSampleSource(const std::string& path,
                                                     const std::atomic<bool>* cancelled) {
  AudioFile file(path, cancelled);
  if (std::shared_ptr<const SampleSource> raw = RawSource::Open(file)) {
    return raw;
  }
  const AudioFileProperties& properties = file.GetProperties();
  const SampleSourceProperties own{.frames = properties.frames,
                                   .sampleRate = properties.sampleRate,
                                   .channelCount = properties.channelCount,
                                   .integerBits = properties.integerBits,
                                   .format = properties.format,
                                   .channelLayout = properties.channelLayout};
  return std::make_shared<DecodedFileSource>(own, std::move(file));
}

std::shared_ptr<const SampleSource> MakeSampleSource(std::shared_ptr<const DecodedAudio> audio) {
  if (audio == nullptr || audio->GetChannelCount() == 0) {
    throw std::invalid_argument("Audio without channels is no source of samples");
  }
  const SampleSourceProperties properties{.frames = audio->GetFrameCount(),
                                          .sampleRate = audio->GetSampleRate(),
                                          .channelCount = static_cast<int>(audio->GetChannelCount())};
  return std::make_shared<MemorySource>(properties, std::move(audio));
}

}  // namespace moxaudiotoolkit
