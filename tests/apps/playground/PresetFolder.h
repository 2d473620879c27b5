#pragma once

#include "support/ScratchFolder.h"

#include <moxappsupport/LocalPresets.h>
#include <moxcore/filesupport/Dir.h>

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace playground {

// Presets are kept in a folder of the test's while one lives, and never in the user's. Several that live at a
// time share one folder, so that a program can end and begin again over the same presets.
class PresetFolder {
 public:
  PresetFolder() : mFolder(sShared.lock()) {
    if (!mFolder) {
      mFolder = std::make_shared<tests::ScratchFolder>();
      sShared = mFolder;
      moxappsupport::presets::SetLocalPresetsBaseDir(
          moxcore::filesupport::Dir(moxcore::Utf8String(mFolder->Path().string())));
    }
  }
  ~PresetFolder() {
    mFolder.reset();
    if (sShared.expired()) {
      moxappsupport::presets::SetLocalPresetsBaseDir(std::nullopt);
    }
  }
  PresetFolder(PresetFolder const&) = delete;
  PresetFolder& operator=(PresetFolder const&) = delete;

  tests::ScratchFolder const& Base() const { return *mFolder; }

 private:
  inline static std::weak_ptr<tests::ScratchFolder> sShared;
  std::shared_ptr<tests::ScratchFolder> mFolder;
};

}  // namespace playground
