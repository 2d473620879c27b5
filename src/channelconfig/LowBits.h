#pragma once

#include <any>
#include <cstdint>

namespace moxmediaui::channelconfig {

/// The low 32 bits of a whole number of JSON; throws std::bad_any_cast for anything else.
inline std::uint32_t LowBits(std::any const& value) {
  if (auto const* const negative = std::any_cast<std::int64_t>(&value)) {
    return static_cast<std::uint32_t>(*negative);
  }
  return static_cast<std::uint32_t>(std::any_cast<std::uint64_t>(value));
}

}  // namespace moxmediaui::channelconfig
