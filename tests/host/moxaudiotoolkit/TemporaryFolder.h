#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace moxaudiotoolkit::testing {

// A folder of its own for a test, gone with the object.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::string& GetPath() const { return mPath; }
  // The path of a file of this name.
  std::string operator/(const std::string& name) const { return mPath + "/" + name; }
  // Writes a file of these bytes and gives its path.
  std::string Write(const std::string& name, const std::vector<std::uint8_t>& bytes) const;

 private:
  std::string mPath;
};

std::vector<std::uint8_t> ReadBytes(const std::string& path);

}  // namespace moxaudiotoolkit::testing
