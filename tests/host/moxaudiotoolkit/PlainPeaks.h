#pragma once

#include <moxaudiotoolkit/DecodedAudio.h>

#include <span>

namespace moxaudiotoolkit::testing {

// The largest and the smallest of some samples, looked at one by one; none of no samples.
PeakPair PeaksOneByOne(std::span<const float> samples);

}  // namespace moxaudiotoolkit::testing
