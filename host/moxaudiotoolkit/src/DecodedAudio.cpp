#include "HarmlessSamples.h"
#include "PeakLevels.h"

#include <moxaudiotoolkit/AudioFile.h>
#include <moxaudiotoolkit/AudioFileError.h>
#include <moxaudiotoolkit/DecodedAudio.h>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>

namespace moxaudiotoolkit {

DecodedAudio::DecodedAudio(int sampleRate, std::vector<std::vector<float>> channels)
    : mSampleRate(sampleRate),
      mFrameCount(channels.empty() ? 0 : static_cast<std::int64_t>(channels.front().size())) {
  if (sampleRate < 1) {
    throw std::invalid_argument("A sample rate of " + std::to_string(sampleRate) + " Hz makes no sense");
  }
  for (const std::vector<float>& samples : channels) {
    if (samples.size() != channels.front().size()) {
      throw std::invalid_argument("The channels of decoded audio must be of the same length");
    }
  }
  mChannels.reserve(channels.size());
  for (std::vector<float>& samples : channels) {
    MakeHarmless(samples);
    std::vector<std::vector<PeakPair>> levels = BuildPeakLevels(samples);
    mChannels.push_back({.samples = std::move(samples), .levels = std::move(levels)});
  }
}

std::size_t DecodedAudio::GetMemorySize() const {
  std::size_t bytes = 0;
  for (const Channel& channel : mChannels) {
    bytes += channel.samples.size() * sizeof(float);
    for (const std::vector<PeakPair>& level : channel.levels) {
      bytes += level.size() * sizeof(PeakPair);
    }
  }
  return bytes;
}

std::span<const float> DecodedAudio::GetSamples(std::size_t channel) const {
  return mChannels.at(channel).samples;
}

PeakPair DecodedAudio::GetPeaks(std::size_t channel, std::int64_t begin, std::int64_t end) const {
  const Channel& source = mChannels.at(channel);
  const std::int64_t first = std::clamp<std::int64_t>(begin, 0, mFrameCount);
  const std::int64_t last = std::clamp<std::int64_t>(end, first, mFrameCount);
  return PeaksOfRange(source.samples, source.levels, static_cast<std::size_t>(first),
                      static_cast<std::size_t>(last));
}

std::shared_ptr<const DecodedAudio> DecodeAudioFile(AudioFile& file, std::size_t memoryLimit) {
  const AudioFileProperties& properties = file.GetProperties();
  const auto frames = static_cast<std::size_t>(properties.frames);
  // A pair of 8 bytes for 64 samples of 4, and a third more for all further levels: a 24th of the samples.
  const std::size_t mostFrames =
      memoryLimit / sizeof(float) / static_cast<std::size_t>(properties.channelCount) / 25 * 24;
  if (frames > mostFrames) {
    throw AudioFileError(
        AudioFileFault::kTooLong, file.GetName(),
        "$$$/moxaudiotoolkit/Error/TooLong=The @0 frames of @1 channels don't fit the memory allowed, which "
        "is @2 bytes.",
        {std::to_string(frames), std::to_string(properties.channelCount), std::to_string(memoryLimit)});
  }
  return std::make_shared<const DecodedAudio>(properties.sampleRate, file.ReadChannels(0, properties.frames));
}

}  // namespace moxaudiotoolkit
