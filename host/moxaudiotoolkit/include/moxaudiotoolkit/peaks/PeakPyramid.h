#pragma once

#include <moxaudiotoolkit/peaks/SampleSource.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace moxaudiotoolkit {

// What some samples of a channel amount to. Silence when there are none or none is known yet.
struct PeakPoint {
  float minimum = 0.0F;
  float maximum = 0.0F;
  float rms = 0.0F;      // root of the mean square
  bool clipped = false;  // a sample reaches full scale
  bool known = false;    // false as long as a part of the samples hasn't been read

  bool operator==(const PeakPoint&) const = default;
};

struct PeakPyramidFormat {
  std::int64_t frames = 0;                 // samples per channel; 0 to kMostFrames
  int sampleRate = 0;                      // 1 to kHighestSampleRate
  int channelCount = 0;                    // 1 to kMostChannels
  int samplesPerPoint = kSamplesPerPoint;  // of the finest level; 1 to kMostSamplesPerPoint
  // All peaks are multiples of 2^-15 from -1 to 1 - 2^-15, which take half the memory of others.
  bool has16Bits = false;
  bool hasRms = true;  // else that of every point is 0
  // A sample of this size or more, or of -1 or less, is clipped.
  float clipLevel = 1.0F;

  static constexpr std::int64_t kMostFrames = std::int64_t{1} << 48;
  static constexpr int kMostSamplesPerPoint = 1 << 24;

  bool operator==(const PeakPyramidFormat&) const = default;
};

// The format that suits a source: 16 bits where its samples have no more, and clipping at the largest value
// that its samples can have.
PeakPyramidFormat GetPeakPyramidFormat(const SampleSourceProperties& properties);

// The peaks of audio of any length at levels of detail: level 0 with a point for each `samplesPerPoint`
// samples, each further level with a point for four of the one below, the last of a level for what is left.
// Minima and maxima are exact; RMS is within 1 percent.
//
// Memory follows the audio: 6 bytes for each finest point of 16-bit audio, 10 for other, and a third more for
// the levels above (13 hours of 16-bit stereo at 48 kHz: 560 MB); stretches of silence take next to none.
//
// Points come in pages of kPointsPerPage finest points of all channels. Each page is set once, by any thread,
// while others look: a page is seen whole or not at all, and never changes.
class PeakPyramid {
 public:
  static constexpr int kFactor = 4;
  static constexpr int kLevelCount = 11;
  static constexpr std::int64_t kPointsPerPage = 4096;

  // Throws std::invalid_argument for values beyond the ranges of PeakPyramidFormat.
  explicit PeakPyramid(const PeakPyramidFormat& format);
  ~PeakPyramid();
  PeakPyramid(const PeakPyramid&) = delete;
  PeakPyramid& operator=(const PeakPyramid&) = delete;

  const PeakPyramidFormat& GetFormat() const { return mFormat; }
  std::int64_t GetFrameCount() const { return mFormat.frames; }
  std::size_t GetChannelCount() const { return static_cast<std::size_t>(mFormat.channelCount); }
  std::int64_t GetSamplesPerPoint(int level) const;
  std::int64_t GetPointCount(int level) const;

  std::int64_t GetPageCount() const { return mPageCount; }
  // Finest points of a page: kPointsPerPage but for the last.
  std::int64_t GetPointsOfPage(std::int64_t page) const;
  bool HasPage(std::int64_t page) const;
  std::int64_t GetPagesDone() const { return mPagesDone.load(std::memory_order_acquire); }
  bool IsComplete() const { return GetPagesDone() == mPageCount; }
  // From 0 to 1.
  double GetProgress() const;

  // Takes in the finest points of a page, GetPointsOfPage(page) of each channel; without RMS
  // the sums of squares aren't read and may be null. Throws std::invalid_argument when the page was set
  // before or the runs aren't one per channel.
  void SetPage(std::int64_t page, std::span<const PeakRun> channels);

  // One point. Throws std::out_of_range when there is no such.
  PeakPoint GetPoint(int level, std::size_t channel, std::int64_t index) const;
  // The points that the frames from `begin` up to but not including `end` lie in, as one: exact when both are
  // multiples of the samples per point or ends of the audio. What lies outside the audio doesn't count. The
  // cost hardly grows with the length.
  PeakPoint GetRange(std::size_t channel, std::int64_t begin, std::int64_t end) const;

  // Bytes taken at the moment.
  std::size_t GetMemorySize() const { return mMemorySize.load(std::memory_order_relaxed); }

 private:
  friend class PeakRunReader;
  struct Group;

  Group* GetGroup(std::int64_t page, bool create);

  PeakPyramidFormat mFormat;
  std::int64_t mPointCount = 0;
  std::int64_t mPageCount = 0;
  std::vector<std::atomic<Group*>> mGroups;
  std::atomic<std::int64_t> mPagesDone{0};
  std::atomic<std::size_t> mMemorySize{0};
};

}  // namespace moxaudiotoolkit
