#include "program/Localized.h"

#include <moxcore/config/Localizer.h>
#include <moxcore/string/Encoding.h>

#include <cstddef>

namespace playground {
namespace {

// Fills in all places at once: what is put in isn't looked at again.
std::string Filled(std::string_view text, std::initializer_list<std::string_view> values) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '@' && i + 1 < text.size() && text[i + 1] >= '0' && text[i + 1] <= '9') {
      auto const place = static_cast<std::size_t>(text[i + 1] - '0');
      if (place < values.size()) {
        result += values.begin()[place];
        ++i;
        continue;
      }
    }
    result += text[i];
  }
  return result;
}

}  // namespace

std::string Text(std::string_view literal, std::initializer_list<std::string_view> values) {
  moxcore::Utf8String const text = moxcore::config::Localizer::Get().GetUTF8String(literal);
  return Filled(text, values);
}

moxcore::Utf16String Text16(std::string_view literal, std::initializer_list<std::string_view> values) {
  return To16(Text(literal, values));
}

moxcore::Utf16String To16(std::string_view text) {
  return moxcore::string::UTF8to16(text);
}

std::string To8(std::u16string_view text) {
  return std::string(moxcore::string::UTF16to8(text));
}

}  // namespace playground
