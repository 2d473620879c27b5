#include "presets/FactoryPresets.h"

#include "presets/WaveformPreset.h"
#include "program/HexColor.h"

#include <moxmediaui/Preset.h>

namespace playground {
namespace {

using moxappsupport::presets::Preset;
using moxcore::Guid;
using moxcore::Utf8String;

struct Factory {
  char const* guid;
  char const* name;
  WaveformSettings settings;
};

// For levels at a glance.
WaveformSettings Levels() {
  WaveformSettings settings;
  settings.peakStyle = PeakStyle::kRectifiedFromZero;
  settings.squareRoot = true;
  settings.coloredChannels = false;
  settings.centerlines = false;
  return settings;
}

// For cutting at the sample.
WaveformSettings Cutting() {
  WaveformSettings settings;
  settings.rms = false;
  settings.zoom = 2.0;
  settings.rulerUnit = RulerUnit::kSamples;
  settings.timeGridSpacing = 50;
  settings.amplitudeDivisions = 3;
  return settings;
}

WaveformSettings Layers() {
  WaveformSettings settings;
  settings.layered = true;
  settings.rms = false;
  return settings;
}

// Black on white, whatever the theme.
WaveformSettings Paper() {
  WaveformSettings settings;
  auto const color = [&settings](WaveformColor place, unsigned number) {
    settings.colors[static_cast<std::size_t>(place)] = ColorOfNumber(number);
  };
  color(WaveformColor::kBackground, 0xffffff);
  color(WaveformColor::kSelectionBackground, 0xd8d8d8);
  color(WaveformColor::kCenterline, 0x808080);
  color(WaveformColor::kGridline, 0xd0d0d0);
  color(WaveformColor::kDivider, 0x000000);
  settings.coloredChannels = false;
  settings.waveColor = ColorOfNumber(0x000000);
  settings.selectedWaveColor = ColorOfNumber(0x404040);
  settings.rms = false;
  settings.amplitudeDivisions = 1;
  return settings;
}

Preset<WaveformPresetData> PresetOf(Factory const& factory, std::uint32_t place) {
  Preset<WaveformPresetData> preset;
  preset.guid = Guid(Utf8String(factory.guid));
  preset.type = WaveformPresetType();
  preset.name = factory.name;
  preset.flags = moxappsupport::presets::PresetFlagFactory;
  preset.sortOrder = place;
  preset.data = PresetDataOf(factory.settings);
  return preset;
}

}  // namespace

Guid WaveformPresetType() {
  return Guid(Utf8String("85a3b10a-c660-403e-831d-064e7041702f"));
}

Utf8String FactoryPresetsText() {
  constexpr std::uint32_t kDistance = 100;
  std::any list = moxcore::serialization::JSONArray();
  std::uint32_t place = 0;
  for (Factory const& factory :
       {Factory{"d563b803-2078-4bb3-ae40-f1088add517f", "$$$/playground/presets/standard=Standard",
                WaveformSettings()},
        Factory{"c64700b9-e54a-44db-b060-f6f5d503739c", "$$$/playground/presets/levels=Levels", Levels()},
        Factory{"6289c0f8-80a3-4ccd-8dfd-b73d92fc82b6", "$$$/playground/presets/cutting=Cutting", Cutting()},
        Factory{"1e376e82-d4f9-44bc-8ef6-9311b8c1491f", "$$$/playground/presets/layers=Layers", Layers()},
        Factory{"52b80f82-bf6f-42c2-af2d-fc4822ddf020", "$$$/playground/presets/paper=On paper", Paper()}}) {
    place += kDistance;
    moxcore::serialization::AppendToArray(list, PresetToJSON(PresetOf(factory, place)));
  }
  return moxcore::serialization::GetJSONUTF8String(list);
}

}  // namespace playground
