#pragma once

#include <moxaudiotoolkit/peaks/SampleSource.h>

#include <cstddef>
#include <cstdint>
#include <span>

namespace moxaudiotoolkit {

// Samples of all channels, interleaved, which begin on a point's first frame. Their points go into the runs,
// one run per channel, from `firstPoint` on. 16-bit samples are scaled to a full scale of 1.0.
void ScanInt16(std::span<const std::int16_t> samples, std::span<const PeakRun> runs, std::size_t firstPoint);
void ScanFloats(std::span<const float> samples, std::span<const PeakRun> runs, std::size_t firstPoint);

// 16-bit samples as floats with a full scale of 1.0.
void ConvertInt16(std::span<const std::int16_t> samples, float* destination);

// Where the findings about each channel go; without `squares` they aren't summed.
struct FrameSums {
  float* minima = nullptr;
  float* maxima = nullptr;
  float* squares = nullptr;
};

// Smallest and largest of interleaved samples and the sums of their squares, of each channel, in place of
// what the arrays held. Without samples: infinity, minus infinity, 0.
void MeasureFrames(std::span<const float> samples, std::size_t channelCount, const FrameSums& sums);

// For processors with and without wide registers; the results differ in the last bits of sums only.
namespace portable {
void ScanInt16(std::span<const std::int16_t> samples, std::span<const PeakRun> runs, std::size_t firstPoint);
void ScanFloats(std::span<const float> samples, std::span<const PeakRun> runs, std::size_t firstPoint);
void MeasureFrames(std::span<const float> samples, std::size_t channelCount, const FrameSums& sums);
void ConvertInt16(std::span<const std::int16_t> samples, float* destination);
}  // namespace portable
#if defined(__x86_64__)
namespace avx2 {
void ScanInt16(std::span<const std::int16_t> samples, std::span<const PeakRun> runs, std::size_t firstPoint);
void ScanFloats(std::span<const float> samples, std::span<const PeakRun> runs, std::size_t firstPoint);
void MeasureFrames(std::span<const float> samples, std::size_t channelCount, const FrameSums& sums);
void ConvertInt16(std::span<const std::int16_t> samples, float* destination);
}  // namespace avx2
#endif

}  // namespace moxaudiotoolkit
