#pragma once

#include <cstdint>
#include <span>

namespace moxcore::string {

// Characters first, first + stride .. last have the upper case character + delta.
struct UpperCaseRange {
  std::uint32_t first;
  std::uint32_t last;
  std::uint32_t stride;
  std::int32_t delta;
};

// In ascending order, without overlap of characters.
std::span<UpperCaseRange const> UpperCaseRanges() noexcept;

}  // namespace moxcore::string
