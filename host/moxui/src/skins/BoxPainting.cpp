#include "BoxPainting.h"

#include "ControlLook.h"

#include <moxui/scriber/Drawing.h>
#include <moxui/scriber/PathInterface.h>
#include <moxui/scriber/PenInterface.h>
#include <moxui/scriber/RoundedRect.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/scriber/SurfaceInterface.h>

namespace moxui::skins {
namespace {

constexpr float kFocusGap = 1.0f;
constexpr float kFocusThickness = 2.0f;
static_assert(kFocusGap + kFocusThickness == kFocusRingReach);

RectT<float> GrownBy(RectT<float> const& rect, float by) {
  return rect.Inset(-by);
}

}  // namespace

void FillBox(scriber::Scriber* scriber, RectT<float> const& rect, float radius, ColorRGBA const& colour) {
  if (rect.IsEmpty()) {
    return;
  }
  if (radius <= 0.0f) {
    scriber->GetSurface()->FillRect(rect, colour);
    return;
  }
  scriber::BrushP const brush = scriber->GetSupplier()->NewBrush(colour);
  FillBox(scriber, rect, radius, *brush);
}

void FillBox(scriber::Scriber* scriber, RectT<float> const& rect, float radius,
             scriber::BrushInterface const& brush) {
  scriber::PathP const path = scriber->GetSupplier()->NewPath();
  utils::GetRoundedRectPath(path, rect, radius);
  scriber->GetSurface()->FillPath(*path, brush, scriber::FillRule::kWinding);
}

void FrameBox(scriber::Scriber* scriber, RectT<float> const& rect, float radius, ColorRGBA const& colour,
              float thickness) {
  if (thickness <= 0.0f || rect.IsEmpty()) {
    return;
  }
  float const half = thickness / 2.0f;
  float const lineRadius = radius > half ? radius - half : 0.0f;
  utils::DrawOutline(scriber, rect.Inset(half), colour, thickness, utils::kAllEdges, lineRadius);
}

void DrawFocusRing(scriber::Scriber* scriber, RectT<float> const& rect, float radius,
                   ColorRGBA const& colour) {
  float const outward = kFocusGap + kFocusThickness / 2.0f;
  float const lineRadius = radius > 0.0f ? radius + outward : 0.0f;
  utils::DrawOutline(scriber, GrownBy(rect, outward), colour, kFocusThickness, utils::kAllEdges, lineRadius);
}

void DrawFieldBox(scriber::Scriber* scriber, RectT<float> const& rect, ControlLook const& look) {
  using ui::ThemeColorID;
  ThemeColorID fill = ThemeColorID::kFieldFill;
  ThemeColorID outline = ThemeColorID::kFieldOutline;
  switch (look.GetInteraction()) {
    case Interaction::kIdle:
      break;
    case Interaction::kHover:
      outline = ThemeColorID::kFieldOutlineActive;
      break;
    case Interaction::kPressed:
      fill = ThemeColorID::kFieldFillHover;
      outline = ThemeColorID::kFieldOutlineActive;
      break;
    case Interaction::kDisabled:
      fill = ThemeColorID::kFieldFillDisabled;
      outline = ThemeColorID::kFieldOutlineDisabled;
      break;
  }
  float const radius = look.Number(SkinNumber::kCornerRadius);
  FillBox(scriber, rect, radius, look.Color(fill));
  FrameBox(scriber, rect, radius, look.Color(outline), 1.0f);
}

}  // namespace moxui::skins
