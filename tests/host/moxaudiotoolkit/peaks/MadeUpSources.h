#pragma once

#include <moxaudiotoolkit/peaks/PeakPyramid.h>
#include <moxaudiotoolkit/peaks/SampleSource.h>

#include <atomic>
#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <vector>

namespace moxaudiotoolkit::testing {

// Noise, each sample told by its place: multiples of 2^-15 for 16 bits, else floats up to `loudest`.
class NoiseSource : public SampleSource {
 public:
  NoiseSource(std::int64_t frames, int channelCount, int integerBits = 0, float loudest = 1.0F);

  float GetSample(std::int64_t frame, int channel) const;
  void ReadInterleaved(std::int64_t firstFrame, std::span<float> destination) const override;

 private:
  float mLoudest;
};

// Silence of any length with a few single samples in it, told by their frames; in channel c each is c + 1
// times as large.
class SparseSource : public SampleSource {
 public:
  using Clicks = std::map<std::int64_t, float>;

  SparseSource(const SampleSourceProperties& properties, Clicks clicks);

  const Clicks& GetClicks() const { return mClicks; }
  void ReadInterleaved(std::int64_t firstFrame, std::span<float> destination) const override;
  void ReadPeaks(std::int64_t firstFrame, std::int64_t frameCount,
                 std::span<const PeakRun> runs) const override;

 private:
  Clicks mClicks;
};

// Hands out the samples of another source as long as it is let: the reader waits at frames that are closed.
class GatedSource : public SampleSource {
 public:
  explicit GatedSource(std::shared_ptr<const SampleSource> source);

  // Frames from here on can't be read before they are opened.
  void OpenUpTo(std::int64_t frame) {
    mOpen = frame;
    mOpen.notify_all();
  }
  // Reading from here on throws.
  void FailFrom(std::int64_t frame) { mBroken = frame; }
  int GetReadings() const { return mReadings; }
  void ReadInterleaved(std::int64_t firstFrame, std::span<float> destination) const override;

 private:
  std::shared_ptr<const SampleSource> mSource;
  std::atomic<std::int64_t> mOpen{0};
  std::atomic<std::int64_t> mBroken;
  mutable std::atomic<int> mReadings{0};
};

// What stands in the frames [begin, end), sample by sample.
PeakPoint PointOfSamples(const SampleSource& source, int channel, std::int64_t begin, std::int64_t end);

// Fills a whole pyramid on this thread.
std::unique_ptr<PeakPyramid> BuildPyramid(const SampleSource& source);

}  // namespace moxaudiotoolkit::testing
