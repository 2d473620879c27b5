#include "ImageConversion.h"

#include <algorithm>

namespace moxui::qt {

namespace {

float InRange(float value) {
  return value > 0 ? std::min(value, 1.0F) : 0;
}

}  // namespace

QColor ToQColor(ColorRGBA const& colour) {
  return QColor::fromRgbF(InRange(colour.red), InRange(colour.green), InRange(colour.blue),
                          InRange(colour.alpha));
}

QImage ToQImage(scriber::ImageInterface const& image) {
  QImage result(image.GetPixelWidth(), image.GetPixelHeight(), QImage::Format_ARGB32);
  if (result.isNull()) {
    return result;
  }
  image.CopyPixels(result.bits(), static_cast<int>(result.bytesPerLine()));
  if (image.GetWidth() > 0) {
    result.setDevicePixelRatio(static_cast<qreal>(result.width()) / static_cast<qreal>(image.GetWidth()));
  }
  return result;
}

}  // namespace moxui::qt
