#include "ViewColumns.h"

#include "ViewMapping.h"

#include <algorithm>
#include <cmath>

namespace moxaudiotoolkit::waveform {
namespace {

constexpr double kFarthestSample = 4611686018427387904.0;  // 2^62: no audio reaches there

}  // namespace

bool IsMeaningful(double viewLeft, double samplesPerPixel, int pixelWidth) {
  return std::isfinite(viewLeft) && std::isfinite(samplesPerPixel) && samplesPerPixel > 0.0 &&
         pixelWidth >= 1 && pixelWidth <= kWidestView;
}

bool WantsSamples(const WaveformQueryOptions& options, double samplesPerPixel) {
  return options.detail == WaveformDetail::kSamples ||
         (options.detail == WaveformDetail::kAutomatic && samplesPerPixel < options.samplesBelow);
}

std::shared_ptr<WaveformData> NoWaveform(std::size_t channelCount) {
  return std::make_shared<WaveformData>(WaveformDataProperties{.channelCount = channelCount},
                                        std::vector<float>());
}

std::vector<SampleRange> ColumnRanges(double viewLeft, double samplesPerPixel, std::int64_t frameCount,
                                      int pixelWidth, bool joinColumns) {
  const ViewMapping mapping(viewLeft, samplesPerPixel, frameCount);
  std::vector<SampleRange> ranges(static_cast<std::size_t>(pixelWidth));
  const auto leftPixel = mapping.GetLeftPixel();
  if (!leftPixel || frameCount == 0) {
    return ranges;
  }
  // No column before pixel 0 and after that of the last sample's end shows audio.
  const std::int64_t endPixel = std::max(mapping.GetPixel(frameCount), mapping.GetPixel(frameCount - 1) + 1);
  const std::int64_t first = std::max<std::int64_t>(-*leftPixel, 0);
  const std::int64_t last = std::min<std::int64_t>(endPixel - *leftPixel, pixelWidth);
  if (first >= last) {
    return ranges;
  }
  std::int64_t begin = mapping.GetFirstSample(*leftPixel + first);
  for (std::int64_t x = first; x < last; ++x) {
    const std::int64_t end = mapping.GetFirstSample(*leftPixel + x + 1);
    SampleRange& range = ranges[static_cast<std::size_t>(x)];
    // A column between two samples goes on showing the one before it.
    range.begin = begin == end ? begin - 1 : begin;
    range.end = joinColumns ? std::min(end + 1, frameCount) : std::max(end, range.begin + 1);
    begin = end;
  }
  return ranges;
}

std::optional<std::size_t> VisibleSamples(double samplesPerPixel, int pixelWidth) {
  const double visible = std::ceil(samplesPerPixel * pixelWidth) + 2.0 * std::ceil(samplesPerPixel) + 3.0;
  if (visible > static_cast<double>(kMostVisibleSamples)) {
    return std::nullopt;
  }
  return static_cast<std::size_t>(visible);
}

std::optional<std::int64_t> FirstSampleOfData(double viewLeft) {
  if (std::fabs(viewLeft) >= kFarthestSample) {
    return std::nullopt;
  }
  return static_cast<std::int64_t>(viewLeft) - 1 - static_cast<std::int64_t>(kLeadInSamples);
}

}  // namespace moxaudiotoolkit::waveform
