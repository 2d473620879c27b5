#pragma once

#include "support/ScratchFolder.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace moxaudiotoolkit::testing {

// A folder of its own for a test, gone with the object, for files of bytes.
class TemporaryFolder : public tests::ScratchFolder {
 public:
  std::string GetPath() const { return Path().string(); }
  // Writes a file of these bytes and gives its path.
  std::string Write(std::string_view name, const std::vector<std::uint8_t>& bytes) const;
};

std::vector<std::uint8_t> ReadBytes(const std::string& path);

}  // namespace moxaudiotoolkit::testing
