#pragma once

#include <cstdint>
#include <span>

namespace moxaudiotoolkit {

// 64 bits that tell contents apart, at about the speed of memory; no protection against intent. What was
// hashed before goes on as `seed`.
std::uint64_t HashBytes(std::span<const std::uint8_t> bytes, std::uint64_t seed);

}  // namespace moxaudiotoolkit
