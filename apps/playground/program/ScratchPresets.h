#pragma once

#include <filesystem>

namespace playground {

// While it lives, presets are kept in a new folder, which goes with it.
class ScratchPresets {
 public:
  // Throws std::system_error when there is no room for temporary files.
  ScratchPresets();
  ~ScratchPresets();
  ScratchPresets(ScratchPresets const&) = delete;
  ScratchPresets& operator=(ScratchPresets const&) = delete;

 private:
  std::filesystem::path mFolder;
};

}  // namespace playground
