#pragma once

#include <moxcore/string/String.h>

#include <string_view>

namespace moxcore::config {

// A literal `$$$/path/key=Default text#{comment} remark` taken apart.
struct LocalizedLiteral {
  // "$$$/path/key"; empty for a text that has no such head.
  std::string_view key;
  // What is behind the "=", not decoded; the whole literal if there is none.
  std::string_view text;
};

LocalizedLiteral SplitLiteral(std::string_view literal) noexcept;

// Drops "#{comment}" and what follows, and turns "#{U+2022}" and "\n" into what they stand for.
Utf8String DecodeText(std::string_view text);

// The text in the pseudo-language: line by line accented and 30 to 40 % longer, at least by one character;
// "@0" stays.
Utf8String PseudoTranslate(std::string_view text);

}  // namespace moxcore::config
