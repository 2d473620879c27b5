#pragma once

#include "qt/raster/CoverageMask.h"
#include "qt/raster/Polyline.h"

#include <moxui/geometry/RectT.h>
#include <moxui/scriber/ScriberTypes.h>

namespace moxui::qt {

/// Coverage of shapes in device pixels, within `bounds`, in pieces that don't overlap. Without smoothing each
/// pixel is covered or not, by its centre.

void FillCoverage(Polyline const& outline, scriber::FillRule rule, bool smooth, PixelRect const& bounds,
                  CoverageConsumer const& consume);

/// A pen narrower than a pixel is as wide as one where there is no smoothing.
void StrokeCoverage(Polyline const& line, double width, bool smooth, PixelRect const& bounds,
                    CoverageConsumer const& consume);

void RectCoverage(RectT<double> const& rect, PixelRect const& bounds, CoverageConsumer const& consume);

}  // namespace moxui::qt
