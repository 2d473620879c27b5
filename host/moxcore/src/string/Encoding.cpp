#include <moxcore/string/Encoding.h>

#include <algorithm>
#include <type_traits>

namespace moxcore::string {

namespace {

constexpr bool IsHighSurrogate(char32_t unit) noexcept {
  return unit >= 0xd800 && unit < 0xdc00;
}
constexpr bool IsLowSurrogate(char32_t unit) noexcept {
  return unit >= 0xdc00 && unit < 0xe000;
}

constexpr char32_t Legal(char32_t character) noexcept {
  auto const isSurrogate = character >= 0xd800 && character < 0xe000;
  return isSurrogate || character > 0x10ffff ? kReplacementCharacter : character;
}

template <class View>
std::size_t EndOfAscii(View text, std::size_t begin) noexcept {
  using Unit = std::make_unsigned_t<typename View::value_type>;
  auto const isOther = [](auto unit) { return static_cast<Unit>(unit) >= 0x80; };
  return static_cast<std::size_t>(std::find_if(text.begin() + begin, text.end(), isOther) - text.begin());
}

}  // namespace

char32_t NextCharacter(std::string_view text, std::size_t& position) noexcept {
  auto const byteAt = [&](std::size_t index) { return static_cast<unsigned char>(text[index]); };
  auto const lead = byteAt(position++);
  if (lead < 0x80) {
    return lead;
  }
  if (lead < 0xc2 || lead > 0xf4) {
    return kReplacementCharacter;
  }
  auto const followers = lead < 0xe0 ? 1 : lead < 0xf0 ? 2 : 3;
  char32_t character = lead & (0x3f >> followers);
  // The first follower has narrower bounds, which shut out overlong forms, surrogates and what is beyond
  // U+10FFFF (table 3-7 of the Unicode standard).
  unsigned char low = lead == 0xe0 ? 0xa0 : lead == 0xf0 ? 0x90 : 0x80;
  unsigned char high = lead == 0xed ? 0x9f : lead == 0xf4 ? 0x8f : 0xbf;
  for (int i = 0; i < followers; ++i) {
    if (position == text.size() || byteAt(position) < low || byteAt(position) > high) {
      return kReplacementCharacter;
    }
    character = character << 6 | (byteAt(position++) & 0x3f);
    low = 0x80;
    high = 0xbf;
  }
  return character;
}

char32_t NextCharacter(std::u16string_view text, std::size_t& position) noexcept {
  char32_t const unit = text[position++];
  if (IsHighSurrogate(unit) && position < text.size() && IsLowSurrogate(text[position])) {
    return 0x10000 + ((unit - 0xd800) << 10) + (text[position++] - 0xdc00u);
  }
  return Legal(unit);
}

void AppendCharacter(Utf8String& text, char32_t character) {
  character = Legal(character);
  auto const append = [&](char32_t byte) { text.push_back(static_cast<char>(byte)); };
  auto const appendFollower = [&](int shift) { append(0x80 | (character >> shift & 0x3f)); };
  if (character < 0x80) {
    append(character);
  } else if (character < 0x800) {
    append(0xc0 | character >> 6);
    appendFollower(0);
  } else if (character < 0x10000) {
    append(0xe0 | character >> 12);
    appendFollower(6);
    appendFollower(0);
  } else {
    append(0xf0 | character >> 18);
    appendFollower(12);
    appendFollower(6);
    appendFollower(0);
  }
}

void AppendCharacter(Utf16String& text, char32_t character) {
  character = Legal(character);
  if (character < 0x10000) {
    text.push_back(static_cast<char16_t>(character));
  } else {
    text.push_back(static_cast<char16_t>(0xd800 + ((character - 0x10000) >> 10)));
    text.push_back(static_cast<char16_t>(0xdc00 + (character & 0x3ff)));
  }
}

Utf16String UTF8to16(std::string_view text) {
  Utf16String result;
  result.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) {
    // Most texts are ASCII throughout, which widens many units at a time.
    auto const end = EndOfAscii(text, position);
    result.append(text.begin() + position, text.begin() + end);
    position = end;
    if (position < text.size()) {
      AppendCharacter(result, NextCharacter(text, position));
    }
  }
  return result;
}

Utf8String UTF16to8(std::u16string_view text) {
  Utf8String result;
  result.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) {
    auto const end = EndOfAscii(text, position);
    auto const old = result.size();
    result.resize(old + end - position);
    std::transform(text.begin() + position, text.begin() + end, result.begin() + old,
                   [](char16_t unit) { return static_cast<char>(unit); });
    position = end;
    if (position < text.size()) {
      AppendCharacter(result, NextCharacter(text, position));
    }
  }
  return result;
}

Utf16String AsciiToUTF16(std::string_view text) {
  Utf16String result;
  result.reserve(text.size());
  for (char const unit : text) {
    auto const byte = static_cast<unsigned char>(unit);
    result.push_back(byte < 0x80 ? byte : static_cast<char16_t>(kReplacementCharacter));
  }
  return result;
}

}  // namespace moxcore::string
