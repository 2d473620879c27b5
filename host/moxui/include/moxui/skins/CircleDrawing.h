#pragma once

#include <moxui/geometry/ColorRGBA.h>
#include <moxui/geometry/RectT.h>

namespace moxui::scriber {
class Scriber;
}

/// Discs and rings of stock controls. All are inscribed in a rectangle: the circle is centred in it and has
/// the smaller extent as its diameter. They are drawn anti-aliased whatever smoothing is in force, and leave
/// the surface's state as it was. Nothing is drawn in an empty rectangle.
namespace moxui::skins::utilities {

void DrawCircleFill(scriber::Scriber* scriber, RectT<float> const& rect, ColorRGBA const& colour);

/// A ring whose outer edge is the inscribed circle.
void DrawCircleBorder(scriber::Scriber* scriber, RectT<float> const& rect, ColorRGBA const& colour,
                      float thickness);

/// A ring that reaches `thickness` inward from the inscribed circle; a disc if that is the radius or more.
void DrawDoughnut(scriber::Scriber* scriber, RectT<float> const& rect, float thickness,
                  ColorRGBA const& colour);

}  // namespace moxui::skins::utilities
