#include "qt/raster/StrokeOutline.h"

#include <algorithm>
#include <cmath>

namespace moxui::qt {

namespace {

constexpr double kMiterLimit = 4.0;
constexpr double kSharpest = -0.5;  // cosine of the turn from which on sides don't simply meet
constexpr double kInvisible = 1.0 / 64.0;

double Dot(PointT<double> a, PointT<double> b) {
  return a.x * b.x + a.y * b.y;
}
double Cross(PointT<double> a, PointT<double> b) {
  return a.x * b.y - a.y * b.x;
}

}  // namespace

void StrokeOutline::Add(Polyline const& polyline) {
  for (Polyline::SubPath const& subPath : polyline.subPaths) {
    AddSubPath(polyline.points.data() + subPath.begin, subPath.end - subPath.begin, subPath.closed);
  }
}

void StrokeOutline::AddSubPath(PointT<double> const* points, std::size_t count, bool closed) {
  mPoints.clear();
  mSegments.clear();
  mPoints.push_back(points[0]);
  auto const goTo = [&](PointT<double> to) {
    PointT<double> const way = to - mPoints.back();
    double const length = std::sqrt(Dot(way, way));
    if (length > kTooClose) {
      mSegments.push_back({{way.x / length, way.y / length}, length});
      mPoints.push_back(to);
    }
  };
  for (std::size_t i = 1; i < count; ++i) {
    goTo(points[i]);
  }
  if (closed && mSegments.size() > 1) {
    goTo(mPoints.front());
    mPoints.back() = mPoints.front();  // the way back may have ended a hair before it
  }
  if (mSegments.empty()) {
    return;
  }
  std::size_t const last = mSegments.size() - 1;
  bool const joinsEnds = closed && last > 0;
  Sides tips{};
  Sides from = SidesAt(mPoints.front(), mSegments.front());
  bool const seamMeets = joinsEnds && MeetsInTips(mSegments.back(), mSegments.front(), mPoints.front(), tips);
  Sides const seam = tips;
  if (seamMeets) {
    from = seam;
  } else if (!joinsEnds) {
    mAccumulator.AddEdge(from.right, from.left);
  }
  for (std::size_t i = 0; i < last; ++i) {
    Segment const& segment = mSegments[i];
    Segment const& next = mSegments[i + 1];
    PointT<double> const point = mPoints[i + 1];
    if (MeetsInTips(segment, next, point, tips)) {
      AddSegment(from, tips);
      from = tips;
    } else {
      AddSegment(from, SidesAt(point, segment));
      AddJoin(point, segment, next);
      from = SidesAt(point, next);
    }
  }
  Sides const end = seamMeets ? seam : SidesAt(mPoints.back(), mSegments.back());
  AddSegment(from, end);
  if (!joinsEnds) {
    mAccumulator.AddEdge(end.left, end.right);
  } else if (!seamMeets) {
    AddJoin(mPoints.back(), mSegments.back(), mSegments.front());
  }
}

void StrokeOutline::AddSegment(Sides const& from, Sides const& to) {
  mAccumulator.AddEdge(from.left, to.left);
  mAccumulator.AddEdge(to.right, from.right);
}

bool StrokeOutline::MeetsInTips(Segment const& before, Segment const& after, PointT<double> point,
                                Sides& tips) const {
  double const along = Dot(before.direction, after.direction);
  if (along < kSharpest) {
    return false;
  }
  // How far the inner side falls short of the point; both ends of a segment may take half of it.
  double const retreat = mHalf * std::abs(Cross(before.direction, after.direction));
  if (retreat > 0.5 * (1.0 + along) * std::min(before.length, after.length)) {
    return false;
  }
  PointT<double> const a = Side(before);
  PointT<double> const b = Side(after);
  double const scale = 1.0 / (1.0 + along);
  PointT<double> const tip{scale * (a.x + b.x), scale * (a.y + b.y)};
  tips = {point + tip, point - tip};
  return true;
}

void StrokeOutline::AddJoin(PointT<double> point, Segment const& before, Segment const& after) {
  double const along = Dot(before.direction, after.direction);
  bool const turnsToSide = Cross(before.direction, after.direction) > 0;
  PointT<double> const a = Side(before);
  PointT<double> const b = Side(after);
  // Inside of the turn: through the point itself, which keeps what overlaps covered.
  mAccumulator.AddEdge(turnsToSide ? point + a : point - b, point);
  mAccumulator.AddEdge(point, turnsToSide ? point + b : point - a);
  // Outside: to the tip of the miter, or straight across.
  PointT<double> const outerA = turnsToSide ? point - b : point + a;
  PointT<double> const outerB = turnsToSide ? point - a : point + b;
  bool const visibleTip = mHalf * (1.0 - along) > 2.0 * kInvisible;
  bool const withinLimit = 1.0 + along >= 2.0 / (kMiterLimit * kMiterLimit);
  if (visibleTip && withinLimit) {
    double const scale = (turnsToSide ? -1.0 : 1.0) / (1.0 + along);
    PointT<double> const tip{point.x + scale * (a.x + b.x), point.y + scale * (a.y + b.y)};
    mAccumulator.AddEdge(outerA, tip);
    mAccumulator.AddEdge(tip, outerB);
  } else {
    mAccumulator.AddEdge(outerA, outerB);
  }
}

}  // namespace moxui::qt
