#pragma once

#include <moxui/geometry/ColorRGBA.h>
#include <moxui/geometry/RectT.h>
#include <moxui/scriber/ScriberTypes.h>

namespace moxui::scriber {
class Scriber;
}

namespace moxui::skins {

struct ControlLook;

/// How far the focus ring reaches outside of what it surrounds: a gap of 1 pixel, then a ring of 2.
inline constexpr float kFocusRingReach = 3.0f;

void FillBox(scriber::Scriber* scriber, RectT<float> const& rect, float radius, ColorRGBA const& colour);
void FillBox(scriber::Scriber* scriber, RectT<float> const& rect, float radius,
             scriber::BrushInterface const& brush);
/// A frame of `thickness` that lies inside the rectangle.
void FrameBox(scriber::Scriber* scriber, RectT<float> const& rect, float radius, ColorRGBA const& colour,
              float thickness);
/// A ring around a box whose corners have a radius.
void DrawFocusRing(scriber::Scriber* scriber, RectT<float> const& rect, float radius,
                   ColorRGBA const& colour);

/// Ground and frame of a box that holds a value.
void DrawFieldBox(scriber::Scriber* scriber, RectT<float> const& rect, ControlLook const& look);

}  // namespace moxui::skins
