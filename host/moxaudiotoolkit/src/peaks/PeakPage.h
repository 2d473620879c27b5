#pragma once

#include "PeakMemory.h"
#include "PeakPacking.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace moxaudiotoolkit {

inline constexpr int kPageLevels = 4;  // levels that pages hold; those above stand side by side in groups
inline constexpr std::size_t kPeaksToOne = 4;

constexpr std::size_t PointsAbove(std::size_t points, int levels) {
  for (; levels > 0; --levels) {
    points = (points + kPeaksToOne - 1) / kPeaksToOne;
  }
  return points;
}

// Peaks of one channel that stand side by side, at one level.
struct PeakStretch {
  enum class Kind { kUnknown, kConstant, kShorts, kFloats };

  Kind kind = Kind::kUnknown;
  std::int64_t begin = 0;  // the first point
  std::int64_t end = 0;    // the one after the last
  const void* minimum = nullptr;
  const void* maximum = nullptr;
  const std::uint16_t* squares = nullptr;  // null without RMS
  float constant = 0.0F;                   // value of all samples of kConstant
};

// The points of levels 0 to kPageLevels - 1 of one channel of a page, in memory that outlives it. Never
// changes.
class PeakPageChannel {
 public:
  // `levels` are kPageLevels sets of columns with the points of each; `framesPerPoint` those of level 0 and
  // `framesOfLast` those of its last point.
  PeakPageChannel(const PointColumns* levels, std::size_t pointCount, bool shorts, float framesPerPoint,
                  float framesOfLast, PeakMemory& memory);

  // Bytes that a channel of so many points takes of the memory at most.
  static std::size_t GetSizeOf(std::size_t pointCount, bool shorts, bool hasSquares);

  // Points relative to the page.
  PeakStretch GetStretch(int level) const;
  std::size_t GetMemorySize() const { return sizeof *this + mSize; }

 private:
  template <class Value>
  void Fill(const PointColumns* levels, float framesPerPoint, float framesOfLast);

  std::byte* mValues = nullptr;
  std::size_t mSize = 0;
  std::uint32_t mPointCount;
  bool mShorts;
  bool mHasSquares;
  float mConstant = 0.0F;
};

using PeakPage = std::vector<PeakPageChannel>;

// Frames of the last point of a level, given those of the last finest point.
inline float FramesOfLastPoint(std::size_t pointCount, int level, float framesPerPoint, float framesOfLast) {
  const std::size_t pointsPerPoint = std::size_t{1} << (2 * level);
  const std::size_t before = (PointsAbove(pointCount, level) - 1) * pointsPerPoint;
  return static_cast<float>(pointCount - before - 1) * framesPerPoint + framesOfLast;
}

}  // namespace moxaudiotoolkit
