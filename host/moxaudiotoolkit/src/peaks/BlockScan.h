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

// Smallest and largest of interleaved samples for each channel, into `minima` and `maxima`, which stand at
// what was found before.
void WidenByFrames(std::span<const float> samples, std::size_t channelCount, float* minima, float* maxima);

// For processors with and without wide registers; the results differ in the last bits of sums only.
namespace portable {
void ScanInt16(std::span<const std::int16_t> samples, std::span<const PeakRun> runs, std::size_t firstPoint);
void ScanFloats(std::span<const float> samples, std::span<const PeakRun> runs, std::size_t firstPoint);
void WidenByFrames(std::span<const float> samples, std::size_t channelCount, float* minima, float* maxima);
}  // namespace portable
#if defined(__x86_64__)
namespace avx2 {
void ScanInt16(std::span<const std::int16_t> samples, std::span<const PeakRun> runs, std::size_t firstPoint);
void ScanFloats(std::span<const float> samples, std::span<const PeakRun> runs, std::size_t firstPoint);
void WidenByFrames(std::span<const float> samples, std::size_t channelCount, float* minima, float* maxima);
}  // namespace avx2
#endif

}  // namespace moxaudiotoolkit
