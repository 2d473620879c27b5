#pragma once

#include <moxui/geometry/RectT.h>

namespace moxui::scriber {
class Scriber;
}

namespace moxui::skins {

struct ControlLook;

/// What the painting of a slider needs: the line of the track from one end of the values to the other, the
/// part of it that is filled, and the thumb; all in one coordinate system.
struct SliderGeometry {
  RectT<float> track;
  RectT<float> filled;
  RectT<float> thumb;
  bool isVertical = false;
};

void PaintSliderTrack(scriber::Scriber* scriber, SliderGeometry const& geometry, ControlLook const& look);
/// Marks at both ends and at the quarters between.
void PaintSliderTicks(scriber::Scriber* scriber, SliderGeometry const& geometry, ControlLook const& look);
/// Hollow when the value is unknown.
void PaintSliderThumb(scriber::Scriber* scriber, SliderGeometry const& geometry, ControlLook const& look);

/// A scroll bar's track and thumb.
void PaintScrollBar(scriber::Scriber* scriber, RectT<float> const& bar, RectT<float> const& thumb,
                    ControlLook const& look);

}  // namespace moxui::skins
