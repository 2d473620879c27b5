#pragma once

#include <moxmediaui/WaveformDraw.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace moxmediaui {

/// How many samples the interpolation of one point looks at.
inline constexpr unsigned int kInterpolationTaps = 44;
/// Index of the first sample that belongs to the view, one before its left edge, in a run of samples.
inline constexpr std::size_t kFirstVisibleSample = moxaudiotoolkit::waveform::kLeadInSamples;
/// What a run holds besides the samples of the view.
inline constexpr std::size_t kPaddingSamples =
    moxaudiotoolkit::waveform::kLeadInSamples + moxaudiotoolkit::waveform::kLeadOutSamples;

/// How many samples of a run belong to the view; the last sample that has a dot isn't counted.
constexpr std::size_t CountVisibleSamples(std::size_t slots) {
  return slots > kPaddingSamples ? slots - kPaddingSamples : 0;
}

/// Fills `window` with the samples from index `start` on; beyond an end of the run (of `count` samples, one
/// at least) the sample at that end goes on.
void CopySampleWindow(float const* samples, std::size_t count, std::int64_t start,
                      std::vector<float>& window);

/// `value` as the scaling style shows it.
inline float ScaledValue(float value, WaveformScalingStyle style) {
  if (style != WaveformScalingStyle::kSquareRoot) {
    return value;
  }
  return value >= 0.0f ? std::sqrt(value) : -std::sqrt(-value);
}

}  // namespace moxmediaui
