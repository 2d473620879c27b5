#include "curve/ToneCurve.h"

#include <algorithm>
#include <cmath>

namespace playground {
namespace {

double Level(double value) {
  return std::clamp(std::isnan(value) ? 0.0 : value, 0.0, ToneCurve::kMost);
}

double Steepness(CurvePoint const& from, CurvePoint const& to) {
  return (to.y - from.y) / (to.x - from.x);
}

// The slope in a point between two others: the harmonic mean of the slopes on its sides, weighted by their
// lengths, or none where the curve turns. F. N. Fritsch and J. Butland, "A method for constructing local
// monotone piecewise cubic interpolants", SIAM J. Sci. Stat. Comput. 5 (1984).
double SlopeBetween(CurvePoint const& before, CurvePoint const& point, CurvePoint const& after) {
  double const left = Steepness(before, point);
  double const right = Steepness(point, after);
  if (left * right <= 0.0) {
    return 0.0;
  }
  double const leftLength = point.x - before.x;
  double const rightLength = after.x - point.x;
  double const leftWeight = 2.0 * rightLength + leftLength;
  double const rightWeight = rightLength + 2.0 * leftLength;
  return (leftWeight + rightWeight) / (leftWeight / left + rightWeight / right);
}

// The slope in a point at the end: that of the parabola through it and the two next to it, as far as the
// curve stays monotone with it.
double SlopeAtEnd(CurvePoint const& end, CurvePoint const& next, CurvePoint const& afterNext) {
  double const near = Steepness(end, next);
  double const far = Steepness(next, afterNext);
  double const nearLength = next.x - end.x;
  double const farLength = afterNext.x - next.x;
  double const slope = ((2.0 * nearLength + farLength) * near - nearLength * far) / (nearLength + farLength);
  if (slope * near <= 0.0) {
    return 0.0;
  }
  if (near * far < 0.0 && std::abs(slope) > 3.0 * std::abs(near)) {
    return 3.0 * near;
  }
  return slope;
}

}  // namespace

ToneCurve::ToneCurve(std::vector<CurvePoint> const& points) {
  for (CurvePoint const& point : points) {
    PutInOrder(point);
  }
  if (mPoints.size() < kFewestPoints) {
    mPoints = {{0.0, 0.0}, {kMost, kMost}};
  }
  FindSlopes();
}

void ToneCurve::PutInOrder(CurvePoint point) {
  point = {Level(point.x), Level(point.y)};
  auto const after = std::upper_bound(mPoints.begin(), mPoints.end(), point,
                                      [](CurvePoint const& a, CurvePoint const& b) { return a.x < b.x; });
  bool const hasRoom = (after == mPoints.begin() || point.x - std::prev(after)->x >= kLeastGap) &&
                       (after == mPoints.end() || after->x - point.x >= kLeastGap);
  if (hasRoom && mPoints.size() < kMostPoints) {
    mPoints.insert(after, point);
  }
}

void ToneCurve::FindSlopes() {
  std::size_t const last = mPoints.size() - 1;
  mSlopes.resize(mPoints.size());
  if (last == 1) {
    mSlopes[0] = mSlopes[1] = Steepness(mPoints[0], mPoints[1]);
    return;
  }
  mSlopes[0] = SlopeAtEnd(mPoints[0], mPoints[1], mPoints[2]);
  for (std::size_t i = 1; i < last; ++i) {
    mSlopes[i] = SlopeBetween(mPoints[i - 1], mPoints[i], mPoints[i + 1]);
  }
  mSlopes[last] = SlopeAtEnd(mPoints[last], mPoints[last - 1], mPoints[last - 2]);
}

double ToneCurve::At(double x) const {
  if (!(x > mPoints.front().x)) {
    return mPoints.front().y;
  }
  if (x >= mPoints.back().x) {
    return mPoints.back().y;
  }
  auto const after = std::upper_bound(mPoints.begin(), mPoints.end(), x,
                                      [](double value, CurvePoint const& point) { return value < point.x; });
  auto const right = static_cast<std::size_t>(after - mPoints.begin());
  CurvePoint const& a = mPoints[right - 1];
  CurvePoint const& b = mPoints[right];
  // The cubic with these values and slopes at its ends, in Hermite's form.
  double const length = b.x - a.x;
  double const t = (x - a.x) / length;
  double const s = 1.0 - t;
  double const y = s * s * ((1.0 + 2.0 * t) * a.y + t * length * mSlopes[right - 1]) +
                   t * t * ((1.0 + 2.0 * s) * b.y - s * length * mSlopes[right]);
  return std::clamp(y, std::min(a.y, b.y), std::max(a.y, b.y));
}

std::optional<std::size_t> ToneCurve::Insert(CurvePoint point) {
  std::size_t const before = mPoints.size();
  PutInOrder(point);
  if (mPoints.size() == before) {
    return std::nullopt;
  }
  FindSlopes();
  auto const found = std::find_if(mPoints.begin(), mPoints.end(),
                                  [x = Level(point.x)](CurvePoint const& other) { return other.x == x; });
  return static_cast<std::size_t>(found - mPoints.begin());
}

bool ToneCurve::CanRemove(std::size_t point) const {
  return point > 0 && point + 1 < mPoints.size();
}

void ToneCurve::Remove(std::size_t point) {
  if (CanRemove(point)) {
    mPoints.erase(mPoints.begin() + static_cast<std::ptrdiff_t>(point));
    FindSlopes();
  }
}

double ToneCurve::LeastX(std::size_t point) const {
  return point == 0 ? 0.0 : mPoints[point - 1].x + kLeastGap;
}

double ToneCurve::MostX(std::size_t point) const {
  return point + 1 == mPoints.size() ? kMost : mPoints[point + 1].x - kLeastGap;
}

void ToneCurve::Move(std::size_t point, CurvePoint to) {
  mPoints[point] = {std::clamp(Level(to.x), LeastX(point), MostX(point)), Level(to.y)};
  FindSlopes();
}

}  // namespace playground
