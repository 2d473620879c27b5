#pragma once

#include <moxui/geometry/PointT.h>
#include <moxui/geometry/RectT.h>

#include <algorithm>
#include <cmath>

namespace moxui::qt {

/// Coordinates beyond this many logical pixels are as good as infinite.
inline constexpr double kFarthest = 1e6;

/// What callers hand over may be anything: not a number counts as 0, and far values are brought near.
inline double Finite(double value) {
  return std::isnan(value) ? 0.0 : std::clamp(value, -kFarthest, kFarthest);
}

inline PointT<double> Finite(PointT<float> point) {
  return {Finite(point.x), Finite(point.y)};
}

/// From edges, so that an infinite extent doesn't move the other edge. Negative extents count as 0.
inline RectT<double> Finite(RectT<float> const& rect) {
  double const left = Finite(rect.left);
  double const top = Finite(rect.top);
  double const right = Finite(static_cast<double>(rect.left) + static_cast<double>(rect.width));
  double const bottom = Finite(static_cast<double>(rect.top) + static_cast<double>(rect.height));
  return {left, top, std::max(right - left, 0.0), std::max(bottom - top, 0.0)};
}

inline float FiniteOpacity(float opacity) {
  return std::isnan(opacity) ? 0.0f : std::clamp(opacity, 0.0f, 1.0f);
}

}  // namespace moxui::qt
