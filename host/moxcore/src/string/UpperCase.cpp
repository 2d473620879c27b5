#include "UpperCaseTable.h"

#include <moxcore/string/Encoding.h>
#include <moxcore/string/TextOperations.h>

#include <algorithm>
#include <utility>

namespace moxcore::string {

namespace {

char32_t UpperCase(char32_t character) noexcept {
  if (character < 0x80) {
    return character >= 'a' && character <= 'z' ? character - 0x20 : character;
  }
  auto const ranges = UpperCaseRanges();
  auto const range = std::ranges::lower_bound(ranges, character, {}, &UpperCaseRange::last);
  if (range == ranges.end() || character < range->first || (character - range->first) % range->stride != 0) {
    return character;
  }
  return static_cast<char32_t>(static_cast<std::int32_t>(character) + range->delta);
}

}  // namespace

void ToUpperCase(Utf16String& text) {
  Utf16String result;
  result.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) {
    auto const start = position;
    auto const character = NextCharacter(text, position);
    auto const upper = UpperCase(character);
    if (upper == character) {
      result.append(text, start, position - start);
    } else {
      AppendCharacter(result, upper);
    }
  }
  text = std::move(result);
}

}  // namespace moxcore::string
