#include "curve/CurvePlot.h"

#include "program/Localized.h"
#include "program/NumberText.h"
#include "shell/Painting.h"

#include <moxui/scriber/Drawing.h>
#include <moxui/scriber/PathInterface.h>
#include <moxui/scriber/PenInterface.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/scriber/SurfaceInterface.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace playground {
namespace {

using moxui::ColorRGBA;
using moxui::PointT;
using moxui::RectT;
using moxui::scriber::Scriber;
using moxui::scriber::TextAlignment;
using moxui::ui::FontIndex;
using moxui::ui::ThemeColorID;

constexpr std::array<double, 5> kGridLevels{0.0, 64.0, 128.0, 192.0, 255.0};
constexpr float kLevelsWidth = 32.0f;   // of the numbers beside the square
constexpr float kLevelsHeight = 16.0f;  // of those below the ramps
constexpr float kTop = 12.0f;
constexpr float kRight = 12.0f;
constexpr float kRampHeight = 12.0f;
constexpr float kRampGap = 4.0f;
constexpr float kBelow = 2.0f * (kRampGap + kRampHeight) + kLevelsHeight;
constexpr float kSmallestSquare = 32.0f;
constexpr float kCurveWidth = 2.0f;
constexpr float kRingWidth = 2.0f;
constexpr int kRampSteps = 256;
// Coordinates of screens are single precision.
constexpr auto kMostF = static_cast<float>(ToneCurve::kMost);

float DistanceOf(PointT<float> a, PointT<float> b) {
  return std::hypot(a.x - b.x, a.y - b.y);
}

ColorRGBA Gray(double level) {
  auto const gray = static_cast<float>(level / ToneCurve::kMost);
  return {gray, gray, gray, 1.0f};
}

}  // namespace

CurvePlot::CurvePlot(moxui::ExtentT<float> view) {
  float const room = std::min(view.width - kLevelsWidth - kRight, view.height - kTop - kBelow);
  // On the grid of four pixels, so that its edges are sharp at every scale.
  float const size = std::max(std::floor(room / 4.0f) * 4.0f, kSmallestSquare);
  mSquare = {kLevelsWidth, kTop, size, size};
}

RectT<float> CurvePlot::RampRect(int ramp) const {
  float const step = kRampGap + kRampHeight;
  return {mSquare.left, mSquare.Bottom() + kRampGap + static_cast<float>(ramp) * step, mSquare.width,
          kRampHeight};
}

PointT<float> CurvePlot::PlaceOf(CurvePoint point) const {
  return {mSquare.left + static_cast<float>(point.x) / kMostF * mSquare.width,
          mSquare.Bottom() - static_cast<float>(point.y) / kMostF * mSquare.height};
}

CurvePoint CurvePlot::LevelsAt(PointT<float> place) const {
  return {static_cast<double>((place.x - mSquare.left) / mSquare.width * kMostF),
          static_cast<double>((mSquare.Bottom() - place.y) / mSquare.height * kMostF)};
}

std::optional<std::size_t> CurvePlot::PointAt(ToneCurve const& curve, PointT<float> place) const {
  std::optional<std::size_t> nearest;
  float reach = kPointReach;
  for (std::size_t i = 0; i < curve.PointCount(); ++i) {
    float const distance = DistanceOf(PlaceOf(curve.Points()[i]), place);
    if (distance <= reach) {
      nearest = i;
      reach = distance;
    }
  }
  return nearest;
}

bool CurvePlot::IsOnCurve(ToneCurve const& curve, PointT<float> place) const {
  if (place.x < mSquare.left || place.x > mSquare.Right()) {
    return false;
  }
  constexpr int kReach = static_cast<int>(kCurveReach);
  for (int offset = -kReach; offset <= kReach; ++offset) {
    float const column = place.x + static_cast<float>(offset);
    double const x = std::clamp(LevelsAt({column, place.y}).x, 0.0, ToneCurve::kMost);
    if (DistanceOf(PlaceOf({x, curve.At(x)}), place) <= kCurveReach) {
      return true;
    }
  }
  return false;
}

