#include "TemporaryFolder.h"

#include <stdlib.h>

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace moxaudiotoolkit::testing {

TemporaryFolder::TemporaryFolder() {
  mPath = (std::filesystem::temp_directory_path() / "audiotoolkit-XXXXXX").string();
  if (mkdtemp(mPath.data()) == nullptr) {
    throw std::runtime_error("No temporary folder at " + mPath);
  }
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(mPath, ignored);
}

std::string TemporaryFolder::Write(const std::string& name, const std::vector<std::uint8_t>& bytes) const {
  std::string path = *this / name;
  std::ofstream file(path, std::ios::binary);
  file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  return path;
}

std::vector<std::uint8_t> ReadBytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

}  // namespace moxaudiotoolkit::testing
