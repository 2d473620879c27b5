#pragma once

#include <moxcore/string/String.h>

#include <cstddef>
#include <string_view>

namespace moxcore::string {

// Unicode's simple upper case, one character for one, whatever the locale: "ß" stays. Unpaired surrogates
// stay as they are.
void ToUpperCase(Utf16String& text);

// Whether Unicode counts the character as white space (no-break and ideographic spaces are, zero-width ones
// aren't).
bool IsWhiteSpace(char32_t character) noexcept;

// Take white space off the beginning or the end.
void LeftTrim(Utf16String& text);
void RightTrim(Utf16String& text);
void LeftTrim(Utf8String& text);
void RightTrim(Utf8String& text);

// Replaces every occurrence of `what`, from left to right; what was put in isn't looked at again. Gives the
// number of replacements; an empty `what` occurs nowhere.
std::size_t ReplaceInString(Utf8String& text, std::string_view what, std::string_view by);
std::size_t ReplaceInString(Utf16String& text, std::u16string_view what, std::u16string_view by);

// Full-width forms of ASCII characters (digits, signs, separators, letters), the ideographic space, comma and
// full stop, the minus sign and the prolonged sound mark, which keyboards for Japanese give for "-", become
// ASCII characters.
void ConvertFullWidthAndIdeographicCharacters(Utf16String& text);

}  // namespace moxcore::string
