#include "playground/MadeUpSound.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace playground {

using moxaudiotoolkit::kSamplesPerPoint;

MadeUpSound::MadeUpSound(moxaudiotoolkit::SampleSourceProperties const& properties, Clicks clicks)
    : SampleSource(properties),
      mClicks(std::move(clicks)),
      mClosedFrom(std::numeric_limits<std::int64_t>::max()) {}

void MadeUpSound::CloseFrom(std::int64_t frame) {
  mClosedFrom = frame;
}

void MadeUpSound::OpenAll() {
  mClosedFrom = std::numeric_limits<std::int64_t>::max();
  mClosedFrom.notify_all();
}

void MadeUpSound::WaitForAReader() const {
  for (int waiting = mWaiting; waiting == 0; waiting = mWaiting) {
    mWaiting.wait(waiting);
  }
}

void MadeUpSound::PassGate(std::int64_t endFrame) const {
  bool waits = false;
  for (std::int64_t closed = mClosedFrom; endFrame > closed; closed = mClosedFrom) {
    if (!std::exchange(waits, true)) {
      ++mWaiting;
      mWaiting.notify_all();
    }
    mClosedFrom.wait(closed);
  }
  mWaiting -= waits ? 1 : 0;
}

void MadeUpSound::ReadInterleaved(std::int64_t firstFrame, std::span<float> destination) const {
  auto const channels = static_cast<std::size_t>(GetProperties().channelCount);
  std::int64_t const end = firstFrame + static_cast<std::int64_t>(destination.size() / channels);
  PassGate(end);
  mFramesRead += end - firstFrame;
  std::ranges::fill(destination, 0.0f);
  for (auto click = mClicks.lower_bound(firstFrame); click != mClicks.end() && click->first < end; ++click) {
    auto const frame = static_cast<std::size_t>(click->first - firstFrame);
    std::ranges::fill(destination.subspan(frame * channels, channels), click->second);
  }
}

void MadeUpSound::ReadPeaks(std::int64_t firstFrame, std::int64_t frameCount,
                            std::span<moxaudiotoolkit::PeakRun const> runs) const {
  std::int64_t const end = firstFrame + frameCount;
  PassGate(end);
  std::int64_t const points = (frameCount + kSamplesPerPoint - 1) / kSamplesPerPoint;
  for (auto const& run : runs) {
    std::fill_n(run.minimum, points, 0.0f);
    std::fill_n(run.maximum, points, 0.0f);
    std::fill_n(run.sumOfSquares, points, 0.0f);
    for (auto click = mClicks.lower_bound(firstFrame); click != mClicks.end() && click->first < end;
         ++click) {
      std::int64_t const point = (click->first - firstFrame) / kSamplesPerPoint;
      run.minimum[point] = std::min(run.minimum[point], click->second);
      run.maximum[point] = std::max(run.maximum[point], click->second);
      run.sumOfSquares[point] += click->second * click->second;
    }
  }
}

}  // namespace playground
