#include "MarkPainting.h"

#include "BoxPainting.h"
#include "ControlLook.h"

#include <moxui/scriber/PathInterface.h>
#include <moxui/scriber/PenInterface.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/skins/CircleDrawing.h>
#include <moxui/skins/LayoutDirection.h>

#include <initializer_list>

namespace moxui::skins {
namespace {

using ui::ThemeColorID;

constexpr float kRadioDot = 6.0f;
constexpr float kTriangleReach = 4.0f;  // from the triangle's centre to its tip and its base

ThemeColorID FilledRole(ControlLook const& look) {
  switch (look.GetInteraction()) {
    case Interaction::kHover:
      return ThemeColorID::kInteractiveHover;
    case Interaction::kPressed:
      return ThemeColorID::kInteractivePressed;
    case Interaction::kDisabled:
      return ThemeColorID::kFieldOutlineDisabled;
    case Interaction::kIdle:
      break;
  }
  return ThemeColorID::kInteractive;
}

ThemeColorID OutlineRole(ControlLook const& look) {
  switch (look.GetInteraction()) {
    case Interaction::kHover:
    case Interaction::kPressed:
      return ThemeColorID::kFieldOutlineActive;
    case Interaction::kDisabled:
      return ThemeColorID::kFieldOutlineDisabled;
    case Interaction::kIdle:
      break;
  }
  return ThemeColorID::kFieldOutline;
}

ThemeColorID GroundRole(ControlLook const& look) {
  switch (look.GetInteraction()) {
    case Interaction::kPressed:
      return ThemeColorID::kFieldFillHover;
    case Interaction::kDisabled:
      return ThemeColorID::kFieldFillDisabled;
    default:
      return ThemeColorID::kFieldFill;
  }
}

ThemeColorID MarkRole(ControlLook const& look) {
  if (look.IsDisabled()) {
    return ThemeColorID::kDefaultTextDisabled;
  }
  return look.IsV7() ? ThemeColorID::kOnInteractive : ThemeColorID::kStrongText;
}

void StrokeLine(scriber::Scriber* scriber, std::initializer_list<PointT<float>> points,
                ColorRGBA const& colour, float width) {
  scriber::SupplierInterface const& supplier = *scriber->GetSupplier();
  scriber::PathP const path = supplier.NewPath();
  bool isFirst = true;
  for (PointT<float> const& point : points) {
    isFirst ? path->MoveTo(point) : path->LineTo(point);
    isFirst = false;
  }
  scriber::PenP const pen = supplier.NewPen(colour, width);
  scriber->GetSurface()->StrokePath(*path, *pen);
}

void StrokeCheck(scriber::Scriber* scriber, RectT<float> const& box, ColorRGBA const& colour) {
  // The mark on a box of 16 by 16.
  float const unit = box.width / 16.0f;
  auto const at = [&](float x, float y) { return PointT<float>(box.left + x * unit, box.top + y * unit); };
  StrokeLine(scriber, {at(3.6f, 8.2f), at(6.7f, 11.3f), at(12.4f, 4.7f)}, colour, 2.0f * unit);
}

void FillDash(scriber::Scriber* scriber, RectT<float> const& box, ColorRGBA const& colour) {
  PointT<float> const centre = box.Center();
  float const half = box.width / 4.0f;
  scriber->GetSurface()->FillRect({centre.x - half, centre.y - 1.0f, 2.0f * half, 2.0f}, colour);
}

}  // namespace

void PaintCheckBox(scriber::Scriber* scriber, RectT<float> const& box, bool isChecked,
                   ControlLook const& look) {
  float const radius = 2.0f;
  bool const isMarked = isChecked || look.isUnknown;
  if (isMarked && look.IsV7()) {
    FillBox(scriber, box, radius, look.Color(FilledRole(look)));
  } else {
    FillBox(scriber, box, radius, look.Color(GroundRole(look)));
    FrameBox(scriber, box, radius, look.Color(OutlineRole(look)), 1.0f);
  }
  ColorRGBA const mark = look.Color(MarkRole(look));
  if (look.isUnknown) {
    FillDash(scriber, box, mark);
  } else if (isChecked) {
    StrokeCheck(scriber, box, mark);
  }
}

void PaintRadioMark(scriber::Scriber* scriber, RectT<float> const& mark, bool isChosen,
                    ControlLook const& look) {
  if ((isChosen || look.isUnknown) && look.IsV7()) {
    utilities::DrawCircleFill(scriber, mark, look.Color(FilledRole(look)));
  } else {
    utilities::DrawCircleFill(scriber, mark, look.Color(GroundRole(look)));
    utilities::DrawCircleBorder(scriber, mark, look.Color(OutlineRole(look)), 1.0f);
  }
  ColorRGBA const colour = look.Color(MarkRole(look));
  if (look.isUnknown) {
    FillDash(scriber, mark, colour);
  } else if (isChosen) {
    PointT<float> const centre = mark.Center();
    RectT<float> const dot(centre.x - kRadioDot / 2.0f, centre.y - kRadioDot / 2.0f, kRadioDot, kRadioDot);
    utilities::DrawCircleFill(scriber, dot, colour);
  }
}

void PaintDisclosureTriangle(scriber::Scriber* scriber, RectT<float> const& rect, bool isExpanded,
                             ControlLook const& look) {
  PointT<float> const centre = rect.Center();
  ThemeColorID role = ThemeColorID::kButtonText;
  if (look.IsDisabled()) {
    role = ThemeColorID::kDefaultTextDisabled;
  } else if (look.GetInteraction() == Interaction::kPressed) {
    role = ThemeColorID::kInteractive;
  } else if (look.GetInteraction() == Interaction::kHover) {
    role = ThemeColorID::kButtonTextActive;
  }
  ColorRGBA const colour = look.Color(role);
  if (look.isUnknown) {
    scriber->GetSurface()->FillRect({centre.x - kTriangleReach, centre.y - 1.0f, 2.0f * kTriangleReach, 2.0f},
                                    colour);
    return;
  }
  // Along the direction it points in and across it; the same shape for both directions.
  float const forward = IsRightToLeft() ? -1.0f : 1.0f;
  auto const at = [&](float along, float across) {
    return isExpanded ? PointT<float>(centre.x + across, centre.y + along)
                      : PointT<float>(centre.x + forward * along, centre.y + across);
  };
  float const half = kTriangleReach / 2.0f;
  if (look.IsV7()) {
    StrokeLine(scriber, {at(-half, -kTriangleReach), at(half, 0.0f), at(-half, kTriangleReach)}, colour,
               1.5f);
    return;
  }
  scriber::SupplierInterface const& supplier = *scriber->GetSupplier();
  scriber::PathP const path = supplier.NewPath();
  path->MoveTo(at(-half - 0.5f, -kTriangleReach));
  path->LineTo(at(half + 0.5f, 0.0f));
  path->LineTo(at(-half - 0.5f, kTriangleReach));
  path->Close();
  scriber::BrushP const brush = supplier.NewBrush(colour);
  scriber->GetSurface()->FillPath(*path, *brush, scriber::FillRule::kWinding);
}

}  // namespace moxui::skins
