#pragma once

#include <cstddef>
#include <cstdint>

namespace moxaccelerate::utility {

// Writes `value` to `count` 32-bit words from `destination` on, at the speed of a memset. Meant for rows of
// 32-bit pixels. `destination` needs the alignment of a word and no more; with a count of 0 it may be null.
void Set(std::size_t count, std::uint32_t* destination, std::uint32_t value) noexcept;

}  // namespace moxaccelerate::utility
