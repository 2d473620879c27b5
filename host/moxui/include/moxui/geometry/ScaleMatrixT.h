#pragma once

#include <moxui/geometry/PointT.h>
#include <moxui/geometry/RectT.h>

namespace moxui {

/// A transform that scales, then moves: (x, y) becomes (x * scaleX + moveX, y * scaleY + moveY).
template <typename T>
struct ScaleMatrixT {
  T scaleX{1};
  T scaleY{1};
  T moveX{};
  T moveY{};

  constexpr PointT<T> Apply(PointT<T> p) const { return {p.x * scaleX + moveX, p.y * scaleY + moveY}; }
  constexpr RectT<T> Apply(RectT<T> const& r) const {
    return {r.left * scaleX + moveX, r.top * scaleY + moveY, r.width * scaleX, r.height * scaleY};
  }
  friend constexpr bool operator==(ScaleMatrixT const&, ScaleMatrixT const&) = default;
};

}  // namespace moxui
