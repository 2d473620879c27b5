#include "qt/raster/ShapeCoverage.h"

#include "qt/raster/CoverageAccumulator.h"
#include "qt/raster/StrokeOutline.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

namespace moxui::qt {

namespace {

// Kept for its memory: it is large, and clear between drawings.
CoverageAccumulator& SharedAccumulator() {
  thread_local CoverageAccumulator accumulator;
  return accumulator;
}

constexpr int kRowsAtOnce = 64;
// Lines of a piece of a stroke, which is thin: what few lines next to one another have of it lies close
// together, so that pieces hold little else.
constexpr int kLinesOfStroke = 8;

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
PixelRect TouchedBounds(std::span<PointT<double> const> points, double reach, PixelRect const& bounds) {
  if (points.empty()) {
    return {};
  }
  double left = points[0].x;
  double right = left;
  double top = points[0].y;
  double bottom = top;
  for (PointT<double> const point : points) {
    left = std::min(left, point.x);
    right = std::max(right, point.x);
    top = std::min(top, point.y);
    bottom = std::max(bottom, point.y);
  }
  return bounds.Intersection({Whole(std::floor(left - reach)), Whole(std::floor(top - reach)),
                              Whole(std::ceil(right + reach)), Whole(std::ceil(bottom + reach))});
}

SweepDirection DirectionFor(Polyline const& polyline, PixelRect const& bounds) {
  Travel const travel = TravelOf(polyline, bounds);
  return travel.down > travel.across ? SweepDirection::kColumns : SweepDirection::kRows;
}

void Begin(CoverageAccumulator& accumulator, Polyline const& polyline, bool smooth, PixelRect const& bounds) {
  if (smooth) {
    accumulator.Begin(bounds, DirectionFor(polyline, bounds));
  } else {
    accumulator.BeginUnsmoothed(bounds);
  }
}

// A long line that goes to the right from point to point, as curves of functions do.
bool IsGraph(Polyline const& line) {
  constexpr std::size_t kLong = 256;
  if (line.points.size() < kLong || line.subPaths.size() != 1 || line.subPaths[0].closed) {
    return false;
  }
  for (std::size_t i = 1; i < line.points.size(); ++i) {
    if (!(line.points[i].x - line.points[i - 1].x > StrokeOutline::kTooClose)) {
      return false;
    }
  }
  return true;
}

// Strokes a graph some columns at a time, with no more of it than reaches into them: what is worked on stays
// in the processor's nearest cache.
void StrokeGraph(std::span<PointT<double> const> points, double width, PixelRect const& bounds,
                 CoverageConsumer const& consume) {
  constexpr int kColumnsAtOnce = 32;
  double const reach = width * StrokeOutline::kFarthestReach;
  CoverageAccumulator& accumulator = SharedAccumulator();
  auto const before = [](PointT<double> point, double x) { return point.x < x; };
  for (int left = bounds.left; left < bounds.right; left += kColumnsAtOnce) {
    PixelRect const columns{left, bounds.top, std::min(left + kColumnsAtOnce, bounds.right), bounds.bottom};
    // The ends of the part, which look otherwise than its inner points, are too far away to be seen.
    auto first = std::lower_bound(points.begin(), points.end(), columns.left - reach, before);
    auto last = std::lower_bound(first, points.end(), columns.right + reach, before);
    first -= std::min<std::ptrdiff_t>(first - points.begin(), 1);
    last += std::min<std::ptrdiff_t>(points.end() - last, 1);
    std::span<PointT<double> const> const part(first, last);
    PixelRect const touched = TouchedBounds(part, reach, columns);
    if (part.size() > 1 && !touched.IsEmpty()) {
      accumulator.Begin(touched, SweepDirection::kColumns);
      StrokeOutline(accumulator, width).AddLine(part);
      accumulator.Finish(scriber::FillRule::kWinding, kLinesOfStroke, consume);
    }
  }
}

double Overlap(double pixel, double from, double to) {
  return std::max(std::min(pixel + 1.0, to) - std::max(pixel, from), 0.0);
}

}  // namespace

void FillCoverage(Polyline const& outline, scriber::FillRule rule, bool smooth, PixelRect const& bounds,
                  CoverageConsumer const& consume) {
  PixelRect const touched = TouchedBounds(outline.points, 0.0, bounds);
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
  accumulator.Finish(rule, kRowsAtOnce, consume);
}

void StrokeCoverage(Polyline const& line, double width, bool smooth, PixelRect const& bounds,
                    CoverageConsumer const& consume) {
  double const visible = smooth ? width : std::max(width, 1.0);
  PixelRect const touched = TouchedBounds(line.points, visible * StrokeOutline::kFarthestReach, bounds);
  if (touched.IsEmpty()) {
    return;
  }
  if (smooth && IsGraph(line) && DirectionFor(line, touched) == SweepDirection::kColumns) {
    StrokeGraph(line.points, visible, touched, consume);
    return;
  }
  CoverageAccumulator& accumulator = SharedAccumulator();
  Begin(accumulator, line, smooth, touched);
  StrokeOutline(accumulator, visible).Add(line);
  accumulator.Finish(scriber::FillRule::kWinding, kLinesOfStroke, consume);
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
