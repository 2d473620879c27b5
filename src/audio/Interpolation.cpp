#include "Interpolation.h"

#include <algorithm>
#include <cmath>

namespace moxmediaui {

namespace {

constexpr float kPi = 3.1415927f;

// Hands the weight of each tap to `take`, in order. The growth of the arguments by addition is part of the
// result's rounding.
template <class Take>
void ForEachWeight(unsigned int count, float fraction, Take const& take) {
  float const half = static_cast<float>((count - 1) >> 1);
  float const step = kPi / half;
  float sincArgument = (-fraction - 0.5f - half) * kPi;
  float windowArgument = (2.0f * half + fraction) * step;
  for (unsigned int tap = 0; tap < count; ++tap) {
    float const sinc = sincArgument == 0.0f ? 1.0f : std::sin(sincArgument) / sincArgument;
    sincArgument += kPi;
    float const window = 0.5f - std::cos(windowArgument) * 0.5f;
    windowArgument -= step;
    take(tap, window * sinc);
  }
}

// What is gathered of the taps. The order of the sums is part of the result's rounding, too.
struct TapSums {
  float minimum = 1e7f;
  float maximum = -1e7f;
  float sum = 0.0f;

  void Add(float value, float weight) {
    sum += value * weight;
    minimum = std::min(minimum, value);
    maximum = std::max(maximum, value);
  }

  float Result(float weightSum) const {
    float const middle = (maximum + minimum) * 0.5f;
    return middle * weightSum + sum + middle;
  }
};

}  // namespace

float InterpolateWithSinc(unsigned int count, float fraction, float const* data) {
  TapSums sums;
  float weightSum = 0.0f;
  ForEachWeight(count, fraction, [&](unsigned int tap, float weight) {
    sums.Add(data[tap], weight);
    weightSum -= weight;
  });
  return sums.Result(weightSum);
}

SincWeights FindSincWeights(float fraction) {
  SincWeights weights{.fraction = fraction};
  ForEachWeight(kInterpolationTaps, fraction, [&](unsigned int tap, float weight) {
    weights.taps[tap] = weight;
    weights.sum -= weight;
  });
  return weights;
}

float InterpolateWithSinc(SincWeights const& weights, float const* data) {
  TapSums sums;
  for (unsigned int tap = 0; tap < kInterpolationTaps; ++tap) {
    sums.Add(data[tap], weights.taps[tap]);
  }
  return sums.Result(weights.sum);
}

}  // namespace moxmediaui
