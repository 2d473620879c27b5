#pragma once

#include <moxmediatypes/AudioChannels.h>

#include <cstddef>
#include <cstdint>
#include <set>
#include <span>

namespace moxmediatypes {

// The mask of loudspeakers in the header of a WAV file (dwChannelMask of WAVE_FORMAT_EXTENSIBLE, Microsoft
// 2001): a bit for each of eighteen places. Channels of the file are in the order of the bits, from the
// lowest on: front left, front right, front center, low frequency, back left, back right, front left of
// center, front right of center, back center, side left, side right, top center, top front left, center and
// right, top back left, center and right.
inline constexpr int kWavePlaceCount = 18;

// Why a mask can't say a layout.
enum class WaveMaskFault {
  kNone,
  kUnnamed,  // a channel has no label while others have
  kNoPlace,  // there is no such loudspeaker among the eighteen
  kTwice,    // the loudspeaker is that of a channel before it
  kOrder,    // the loudspeaker comes before that of the channel before it
};

struct WaveMaskResult {
  std::uint32_t mask = 0;  // 0 as well for a layout whose channels are all unnamed, which needs none
  WaveMaskFault fault = WaveMaskFault::kNone;
  std::size_t channel = 0;  // the first with a fault, from 0
  std::size_t earlier = 0;  // the one that it can't stand behind, for kTwice and kOrder
};

// Rear channels are at the back, side surround channels at the sides. Surround channels are at the back,
// where a 5.1 file has them, but at the sides where there are rear channels besides.
WaveMaskResult GetWaveChannelMask(const AudioChannelLayout& layout);

// The labels that have a place.
const std::set<AudioChannelDescription>& GetWaveChannelDescriptions();

// A label for each of a file's places, which are numbers of bits; others stand for unnamed channels. Back and
// side channels are rear and side surround where a file has both, and surround where it has one of them.
AudioChannelLayout GetLayoutOfWavePlaces(std::span<const int> places);
// The same for a mask. Channels beyond its bits are unnamed; bits beyond the channels count for nothing.
AudioChannelLayout GetLayoutOfWaveMask(std::uint32_t mask, std::size_t channelCount);

}  // namespace moxmediatypes
