#pragma once

#include <moxui/scriber/ScriberTypes.h>

namespace moxui::qt {

/// Device pixels to the logical pixel: what is no sensible scale counts as 1.
float SensibleScale(float scale);

/// A transparent surface of so many logical pixels; null when it would be too large.
scriber::SurfaceP NewRasterSurface(int width, int height, float scale);

}  // namespace moxui::qt
