#pragma once

#include "qt/raster/CoverageMask.h"
#include "qt/raster/PixelRect.h"

#include <moxui/geometry/PointT.h>
#include <moxui/scriber/ScriberTypes.h>

#include <cstdint>
#include <vector>

namespace moxui::qt {

/// Which way the lines run along which coverage is summed up.
enum class SweepDirection { kRows, kColumns };

/// Finds the exact share of each pixel that closed outlines cover. Each directed edge leaves, in every line
/// of pixels that it crosses, the second differences of the coverage that it adds beyond itself; summing a
/// line up twice gives the coverage. So an edge costs by the lines that it crosses, and the length that it
/// runs along a line costs nothing: near-vertical edges go best by columns, near-horizontal ones by rows.
/// Where outlines overlap their shares add up to at most the whole pixel, hence shapes that abut leave no
/// seam.
class CoverageAccumulator {
 public:
  /// Only what lies in `bounds` is kept; the edges may lie anywhere.
  void Begin(PixelRect const& bounds, SweepDirection direction);
  /// The same without smoothing: a pixel is covered wholly if its centre lies inside, else not at all.
  void BeginUnsmoothed(PixelRect const& bounds);
  /// The edges of each outline have to close it.
  void AddEdge(PointT<double> from, PointT<double> to);
  /// Hands the coverage over in pieces that don't overlap and are cheap to work on one by one, of so many
  /// lines at most, and forgets the edges. What lies in no piece isn't covered.
  void Finish(scriber::FillRule rule, int linesAtOnce, CoverageConsumer const& consume);

 private:
  void AddClippedEdge(double u0, std::int64_t v0, double u1, std::int64_t v1, int sign);
  void AddUnsmoothedEdge(PointT<double> from, PointT<double> to, int sign);
  void AddRamp(int line, double from, double to, int height);
  /// The part of a line in which coverage changes, empty where nothing is covered, and what it is beyond.
  struct LineCoverage {
    int first = 0;
    int last = 0;
    std::uint8_t beyond = 0;
  };
  LineCoverage SumUp(int line, bool evenOdd, std::uint8_t* out);
  /// Into LinePixels, from pixel `first` to before `last` of each; false when there are none.
  bool SumUpLines(int begin, int end, bool evenOdd, int& first, int& last);
  std::uint8_t* LinePixels(int number) {
    return mLinePixels.data() + static_cast<std::ptrdiff_t>(number) * mLength;
  }

  PixelRect mBounds;
  bool mColumns = false;
  bool mSmooth = true;
  int mLength = 0;  // pixels in a line
  int mLines = 0;
  int mStride = 0;
  std::vector<std::uint32_t> mDifferences;  // all 0 between drawings
  struct Touched {
    int first;
    int last;
  };
  std::vector<Touched> mTouched;
  std::vector<LineCoverage> mSummed;      // of the lines of a piece
  std::vector<std::uint8_t> mLinePixels;  // one line after the other
  CoverageMask mPiece;
};

}  // namespace moxui::qt
