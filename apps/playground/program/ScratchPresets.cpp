#include "program/ScratchPresets.h"

#include <moxappsupport/LocalPresets.h>
#include <moxcore/filesupport/Dir.h>

#include <stdlib.h>

#include <cerrno>
#include <optional>
#include <string>
#include <system_error>

namespace playground {

using moxappsupport::presets::SetLocalPresetsBaseDir;

ScratchPresets::ScratchPresets() {
  std::string name = (std::filesystem::temp_directory_path() / "playground-presets-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) {
    throw std::system_error(errno, std::generic_category(), name);
  }
  mFolder = name;
  SetLocalPresetsBaseDir(moxcore::filesupport::Dir(moxcore::Utf8String(name)));
}

ScratchPresets::~ScratchPresets() {
  SetLocalPresetsBaseDir(std::nullopt);
  std::error_code ignored;
  std::filesystem::remove_all(mFolder, ignored);
}

}  // namespace playground
