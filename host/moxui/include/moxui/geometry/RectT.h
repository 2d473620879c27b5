#pragma once

#include <moxui/geometry/ExtentT.h>
#include <moxui/geometry/PaddingT.h>
#include <moxui/geometry/PointT.h>

#include <algorithm>

namespace moxui {

/// A rectangle by its top left corner and its extent. Extents below zero may be stored; such a rectangle is
/// empty.
template <typename T>
struct RectT {
  T left{};
  T top{};
  T width{};
  T height{};

  constexpr RectT() = default;
  constexpr RectT(T leftValue, T topValue, T widthValue, T heightValue)
      : left(leftValue), top(topValue), width(widthValue), height(heightValue) {}
  template <typename U>
  explicit constexpr RectT(RectT<U> const& other)
      : left(static_cast<T>(other.left)),
        top(static_cast<T>(other.top)),
        width(static_cast<T>(other.width)),
        height(static_cast<T>(other.height)) {}

  /// The rectangle between two edges each; empty if an edge pair is out of order.
  static constexpr RectT FromEdges(T left, T top, T right, T bottom) {
    return {left, top, right - left, bottom - top};
  }

  constexpr T Right() const { return left + width; }
  constexpr T Bottom() const { return top + height; }
  constexpr PointT<T> TopLeft() const { return {left, top}; }
  constexpr PointT<T> Center() const { return {left + width / 2, top + height / 2}; }
  constexpr ExtentT<T> Extent() const { return {width, height}; }
  constexpr bool IsEmpty() const { return !(width > T{}) || !(height > T{}); }

  /// Right and bottom edges don't belong to the rectangle.
  constexpr bool Contains(PointT<T> point) const {
    return point.x >= left && point.x < Right() && point.y >= top && point.y < Bottom();
  }
  constexpr bool Contains(RectT const& other) const {
    return other.left >= left && other.top >= top && other.Right() <= Right() && other.Bottom() <= Bottom();
  }
  constexpr bool Intersects(RectT const& other) const { return !Intersection(other).IsEmpty(); }

  /// The common area, or the empty rectangle (0, 0, 0, 0) if there is none.
  constexpr RectT Intersection(RectT const& other) const {
    T const x = std::max(left, other.left);
    T const y = std::max(top, other.top);
    RectT const common =
        FromEdges(x, y, std::min(Right(), other.Right()), std::min(Bottom(), other.Bottom()));
    return common.IsEmpty() ? RectT{} : common;
  }
  /// The smallest rectangle that holds both; an empty one adds nothing.
  constexpr RectT Union(RectT const& other) const {
    if (IsEmpty()) {
      return other;
    }
    if (other.IsEmpty()) {
      return *this;
    }
    return FromEdges(std::min(left, other.left), std::min(top, other.top), std::max(Right(), other.Right()),
                     std::max(Bottom(), other.Bottom()));
  }
  constexpr RectT Offset(PointT<T> by) const { return {left + by.x, top + by.y, width, height}; }
  constexpr RectT Grown(PaddingT<T> const& by) const {
    return {left - by.left, top - by.top, width + by.left + by.right, height + by.top + by.bottom};
  }
  constexpr RectT Inset(T by) const { return {left + by, top + by, width - 2 * by, height - 2 * by}; }

  friend constexpr bool operator==(RectT const&, RectT const&) = default;
};

}  // namespace moxui
