#pragma once

#include <moxui/geometry/ColorRGBA.h>
#include <moxui/scriber/ImageInterface.h>

#include <QColor>
#include <QImage>

namespace moxui::qt {

QColor ToQColor(ColorRGBA const& colour);
/// A copy, alpha straight, at the image's logical size.
QImage ToQImage(scriber::ImageInterface const& image);

}  // namespace moxui::qt
