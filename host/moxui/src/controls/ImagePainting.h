#pragma once

#include <moxui/geometry/RectT.h>
#include <moxui/scriber/ScriberTypes.h>

namespace moxui::scriber {
class Scriber;
}

namespace moxui::controls {

/// Draws an image at its own size in the middle of a rectangle, its corner on a whole pixel.
void DrawImageCentered(scriber::Scriber* scriber, scriber::ImageInterface const& image,
                       RectT<float> const& rect);

}  // namespace moxui::controls
