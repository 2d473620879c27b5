#include "SampleGain.h"

#include "IndexRange.h"
#include "SampleWindow.h"

namespace moxmediaui {

void ApplySampleGain(WaveformDataProperties const& properties, std::function<bool(int)> const& isEnabled,
                     SampleGain const& gain, std::vector<float>& samples) {
  std::size_t const slots = properties.dataSlots;
  std::int64_t const origin = SaturatingDifference(TruncateToInt64(gain.viewLeft), 1);
  std::int64_t const last = SaturatingDifference(SaturatingSum(gain.left, gain.width), 1);
  IndexRange const range = FindIndexes(gain.left, last, origin, CountVisibleSamples(slots));
  // Without samples there may be any number of channels.
  for (std::size_t channel = 0; channel < properties.channelCount && range.begin < range.end; ++channel) {
    if (isEnabled(static_cast<int>(channel))) {
      float* const run = samples.data() + channel * slots + kFirstVisibleSample;
      for (std::int64_t index = range.begin; index < range.end; ++index) {
        run[index] *= gain.factor;
      }
    }
  }
}

}  // namespace moxmediaui
