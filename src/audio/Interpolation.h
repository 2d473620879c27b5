#pragma once

#include "SampleWindow.h"

#include <array>
#include <limits>

namespace moxmediaui {

/// A value between samples: a Hann-windowed sinc over the `count` taps at `data`, after removing their offset
/// so that a constant signal doesn't ring. The kernel's centre lies at tap (count - 1) / 2 + 0.5 +
/// `fraction`. 0 when there are no taps.
float InterpolateWithSinc(unsigned int count, float fraction, float const* data);

/// What an interpolation by kInterpolationTaps taps multiplies them with, which depends on the fraction
/// alone.
struct SincWeights {
  float fraction = std::numeric_limits<float>::quiet_NaN();
  std::array<float, kInterpolationTaps> taps{};
  float sum = 0.0f;  // of the weights, negative
};

SincWeights FindSincWeights(float fraction);
/// The same, bit by bit, as with the fraction of the weights and kInterpolationTaps taps.
float InterpolateWithSinc(SincWeights const& weights, float const* data);

}  // namespace moxmediaui
