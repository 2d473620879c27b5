#pragma once

#include <cstddef>
#include <cstring>

namespace moxaudiotoolkit {

// Four floats, which fit a register of any processor; arithmetic, comparisons and choices go lane by lane.
using Lanes = float __attribute__((vector_size(16)));
inline constexpr std::size_t kLanes = 4;

// From and to any address.
inline Lanes LoadLanes(const float* source) {
  Lanes lanes;
  std::memcpy(&lanes, source, sizeof lanes);
  return lanes;
}

inline void StoreLanes(Lanes lanes, float* destination) {
  std::memcpy(destination, &lanes, sizeof lanes);
}

}  // namespace moxaudiotoolkit
