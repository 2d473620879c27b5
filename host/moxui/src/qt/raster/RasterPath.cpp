#include "qt/raster/RasterPath.h"

#include "qt/raster/FiniteValues.h"

#include <cmath>
#include <numbers>

namespace moxui::qt {

namespace {

PointT<float> FinitePoint(PointT<float> point) {
  return PointT<float>(Finite(point));
}

}  // namespace

void RasterPath::BeginIfNeeded() {
  if (!mOpen) {
    mVerbs.push_back(Verb::kMove);
    mPoints.push_back(mBegin);
    mOpen = true;
  }
}

void RasterPath::MoveTo(PointT<float> point) {
  mBegin = FinitePoint(point);
  mOpen = false;
  BeginIfNeeded();
}

void RasterPath::LineTo(PointT<float> point) {
  BeginIfNeeded();
  mVerbs.push_back(Verb::kLine);
  mPoints.push_back(FinitePoint(point));
}

void RasterPath::AddArc(PointT<float> centre, float radius, float start, float sweep) {
  PointT<float> const middle = FinitePoint(centre);
  float const r = std::max(static_cast<float>(Finite(radius)), 0.0f);
  float const from = static_cast<float>(std::fmod(Finite(start), 360.0));
  // Turns beyond the first paint nothing new.
  float const by = std::clamp(static_cast<float>(Finite(sweep)), -360.0f, 360.0f);
  if (!mOpen) {
    double const angle = from * std::numbers::pi / 180.0;
    mBegin = {static_cast<float>(middle.x + r * std::cos(angle)),
              static_cast<float>(middle.y + r * std::sin(angle))};
    BeginIfNeeded();
  }
  mVerbs.push_back(Verb::kArc);
  mPoints.insert(mPoints.end(), {middle, PointT<float>{r, 0.0f}, PointT<float>{from, by}});
}

void RasterPath::CubicTo(PointT<float> handle1, PointT<float> handle2, PointT<float> point) {
  BeginIfNeeded();
  mVerbs.push_back(Verb::kCubic);
  mPoints.insert(mPoints.end(), {FinitePoint(handle1), FinitePoint(handle2), FinitePoint(point)});
}

void RasterPath::AddRect(RectT<float> const& rect) {
  RectT<float> const r(Finite(rect));
  MoveTo({r.left, r.top});
  LineTo({r.Right(), r.top});
  LineTo({r.Right(), r.Bottom()});
  LineTo({r.left, r.Bottom()});
  Close();
}

void RasterPath::Close() {
  if (mOpen) {
    mVerbs.push_back(Verb::kClose);
    mOpen = false;
  }
}

bool RasterPath::IsRect(RectT<float>& rect) const {
  static std::vector<Verb> const kRect{Verb::kMove, Verb::kLine, Verb::kLine, Verb::kLine, Verb::kClose};
  if (mVerbs != kRect) {
    return false;
  }
  PointT<float> const a = mPoints[0];
  PointT<float> const b = mPoints[1];
  PointT<float> const c = mPoints[2];
  PointT<float> const d = mPoints[3];
  bool const upright = a.y == b.y && b.x == c.x && c.y == d.y && d.x == a.x;
  bool const turned = a.x == b.x && b.y == c.y && c.x == d.x && d.y == a.y;
  if (!upright && !turned) {
    return false;
  }
  rect =
      RectT<float>::FromEdges(std::min(a.x, c.x), std::min(a.y, c.y), std::max(a.x, c.x), std::max(a.y, c.y));
  return true;
}

RectT<double> RasterPath::GetBounds() const {
  if (mPoints.empty()) {
    return {};
  }
  double left = kFarthest * 2;
  double top = left;
  double right = -left;
  double bottom = -left;
  auto const add = [&](PointT<float> point, double reach) {
    left = std::min(left, point.x - reach);
    top = std::min(top, point.y - reach);
    right = std::max(right, point.x + reach);
    bottom = std::max(bottom, point.y + reach);
  };
  std::size_t next = 0;
  for (Verb const verb : mVerbs) {
    if (verb == Verb::kArc) {
      add(mPoints[next], mPoints[next + 1].x);
      next += 3;
    } else if (verb != Verb::kClose) {
      std::size_t const count = verb == Verb::kCubic ? 3 : 1;
      for (std::size_t i = 0; i < count; ++i) {
        add(mPoints[next++], 0.0);
      }
    }
  }
  return RectT<double>::FromEdges(left, top, right, bottom);
}

}  // namespace moxui::qt
