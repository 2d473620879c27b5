#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace moxaudiotoolkit {

class AudioFile;

// The largest and the smallest of some samples; silence when there are none.
struct PeakPair {
  float maximum = 0.0F;
  float minimum = 0.0F;

  bool operator==(const PeakPair&) const = default;
};

// A whole piece of audio in memory, one run of samples per channel, with what is needed to draw it fast at
// any zoom: beside the samples stand levels of peaks, the first over 64 samples a point, each next one over
// four points of the last (a 24th of the samples' memory). Never changes once made, so that threads may share
// it.
class DecodedAudio {
 public:
  // Takes over one vector of samples per channel. Samples are made harmless as those of AudioFile are (see
  // kLargestSample). Throws std::invalid_argument when the channels differ in length or the rate is below 1.
  DecodedAudio(int sampleRate, std::vector<std::vector<float>> channels);

  int GetSampleRate() const { return mSampleRate; }
  std::size_t GetChannelCount() const { return mChannels.size(); }
  std::int64_t GetFrameCount() const { return mFrameCount; }
  double GetDuration() const { return static_cast<double>(mFrameCount) / mSampleRate; }  // seconds
  // Bytes of samples and peaks.
  std::size_t GetMemorySize() const;

  // Both throw std::out_of_range for a channel that isn't there.
  std::span<const float> GetSamples(std::size_t channel) const;
  // The exact peaks of the samples from `begin` up to but not including `end`; what lies outside the audio
  // doesn't count.
  PeakPair GetPeaks(std::size_t channel, std::int64_t begin, std::int64_t end) const;

 private:
  struct Channel {
    std::vector<float> samples;
    std::vector<std::vector<PeakPair>> levels;
  };

  int mSampleRate;
  std::int64_t mFrameCount;
  std::vector<Channel> mChannels;
};

// Decodes the whole of `file`. Throws AudioFileError: kTooLong when samples and peaks would take more than
// `memoryLimit` bytes, else what reading throws.
std::shared_ptr<const DecodedAudio> DecodeAudioFile(AudioFile& file, std::size_t memoryLimit);

}  // namespace moxaudiotoolkit
