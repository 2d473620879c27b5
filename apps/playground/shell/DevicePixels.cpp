#include "shell/DevicePixels.h"

#include <moxui/scriber/ImageInterface.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/scriber/SurfaceInterface.h>

namespace playground {

bool DrawInDevicePixels(moxui::scriber::Scriber& scriber, moxui::RectT<float> const& place,
                        moxui::ExtentT<int> pixels, moxui::PointT<float> origin,
                        std::function<void(moxui::scriber::Scriber&)> const& draw) {
  auto const layer = scriber.GetSupplier()->NewOffscreenSurface(pixels.width, pixels.height, 1.0f);
  if (!layer) {
    return false;
  }
  layer->Translate({-origin.x, -origin.y});
  moxui::scriber::Scriber inner(scriber.GetSupplier(), layer.Get());
  draw(inner);
  auto const image = layer->GetImage();
  if (!image) {
    return false;
  }
  scriber.GetSurface()->DrawImage(*image, place, 1.0f);
  return true;
}

}  // namespace playground
