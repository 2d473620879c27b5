#pragma once

#include <cstddef>
#include <string>

namespace playground {

// The customary name of a channel of a file with so many, "Left" or "Centre", by the order in which WAV and
// FLAC files keep them; "Channel 7" where there is none.
std::string ChannelName(std::size_t channel, std::size_t channelCount);
// Its short form for labels, "L" or "C", else the number.
std::string ShortChannelName(std::size_t channel, std::size_t channelCount);

}  // namespace playground
