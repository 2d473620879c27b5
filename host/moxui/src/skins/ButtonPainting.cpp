#include "ButtonPainting.h"

#include "BoxPainting.h"

#include <moxui/scriber/PathInterface.h>
#include <moxui/scriber/PenInterface.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/skins/ControlState.h>
#include <moxui/skins/Design.h>
#include <moxui/skins/DrawButtonParameters.h>
#include <moxui/skins/LayoutDirection.h>
#include <moxui/skins/SkinSet.h>
#include <moxui/skins/Theme.h>

#include <algorithm>

namespace moxui::skins {
namespace {

// How much lighter and darker than its colour the ends of a classic button's ground are.
constexpr float kGradientStrength = 0.035f;
constexpr float kHoldIconSize = 4.0f;
constexpr float kHoldIconInset = 3.0f;

ColorRGBA Shifted(ColorRGBA const& colour, float by) {
  auto const shift = [by](float channel) { return std::clamp(channel + by, 0.0f, 1.0f); };
  return {shift(colour.red), shift(colour.green), shift(colour.blue), colour.alpha};
}

bool IsHighContrast(DrawButtonParameters const& parameters) {
  return ui::GetThemeOf(parameters.GetTheme()).GetID() == ui::ThemeID::kHighContrast;
}

// The V7 look parts a button from its ground by the fill alone, unless that is too near to the ground.
bool ShowsFrame(DrawButtonParameters const& parameters) {
  if (!parameters.GetSkinSet().IsV7OrBeyond() || IsHighContrast(parameters)) {
    return true;
  }
  Interaction const interaction = GetInteraction(parameters.GetControlState());
  return parameters.Components().GetVariant() == ButtonVariant::kSecondary ||
         interaction == Interaction::kPressed || interaction == Interaction::kDisabled ||
         (interaction == Interaction::kHover && parameters.HasSelectedAppearance() &&
          parameters.Components().GetVariant() != ButtonVariant::kPrimary);
}

void PaintGround(scriber::Scriber* scriber, DrawButtonParameters const& parameters) {
  RectT<float> const& rect = parameters.GetRectF();
  ColorRGBA const fill = design::GetButtonColor(parameters, design::ButtonProperty::kFill);
  Interaction const interaction = GetInteraction(parameters.GetControlState());
  scriber::SupplierInterface const& supplier = *scriber->GetSupplier();
  bool const isRaised = interaction == Interaction::kIdle || interaction == Interaction::kHover;
  if (parameters.GetSkinSet().IsV7OrBeyond() || !isRaised || IsHighContrast(parameters) ||
      !supplier.HasLinearShader()) {
    FillBox(scriber, rect, parameters.GetCornerRadius(), fill);
    return;
  }
  PointT<float> const end = parameters.HasRotatedGradient() ? PointT<float>(rect.Right(), rect.top)
                                                            : PointT<float>(rect.left, rect.Bottom());
  scriber::BrushP const shader = supplier.NewLinearShader(
      rect.TopLeft(), end, Shifted(fill, kGradientStrength), Shifted(fill, -kGradientStrength));
  FillBox(scriber, rect, parameters.GetCornerRadius(), *shader);
}

void PaintHoldIcon(scriber::Scriber* scriber, DrawButtonParameters const& parameters) {
  RectT<float> const& rect = parameters.GetRectF();
  bool const isMirrored = IsRightToLeft();
  float const toward = isMirrored ? kHoldIconSize : -kHoldIconSize;
  PointT<float> const corner(isMirrored ? rect.left + kHoldIconInset : rect.Right() - kHoldIconInset,
                             rect.Bottom() - kHoldIconInset);
  scriber::SupplierInterface const& supplier = *scriber->GetSupplier();
  scriber::PathP const path = supplier.NewPath();
  path->MoveTo(corner);
  path->LineTo({corner.x + toward, corner.y});
  path->LineTo({corner.x, corner.y - kHoldIconSize});
  path->Close();
  scriber::BrushP const brush =
      supplier.NewBrush(design::GetButtonColor(parameters, design::ButtonProperty::kLabel));
  scriber->GetSurface()->FillPath(*path, *brush, scriber::FillRule::kWinding);
}

}  // namespace

void PaintButton(scriber::Scriber* scriber, DrawButtonParameters const& parameters) {
  RectT<float> const& rect = parameters.GetRectF();
  if (rect.IsEmpty()) {
    return;
  }
  if (parameters.ShowsContainer()) {
    PaintGround(scriber, parameters);
    if (ShowsFrame(parameters)) {
      FrameBox(scriber, rect, parameters.GetCornerRadius(),
               design::GetButtonColor(parameters, design::ButtonProperty::kOutline),
               parameters.GetStrokeSize());
    }
  }
  if (parameters.GetDrawButtonFace()) {
    parameters.GetDrawButtonFace()->Draw(scriber, rect.Offset(parameters.GetOffset()));
  }
  if (parameters.Components().ShowsHoldIcon()) {
    PaintHoldIcon(scriber, parameters);
  }
  if (parameters.ShouldDrawFocus() && parameters.GetControlState().Has(ControlState::kFocused)) {
    DrawFocusRing(scriber, rect, parameters.GetCornerRadius(),
                  ui::GetColorOf(parameters.GetTheme(), ui::ThemeColorID::kFocus));
  }
}

}  // namespace moxui::skins
