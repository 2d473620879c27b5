#pragma once

#include "playback/AudioOutput.h"

#include <memory>
#include <string>
#include <vector>

namespace playground {

// An output under the test's hand: it asks for samples when the test says so, on the test's thread, and keeps
// them. It outlives the outputs that it makes, which stand for one device.
class ManualDevice {
 public:
  std::unique_ptr<AudioOutput> MakeOutput();

  // What the next `frames` frames are; empty when it isn't started.
  std::vector<float> Pull(int frames);
  // Opening fails with this reason, unless it is empty.
  std::string refusal;
  bool refusesToStart = false;
  // The rate that is given, whatever is asked for; 0 gives what is asked for.
  int rate = 0;
  double latency = 0.0;
  void Lose() { mIsLost = true; }

  bool IsOpen() const { return mIsOpen; }
  bool IsStarted() const { return mIsStarted; }
  int OpenCount() const { return mOpenCount; }
  AudioFormat const& Wanted() const { return mWanted; }

 private:
  class Output;

  AudioOutput::PullFunction mPull;
  AudioFormat mWanted;
  bool mIsOpen = false;
  bool mIsStarted = false;
  bool mIsLost = false;
  int mOpenCount = 0;
};

}  // namespace playground
