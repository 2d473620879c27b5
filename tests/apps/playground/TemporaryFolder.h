#pragma once

#include <filesystem>

namespace playground {

// A new, empty folder that goes with everything in it.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(TemporaryFolder const&) = delete;
  TemporaryFolder& operator=(TemporaryFolder const&) = delete;

  std::filesystem::path const& Path() const { return mPath; }

 private:
  std::filesystem::path mPath;
};

}  // namespace playground
