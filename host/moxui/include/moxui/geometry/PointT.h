#pragma once

namespace moxui {

/// A point or an offset; x to the right, y downward.
template <typename T>
struct PointT {
  T x{};
  T y{};

  constexpr PointT() = default;
  constexpr PointT(T xValue, T yValue) : x(xValue), y(yValue) {}
  template <typename U>
  explicit constexpr PointT(PointT<U> const& other)
      : x(static_cast<T>(other.x)), y(static_cast<T>(other.y)) {}

  friend constexpr bool operator==(PointT const&, PointT const&) = default;
  friend constexpr PointT operator+(PointT a, PointT b) { return {a.x + b.x, a.y + b.y}; }
  friend constexpr PointT operator-(PointT a, PointT b) { return {a.x - b.x, a.y - b.y}; }
  constexpr PointT operator-() const { return {-x, -y}; }
};

}  // namespace moxui
