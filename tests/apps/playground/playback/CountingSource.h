#pragma once

#include <moxaudiotoolkit/peaks/SampleSource.h>

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <span>

namespace playground {

// A made-up sound of any length whose samples tell where they are from: that of frame f in channel c is
// f % 2^20 + 1 + c / 8, exactly.
class CountingSource : public moxaudiotoolkit::SampleSource {
 public:
  explicit CountingSource(std::int64_t frames, int channelCount = 2, int sampleRate = 48000,
                          bool isParallel = true);

  bool IsParallel() const override { return mIsParallel; }
  void ReadInterleaved(std::int64_t firstFrame, std::span<float> destination) const override;

  static float Sample(std::int64_t frame, int channel);

  // Readings from this frame on fail.
  void FailFrom(std::int64_t frame) { mFailFrom = frame; }
  // Readings wait until they are let through.
  void Hold();
  void LetThrough();
  int ReadCount() const { return mReads; }

 private:
  bool mIsParallel;
  std::atomic<std::int64_t> mFailFrom{INT64_MAX};
  mutable std::atomic<int> mReads{0};
  mutable std::mutex mMutex;
  mutable std::condition_variable mCondition;
  bool mIsHeld = false;
};

}  // namespace playground
