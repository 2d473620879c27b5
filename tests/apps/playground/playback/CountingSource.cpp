#include "CountingSource.h"

#include <stdexcept>

namespace playground {

CountingSource::CountingSource(std::int64_t frames, int channelCount, int sampleRate, bool isParallel)
    : SampleSource({.frames = frames, .sampleRate = sampleRate, .channelCount = channelCount}),
      mIsParallel(isParallel) {}

float CountingSource::Sample(std::int64_t frame, int channel) {
  return static_cast<float>(frame % (1 << 20) + 1) + static_cast<float>(channel) * 0.125f;
}

void CountingSource::ReadInterleaved(std::int64_t firstFrame, std::span<float> destination) const {
  {
    std::unique_lock lock(mMutex);
    mCondition.wait(lock, [this] { return !mIsHeld; });
  }
  ++mReads;
  auto const channelCount = GetProperties().channelCount;
  auto const count = static_cast<std::int64_t>(destination.size()) / channelCount;
  if (firstFrame < 0 || firstFrame + count > GetProperties().frames) {
    throw std::out_of_range("beyond the sound");
  }
  if (firstFrame + count > mFailFrom) {
    throw std::runtime_error("The file was cut short.");
  }
  for (std::int64_t i = 0; i < count; ++i) {
    for (int channel = 0; channel < channelCount; ++channel) {
      destination[static_cast<std::size_t>(i * channelCount + channel)] = Sample(firstFrame + i, channel);
    }
  }
}

void CountingSource::Hold() {
  std::lock_guard const lock(mMutex);
  mIsHeld = true;
}

void CountingSource::LetThrough() {
  {
    std::lock_guard const lock(mMutex);
    mIsHeld = false;
  }
  mCondition.notify_all();
}

}  // namespace playground
