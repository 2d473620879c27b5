#include "BlockScan.h"

namespace moxaudiotoolkit {
namespace {

bool HasAvx2() {
#if defined(__x86_64__)
  static const bool sHasAvx2 = __builtin_cpu_supports("avx2") != 0 && __builtin_cpu_supports("fma") != 0;
  return sHasAvx2;
#else
  return false;
#endif
}

}  // namespace

void ScanInt16(std::span<const std::int16_t> samples, std::span<const PeakRun> runs, std::size_t firstPoint) {
#if defined(__x86_64__)
  if (HasAvx2()) {
    return avx2::ScanInt16(samples, runs, firstPoint);
  }
#endif
  portable::ScanInt16(samples, runs, firstPoint);
}

void ScanFloats(std::span<const float> samples, std::span<const PeakRun> runs, std::size_t firstPoint) {
#if defined(__x86_64__)
  if (HasAvx2()) {
    return avx2::ScanFloats(samples, runs, firstPoint);
  }
#endif
  portable::ScanFloats(samples, runs, firstPoint);
}

void MeasureFrames(std::span<const float> samples, std::size_t channelCount, const FrameSums& sums) {
#if defined(__x86_64__)
  if (HasAvx2()) {
    return avx2::MeasureFrames(samples, channelCount, sums);
  }
#endif
  portable::MeasureFrames(samples, channelCount, sums);
}

void ConvertInt16(std::span<const std::int16_t> samples, float* destination) {
#if defined(__x86_64__)
  if (HasAvx2()) {
    return avx2::ConvertInt16(samples, destination);
  }
#endif
  portable::ConvertInt16(samples, destination);
}

}  // namespace moxaudiotoolkit
