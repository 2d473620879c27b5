#pragma once

#include <moxmediatypes/AudioChannels.h>

#include <cstddef>
#include <string>

namespace playground {

class AudioSession;

// The customary name of a channel of a file with so many, "Left" or "Centre", by the order in which WAV and
// FLAC files keep them; "Channel 7" where there is none.
std::string ChannelName(std::size_t channel, std::size_t channelCount);
// Its short form for labels, "L" or "C", else the number.
std::string ShortChannelName(std::size_t channel, std::size_t channelCount);

// The same for the session's sound, by the layout that it has.
std::string ChannelName(AudioSession const& session, std::size_t channel);
std::string ShortChannelName(AudioSession const& session, std::size_t channel);

// The labels that go with the customary names; all channels are unnamed where there are none.
moxmediatypes::AudioChannelLayout CustomaryLayout(std::size_t channelCount);
// The layout of the session's sound, or the customary one.
moxmediatypes::AudioChannelLayout LayoutOfSound(AudioSession const& session);

}  // namespace playground
