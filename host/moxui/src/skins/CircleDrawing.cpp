#include <moxui/scriber/PathInterface.h>
#include <moxui/scriber/PenInterface.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/skins/CircleDrawing.h>

#include <algorithm>

namespace moxui::skins::utilities {

namespace {

float RadiusOf(RectT<float> const& rect) {
  return 0.5f * std::min(rect.width, rect.height);
}

// Keeps the smoothing that was in force.
class AntiAliased {
 public:
  explicit AntiAliased(scriber::SurfaceInterface& surface)
      : mSurface(surface), mBefore(surface.GetSmoothing()) {
    mSurface.SetSmoothing(scriber::Smoothing::kAntiAliased);
  }
  ~AntiAliased() { mSurface.SetSmoothing(mBefore); }
  AntiAliased(AntiAliased const&) = delete;
  AntiAliased& operator=(AntiAliased const&) = delete;

 private:
  scriber::SurfaceInterface& mSurface;
  scriber::Smoothing mBefore;
};

}  // namespace

void DrawCircleFill(scriber::Scriber* scriber, RectT<float> const& rect, ColorRGBA const& colour) {
  if (rect.IsEmpty()) {
    return;
  }
  AntiAliased const smoothing(*scriber->GetSurface());
  scriber::PathP const path = scriber->GetSupplier()->NewPath();
  path->AddArc(rect.Center(), RadiusOf(rect), 0.0f, 360.0f);
  path->Close();
  scriber::BrushP const brush = scriber->GetSupplier()->NewBrush(colour);
  scriber->GetSurface()->FillPath(*path, *brush, scriber::FillRule::kWinding);
}

void DrawCircleBorder(scriber::Scriber* scriber, RectT<float> const& rect, ColorRGBA const& colour,
                      float thickness) {
  DrawDoughnut(scriber, rect, thickness, colour);
}

void DrawDoughnut(scriber::Scriber* scriber, RectT<float> const& rect, float thickness,
                  ColorRGBA const& colour) {
  if (rect.IsEmpty() || !(thickness > 0.0f)) {
    return;
  }
  float const radius = RadiusOf(rect);
  if (thickness >= radius) {
    DrawCircleFill(scriber, rect, colour);
    return;
  }
  AntiAliased const smoothing(*scriber->GetSurface());
  scriber::PathP const path = scriber->GetSupplier()->NewPath();
  path->AddArc(rect.Center(), radius - 0.5f * thickness, 0.0f, 360.0f);
  scriber::PenP const pen = scriber->GetSupplier()->NewPen(colour, thickness);
  scriber->GetSurface()->StrokePath(*path, *pen);
}

}  // namespace moxui::skins::utilities
