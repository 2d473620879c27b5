#pragma once

#include "audio/WaveformSettings.h"

#include <moxcore/serialization/JSON.h>

#include <any>

namespace playground {

// What a preset of the waveform's view holds.
struct WaveformPresetData {
  WaveformStyle style;

  bool operator==(WaveformPresetData const&) const = default;
};

}  // namespace playground

// As an object with a member for each setting of the style: choices by their names, colours as "#RRGGBB" or
// "#RRGGBBAA", in "colors" those that don't follow the theme.
template <>
struct moxcore::serialization::JSONConvert<playground::WaveformPresetData> {
  // What is absent is as in new settings. Throws std::bad_any_cast for a value of another type,
  // std::invalid_argument with the key for one that the settings can't have.
  static playground::WaveformPresetData FromJSON(std::any const& value);
  static std::any ToJSON(playground::WaveformPresetData const& data);
};
