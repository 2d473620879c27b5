#include "LocalizedText.h"

#include <moxcore/string/Encoding.h>

#include <algorithm>
#include <charconv>
#include <cstdint>

namespace moxcore::config {

namespace {

constexpr std::string_view kHead = "$$$/";
constexpr std::string_view kComment = "#{comment}";
constexpr std::string_view kCharacter = "#{U+";

// The character of "#{U+2022}" at the beginning of `text`, and the size of that form; 0 if it isn't one.
std::size_t ParseCharacter(std::string_view text, char32_t& character) noexcept {
  if (!text.starts_with(kCharacter)) {
    return 0;
  }
  auto const* const first = text.data() + kCharacter.size();
  auto const* const end = text.data() + text.size();
  std::uint32_t value = 0;
  auto const parsed = std::from_chars(first, end, value, 16);
  if (parsed.ec == std::errc::invalid_argument || parsed.ptr == end || *parsed.ptr != '}') {
    return 0;
  }
  character = parsed.ec == std::errc() ? value : string::kReplacementCharacter;
  return static_cast<std::size_t>(parsed.ptr - text.data()) + 1;
}

}  // namespace

LocalizedLiteral SplitLiteral(std::string_view literal) noexcept {
  auto const equals = literal.starts_with(kHead) ? literal.find('=') : std::string_view::npos;
  if (equals == std::string_view::npos) {
    return {{}, literal};
  }
  return {literal.substr(0, equals), literal.substr(equals + 1)};
}

Utf8String DecodeText(std::string_view text) {
  text = text.substr(0, text.find(kComment));
  Utf8String result;
  result.reserve(text.size());
  while (!text.empty()) {
    auto const plain = text.find_first_of("#\\");
    result.append(text.substr(0, plain));
    text.remove_prefix(std::min(plain, text.size()));
    char32_t character = 0;
    if (auto const size = ParseCharacter(text, character)) {
      string::AppendCharacter(result, character);
      text.remove_prefix(size);
    } else if (text.starts_with("\\n")) {
      result.push_back('\n');
      text.remove_prefix(2);
    } else if (!text.empty()) {
      result.push_back(text.front());
      text.remove_prefix(1);
    }
  }
  return result;
}

}  // namespace moxcore::config
