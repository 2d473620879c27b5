#pragma once

#include <moxcore/string/String.h>

#include <string_view>

namespace moxcore::string {

inline constexpr char32_t kReplacementCharacter = 0xfffd;

// Conversions never fail: what isn't well formed becomes U+FFFD, one for each maximal part of a broken
// sequence as the Unicode standard recommends.
Utf16String UTF8to16(std::string_view text);
Utf8String UTF16to8(std::u16string_view text);

// For texts that are ASCII by design; any other byte becomes U+FFFD.
Utf16String AsciiToUTF16(std::string_view text);

// Reads the character at `position`, which is inside the text, and moves behind it.
char32_t NextCharacter(std::string_view text, std::size_t& position) noexcept;
char32_t NextCharacter(std::u16string_view text, std::size_t& position) noexcept;

// Appends a character; one that no text may hold (a surrogate, beyond U+10FFFF) becomes U+FFFD.
void AppendCharacter(Utf8String& text, char32_t character);
void AppendCharacter(Utf16String& text, char32_t character);

}  // namespace moxcore::string
