#include "ImagePainting.h"

#include <moxui/scriber/ImageInterface.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>

#include <cmath>

namespace moxui::controls {

void DrawImageCentered(scriber::Scriber* scriber, scriber::ImageInterface const& image,
                       RectT<float> const& rect) {
  PointT<float> const corner(std::round(rect.left + (rect.width - image.GetWidth()) / 2.0f),
                             std::round(rect.top + (rect.height - image.GetHeight()) / 2.0f));
  scriber->GetSurface()->DrawImage(image, corner, 1.0f);
}

}  // namespace moxui::controls
