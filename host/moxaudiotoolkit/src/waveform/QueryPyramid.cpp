#include "../peaks/BlockScan.h"
#include "../peaks/PeakRunReader.h"
#include "ViewColumns.h"

#include <moxaudiotoolkit/peaks/PeakPyramid.h>
#include <moxaudiotoolkit/waveform/QueryPyramid.h>

#include <algorithm>
#include <span>
#include <utility>

namespace moxaudiotoolkit::waveform {
namespace {

// Read at a time, over all channels: 16 MiB of floats.
constexpr std::int64_t kMostFloatsAtOnce = 1 << 22;
// Measured as soon as they are read, while they are in the second-level cache.
constexpr std::int64_t kCachedFloats = 1 << 16;
constexpr std::size_t kMostFloatsOfData = std::size_t{1} << 25;
constexpr double kPointsPerColumn = 4.0;

// What becomes of the columns: pairs to draw, or what stands beside them.
class PairSink {
 public:
  PairSink(std::size_t channelCount, std::size_t columns)
      : mColumns(columns), mPairs(channelCount * columns * 2) {}

  void Put(std::size_t channel, std::size_t column, const PeakSum& sum) {
    if (!sum.IsEmpty()) {
      mPairs[(channel * mColumns + column) * 2] = sum.maximum;
      mPairs[(channel * mColumns + column) * 2 + 1] = sum.minimum;
    }
  }

  std::vector<float> TakePairs() { return std::move(mPairs); }

 private:
  std::size_t mColumns;
  std::vector<float> mPairs;
};

class LevelSink {
 public:
  LevelSink(std::size_t channelCount, std::size_t columns, float clipLevel) : mClipLevel(clipLevel) {
    const std::size_t all = channelCount * columns;
    mLevels = {.slots = columns,
               .rms = std::vector<float>(all),
               .clipped = std::vector<std::uint8_t>(all),
               .known = std::vector<std::uint8_t>(all, 1)};
  }

  void Put(std::size_t channel, std::size_t column, const PeakSum& sum) {
    const PeakPoint point = sum.GetPoint(mClipLevel);
    const std::size_t place = channel * mLevels.slots + column;
    mLevels.rms[place] = point.rms;
    mLevels.clipped[place] = point.clipped ? 1 : 0;
    mLevels.known[place] = point.known ? 1 : 0;
  }

  ColumnLevels TakeLevels() { return std::move(mLevels); }

 private:
  float mClipLevel;
  ColumnLevels mLevels;
};

int LevelOf(const PeakPyramid& pyramid, double samplesPerPixel) {
  int level = 0;
  while (level + 1 < PeakPyramid::kLevelCount &&
         static_cast<double>(pyramid.GetSamplesPerPoint(level + 1)) * kPointsPerColumn <= samplesPerPixel) {
    ++level;
  }
  return level;
}

template <class Sink>
void ColumnsOfPyramid(const PeakPyramid& pyramid, double samplesPerPixel,
                      const std::vector<SampleRange>& ranges, bool withSquares, Sink& sink) {
  const int level = LevelOf(pyramid, samplesPerPixel);
  const std::int64_t points = pyramid.GetSamplesPerPoint(level);
  for (std::size_t channel = 0; channel < pyramid.GetChannelCount(); ++channel) {
    PeakRunReader reader(pyramid, channel, level);
    for (std::size_t column = 0; column < ranges.size(); ++column) {
      const SampleRange& range = ranges[column];
      if (range.begin < range.end) {
        PeakSum sum;
#ifdef MOX_SEEDED_BUG
        reader.Add(range.begin / points, range.end / points, withSquares, sum);
#else
        reader.Add(range.begin / points, (range.end + points - 1) / points, withSquares, sum);
#endif
        sink.Put(channel, column, sum);
      }
    }
  }
}

// What the samples of columns amount to, channel by channel.
class ColumnMeter {
 public:
  ColumnMeter(std::size_t channelCount, bool withSquares)
      : mChannelCount(channelCount),
        mWithSquares(withSquares),
        mValues(3 * channelCount),
        mSums(channelCount) {}

