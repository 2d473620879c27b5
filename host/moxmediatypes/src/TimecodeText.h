#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace moxmediatypes {

// What a user typed, taken apart but not yet understood.
struct SignedText {
  bool negative = false;
  std::u16string_view digits;  // what follows the sign
};

// Takes off white space at both ends and a leading sign.
SignedText TakeSign(std::u16string_view text) noexcept;

// The numbers of a text, in its order. A number beyond 2^63 may be held as the highest.
struct NumberFields {
  static constexpr std::size_t kMost = 4;

  std::array<std::uint64_t, kMost> numbers{};
  std::size_t count = 0;               // empty numbers count as well
  bool hasTrailingPeriodsOnly = true;  // no separator but periods, behind the only number that isn't empty
};

// Reads numbers with one of `separators` between them. False for a text without a digit, with more than
// `most` numbers (kMost at most) or with any other character; `fields` holds nothing of use then.
bool ReadNumbers(std::u16string_view text, std::u16string_view separators, std::size_t most,
                 NumberFields& fields) noexcept;

}  // namespace moxmediatypes
