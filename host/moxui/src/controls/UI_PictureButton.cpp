#include "ImagePainting.h"

#include <moxui/controls/UI_PictureButton.h>
#include <moxui/resources/ImageProvider.h>
#include <moxui/scriber/ImageInterface.h>

namespace moxui::controls {

UI_PictureButton::UI_PictureButton() {
  SetDisplayBorderAlways(false);
  SetDisplayContainerAlways(false);
}

UI_PictureButton::~UI_PictureButton() = default;

// NOLINTNEXTLINE(performance-unnecessary-value-param): callers hand their text over
void UI_PictureButton::SetImageName(moxcore::Utf8String name) {
  StoreVisual(mImageName, name);
}

scriber::ImageP UI_PictureButton::FindImage() const {
  if (GetImageHandler() != nullptr || mImageName.empty()) {
    return GetImage();
  }
  auto const* const manager = ui::UI_NodeManager::Get(false);
  auto* const provider = manager != nullptr ? manager->GetImageProvider() : nullptr;
  return provider != nullptr ? provider->GetThemeImage(mImageName, manager->GetDefaultDrawSupplier(),
                                                       GetControlState(true), this)
                             : nullptr;
}

void UI_PictureButton::DrawContent(scriber::Scriber* scriber, RectT<float> const& rect,
                                   DrawButtonParameters const&) const {
  if (scriber::ImageP const image = FindImage()) {
    DrawImageCentered(scriber, *image, rect);
  }
}

}  // namespace moxui::controls
