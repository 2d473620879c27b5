#pragma once

#include <moxmediaui/WaveformDraw.h>

#include <cstdint>
#include <functional>
#include <vector>

namespace moxmediaui {

/// A gain for the samples from position `left` to before `left + width`, in a view that begins at `viewLeft`.
struct SampleGain {
  double viewLeft = 0.0;
  std::int64_t left = 0;
  std::int64_t width = 0;
  float factor = 1.0f;
};

/// Multiplies those samples of all enabled channels by the gain. `samples` holds a run of samples per
/// channel, laid out as in WaveformData; what lies around the samples of the view is left alone.
void ApplySampleGain(WaveformDataProperties const& properties, std::function<bool(int)> const& isEnabled,
                     SampleGain const& gain, std::vector<float>& samples);

}  // namespace moxmediaui
