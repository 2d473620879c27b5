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
  WaveformStyle style;
};

// For levels at a glance.
WaveformStyle Levels() {
  WaveformStyle style;
  style.peakStyle = PeakStyle::kRectifiedFromZero;
  style.squareRoot = true;
  style.coloredChannels = false;
  style.centerlines = false;
  return style;
}

// For cutting at the sample.
WaveformStyle Cutting() {
  WaveformStyle style;
  style.rms = false;
  style.zoom = 2.0;
  style.rulerUnit = RulerUnit::kSamples;
  style.timeGridSpacing = 50;
  style.amplitudeDivisions = 3;
  return style;
}

WaveformStyle Layers() {
  WaveformStyle style;
  style.layered = true;
  style.rms = false;
  return style;
}

// Black on white, whatever the theme.
WaveformStyle Paper() {
  WaveformStyle style;
  auto const color = [&style](WaveformColor place, unsigned number) {
    style.colors[static_cast<std::size_t>(place)] = ColorOfNumber(number);
  };
  color(WaveformColor::kBackground, 0xffffff);
  color(WaveformColor::kSelectionBackground, 0xd8d8d8);
  color(WaveformColor::kCenterline, 0x808080);
  color(WaveformColor::kGridline, 0xd0d0d0);
  color(WaveformColor::kDivider, 0x000000);
  style.coloredChannels = false;
  style.waveColor = ColorOfNumber(0x000000);
  style.selectedWaveColor = ColorOfNumber(0x404040);
  style.rms = false;
  style.amplitudeDivisions = 1;
  return style;
}

Preset<WaveformPresetData> PresetOf(Factory const& factory, std::uint32_t place) {
  Preset<WaveformPresetData> preset;
  preset.guid = Guid(Utf8String(factory.guid));
  preset.type = WaveformPresetType();
  preset.name = factory.name;
  preset.flags = moxappsupport::presets::PresetFlagFactory;
  preset.sortOrder = place;
  preset.data.style = factory.style;
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
                WaveformStyle()},
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
