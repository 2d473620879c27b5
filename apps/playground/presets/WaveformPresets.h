#pragma once

#include "presets/WaveformPreset.h"

#include <moxcore/utility/Guid.h>
#include <moxmediaui/PresetCache.h>

#include <memory>

namespace playground {

// A directory of presets that begins with those of the program rather than with those of the library.
class WaveformPresetStorage : public moxappsupport::presets::DirBasedStorage {
 protected:
  WaveformPresetStorage(moxcore::Utf16String const& family, moxcore::Utf16String extension);
  ~WaveformPresetStorage() = default;

  static moxcore::Utf8String EmbeddedListText(moxcore::Utf16String const& family);
};

using WaveformPresetCache = moxappsupport::presets::PresetCache<WaveformPresetData, WaveformPresetStorage>;

// What the program knows of presets apart from the page that shows them. Nothing is read, and no folder made,
// before somebody asks for them.
class WaveformPresets {
 public:
  std::shared_ptr<WaveformPresetCache> const& Cache();
  // The preset that was chosen last; nil before.
  moxcore::Guid const& Current() const { return mCurrent; }
  void SetCurrent(moxcore::Guid const& guid) { mCurrent = guid; }

 private:
  std::shared_ptr<WaveformPresetCache> mCache;
  moxcore::Guid mCurrent;
};

}  // namespace playground
