#pragma once

#include <moxcore/serialization/JSON.h>
#include <moxmediaui/AudioChannelLayoutPresetData.h>
#include <moxmediaui/Preset.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <exception>

// What the targets that read presets require of them.
namespace preset_reading {

using moxappsupport::presets::MakePresetCopy;
using moxappsupport::presets::ParsePresetListText;
using moxappsupport::presets::ParsePresetText;
using moxappsupport::presets::Preset;
using moxappsupport::presets::PresetLess;
using moxappsupport::presets::PresetToJSON;
using moxmediaui::AudioChannelLayoutPresetData;

inline void Require(bool condition) {
  if (!condition) {
    std::abort();
  }
}

// As opposed to the empty record that stands for what is no object.
inline bool IsComplete(const Preset<AudioChannelLayoutPresetData>& preset) {
  return !preset.data.channelLayout.empty();
}

inline void RequireRoundTrip(const Preset<AudioChannelLayoutPresetData>& preset) {
  const auto text = moxcore::serialization::GetJSONUTF8String(PresetToJSON(preset), false);
  Require(ParsePresetText<AudioChannelLayoutPresetData>(text.c_str(), text.size() + 1) == preset);
  Require(moxcore::serialization::GetJSONUTF8String(PresetToJSON(preset), false) == text);
}

}  // namespace preset_reading
