#pragma once

#include <span>

namespace moxaudiotoolkit {

// Sets what is not a number to 0 and limits the rest to plus and minus kLargestSample.
void MakeHarmless(std::span<float> samples);

}  // namespace moxaudiotoolkit
