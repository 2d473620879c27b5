#pragma once

#include <moxcore/serialization/JSON.h>
#include <moxmediatypes/AudioChannels.h>

#include <any>

namespace moxmediaui {

/// What a preset of a channel layout holds: the labels of the channels, in their order.
struct AudioChannelLayoutPresetData {
  moxmediatypes::AudioChannelLayout channelLayout;

  friend bool operator==(AudioChannelLayoutPresetData const&, AudioChannelLayoutPresetData const&) = default;
};

}  // namespace moxmediaui

/// As {"audiochannellayout": [{"channellabel": 100}, ...]}.
template <>
struct moxcore::serialization::JSONConvert<moxmediaui::AudioChannelLayoutPresetData> {
  /// Of a label only the low 32 bits are kept. Throws missing_key_exception for a key that is absent,
  /// std::bad_any_cast for a value of another type, std::invalid_argument for a layout without channels.
  static moxmediaui::AudioChannelLayoutPresetData FromJSON(std::any const& value);
  /// A layout without channels can be written, though not be read again.
  static std::any ToJSON(moxmediaui::AudioChannelLayoutPresetData const& data);
};
