#pragma once

#include <cstdint>

namespace playground {

// Tells which frame of an output is heard at a moment, from the moments at which the output asked for its
// blocks. Those come in fits and starts; the clock runs evenly, by the steady clock, and is only drawn after
// them, so that a playhead by it doesn't tremble, and never goes back.
class PlayClock {
 public:
  // The output is about to begin, or to go on; `latency` in seconds.
  void Begin(int sampleRate, double latency);
  // At `time`, in nanoseconds, so many frames of the output from this one on were asked for.
  void Asked(std::int64_t outputFrame, std::int64_t count, std::int64_t time);
  // The frame heard at `time`; before the first block has come through, the one that was heard last.
  std::int64_t FrameAt(std::int64_t time);

 private:
  double Expected(std::int64_t time) const;

  double mRate = 1.0;
  double mLatencyFrames = 0.0;
  int mBlocks = 0;  // since it began
  double mPace = 1.0;
  double mBaseFrame = 0.0;
  std::int64_t mBaseTime = 0;
  std::int64_t mEndAsked = 0;
  std::int64_t mLastHeard = 0;
};

}  // namespace playground
