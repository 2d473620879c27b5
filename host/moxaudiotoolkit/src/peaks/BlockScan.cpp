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

void WidenByFrames(std::span<const float> samples, std::size_t channelCount, float* minima, float* maxima) {
#if defined(__x86_64__)
  if (HasAvx2()) {
    return avx2::WidenByFrames(samples, channelCount, minima, maxima);
  }
#endif
  portable::WidenByFrames(samples, channelCount, minima, maxima);
}

}  // namespace moxaudiotoolkit