  std::span<const PeakSum> Measure(std::span<const float> samples) {
    std::ranges::fill(mSums, PeakSum{});
    while (!samples.empty()) {
      const std::size_t count = std::min(samples.size(), kMostFramesAtOnce * mChannelCount);
      Add(samples.first(count));
      samples = samples.subspan(count);
    }
    return mSums;
  }

 private:
  // More squares than that would lose digits in a sum of floats.
  static constexpr std::size_t kMostFramesAtOnce = 256;

  void Add(std::span<const float> samples) {
    const FrameSums found{.minima = mValues.data(),
                          .maxima = mValues.data() + mChannelCount,
                          .squares = mWithSquares ? mValues.data() + 2 * mChannelCount : nullptr};
    MeasureFrames(samples, mChannelCount, found);
    const auto frames = static_cast<std::int64_t>(samples.size() / mChannelCount);
    for (std::size_t channel = 0; channel < mChannelCount; ++channel) {
      PeakSum& sum = mSums[channel];
      sum.AddPeaks(found.minima[channel], found.maxima[channel]);
      if (found.squares != nullptr) {
        sum.squares += found.squares[channel];
        sum.frames += frames;
      }
    }
  }

  std::size_t mChannelCount;
  bool mWithSquares;
  std::vector<float> mValues;
  std::vector<PeakSum> mSums;
};

// The columns from `first` on that are read at once; the end of them.
std::size_t EndOfPortion(const std::vector<SampleRange>& ranges, std::size_t first, std::int64_t mostFrames) {
  std::size_t last = first + 1;
  while (last < ranges.size() && ranges[last].begin < ranges[last].end &&
         ranges[last].end - ranges[first].begin <= mostFrames) {
    ++last;
  }
  return last;
}

template <class Sink>
bool ColumnsOfSamples(SampleWindow& window, const std::vector<SampleRange>& ranges, bool withSquares,
                      Sink& sink) {
  const auto channelCount = static_cast<std::size_t>(window.GetSource()->GetProperties().channelCount);
  const std::int64_t mostFrames = kMostFloatsAtOnce / static_cast<std::int64_t>(channelCount);
  const std::int64_t cachedFrames = kCachedFloats / static_cast<std::int64_t>(channelCount);
  ColumnMeter meter(channelCount, withSquares);
  for (std::size_t first = 0; first < ranges.size();) {
    if (ranges[first].begin >= ranges[first].end) {
      ++first;
      continue;
    }
    const std::size_t last = EndOfPortion(ranges, first, mostFrames);
    for (std::size_t column = first; column < last;) {
      const std::size_t end = std::min(EndOfPortion(ranges, column, cachedFrames), last);
      const auto samples = window.Read(ranges[column].begin, ranges[end - 1].end, ranges[last - 1].end);
      if (!samples) {
        return false;
      }
      for (const std::int64_t start = ranges[column].begin; column < end; ++column) {
        const SampleRange& range = ranges[column];
        const auto frames =
            samples->subspan(static_cast<std::size_t>(range.begin - start) * channelCount,
                             static_cast<std::size_t>(range.end - range.begin) * channelCount);
        const std::span<const PeakSum> sums = meter.Measure(frames);
        for (std::size_t channel = 0; channel < channelCount; ++channel) {
          sink.Put(channel, column, sums[channel]);
        }
      }
    }
    first = last;
  }
  return true;
}

bool CanRead(const PeakPyramid& pyramid, const SampleWindow* window) {
  if (window == nullptr || !window->HasSource()) {
    return false;
  }
  const SampleSourceProperties& properties = window->GetSource()->GetProperties();
  return properties.channelCount == pyramid.GetFormat().channelCount &&
         properties.frames >= pyramid.GetFrameCount();
}

template <class Sink>
void FillColumns(const PeakPyramid& pyramid, SampleWindow* window, double viewLeft, double samplesPerPixel,
                 int pixelWidth, bool joinColumns, bool withSquares, Sink& sink) {
  const std::vector<SampleRange> ranges =
      ColumnRanges(viewLeft, samplesPerPixel, pyramid.GetFrameCount(), pixelWidth, joinColumns);
  // Columns that would take more at once than is kept come from points, too.
  const bool narrow =
      samplesPerPixel < static_cast<double>(pyramid.GetSamplesPerPoint(0)) &&
      samplesPerPixel * pyramid.GetFormat().channelCount < static_cast<double>(kMostFloatsAtOnce);
  if (!narrow || !CanRead(pyramid, window) || !ColumnsOfSamples(*window, ranges, withSquares, sink)) {
    ColumnsOfPyramid(pyramid, samplesPerPixel, ranges, withSquares, sink);
  }
}

// Null when the samples can't be had.
std::shared_ptr<WaveformData> SamplesOfView(const PeakPyramid& pyramid, SampleWindow* window, double viewLeft,
                                            std::size_t visible) {
  const std::size_t channelCount = pyramid.GetChannelCount();
  const std::size_t slots = kLeadInSamples + visible + kLeadOutSamples;
  if (slots > kMostFloatsOfData / channelCount || !CanRead(pyramid, window)) {
    return nullptr;
  }
  std::vector<float> buffer(channelCount * slots);
  if (const auto start = FirstSampleOfData(viewLeft)) {
    const std::int64_t frameCount = pyramid.GetFrameCount();
    const std::int64_t begin = std::clamp<std::int64_t>(*start, 0, frameCount);
    const std::int64_t end =
        std::clamp<std::int64_t>(*start + static_cast<std::int64_t>(slots), begin, frameCount);
    const std::int64_t mostFrames = kMostFloatsAtOnce / static_cast<std::int64_t>(channelCount);
    for (std::int64_t first = begin; first < end; first += mostFrames) {
      const std::int64_t last = std::min(first + mostFrames, end);
      const auto samples = window->Read(first, last, end);
      if (!samples) {
        return nullptr;
      }
      const auto offset = static_cast<std::size_t>(first - *start);
      for (std::size_t i = 0; i < static_cast<std::size_t>(last - first); ++i) {
        for (std::size_t channel = 0; channel < channelCount; ++channel) {
          buffer[channel * slots + offset + i] = (*samples)[i * channelCount + channel];
        }
      }
    }
  }
  return std::make_shared<WaveformData>(
      WaveformDataProperties{
          .type = WaveformDataType::kSamples, .dataSlots = slots, .channelCount = channelCount},
      std::move(buffer));
}

}  // namespace

std::shared_ptr<WaveformData> QueryWaveform(const PeakPyramid& pyramid, SampleWindow* window, double viewLeft,
                                            double samplesPerPixel, int pixelWidth,
                                            const WaveformQueryOptions& options) {
  const std::size_t channelCount = pyramid.GetChannelCount();
  if (!IsMeaningful(viewLeft, samplesPerPixel, pixelWidth)) {
    return NoWaveform(channelCount);
  }
  if (WantsSamples(options, samplesPerPixel)) {
    if (const auto visible = VisibleSamples(samplesPerPixel, pixelWidth)) {
      if (auto samples = SamplesOfView(pyramid, window, viewLeft, *visible)) {
        return samples;
      }
    }
  }
  const auto columns = static_cast<std::size_t>(pixelWidth);
  PairSink sink(channelCount, columns);
  FillColumns(pyramid, window, viewLeft, samplesPerPixel, pixelWidth, options.joinColumns, false, sink);
  return std::make_shared<WaveformData>(
      WaveformDataProperties{
          .type = WaveformDataType::kPeaks, .dataSlots = columns, .channelCount = channelCount},
      sink.TakePairs());
}

ColumnLevels QueryColumnLevels(const PeakPyramid& pyramid, SampleWindow* window, double viewLeft,
                               double samplesPerPixel, int pixelWidth) {
  if (!IsMeaningful(viewLeft, samplesPerPixel, pixelWidth)) {
    return {};
  }
  LevelSink sink(pyramid.GetChannelCount(), static_cast<std::size_t>(pixelWidth),
                 pyramid.GetFormat().clipLevel);
  FillColumns(pyramid, window, viewLeft, samplesPerPixel, pixelWidth, false, true, sink);
  return sink.TakeLevels();
}

}  // namespace moxaudiotoolkit::waveform
