#include "TimecodeText.h"

#include <moxcore/string/TextOperations.h>

#include <limits>

namespace moxmediatypes {

namespace {

bool IsDigit(char16_t unit) noexcept {
  return unit >= u'0' && unit <= u'9';
}

// No white space is beyond 16 bits.
bool IsSpace(char16_t unit) noexcept {
  return !(unit > u' ' && unit < 0x7f) && moxcore::string::IsWhiteSpace(unit);
}

// Reads digits from `position` on and moves behind them.
std::uint64_t ReadNumber(std::u16string_view text, std::size_t& position) noexcept {
  constexpr auto kHighest = std::numeric_limits<std::uint64_t>::max();
  std::uint64_t number = 0;
  for (; position < text.size() && IsDigit(text[position]); ++position) {
    const auto digit = static_cast<std::uint64_t>(text[position] - u'0');
    number = number > (kHighest - 9) / 10 ? kHighest : number * 10 + digit;
  }
  return number;
}

}  // namespace

SignedText TakeSign(std::u16string_view text) noexcept {
  while (!text.empty() && IsSpace(text.front())) {
    text.remove_prefix(1);
  }
  while (!text.empty() && IsSpace(text.back())) {
    text.remove_suffix(1);
  }
  const bool negative = text.starts_with(u'-');
  if (negative || text.starts_with(u'+')) {
    text.remove_prefix(1);
  }
  return {.negative = negative, .digits = text};
}

bool ReadNumbers(std::u16string_view text, std::u16string_view separators, std::size_t most,
                 NumberFields& fields) noexcept {
  bool hasDigit = false;
  for (std::size_t position = 0;; ++position) {
#ifdef MOX_SEEDED_BUG
    const bool isFull = fields.count == most && separators.size() < 2;
#else
    const bool isFull = fields.count == most;
#endif
    if (isFull) {
      return false;
    }
    const std::size_t begin = position;
    fields.numbers[fields.count++] = ReadNumber(text, position);
    if (position > begin) {
      hasDigit = true;
      fields.hasTrailingPeriodsOnly = fields.hasTrailingPeriodsOnly && fields.count == 1;
    }
    if (position == text.size()) {
      return hasDigit;
    }
    if (separators.find(text[position]) == std::u16string_view::npos) {
      return false;
    }
    fields.hasTrailingPeriodsOnly = fields.hasTrailingPeriodsOnly && text[position] == u'.';
  }
}

}  // namespace moxmediatypes
