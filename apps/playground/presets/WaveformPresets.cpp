#include "presets/WaveformPresets.h"

#include "presets/FactoryPresets.h"

#include <utility>

namespace playground {

WaveformPresetStorage::WaveformPresetStorage(moxcore::Utf16String const& family,
                                             moxcore::Utf16String extension)
    : DirBasedStorage(family, std::move(extension)) {}

moxcore::Utf8String WaveformPresetStorage::EmbeddedListText(moxcore::Utf16String const&) {
  return FactoryPresetsText();
}

std::shared_ptr<WaveformPresetCache> const& WaveformPresets::Cache() {
  if (!mCache) {
    mCache = std::make_shared<WaveformPresetCache>(u"WaveformView", u".preset");
  }
  return mCache;
}

}  // namespace playground