namespace {

void DrawGrid(Scriber* scriber, CurvePlot const& plot) {
  RectT<float> const& square = plot.Square();
  moxui::utils::DrawRect(scriber, square, ThemeColor(ThemeColorID::kFieldFill));
  auto& surface = *scriber->GetSurface();
  ColorRGBA const line = ThemeColor(ThemeColorID::kGray4);
  for (double const level : kGridLevels) {
    PointT<float> const place = plot.PlaceOf({level, level});
    float const x = std::min(std::round(place.x), square.Right() - 1.0f);
    float const y = std::min(std::round(place.y), square.Bottom() - 1.0f);
    surface.FillRect({x, square.top, 1.0f, square.height}, line);
    surface.FillRect({square.left, y, square.width, 1.0f}, line);
  }
}

void DrawLevels(Scriber* scriber, CurvePlot const& plot) {
  ColorRGBA const ink = ThemeColor(ThemeColorID::kGray7);
  float const below = plot.RampRect(1).Bottom();
  constexpr float kLabelWidth = 32.0f;
  for (double const level : kGridLevels) {
    auto const text = To16(TextFromNumber(level, 0));
    PointT<float> const place = plot.PlaceOf({level, level});
    DrawLabel(scriber, text, {place.x - kLabelWidth / 2.0f, below, kLabelWidth, kLevelsHeight},
              TextAlignment::kCenter, FontIndex::kSmall, ink);
    DrawLabel(scriber, text,
              {0.0f, place.y - kLevelsHeight / 2.0f,
               plot.Square().left - 2.0f * CurvePlot::kPointRadius + 2.0f, kLevelsHeight},
              TextAlignment::kRight, FontIndex::kSmall, ink);
  }
}

void DrawRamps(Scriber* scriber, CurvePlot const& plot, ToneCurve const& curve) {
  auto& surface = *scriber->GetSurface();
  for (int ramp = 0; ramp < 2; ++ramp) {
    RectT<float> const rect = plot.RampRect(ramp);
    float const width = rect.width / static_cast<float>(kRampSteps);
    for (int step = 0; step < kRampSteps; ++step) {
      double const level = ToneCurve::kMost * step / (kRampSteps - 1);
      surface.FillRect({rect.left + static_cast<float>(step) * width, rect.top, width, rect.height},
                       Gray(ramp == 0 ? level : curve.At(level)), moxui::scriber::EdgeRounding::kSnapped);
    }
    moxui::utils::DrawOutline(scriber, rect.Inset(0.5f), ThemeColor(ThemeColorID::kGray4), 1.0f);
  }
}

void DrawLine(Scriber* scriber, CurvePlot const& plot, ToneCurve const& curve) {
  auto& surface = *scriber->GetSurface();
  auto const& supplier = *scriber->GetSupplier();
  auto const straight = supplier.NewPath();
  straight->MoveTo(plot.PlaceOf({0.0, 0.0}));
  straight->LineTo(plot.PlaceOf({ToneCurve::kMost, ToneCurve::kMost}));
  surface.StrokePath(*straight, *supplier.NewPen(ThemeColor(ThemeColorID::kGray5), 1.0f));
  auto const line = supplier.NewPath();
  auto const steps = static_cast<int>(plot.Square().width);
  for (int step = 0; step <= steps; ++step) {
    double const x = ToneCurve::kMost * step / steps;
    auto const place = plot.PlaceOf({x, curve.At(x)});
    step == 0 ? line->MoveTo(place) : line->LineTo(place);
  }
  surface.StrokePath(*line, *supplier.NewPen(ThemeColor(ThemeColorID::kGray9), kCurveWidth));
}

void DrawDisc(Scriber* scriber, PointT<float> middle, float radius, ColorRGBA const& fill,
              ColorRGBA const& rim) {
  auto const disc = scriber->GetSupplier()->NewPath();
  disc->AddArc(middle, radius, 0.0f, 360.0f);
  disc->Close();
  scriber->GetSurface()->FillPath(*disc, *scriber->GetSupplier()->NewBrush(fill),
                                  moxui::scriber::FillRule::kWinding);
  scriber->GetSurface()->StrokePath(*disc, *scriber->GetSupplier()->NewPen(rim, kCurveWidth));
}

void DrawPoint(Scriber* scriber, PointT<float> middle, std::size_t point, CurveMarks const& marks) {
  bool const isSelected = point == marks.selected;
  ColorRGBA const rim = ThemeColor(isSelected ? ThemeColorID::kInteractive : ThemeColorID::kGray9);
  ColorRGBA const fill = isSelected               ? ThemeColor(ThemeColorID::kInteractive)
                         : point == marks.hovered ? ThemeColor(ThemeColorID::kGray9)
                                                  : ThemeColor(ThemeColorID::kFieldFill);
  DrawDisc(scriber, middle, CurvePlot::kPointRadius - 1.0f, fill, rim);
  if (point == marks.focused) {
    auto const ring = scriber->GetSupplier()->NewPath();
    ring->AddArc(middle, CurvePlot::kPointRadius + kFocusReach - kRingWidth / 2.0f, 0.0f, 360.0f);
    ring->Close();
    scriber->GetSurface()->StrokePath(
        *ring, *scriber->GetSupplier()->NewPen(ThemeColor(ThemeColorID::kFocus), kRingWidth));
  }
}

}  // namespace

void DrawCurvePlot(Scriber* scriber, CurvePlot const& plot, ToneCurve const& curve, CurveMarks const& marks) {
  DrawGrid(scriber, plot);
  DrawLevels(scriber, plot);
  DrawRamps(scriber, plot, curve);
  DrawLine(scriber, plot, curve);
  if (marks.ghost) {
    DrawDisc(scriber, plot.PlaceOf(*marks.ghost), CurvePlot::kPointRadius - 1.0f,
             ThemeColor(ThemeColorID::kFieldFill), ThemeColor(ThemeColorID::kGray7));
  }
  // The selected one above its neighbours.
  for (std::size_t i = 0; i < curve.PointCount(); ++i) {
    if (i != marks.selected) {
      DrawPoint(scriber, plot.PlaceOf(curve.Points()[i]), i, marks);
    }
  }
  DrawPoint(scriber, plot.PlaceOf(curve.Points()[marks.selected]), marks.selected, marks);
}

}  // namespace playground
