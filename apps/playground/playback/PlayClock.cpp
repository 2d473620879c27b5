#include "playback/PlayClock.h"

#include <algorithm>
#include <cmath>

namespace playground {
namespace {

// The share of a block's lateness that the clock takes over: at first that of a mean over all blocks, and
// then this, small enough to even out what threads do, large enough to follow a device whose clock is off.
constexpr double kFollow = 0.02;
// It never runs faster or slower than by this share, so that the eye sees no jump.
constexpr double kLargestPull = 0.05;
// Beyond this, in seconds, the output has stood still, and the clock begins anew.
constexpr double kLargestLateness = 0.25;
constexpr double kNanoseconds = 1e9;
// Of a frame: times are whole nanoseconds, and may just miss it.
constexpr double kRounding = 1e-3;

}  // namespace

void PlayClock::Begin(int sampleRate, double latency) {
  mRate = std::max(sampleRate, 1);
  mLatencyFrames = std::max(latency, 0.0) * mRate;
  mBlocks = 0;
}

double PlayClock::Expected(std::int64_t time) const {
  return mBaseFrame + static_cast<double>(time - mBaseTime) / kNanoseconds * mRate * mPace;
}

void PlayClock::Asked(std::int64_t outputFrame, std::int64_t count, std::int64_t time) {
  double const expected = Expected(time);
  double const late = static_cast<double>(outputFrame) - expected;
  bool const follows = mBlocks > 0 && std::abs(late) <= kLargestLateness * mRate;
  mBlocks = follows ? mBlocks + 1 : 1;
  mBaseFrame = follows ? expected : static_cast<double>(outputFrame);
  mBaseTime = time;
  mEndAsked = outputFrame + count;
  // What is to be made up for is spread over the time until the next block.
  double const share = std::max(1.0 / mBlocks, kFollow);
  double const pull = follows && count > 0 ? share * late / static_cast<double>(count) : 0.0;
  mPace = 1.0 + std::clamp(pull, -kLargestPull, kLargestPull);
}

std::int64_t PlayClock::FrameAt(std::int64_t time) {
  if (mBlocks > 0) {
    // What hasn't been asked for can't be heard, however late it is.
    auto const heard = static_cast<std::int64_t>(std::floor(Expected(time) - mLatencyFrames + kRounding));
    mLastHeard = std::max(mLastHeard, std::min(heard, mEndAsked));
  }
  return mLastHeard;
}

}  // namespace playground
