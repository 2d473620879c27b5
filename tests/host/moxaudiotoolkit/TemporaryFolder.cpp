#include "TemporaryFolder.h"

#include <fstream>
#include <iterator>

namespace moxaudiotoolkit::testing {

std::string TemporaryFolder::Write(std::string_view name, const std::vector<std::uint8_t>& bytes) const {
  return ScratchFolder::Write(name, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

std::vector<std::uint8_t> ReadBytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

}  // namespace moxaudiotoolkit::testing
