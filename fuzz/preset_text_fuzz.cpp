// Reads bytes as the text of a preset. Whatever is read has channels and, written, reads as the same preset.
#include "PresetReading.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace preset_reading;
  Preset<AudioChannelLayoutPresetData> preset;
  try {
    preset = ParsePresetText<AudioChannelLayoutPresetData>(data, size);
  } catch (const std::exception&) {
    return 0;
  }
  Require(preset == Preset<AudioChannelLayoutPresetData>() || IsComplete(preset));
  if (IsComplete(preset)) {
    RequireRoundTrip(preset);
    RequireRoundTrip(MakePresetCopy(preset));
  }
  return 0;
}
