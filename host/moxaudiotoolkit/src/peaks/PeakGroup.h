#pragma once

#include "PeakPage.h"

#include <moxaudiotoolkit/peaks/PeakPyramid.h>

#include <atomic>
#include <cstdint>
#include <memory>
#include <vector>

namespace moxaudiotoolkit {

inline constexpr std::int64_t kPagesPerGroup = 256;
// A page has points of its own up to this level; those of the levels above lie in several pages.
inline constexpr int kLastLevelOfPages = 6;

// Pages side by side, and the levels above theirs.
struct PeakPyramid::Group {
  Group(const PeakPyramidFormat& format, std::int64_t firstFinestPoint, std::size_t finestPoints);
  ~Group();
  Group(const Group&) = delete;
  Group& operator=(const Group&) = delete;

  // Points of `level`, from kPageLevels on, of the whole group.
  std::size_t GetPointCount(int level) const { return PointsAbove(finestPoints, level); }
  PeakStretch GetStretch(int level, std::size_t channel, std::int64_t begin, std::int64_t end) const;
  // Puts in points of a level, of those that belong to a page or, at the end, to the group.
  void Put(int level, std::size_t channel, std::size_t firstPoint, const PointColumns& points,
           std::size_t count, float framesPerPoint, float framesOfLast);
  // Makes the levels above those of pages, once all pages are there.
  void Complete(const PeakPyramidFormat& format);
  std::size_t GetMemorySize() const;

  std::size_t finestPoints;
  std::size_t pageCount;
  PeakMemory memory;   // of its pages
  float framesOfLast;  // of its last finest point
  std::vector<std::atomic<const PeakPage*>> pages;
  std::vector<std::atomic<bool>> claimed;
  std::atomic<std::size_t> pagesDone{0};
  std::atomic<bool> complete{false};

 private:
  std::size_t GetOffset(int level, std::size_t channel) const;

  std::size_t mPointsPerChannel = 0;
  std::vector<std::size_t> mLevelOffsets;
  std::unique_ptr<float[]> mMinima;
  std::unique_ptr<float[]> mMaxima;
  std::unique_ptr<std::uint16_t[]> mSquares;  // null without RMS
  std::size_t mChannelCount;
};

}  // namespace moxaudiotoolkit
