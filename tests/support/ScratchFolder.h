#pragma once

#include <stdlib.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tests {

// A folder of its own for a test, gone with the object.
class ScratchFolder {
 public:
  ScratchFolder() {
    auto pattern = (std::filesystem::temp_directory_path() / "mox-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) {
      throw std::runtime_error("no folder could be made for the test");
    }
    mPath = pattern;
  }
  ~ScratchFolder() {
    std::error_code error;
    for (auto const& entry : std::filesystem::recursive_directory_iterator(mPath, error)) {
      if (entry.is_directory(error) && !entry.is_symlink(error)) {
        std::filesystem::permissions(entry.path(), std::filesystem::perms::owner_all, error);
      }
    }
    std::filesystem::remove_all(mPath, error);
  }
  ScratchFolder(ScratchFolder const&) = delete;
  ScratchFolder& operator=(ScratchFolder const&) = delete;

  std::filesystem::path const& Path() const { return mPath; }
  std::string operator/(std::string_view name) const { return (mPath / name).string(); }

  std::string Write(std::string_view name, std::string_view text) const {
    std::ofstream(mPath / name, std::ios::binary) << text;
    return *this / name;
  }
  std::string Read(std::string_view name) const {
    std::ifstream stream(mPath / name, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(stream), {});
  }
  bool Has(std::string_view name) const {
    return std::filesystem::exists(std::filesystem::symlink_status(mPath / name));
  }
  // In order of their bytes.
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (auto const& entry : std::filesystem::directory_iterator(mPath)) {
      names.push_back(entry.path().filename().string());
    }
    std::ranges::sort(names);
    return names;
  }

 private:
  std::filesystem::path mPath;
};

}  // namespace tests
