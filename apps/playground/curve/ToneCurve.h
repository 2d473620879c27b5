#pragma once

#include <cstddef>
#include <optional>
#include <vector>

namespace playground {

// What a level that comes in (x) goes out as (y), both from 0 to ToneCurve::kMost.
struct CurvePoint {
  double x = 0.0;
  double y = 0.0;

  bool operator==(CurvePoint const&) const = default;
};

// A curve through points, from the left to the right: two at least, and never two of one x. Between two
// neighbours it rises or falls all the way, or stays level, and never swings beyond them; before the first
// point and behind the last one it is level.
class ToneCurve {
 public:
  // Levels are those of 8 bits.
  static constexpr double kMost = 255.0;
  // Neighbours are a whole level apart at least.
  static constexpr double kLeastGap = 1.0;
  static constexpr std::size_t kFewestPoints = 2;
  static constexpr std::size_t kMostPoints = 32;

  // The straight line that leaves every level as it is.
  ToneCurve() : ToneCurve({{0.0, 0.0}, {kMost, kMost}}) {}
  // What lies beyond the levels is brought to their ends; what has no room among the points before it is left
  // out. With fewer than two points that remain it is the straight line.
  explicit ToneCurve(std::vector<CurvePoint> const& points);

  std::vector<CurvePoint> const& Points() const { return mPoints; }
  std::size_t PointCount() const { return mPoints.size(); }

  // The level that x goes out as.
  double At(double x) const;

  // Adds a point and gives its number; nothing where there is no room for it, or for any more.
  std::optional<std::size_t> Insert(CurvePoint point);
  // The first and the last point stay.
  bool CanRemove(std::size_t point) const;
  void Remove(std::size_t point);
  // Brings a point as near to a place as its neighbours and the levels allow.
  void Move(std::size_t point, CurvePoint to);
  // Between which x a point can be moved.
  double LeastX(std::size_t point) const;
  double MostX(std::size_t point) const;

  bool operator==(ToneCurve const& other) const { return mPoints == other.mPoints; }

 private:
  void PutInOrder(CurvePoint point);
  void FindSlopes();

  std::vector<CurvePoint> mPoints;
  std::vector<double> mSlopes;  // of the curve in each point
};

}  // namespace playground
