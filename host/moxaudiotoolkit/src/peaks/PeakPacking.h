#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>

namespace moxaudiotoolkit {

// A mean square as 16 bits, 7 of the exponent and 9 of the fraction: from 2^-96 to 2^32 with an error of a
// thousandth at most, half of that in its root. What is less is 0.
inline constexpr std::uint32_t kSquareCodeBase = (127U - 96U) << 23;
inline constexpr int kSquareCodeShift = 14;

inline std::uint16_t EncodeMeanSquare(float meanSquare) {
  const float harmless = meanSquare > 0.0F ? meanSquare : 0.0F;
  const std::uint32_t bits = std::bit_cast<std::uint32_t>(harmless) + (1U << (kSquareCodeShift - 1));
  const std::uint32_t code = bits < kSquareCodeBase ? 0U : (bits - kSquareCodeBase) >> kSquareCodeShift;
  return static_cast<std::uint16_t>(code < 65535U ? code : 65535U);
}

inline float DecodeMeanSquare(std::uint16_t code) {
  const std::uint32_t bits = code == 0 ? 0U : (std::uint32_t{code} << kSquareCodeShift) + kSquareCodeBase;
  return std::bit_cast<float>(bits);
}

// Multiples of 2^-15 as whole numbers; other values are rounded to the nearest and limited.
void PackShorts(const float* values, std::size_t count, std::int16_t* destination);
// The mean squares of points whose frames are all as many.
void PackSquares(const float* sums, std::size_t count, float framesPerPoint, std::uint16_t* destination);

// Whether in all pairs the first number is at most the second.
bool ArePairsInOrder(const std::int16_t* pairs, std::size_t pairCount);

// Four points become one, the last of fewer when their number is no multiple of 4. `sum` and `sums` may be
// null together.
struct PointColumns {
  float* minimum = nullptr;
  float* maximum = nullptr;
  float* sum = nullptr;
};
void ReducePoints(const PointColumns& points, std::size_t count, const PointColumns& reduced);

}  // namespace moxaudiotoolkit
