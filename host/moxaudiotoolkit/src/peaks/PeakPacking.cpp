#include "PeakPacking.h"

#include "../Lanes.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace moxaudiotoolkit {
namespace {

constexpr std::size_t kFactor = 4;
constexpr float kRoundingOffset = 12582912.0F;  // 1.5 * 2^23

// Types of their own rather than functions, so that loops over them need no optimiser to call none.
struct Smaller {
  float operator()(float a, float b) const { return a < b ? a : b; }
};

struct Larger {
  float operator()(float a, float b) const { return a > b ? a : b; }
};

template <class Choose>
void ReduceBy(const float* values, std::size_t count, float* reduced, Choose choose) {
  const std::size_t whole = count / kFactor;
  for (std::size_t i = 0; i < whole; ++i) {
    const float* four = values + i * kFactor;
    reduced[i] = choose(choose(four[0], four[1]), choose(four[2], four[3]));
  }
  if (whole * kFactor < count) {
    float last = values[whole * kFactor];
    for (std::size_t i = whole * kFactor + 1; i < count; ++i) {
      last = choose(last, values[i]);
    }
    reduced[whole] = last;
  }
}

Lanes All(float value) {
  return Lanes{value, value, value, value};
}

void PackFour(Lanes values, std::int16_t* destination) {
  using Ints = std::int32_t __attribute__((vector_size(16)));
  using Shorts = std::int16_t __attribute__((vector_size(8)));
  const Lanes scaled = values * All(32768.0F);
  // What is not a number becomes a number here.
  const Lanes low = scaled > All(-32768.0F) ? scaled : All(-32768.0F);
  const Lanes within = low < All(32767.0F) ? low : All(32767.0F);
  // Adding so much leaves no room for a fraction: the whole number stands in the lowest bits.
  const Ints bits = reinterpret_cast<Ints>(within + All(kRoundingOffset));
  const Shorts shorts = __builtin_convertvector(bits, Shorts);
  std::memcpy(destination, &shorts, sizeof shorts);
}

}  // namespace

void PackShorts(const float* values, std::size_t count, std::int16_t* destination) {
  std::size_t i = 0;
  for (; i + kLanes <= count; i += kLanes) {
    PackFour(LoadLanes(values + i), destination + i);
  }
  if (i < count) {
    float rest[kLanes] = {};
    std::int16_t packed[kLanes];
    std::copy(values + i, values + count, rest);
    PackFour(LoadLanes(rest), packed);
    std::copy_n(packed, count - i, destination + i);
  }
}

void PackSquares(const float* sums, std::size_t count, float framesPerPoint, std::uint16_t* destination) {
  const float share = 1.0F / framesPerPoint;
  for (std::size_t i = 0; i < count; ++i) {
    destination[i] = EncodeMeanSquare(sums[i] * share);
  }
}

bool ArePairsInOrder(const std::int16_t* pairs, std::size_t pairCount) {
  std::size_t i = 0;
  bool isWrong = false;
  if (std::endian::native == std::endian::little) {
    // A pair as one number has the larger value above the smaller: moved up, the smaller may not be more.
    using Numbers = std::int32_t __attribute__((vector_size(16)));
    constexpr std::size_t kPairs = 4;
    Numbers wrong{};
    for (; i + 2 * kPairs <= pairCount; i += 2 * kPairs) {
      Numbers first;
      Numbers second;
      std::memcpy(&first, pairs + 2 * i, sizeof first);
      std::memcpy(&second, pairs + 2 * (i + kPairs), sizeof second);
      wrong |= ((first << 16) > first) | ((second << 16) > second);
    }
    isWrong = (wrong[0] | wrong[1] | wrong[2] | wrong[3]) != 0;
  }
  for (; i < pairCount; ++i) {
    isWrong = isWrong || pairs[2 * i] > pairs[2 * i + 1];
  }
  return !isWrong;
}

void ReducePoints(const PointColumns& points, std::size_t count, const PointColumns& reduced) {
  ReduceBy(points.minimum, count, reduced.minimum, Smaller());
  ReduceBy(points.maximum, count, reduced.maximum, Larger());
  if (points.sum != nullptr) {
    ReduceBy(points.sum, count, reduced.sum, [](float a, float b) { return a + b; });
  }
}

}  // namespace moxaudiotoolkit
