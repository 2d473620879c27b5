#pragma once

#include <moxaudiotoolkit/waveform/QueryWaveform.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace moxaudiotoolkit::waveform {

// What the queries of all kinds of audio share: which samples a view shows.

bool IsMeaningful(double viewLeft, double samplesPerPixel, int pixelWidth);
bool WantsSamples(const WaveformQueryOptions& options, double samplesPerPixel);
std::shared_ptr<WaveformData> NoWaveform(std::size_t channelCount);

struct SampleRange {
  std::int64_t begin = 0;
  std::int64_t end = 0;
};

// The samples that each column of the view shows; an empty range is silence.
std::vector<SampleRange> ColumnRanges(double viewLeft, double samplesPerPixel, std::int64_t frameCount,
                                      int pixelWidth, bool joinColumns);

// How many samples a curve with a point on each pixel and the dots on it reach into. The curve starts up to a
// pixel left of the view and every position is rounded down twice, to a pixel and to a sample. Nothing when
// there are more than can be given.
std::optional<std::size_t> VisibleSamples(double samplesPerPixel, int pixelWidth);

// The sample that stands first in data of type kSamples; nothing when it lies beyond all audio.
std::optional<std::int64_t> FirstSampleOfData(double viewLeft);

}  // namespace moxaudiotoolkit::waveform
