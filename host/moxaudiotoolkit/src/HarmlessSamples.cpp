#include "HarmlessSamples.h"

#include "Lanes.h"

#include <moxaudiotoolkit/AudioFile.h>

#include <cstddef>

namespace moxaudiotoolkit {
namespace {

// For a float or for Lanes. Every comparison with what is not a number is false, the one with itself too.
template <class Value>
Value Harmless(Value value, Value largest) {
  value = value > largest ? largest : value;
  value = value < -largest ? -largest : value;
  // NOLINTNEXTLINE(misc-redundant-expression): false for what is not a number
  return value == value ? value : Value{};
}

}  // namespace

void MakeHarmless(std::span<float> samples) {
  constexpr Lanes kLargest{kLargestSample, kLargestSample, kLargestSample, kLargestSample};
  std::size_t i = 0;
  for (; i + kLanes <= samples.size(); i += kLanes) {
    StoreLanes(Harmless(LoadLanes(&samples[i]), kLargest), &samples[i]);
  }
  for (; i < samples.size(); ++i) {
    samples[i] = Harmless(samples[i], kLargestSample);
  }
}

}  // namespace moxaudiotoolkit
