#include "qt/raster/ShapeCoverage.h"

#include "qt/raster/CoverageAccumulator.h"
#include "qt/raster/StrokeOutline.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace moxui::qt {

namespace {

// Kept for its memory: it is large, and clear between drawings.
CoverageAccumulator& SharedAccumulator() {
  thread_local CoverageAccumulator accumulator;
  return accumulator;
}

constexpr int kRowsAtOnce = 64;

int Whole(double value) {
  return static_cast<int>(std::clamp(value, -1e9, 1e9));
}

struct Travel {
  double across = 0;
  double down = 0;
};

// How far the lines go sideways and downward, each within the bounds.
Travel TravelOf(Polyline const& polyline, PixelRect const& bounds) {
  Travel travel;
  for (Polyline::SubPath const& subPath : polyline.subPaths) {
    for (std::size_t i = subPath.begin + 1; i < subPath.end; ++i) {
      PointT<double> const way = polyline.points[i] - polyline.points[i - 1];
      travel.across += std::min(std::abs(way.x), static_cast<double>(bounds.Width()));
      travel.down += std::min(std::abs(way.y), static_cast<double>(bounds.Height()));
    }
  }
  return travel;
}

// Only the rectangle that the lines can touch needs summing up.
PixelRect TouchedBounds(Polyline const& polyline, double reach, PixelRect const& bounds) {
  if (polyline.points.empty()) {
    return {};
  }
  double left = polyline.points[0].x;
  double right = left;
  double top = polyline.points[0].y;
  double bottom = top;
  for (PointT<double> const point : polyline.points) {
    left = std::min(left, point.x);
    right = std::max(right, point.x);
    top = std::min(top, point.y);
    bottom = std::max(bottom, point.y);
  }
  return bounds.Intersection({Whole(std::floor(left - reach)), Whole(std::floor(top - reach)),
                              Whole(std::ceil(right + reach)), Whole(std::ceil(bottom + reach))});
}

void Begin(CoverageAccumulator& accumulator, Polyline const& polyline, bool smooth, PixelRect const& bounds) {
  if (!smooth) {
    accumulator.BeginUnsmoothed(bounds);
    return;
  }
  Travel const travel = TravelOf(polyline, bounds);
  accumulator.Begin(bounds, travel.down > travel.across ? SweepDirection::kColumns : SweepDirection::kRows);
}

double Overlap(double pixel, double from, double to) {
  return std::max(std::min(pixel + 1.0, to) - std::max(pixel, from), 0.0);
}

}  // namespace

void FillCoverage(Polyline const& outline, scriber::FillRule rule, bool smooth, PixelRect const& bounds,
                  CoverageConsumer const& consume) {
  PixelRect const touched = TouchedBounds(outline, 0.0, bounds);
  if (touched.IsEmpty()) {
    return;
  }
  CoverageAccumulator& accumulator = SharedAccumulator();
  Begin(accumulator, outline, smooth, touched);
  for (Polyline::SubPath const& subPath : outline.subPaths) {
    PointT<double> before = outline.points[subPath.end - 1];
    for (std::size_t i = subPath.begin; i < subPath.end; ++i) {
      accumulator.AddEdge(before, outline.points[i]);
      before = outline.points[i];
    }
  }
  accumulator.Finish(rule, consume);
}

void StrokeCoverage(Polyline const& line, double width, bool smooth, PixelRect const& bounds,
                    CoverageConsumer const& consume) {
  double const visible = smooth ? width : std::max(width, 1.0);
  PixelRect const touched = TouchedBounds(line, visible * StrokeOutline::kFarthestReach, bounds);
  if (touched.IsEmpty()) {
    return;
  }
  CoverageAccumulator& accumulator = SharedAccumulator();
  Begin(accumulator, line, smooth, touched);
  StrokeOutline(accumulator, visible).Add(line);
  accumulator.Finish(scriber::FillRule::kWinding, consume);
}

void RectCoverage(RectT<double> const& rect, PixelRect const& bounds, CoverageConsumer const& consume) {
  PixelRect const area =
      bounds.Intersection({Whole(std::floor(rect.left)), Whole(std::floor(rect.top)),
                           Whole(std::ceil(rect.Right())), Whole(std::ceil(rect.Bottom()))});
  if (area.IsEmpty()) {
    return;
  }
  // A row for each height of coverage: few rows differ from their neighbours.
  CoverageMask piece;
  for (int y = area.top; y < area.bottom; y = piece.bounds.bottom) {
    double const share = 255.0 * Overlap(y, rect.top, rect.Bottom());
    int next = y + 1;
    while (next < area.bottom && next - y < kRowsAtOnce &&
           255.0 * Overlap(next, rect.top, rect.Bottom()) == share) {
      ++next;
    }
    piece.Reset({area.left, y, area.right, next});
    std::uint8_t* const row = piece.Row(y);
    for (int x = area.left; x < area.right; ++x) {
      row[x - area.left] = static_cast<std::uint8_t>(share * Overlap(x, rect.left, rect.Right()) + 0.5);
    }
    for (int other = y + 1; other < next; ++other) {
      std::memcpy(piece.Row(other), row, static_cast<std::size_t>(area.Width()));
    }
    consume(piece);
  }
}

}  // namespace moxui::qt
