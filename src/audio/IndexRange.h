#pragma once

#include "SaturatingConversion.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace moxmediaui {

/// Indexes of items; the end is one beyond.
struct IndexRange {
  std::int64_t begin = 0;
  std::int64_t end = 0;
};

/// Which of `count` items, the first of them at the position `origin` and each one further than the one
/// before, lie at positions `first` to `last`; the last one belongs to them.
constexpr IndexRange FindIndexes(std::int64_t first, std::int64_t last, std::int64_t origin,
                                 std::size_t count) {
  auto const size = static_cast<std::int64_t>(count);
  std::int64_t const begin = std::max<std::int64_t>(SaturatingDifference(first, origin), 0);
  std::int64_t const lastIndex = std::min(SaturatingDifference(last, origin), size - 1);
  return begin <= lastIndex ? IndexRange{begin, lastIndex + 1} : IndexRange{};
}

}  // namespace moxmediaui
