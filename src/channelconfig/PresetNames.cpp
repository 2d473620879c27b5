#include <moxcore/config/Localizer.h>
#include <moxmediaui/PresetCacheAdapter.h>

namespace moxmediaui::preset_names {

using moxappsupport::presets::LocalizedPresetName;
using moxappsupport::presets::PresetRecord;
using moxcore::config::Localizer;

Utf8String LocalizedDefaultName() {
  return Localizer::Get().GetUTF8String(
      "$$$/mediaio/moxmediaui/Presets/DefaultPresetName=(Default)#{comment} the same text as that of "
      "app/Presets/DefaultPresetName");
}

Utf8String LocalizedCustomName() {
  return Localizer::Get().GetUTF8String(
      "$$$/mediaio/moxmediaui/Presets/CustomPresetName=(Custom)#{comment} the same text as that of "
      "app/PresetManager/CustomPresetName");
}

bool IsShownAs(PresetRecord const& preset, Utf16String const& name) {
  return moxcore::string::UTF8to16(LocalizedPresetName(preset)) == name;
}

PresetInfo InfoOf(PresetRecord const& preset) {
  return {preset.guid, LocalizedPresetName(preset), preset.flags};
}

Utf16String DisplayString(PresetRecord const& preset, bool modified, bool isReserved) {
  auto name = LocalizedPresetName(preset);
  if (modified) {
    name = isReserved ? LocalizedCustomName() : name + " *";
  }
  return moxcore::string::UTF8to16(name);
}

}  // namespace moxmediaui::preset_names
