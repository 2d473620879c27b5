#include "WellFormedText.h"

#include <moxcore/string/Encoding.h>

#include <cstdint>
#include <cstring>

namespace moxcore::serialization {

namespace {

constexpr std::string_view kReplacement = "\xef\xbf\xbd";

bool AreAscii(char const* bytes) noexcept {
  std::uint64_t word = 0;
  std::memcpy(&word, bytes, sizeof word);
  return (word & 0x8080808080808080) == 0;
}

}  // namespace

std::size_t WellFormedSize(std::string_view text) noexcept {
  for (std::size_t position = 0; position < text.size();) {
    if (text.size() - position >= sizeof(std::uint64_t) && AreAscii(text.data() + position)) {
      position += sizeof(std::uint64_t);
      continue;
    }
    auto const begin = position;
    if (string::NextCharacter(text, position) == string::kReplacementCharacter &&
        text.substr(begin, position - begin) != kReplacement) {
      return begin;
    }
  }
  return text.size();
}

}  // namespace moxcore::serialization
