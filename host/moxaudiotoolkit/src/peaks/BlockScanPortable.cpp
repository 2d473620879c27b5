#include "BlockScan.h"
#include "BlockScanLoops.h"

namespace moxaudiotoolkit::portable {

void ScanInt16(std::span<const std::int16_t> samples, std::span<const PeakRun> runs, std::size_t firstPoint) {
  ScanSamples(samples.data(), samples.size(), runs.data(), runs.size(), firstPoint, kShortScale);
}

void ScanFloats(std::span<const float> samples, std::span<const PeakRun> runs, std::size_t firstPoint) {
  ScanSamples(samples.data(), samples.size(), runs.data(), runs.size(), firstPoint, 1.0F);
}

void WidenByFrames(std::span<const float> samples, std::size_t channelCount, float* minima, float* maxima) {
  WidenBySamples(samples.data(), samples.size(), channelCount, minima, maxima);
}

}  // namespace moxaudiotoolkit::portable
