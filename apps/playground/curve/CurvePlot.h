#pragma once

#include "curve/ToneCurve.h"

#include <moxui/geometry/PointT.h>
#include <moxui/geometry/RectT.h>

#include <cstddef>
#include <optional>

namespace moxui::scriber {
class Scriber;
}

namespace playground {

// Where a curve lies in a view: a square of levels, the levels that come in from left to right, those that go
// out upward, in every language. Below it two ramps from black to white: as they come in and as the curve
// makes them; the levels of the grid's lines stand around it.
class CurvePlot {
 public:
  static constexpr float kPointRadius = 5.0f;
  // How near the pointer has to be to what it takes.
  static constexpr float kPointReach = 9.0f;
  static constexpr float kCurveReach = 6.0f;

  // As large as there is room for in a view of this extent.
  explicit CurvePlot(moxui::ExtentT<float> view);

  moxui::RectT<float> const& Square() const { return mSquare; }
  moxui::RectT<float> RampRect(int ramp) const;

  moxui::PointT<float> PlaceOf(CurvePoint point) const;
  // The levels of a place, which may lie beyond the square.
  CurvePoint LevelsAt(moxui::PointT<float> place) const;

  // The nearest point within reach.
  std::optional<std::size_t> PointAt(ToneCurve const& curve, moxui::PointT<float> place) const;
  bool IsOnCurve(ToneCurve const& curve, moxui::PointT<float> place) const;

 private:
  moxui::RectT<float> mSquare;
};

// What of a curve is drawn otherwise.
struct CurveMarks {
  std::size_t selected = 0;
  std::optional<std::size_t> focused{};
  std::optional<std::size_t> hovered{};
  std::optional<CurvePoint> ghost{};  // a point that a press would add
};

void DrawCurvePlot(moxui::scriber::Scriber* scriber, CurvePlot const& plot, ToneCurve const& curve,
                   CurveMarks const& marks);

}  // namespace playground
