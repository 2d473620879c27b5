#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

namespace moxmediaui {

/// Truncation toward zero that is defined for every value: what doesn't fit becomes the nearest number that
/// does, not-a-number becomes 0.
constexpr std::int64_t TruncateToInt64(double value) {
  constexpr double kEnd = 9223372036854775808.0;  // 2^63
  if (value != value) {
    return 0;
  }
  if (value >= kEnd) {
    return std::numeric_limits<std::int64_t>::max();
  }
  return value < -kEnd ? std::numeric_limits<std::int64_t>::min() : static_cast<std::int64_t>(value);
}

constexpr int SaturateToInt(std::int64_t value) {
  return static_cast<int>(
      std::clamp<std::int64_t>(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

constexpr int TruncateToInt(double value) {
  return SaturateToInt(TruncateToInt64(value));
}

constexpr std::int64_t SaturatingSum(std::int64_t a, std::int64_t b) {
  if (b > 0 && a > std::numeric_limits<std::int64_t>::max() - b) {
    return std::numeric_limits<std::int64_t>::max();
  }
  if (b < 0 && a < std::numeric_limits<std::int64_t>::min() - b) {
    return std::numeric_limits<std::int64_t>::min();
  }
  return a + b;
}

constexpr std::int64_t SaturatingDifference(std::int64_t a, std::int64_t b) {
  if (b < 0 && a > std::numeric_limits<std::int64_t>::max() + b) {
    return std::numeric_limits<std::int64_t>::max();
  }
  if (b > 0 && a < std::numeric_limits<std::int64_t>::min() + b) {
    return std::numeric_limits<std::int64_t>::min();
  }
  return a - b;
}

}  // namespace moxmediaui
