#include "PeakGroup.h"

#include <algorithm>

namespace moxaudiotoolkit {

PeakPyramid::Group::Group(const PeakPyramidFormat& format, std::int64_t firstFinestPoint, std::size_t points)
    : finestPoints(points),
      pageCount((points + kPointsPerPage - 1) / kPointsPerPage),
      memory(PeakMemory::GetCapacityFor(
          pageCount * static_cast<std::size_t>(format.channelCount),
          PeakPageChannel::GetSizeOf(std::min(points, static_cast<std::size_t>(kPointsPerPage)),
                                     format.has16Bits, format.hasRms))),
      pages(pageCount),
      claimed(pageCount),
      mChannelCount(static_cast<std::size_t>(format.channelCount)) {
  const std::int64_t lastPoint = firstFinestPoint + static_cast<std::int64_t>(points) - 1;
  framesOfLast = static_cast<float>(
      std::min<std::int64_t>(format.frames - lastPoint * format.samplesPerPoint, format.samplesPerPoint));
  for (int level = kPageLevels; level < kLevelCount; ++level) {
    mLevelOffsets.push_back(mPointsPerChannel);
    mPointsPerChannel += GetPointCount(level);
  }
  const std::size_t all = mPointsPerChannel * mChannelCount;
  mMinima = std::make_unique_for_overwrite<float[]>(all);
  mMaxima = std::make_unique_for_overwrite<float[]>(all);
  if (format.hasRms) {
    mSquares = std::make_unique_for_overwrite<std::uint16_t[]>(all);
  }
}

PeakPyramid::Group::~Group() {
  for (const std::atomic<const PeakPage*>& page : pages) {
    delete page.load(std::memory_order_acquire);
  }
}

std::size_t PeakPyramid::Group::GetOffset(int level, std::size_t channel) const {
  return channel * mPointsPerChannel + mLevelOffsets[static_cast<std::size_t>(level - kPageLevels)];
}

PeakStretch PeakPyramid::Group::GetStretch(int level, std::size_t channel, std::int64_t begin,
                                           std::int64_t end) const {
  const std::size_t offset = GetOffset(level, channel) + static_cast<std::size_t>(begin);
  return {.kind = PeakStretch::Kind::kFloats,
          .begin = begin,
          .end = end,
          .minimum = mMinima.get() + offset,
          .maximum = mMaxima.get() + offset,
          .squares = mSquares ? mSquares.get() + offset : nullptr};
}

void PeakPyramid::Group::Put(int level, std::size_t channel, std::size_t firstPoint,
                             const PointColumns& points, std::size_t count, float framesPerPoint,
                             float framesOfLastPoint) {
  const std::size_t offset = GetOffset(level, channel) + firstPoint;
  std::copy_n(points.minimum, count, mMinima.get() + offset);
  std::copy_n(points.maximum, count, mMaxima.get() + offset);
  if (mSquares) {
    PackSquares(points.sum, count - 1, framesPerPoint, mSquares.get() + offset);
    PackSquares(points.sum + count - 1, 1, framesOfLastPoint, mSquares.get() + offset + count - 1);
  }
}

void PeakPyramid::Group::Complete(const PeakPyramidFormat& format) {
  const auto finestFrames = static_cast<float>(format.samplesPerPoint);
  std::vector<float> sums(GetPointCount(kLastLevelOfPages));
  for (std::size_t channel = 0; channel < mChannelCount; ++channel) {
    for (int level = kLastLevelOfPages + 1; level < kLevelCount; ++level) {
      const std::size_t below = GetOffset(level - 1, channel);
      const std::size_t count = GetPointCount(level - 1);
      const auto framesBelow = finestFrames * static_cast<float>(std::size_t{1} << (2 * (level - 1)));
      if (level == kLastLevelOfPages + 1 && mSquares) {
        for (std::size_t i = 0; i < count; ++i) {
          sums[i] = DecodeMeanSquare(mSquares[below + i]) *
                    (i + 1 < count ? framesBelow
                                   : FramesOfLastPoint(finestPoints, level - 1, finestFrames, framesOfLast));
        }
      }
      const std::size_t offset = GetOffset(level, channel);
      const std::size_t reducedCount = GetPointCount(level);
      float* sum = mSquares ? sums.data() : nullptr;
      // Sums are reduced in place: each is written where no later one is read.
      ReducePoints({.minimum = mMinima.get() + below, .maximum = mMaxima.get() + below, .sum = sum}, count,
                   {.minimum = mMinima.get() + offset, .maximum = mMaxima.get() + offset, .sum = sum});
      if (mSquares) {
        PackSquares(sum, reducedCount - 1, framesBelow * PeakPyramid::kFactor, mSquares.get() + offset);
        PackSquares(sum + reducedCount - 1, 1,
                    FramesOfLastPoint(finestPoints, level, finestFrames, framesOfLast),
                    mSquares.get() + offset + reducedCount - 1);
      }
    }
  }
  complete.store(true, std::memory_order_release);
}

std::size_t PeakPyramid::Group::GetMemorySize() const {
  return sizeof *this + pageCount * (sizeof(void*) + 1) +
         mPointsPerChannel * mChannelCount * (2 * sizeof(float) + (mSquares ? sizeof(std::uint16_t) : 0));
}

}  // namespace moxaudiotoolkit
