#include "SliderPainting.h"

#include "BoxPainting.h"
#include "ControlLook.h"

#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/skins/CircleDrawing.h>

#include <algorithm>
#include <cmath>

namespace moxui::skins {
namespace {

using ui::ThemeColorID;

constexpr int kTickIntervals = 4;
constexpr float kTickLength = 4.0f;
constexpr float kScrollThumbInset = 3.0f;

ThemeColorID ThumbRole(ControlLook const& look) {
  switch (look.GetInteraction()) {
    case Interaction::kDisabled:
      return ThemeColorID::kFieldOutlineDisabled;
    case Interaction::kIdle:
      return ThemeColorID::kButtonText;
    default:
      return ThemeColorID::kButtonTextActive;
  }
}

ThemeColorID ScrollThumbRole(ControlLook const& look) {
  switch (look.GetInteraction()) {
    case Interaction::kDisabled:
      return ThemeColorID::kFieldOutlineDisabled;
    case Interaction::kPressed:
      return ThemeColorID::kScrollBarThumbPressed;
    case Interaction::kHover:
      return ThemeColorID::kScrollBarThumbActive;
    case Interaction::kIdle:
      return ThemeColorID::kScrollBarThumb;
  }
  return ThemeColorID::kScrollBarThumb;
}

}  // namespace

void PaintSliderTrack(scriber::Scriber* scriber, SliderGeometry const& geometry, ControlLook const& look) {
  float const thickness = std::min(geometry.track.width, geometry.track.height);
  float const radius = look.IsV7() ? thickness / 2.0f : 0.0f;
  ThemeColorID const rest =
      look.IsDisabled() ? ThemeColorID::kFieldOutlineDisabled : ThemeColorID::kFieldOutline;
  FillBox(scriber, geometry.track, radius, look.Color(rest));
  if (!look.isUnknown && !look.IsDisabled() && !geometry.filled.IsEmpty()) {
    FillBox(scriber, geometry.filled, radius, look.Color(ThemeColorID::kInteractive));
  }
}

void PaintSliderTicks(scriber::Scriber* scriber, SliderGeometry const& geometry, ControlLook const& look) {
  ColorRGBA const colour =
      look.Color(look.IsDisabled() ? ThemeColorID::kFieldOutlineDisabled : ThemeColorID::kFieldOutline);
  RectT<float> const& track = geometry.track;
  for (int tick = 0; tick <= kTickIntervals; ++tick) {
    float const part = static_cast<float>(tick) / kTickIntervals;
    if (geometry.isVertical) {
      float const y = std::floor(track.top + part * (track.height - 1.0f));
      scriber->GetSurface()->FillRect({geometry.thumb.Right() + 1.0f, y, kTickLength, 1.0f}, colour);
    } else {
      float const x = std::floor(track.left + part * (track.width - 1.0f));
      scriber->GetSurface()->FillRect({x, geometry.thumb.Bottom() + 1.0f, 1.0f, kTickLength}, colour);
    }
  }
}

void PaintSliderThumb(scriber::Scriber* scriber, SliderGeometry const& geometry, ControlLook const& look) {
  ColorRGBA const ink = look.Color(ThumbRole(look));
  ColorRGBA const ground = look.Color(ThemeColorID::kPanelBackground);
  bool const isPressed = look.GetInteraction() == Interaction::kPressed;
  if (!look.IsV7()) {
    ThemeColorID fill = isPressed ? ThemeColorID::kButtonFillPressed : ThemeColorID::kButtonFillHover;
    if (look.IsDisabled()) {
      fill = ThemeColorID::kButtonFillDisabled;
    }
    FillBox(scriber, geometry.thumb, look.Number(SkinNumber::kCornerRadius),
            look.isUnknown ? ground : look.Color(fill));
    FrameBox(scriber, geometry.thumb, look.Number(SkinNumber::kCornerRadius),
             look.isUnknown ? look.Color(ThemeColorID::kFieldOutline) : ink, 1.0f);
    return;
  }
  utilities::DrawCircleFill(scriber, geometry.thumb, ground);
  if (look.isUnknown) {
    utilities::DrawCircleBorder(scriber, geometry.thumb, look.Color(ThemeColorID::kFieldOutline), 1.0f);
    return;
  }
  utilities::DrawCircleFill(scriber, geometry.thumb.Inset(1.0f), ink);
  if (!isPressed) {
    utilities::DrawCircleFill(scriber, geometry.thumb.Inset(3.0f), ground);
  }
}

void PaintScrollBar(scriber::Scriber* scriber, RectT<float> const& bar, RectT<float> const& thumb,
                    ControlLook const& look) {
  FillBox(scriber, bar, 0.0f, look.Color(ThemeColorID::kScrollBarTrack));
  if (thumb.IsEmpty()) {
    return;
  }
  bool const isVertical = bar.height >= bar.width;
  float const across = kScrollThumbInset;
  float const along = look.IsV7() ? 2.0f : 1.0f;
  RectT<float> const shape = isVertical ? thumb.Grown({-across, -along, -across, -along})
                                        : thumb.Grown({-along, -across, -along, -across});
  float const radius = look.IsV7() ? std::min(shape.width, shape.height) / 2.0f : 1.0f;
  FillBox(scriber, shape, radius, look.Color(ScrollThumbRole(look)));
}

}  // namespace moxui::skins
