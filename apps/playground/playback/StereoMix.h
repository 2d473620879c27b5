#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace playground {

// How much of one channel goes to each side.
struct StereoGain {
  float left = 0.0f;
  float right = 0.0f;

  bool operator==(StereoGain const&) const = default;
};

// What each of a sound's channels gives to two loudspeakers. One channel goes to both, two go as they are.
// Three to six and eight channels, in the usual order, are folded as ITU-R BS.775 says: centre and surrounds
// at the square root of a half, the low frequencies left out. Of any other number the odd ones go to the
// left, the even ones to the right. More than two are scaled so that a side's gains add up to 1 at most: full
// scale in every channel doesn't clip. `enabled` tells which are heard; channels beyond it are.
std::vector<StereoGain> StereoMix(std::size_t channelCount, std::vector<bool> const& enabled = {});

// Folds whole frames of `gains.size()` interleaved channels to interleaved pairs, as many.
void FoldToStereo(std::span<float const> frames, std::span<StereoGain const> gains, std::span<float> pairs);

}  // namespace playground
