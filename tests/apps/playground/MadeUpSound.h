#pragma once

#include <moxaudiotoolkit/peaks/SampleSource.h>

#include <atomic>
#include <cstdint>
#include <map>
#include <span>

namespace playground {

// Silence of any length with a few single samples in it, told by their frames, alike in all channels. It
// stands for a file that another thread reads, as far as a test lets it.
class MadeUpSound : public moxaudiotoolkit::SampleSource {
 public:
  using Clicks = std::map<std::int64_t, float>;

  MadeUpSound(moxaudiotoolkit::SampleSourceProperties const& properties, Clicks clicks);

  // Whoever reads at this frame or behind it waits. A sound is wholly open at first.
  void CloseFrom(std::int64_t frame);
  void OpenAll();
  // Returns when someone waits at what is closed.
  void WaitForAReader() const;
  // As sounds do that only a decoder can read.
  void SetParallel(bool parallel) { mIsParallel = parallel; }
  // Frames that were read, not counting those read for peaks.
  std::int64_t FramesRead() const { return mFramesRead; }

  bool IsParallel() const override { return mIsParallel; }
  void ReadInterleaved(std::int64_t firstFrame, std::span<float> destination) const override;
  void ReadPeaks(std::int64_t firstFrame, std::int64_t frameCount,
                 std::span<moxaudiotoolkit::PeakRun const> runs) const override;

 private:
  void PassGate(std::int64_t endFrame) const;

  Clicks mClicks;
  bool mIsParallel = true;
  std::atomic<std::int64_t> mClosedFrom;
  mutable std::atomic<int> mWaiting{0};
  mutable std::atomic<std::int64_t> mFramesRead{0};
};

}  // namespace playground
