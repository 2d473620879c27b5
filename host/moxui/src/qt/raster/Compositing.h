#pragma once

#include "qt/raster/CoverageMask.h"
#include "qt/raster/Pixels.h"

#include <cstdint>
#include <functional>

namespace moxui::qt {

/// Source-over compositing onto pixels. All rectangles have to lie inside them.

void FillPixels(Pixels const& pixels, PixelRect const& rect, std::uint32_t colour);

/// Lays a colour over what the mask covers within `clip`.
void FillMask(Pixels const& pixels, CoverageMask const& mask, PixelRect const& clip, std::uint32_t colour);

/// Gives `count` premultiplied pixels from (x, y) to the right.
using PixelSource = std::function<void(int x, int y, int count, std::uint32_t* out)>;

/// Lays a source's pixels over what the mask covers within `clip`; asks for covered stretches only.
void FillMask(Pixels const& pixels, CoverageMask const& mask, PixelRect const& clip,
              PixelSource const& source);

}  // namespace moxui::qt
