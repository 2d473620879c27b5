#pragma once

#include <moxmediatypes/AudioChannels.h>
#include <moxmediatypes/WaveChannelMask.h>
#include <moxmediaui/PresetCache.h>

#include <cstddef>
#include <string>

namespace playground {

// A channel in words, "Left Surround"; by its number, counted from 1, where it has no label.
std::string ChannelText(moxmediatypes::AudioChannelLayout const& layout, std::size_t channel);
// Its short form, "Ls", or the number.
std::string ShortChannelText(moxmediatypes::AudioChannelLayout const& layout, std::size_t channel);
// All channels in their order.
std::string LayoutText(moxmediatypes::AudioChannelLayout const& layout);
std::string ShortLayoutText(moxmediatypes::AudioChannelLayout const& layout);
// "1 channel", "6 channels".
std::string ChannelCountText(std::size_t count);

// Why a WAV file can't say a layout.
std::string WaveFaultText(moxmediatypes::AudioChannelLayout const& layout,
                          moxmediatypes::WaveMaskResult const& result);

// Why a file among the presets was passed over.
std::string SkippedFileText(moxappsupport::presets::SkippedFile const& skipped);

}  // namespace playground
