#include "PeakPage.h"

#include <algorithm>

namespace moxaudiotoolkit {
namespace {

std::size_t PointsOfAllLevels(std::size_t pointCount) {
  std::size_t points = 0;
  for (int level = 0; level < kPageLevels; ++level) {
    points += PointsAbove(pointCount, level);
  }
  return points;
}

bool IsConstant(const PointColumns& finest, std::size_t count) {
  const auto minimum = *std::min_element(finest.minimum, finest.minimum + count);
  return minimum == *std::max_element(finest.maximum, finest.maximum + count);
}

void Pack(const float* values, std::size_t count, std::int16_t* destination) {
  PackShorts(values, count, destination);
}

void Pack(const float* values, std::size_t count, float* destination) {
  std::copy_n(values, count, destination);
}

}  // namespace

PeakPageChannel::PeakPageChannel(const PointColumns* levels, std::size_t pointCount, bool shorts,
                                 float framesPerPoint, float framesOfLast, PeakMemory& memory)
    : mPointCount(static_cast<std::uint32_t>(pointCount)),
      mShorts(shorts),
      mHasSquares(levels[0].sum != nullptr) {
  const PointColumns& coarsest = levels[kPageLevels - 1];
  if (IsConstant(coarsest, PointsAbove(pointCount, kPageLevels - 1))) {
    mConstant = coarsest.minimum[0];
    return;
  }
  mSize = GetSizeOf(pointCount, shorts, mHasSquares);
  mValues = memory.Take(mSize);
  if (shorts) {
    Fill<std::int16_t>(levels, framesPerPoint, framesOfLast);
  } else {
    Fill<float>(levels, framesPerPoint, framesOfLast);
  }
}

std::size_t PeakPageChannel::GetSizeOf(std::size_t pointCount, bool shorts, bool hasSquares) {
  return PointsOfAllLevels(pointCount) *
         (2 * (shorts ? sizeof(std::int16_t) : sizeof(float)) + (hasSquares ? sizeof(std::uint16_t) : 0));
}

template <class Value>
void PeakPageChannel::Fill(const PointColumns* levels, float framesPerPoint, float framesOfLast) {
  auto* values = reinterpret_cast<Value*>(mValues);
  auto* squares = reinterpret_cast<std::uint16_t*>(values + 2 * PointsOfAllLevels(mPointCount));
  for (int level = 0; level < kPageLevels; ++level) {
    const std::size_t count = PointsAbove(mPointCount, level);
    Pack(levels[level].minimum, count, values);
    Pack(levels[level].maximum, count, values + count);
    values += 2 * count;
    if (mHasSquares) {
      const float frames = framesPerPoint * static_cast<float>(std::size_t{1} << (2 * level));
      PackSquares(levels[level].sum, count - 1, frames, squares);
      PackSquares(levels[level].sum + count - 1, 1,
                  FramesOfLastPoint(mPointCount, level, framesPerPoint, framesOfLast), squares + count - 1);
      squares += count;
    }
  }
}

PeakStretch PeakPageChannel::GetStretch(int level) const {
  PeakStretch stretch;
  stretch.end = static_cast<std::int64_t>(PointsAbove(mPointCount, level));
  if (mValues == nullptr) {
    stretch.kind = PeakStretch::Kind::kConstant;
    stretch.constant = mConstant;
    return stretch;
  }
  const std::size_t valueSize = mShorts ? sizeof(std::int16_t) : sizeof(float);
  std::size_t before = 0;
  for (int l = 0; l < level; ++l) {
    before += PointsAbove(mPointCount, l);
  }
  const std::byte* values = mValues + 2 * before * valueSize;
  stretch.kind = mShorts ? PeakStretch::Kind::kShorts : PeakStretch::Kind::kFloats;
  stretch.minimum = values;
  stretch.maximum = values + static_cast<std::size_t>(stretch.end) * valueSize;
  if (mHasSquares) {
    const std::byte* squares = mValues + 2 * PointsOfAllLevels(mPointCount) * valueSize;
    stretch.squares = reinterpret_cast<const std::uint16_t*>(squares) + before;
  }
  return stretch;
}

}  // namespace moxaudiotoolkit
