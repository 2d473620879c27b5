#include "PopupPainting.h"

#include "BoxPainting.h"
#include "ControlLook.h"

#include <moxui/scriber/PathInterface.h>
#include <moxui/scriber/PenInterface.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/skins/LayoutDirection.h>

namespace moxui::skins {
namespace {

using ui::ThemeColorID;

constexpr float kClassicArrowWidth = 16.0f;
constexpr float kV7ArrowWidth = 20.0f;
constexpr float kDividerInset = 3.0f;

void PaintArrow(scriber::Scriber* scriber, RectT<float> const& area, ControlLook const& look) {
  PointT<float> const centre = area.Center();
  scriber::SupplierInterface const& supplier = *scriber->GetSupplier();
  scriber::SurfaceInterface& surface = *scriber->GetSurface();
  ColorRGBA const colour = GetPopupTextColor(look);
  scriber::PathP const path = supplier.NewPath();
  float const halfWidth = look.IsV7() ? 4.0f : 3.5f;
  float const halfHeight = 2.0f;
  path->MoveTo({centre.x - halfWidth, centre.y - halfHeight});
  path->LineTo({centre.x, centre.y + halfHeight});
  path->LineTo({centre.x + halfWidth, centre.y - halfHeight});
  if (look.IsV7()) {
    scriber::PenP const pen = supplier.NewPen(colour, 1.5f);
    surface.StrokePath(*path, *pen);
    return;
  }
  path->Close();
  scriber::BrushP const brush = supplier.NewBrush(colour);
  surface.FillPath(*path, *brush, scriber::FillRule::kWinding);
}

}  // namespace

PopupLayout GetPopupLayout(RectT<float> const& rect, SkinSet const& skinSet) {
  float const arrowWidth = skinSet.IsV7OrBeyond() ? kV7ArrowWidth : kClassicArrowWidth;
  float const inset = skinSet.GetNumber(SkinNumber::kTextInset);
  if (IsRightToLeft()) {
    RectT<float> const arrow(rect.left, rect.top, arrowWidth, rect.height);
    return {.text = RectT<float>::FromEdges(arrow.Right() + inset / 2.0f, rect.top, rect.Right() - inset,
                                            rect.Bottom()),
            .arrow = arrow};
  }
  RectT<float> const arrow(rect.Right() - arrowWidth, rect.top, arrowWidth, rect.height);
  return {
      .text = RectT<float>::FromEdges(rect.left + inset, rect.top, arrow.left - inset / 2.0f, rect.Bottom()),
      .arrow = arrow};
}

void PaintPopupBox(scriber::Scriber* scriber, RectT<float> const& rect, PopupBox const& box,
                   ControlLook const& look) {
  RectT<float> const arrow = GetPopupLayout(rect, *look.skinSet).arrow;
  Interaction const interaction = look.GetInteraction();
  bool const isActive = interaction == Interaction::kHover || interaction == Interaction::kPressed;
  if (box.isQuiet && !isActive) {
    PaintArrow(scriber, arrow, look);
    return;
  }
  ThemeColorID fill = ThemeColorID::kButtonFill;
  ThemeColorID outline = ThemeColorID::kButtonOutline;
  switch (interaction) {
    case Interaction::kIdle:
      break;
    case Interaction::kHover:
      fill = ThemeColorID::kButtonFillHover;
      outline = ThemeColorID::kButtonOutlineActive;
      break;
    case Interaction::kPressed:
      fill = ThemeColorID::kButtonFillPressed;
      outline = ThemeColorID::kButtonOutlineActive;
      break;
    case Interaction::kDisabled:
      fill = ThemeColorID::kButtonFillDisabled;
      outline = ThemeColorID::kButtonOutlineDisabled;
      break;
  }
  float const radius = look.Number(SkinNumber::kCornerRadius);
  FillBox(scriber, rect, radius, look.Color(fill));
  FrameBox(scriber, rect, radius, look.Color(outline), 1.0f);
  if (box.drawDivider && !look.IsV7()) {
    float const divider = IsRightToLeft() ? arrow.Right() - 1.0f : arrow.left;
    scriber->GetSurface()->FillRect(
        {divider, rect.top + kDividerInset, 1.0f, rect.height - 2.0f * kDividerInset}, look.Color(outline));
  }
  PaintArrow(scriber, arrow, look);
}

ColorRGBA GetPopupTextColor(ControlLook const& look) {
  switch (look.GetInteraction()) {
    case Interaction::kDisabled:
      return look.Color(ThemeColorID::kButtonTextDisabled);
    case Interaction::kIdle:
      return look.Color(ThemeColorID::kButtonText);
    default:
      return look.Color(ThemeColorID::kButtonTextActive);
  }
}

}  // namespace moxui::skins
