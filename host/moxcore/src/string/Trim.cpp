#include <moxcore/string/Encoding.h>
#include <moxcore/string/TextOperations.h>

namespace moxcore::string {

namespace {

template <class Text>
std::size_t EndOfLeadingSpace(Text const& text) {
  std::size_t position = 0;
  while (position < text.size()) {
    auto next = position;
    if (!IsWhiteSpace(NextCharacter(text, next))) {
      break;
    }
    position = next;
  }
  return position;
}

// Read forwards, since a broken sequence can't be told from a whole one backwards.
template <class Text>
std::size_t BeginOfTrailingSpace(Text const& text) {
  std::size_t begin = 0;
  for (std::size_t position = 0; position < text.size();) {
    if (!IsWhiteSpace(NextCharacter(text, position))) {
      begin = position;
    }
  }
  return begin;
}

}  // namespace

bool IsWhiteSpace(char32_t c) noexcept {
  return (c >= 0x9 && c <= 0xd) || c == 0x20 || c == 0x85 || c == 0xa0 || c == 0x1680 ||
         (c >= 0x2000 && c <= 0x200a) || c == 0x2028 || c == 0x2029 || c == 0x202f || c == 0x205f ||
         c == 0x3000;
}

void LeftTrim(Utf16String& text) {
  text.erase(0, EndOfLeadingSpace(text));
}
void RightTrim(Utf16String& text) {
  text.erase(BeginOfTrailingSpace(text));
}
void LeftTrim(Utf8String& text) {
  text.erase(0, EndOfLeadingSpace(text));
}
void RightTrim(Utf8String& text) {
  text.erase(BeginOfTrailingSpace(text));
}

}  // namespace moxcore::string
