#pragma once

#include <moxcore/string/String.h>

#include <initializer_list>
#include <string>
#include <string_view>

namespace playground {

// The text of a literal "$$$/path/key=Default" in the language of the moment, with `values` in the places @0,
// @1 and so on. UTF-8.
std::string Text(std::string_view literal, std::initializer_list<std::string_view> values = {});
// The same for controls.
moxcore::Utf16String Text16(std::string_view literal, std::initializer_list<std::string_view> values = {});

// Between the two encodings; what isn't well formed becomes U+FFFD.
moxcore::Utf16String To16(std::string_view text);
std::string To8(std::u16string_view text);

}  // namespace playground
