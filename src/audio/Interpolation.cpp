#include "Interpolation.h"

#include <algorithm>
#include <cmath>

namespace moxmediaui {

namespace {
constexpr float kPi = 3.1415927f;
}

// The order of the sums and the growth of the arguments by addition are part of the result's rounding.
float InterpolateWithSinc(unsigned int count, float fraction, float const* data) {
  float const half = static_cast<float>((count - 1) >> 1);
  float const step = kPi / half;
  float sincArgument = (-fraction - 0.5f - half) * kPi;
  float windowArgument = (2.0f * half + fraction) * step;
  float minimum = 1e7f;
  float maximum = -1e7f;
  float sum = 0.0f;
  float weightSum = 0.0f;
  for (unsigned int tap = 0; tap < count; ++tap) {
    float const value = data[tap];
    float const sinc = sincArgument == 0.0f ? 1.0f : std::sin(sincArgument) / sincArgument;
    sincArgument += kPi;
    float const window = 0.5f - std::cos(windowArgument) * 0.5f;
    windowArgument -= step;
    float const weight = window * sinc;
    sum += value * weight;
    weightSum -= weight;
    minimum = std::min(minimum, value);
    maximum = std::max(maximum, value);
  }
  float const middle = (maximum + minimum) * 0.5f;
  return middle * weightSum + sum + middle;
}

}  // namespace moxmediaui
