#pragma once

#include "audio/WaveformSettings.h"

#include <moxcore/serialization/JSON.h>

#include <any>

namespace playground {

// What a preset of the waveform's view holds: all settings but those that are about one sound, which are the
// fade, the colours of single channels and which channels show. Those are as in new settings.
struct WaveformPresetData {
  WaveformSettings settings;

  bool operator==(WaveformPresetData const&) const = default;
};

WaveformPresetData PresetDataOf(WaveformSettings const& settings);
// Brings settings to a preset; what is about their sound stays.
void ApplyPresetData(WaveformPresetData const& data, WaveformSettings& settings);

}  // namespace playground

// As an object with a member for each setting: choices by their names, colours as "#RRGGBB" or "#RRGGBBAA",
// in "colors" those that don't follow the theme.
template <>
struct moxcore::serialization::JSONConvert<playground::WaveformPresetData> {
  // What is absent is as in new settings. Throws std::bad_any_cast for a value of another type,
  // std::invalid_argument with the key for one that the settings can't have.
  static playground::WaveformPresetData FromJSON(std::any const& value);
  static std::any ToJSON(playground::WaveformPresetData const& data);
};
