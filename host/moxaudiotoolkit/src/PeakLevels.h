#pragma once

#include <moxaudiotoolkit/DecodedAudio.h>

#include <cstddef>
#include <span>
#include <vector>

namespace moxaudiotoolkit {

// Peaks of blocks of samples: the first level over kSamplesPerPeak samples each, every further one over
// kPeaksPerPeak peaks of the level below, up to a level of kPeaksPerPeak or fewer. The last block of a level
// may be short. None for samples that make but one block.
using PeakLevels = std::vector<std::vector<PeakPair>>;

inline constexpr std::size_t kSamplesPerPeak = 64;
inline constexpr std::size_t kPeaksPerPeak = 4;

// Peaks of all samples given; silence when there are none.
PeakPair PeaksOfSamples(std::span<const float> samples);

PeakLevels BuildPeakLevels(std::span<const float> samples);

// The same as PeaksOfSamples of the samples from `begin` up to but not including `end`, both within the
// samples that the levels were built from, at a cost that hardly grows with their number.
PeakPair PeaksOfRange(std::span<const float> samples, const PeakLevels& levels, std::size_t begin,
                      std::size_t end);

}  // namespace moxaudiotoolkit
