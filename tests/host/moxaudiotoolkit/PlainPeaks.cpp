#include "PlainPeaks.h"

#include <algorithm>

namespace moxaudiotoolkit::testing {

PeakPair PeaksOneByOne(std::span<const float> samples) {
  if (samples.empty()) {
    return {};
  }
  PeakPair peaks{.maximum = samples.front(), .minimum = samples.front()};
  for (const float sample : samples) {
    peaks.maximum = std::max(peaks.maximum, sample);
    peaks.minimum = std::min(peaks.minimum, sample);
  }
  return peaks;
}

}  // namespace moxaudiotoolkit::testing
