#pragma once

#include <cstddef>
#include <cstdint>

namespace moxcore::string {

// Units that the longest number takes with its terminating NUL.
inline constexpr std::size_t kUInt32TextSize = 11;
inline constexpr std::size_t kUInt64TextSize = 21;

// Writes a number as decimal text with a terminating NUL into a buffer of 8- or 16-bit units. Gives the
// number of digits.
template <class Unit, std::size_t kSize>
std::size_t ConvertUInt64ToBufferT(std::uint64_t value, Unit (&buffer)[kSize]) noexcept {
  static_assert(kSize >= kUInt64TextSize, "the buffer is too small for the largest number");
  std::size_t digits = 1;
  for (auto rest = value; rest >= 10; rest /= 10) {
    ++digits;
  }
  buffer[digits] = Unit{};
  for (std::size_t i = digits; i > 0; --i, value /= 10) {
    buffer[i - 1] = static_cast<Unit>('0' + value % 10);
  }
  return digits;
}

template <class Unit, std::size_t kSize>
std::size_t ConvertUInt32ToBufferT(std::uint32_t value, Unit (&buffer)[kSize]) noexcept {
  static_assert(kSize >= kUInt32TextSize, "the buffer is too small for the largest number");
  Unit longest[kUInt64TextSize];
  auto const digits = ConvertUInt64ToBufferT(value, longest);
  for (std::size_t i = 0; i <= digits; ++i) {
    buffer[i] = longest[i];
  }
  return digits;
}

}  // namespace moxcore::string
