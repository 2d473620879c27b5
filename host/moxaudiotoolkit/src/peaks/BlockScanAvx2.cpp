// Compiled for processors with AVX2, where BlockScan.cpp alone may call it.
#include "BlockScan.h"
#include "BlockScanLoops.h"
#include "FrameScanLoops.h"

#if defined(__x86_64__)

namespace moxaudiotoolkit::avx2 {

void ScanInt16(std::span<const std::int16_t> samples, std::span<const PeakRun> runs, std::size_t firstPoint) {
  ScanSamples(samples.data(), samples.size(), runs.data(), runs.size(), firstPoint, kShortScale);
}

void ScanFloats(std::span<const float> samples, std::span<const PeakRun> runs, std::size_t firstPoint) {
  ScanSamples(samples.data(), samples.size(), runs.data(), runs.size(), firstPoint, 1.0F);
}

void MeasureFrames(std::span<const float> samples, std::size_t channelCount, const FrameSums& sums) {
  MeasureSamples(samples.data(), samples.size(), channelCount, sums);
}

void ConvertInt16(std::span<const std::int16_t> samples, float* destination) {
  ConvertShorts(samples.data(), samples.size(), destination);
}

}  // namespace moxaudiotoolkit::avx2

#endif
