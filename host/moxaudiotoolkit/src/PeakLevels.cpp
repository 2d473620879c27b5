#include "PeakLevels.h"

#include "Lanes.h"

#include <algorithm>
#include <limits>

namespace moxaudiotoolkit {
namespace {

// Collects peaks; starts below and above all values so that the first one counts.
class PeakCollector {
 public:
  void Add(float sample) {
    mPeaks.maximum = std::max(mPeaks.maximum, sample);
    mPeaks.minimum = std::min(mPeaks.minimum, sample);
  }

  void Add(const PeakPair& peaks) {
    mPeaks.maximum = std::max(mPeaks.maximum, peaks.maximum);
    mPeaks.minimum = std::min(mPeaks.minimum, peaks.minimum);
  }

  void Add(std::span<const float> samples) {
    std::size_t i = 0;
    if (samples.size() >= 2 * kLanes) {
      // Two registers at once hide the latency of a comparison.
      Lanes high0 = LoadLanes(samples.data());
      Lanes high1 = LoadLanes(samples.data() + kLanes);
      Lanes low0 = high0;
      Lanes low1 = high1;
      for (i = 2 * kLanes; i + 2 * kLanes <= samples.size(); i += 2 * kLanes) {
        const Lanes a = LoadLanes(samples.data() + i);
        const Lanes b = LoadLanes(samples.data() + i + kLanes);
        high0 = a > high0 ? a : high0;
        low0 = a < low0 ? a : low0;
        high1 = b > high1 ? b : high1;
        low1 = b < low1 ? b : low1;
      }
      for (std::size_t lane = 0; lane < kLanes; ++lane) {
        Add({.maximum = std::max(high0[lane], high1[lane]), .minimum = std::min(low0[lane], low1[lane])});
      }
    }
    for (; i < samples.size(); ++i) {
      Add(samples[i]);
    }
  }

  void Add(std::span<const PeakPair> peaks) {
    for (const PeakPair& pair : peaks) {
      Add(pair);
    }
  }

  PeakPair GetPeaks() const { return mPeaks.maximum < mPeaks.minimum ? PeakPair{} : mPeaks; }

 private:
  PeakPair mPeaks{.maximum = -std::numeric_limits<float>::infinity(),
                  .minimum = std::numeric_limits<float>::infinity()};
};

// Collects one block after the other: `blockSize` values make one peak.
template <class Value>
std::vector<PeakPair> PeaksOfBlocks(std::span<const Value> values, std::size_t blockSize) {
  std::vector<PeakPair> peaks;
  peaks.reserve((values.size() + blockSize - 1) / blockSize);
  for (std::size_t i = 0; i < values.size(); i += blockSize) {
    PeakCollector collector;
    collector.Add(values.subspan(i, std::min(blockSize, values.size() - i)));
    peaks.push_back(collector.GetPeaks());
  }
  return peaks;
}

// Collects those values of [begin, end) that fill no whole block and turns the range into one of blocks. The
// last block counts as whole when the values end in it.
template <class Value>
void AddEdges(PeakCollector& collector, std::span<const Value> values, std::size_t blockSize,
              std::size_t& begin, std::size_t& end) {
  const std::size_t firstBlock = (begin + blockSize - 1) / blockSize;
  const std::size_t lastBlock = end == values.size() ? (end + blockSize - 1) / blockSize : end / blockSize;
  if (firstBlock >= lastBlock) {
    collector.Add(values.subspan(begin, end - begin));
    begin = end = 0;
    return;
  }
  collector.Add(values.subspan(begin, firstBlock * blockSize - begin));
  if (lastBlock * blockSize < end) {
    collector.Add(values.subspan(lastBlock * blockSize, end - lastBlock * blockSize));
  }
  begin = firstBlock;
  end = lastBlock;
}

}  // namespace

PeakPair PeaksOfSamples(std::span<const float> samples) {
  PeakCollector collector;
  collector.Add(samples);
  return collector.GetPeaks();
}

PeakLevels BuildPeakLevels(std::span<const float> samples) {
  PeakLevels levels;
  if (samples.size() <= kSamplesPerPeak) {
    return levels;
  }
  levels.push_back(PeaksOfBlocks(samples, kSamplesPerPeak));
  while (levels.back().size() > kPeaksPerPeak) {
    levels.push_back(PeaksOfBlocks(std::span<const PeakPair>(levels.back()), kPeaksPerPeak));
  }
  return levels;
}

PeakPair PeaksOfRange(std::span<const float> samples, const PeakLevels& levels, std::size_t begin,
                      std::size_t end) {
  PeakCollector collector;
  if (levels.empty()) {
    collector.Add(samples.subspan(begin, end - begin));
    return collector.GetPeaks();
  }
  AddEdges(collector, samples, kSamplesPerPeak, begin, end);
  for (std::size_t level = 0; begin < end; ++level) {
    const std::span<const PeakPair> peaks = levels[level];
    if (level + 1 == levels.size()) {
      collector.Add(peaks.subspan(begin, end - begin));
      break;
    }
    AddEdges(collector, peaks, kPeaksPerPeak, begin, end);
  }
  return collector.GetPeaks();
}

}  // namespace moxaudiotoolkit
