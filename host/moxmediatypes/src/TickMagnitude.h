#pragma once

#include "TimeScale.h"

#include <moxmediatypes/TickTime.h>

#include <cstdint>
#include <limits>

namespace moxmediatypes {

// Sums and products of counts, the highest number if they are beyond it. Since a unit is a tick at least,
// that stands for a time beyond the range, whatever it is multiplied by.
inline std::uint64_t SaturatedSum(std::uint64_t a, std::uint64_t b) noexcept {
  std::uint64_t sum = 0;
  return __builtin_add_overflow(a, b, &sum) ? std::numeric_limits<std::uint64_t>::max() : sum;
}

inline std::uint64_t SaturatedProduct(std::uint64_t a, std::uint64_t b) noexcept {
  std::uint64_t product = 0;
  return __builtin_mul_overflow(a, b, &product) ? std::numeric_limits<std::uint64_t>::max() : product;
}

// The time of a number of units, or its negative; an end of the range if it is beyond.
inline TickTime TimeOfUnits(std::uint64_t units, bool negative, const TimeScale& scale) noexcept {
  constexpr std::uint64_t kBeyond = std::uint64_t{1} << 63;
  const std::uint64_t ticks = SaturatedProduct(units, static_cast<std::uint64_t>(scale.ticksPerUnit));
  if (ticks < kBeyond) {
    const auto magnitude = static_cast<std::int64_t>(ticks);
    return TickTime(negative ? -magnitude : magnitude);
  }
  using Limits = std::numeric_limits<std::int64_t>;
  return TickTime(negative ? Limits::min() : Limits::max());
}

// The same of a label.
inline TickTime TimeOfLabel(std::uint64_t label, bool negative, const TimeScale& scale) noexcept {
  return TimeOfUnits(UnitOfLabel(label, scale), negative, scale);
}

}  // namespace moxmediatypes
