#pragma once

#include <moxui/geometry/ColorRGBA.h>

namespace moxui::scriber {

/// Hue, saturation and brightness of a colour (the hexcone model). Saturation and brightness run from 0 to 1.
/// Hue is a turn from 0 to 1 (below 1) when `normaliseHue`, else sextants from 0 to 6; greys have hue 0.
template <typename T>
void RGBtoHSB(ColorRGBA const& colour, T& hue, T& saturation, T& brightness, bool normaliseHue);

/// The colour of a hue (in turns, any whole turn off), saturation and brightness, which are clamped to 0..1.
template <typename T>
ColorRGBA HSBtoRGB(T hue, T saturation, T brightness, float alpha);

extern template void RGBtoHSB<float>(ColorRGBA const&, float&, float&, float&, bool);
extern template void RGBtoHSB<double>(ColorRGBA const&, double&, double&, double&, bool);
extern template ColorRGBA HSBtoRGB<float>(float, float, float, float);
extern template ColorRGBA HSBtoRGB<double>(double, double, double, float);

}  // namespace moxui::scriber
