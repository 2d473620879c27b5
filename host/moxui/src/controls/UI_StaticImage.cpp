#include "ImagePainting.h"

#include <moxui/controls/UI_StaticImage.h>
#include <moxui/scriber/ImageInterface.h>

namespace moxui::controls {

UI_StaticImage::UI_StaticImage() = default;

UI_StaticImage::~UI_StaticImage() = default;

void UI_StaticImage::UI_Draw(scriber::Scriber* scriber) const {
  if (scriber::ImageP const image = GetImage()) {
    DrawImageCentered(scriber, *image, UI_GetLocalRectF(ui::RectSpace::kOwn));
  }
  UI_ControlView::UI_Draw(scriber);
}

ExtentT<float> UI_StaticImage::UI_GetRecommendedSize(scriber::Scriber*) const {
  scriber::ImageP const image = GetImage();
  return image ? ExtentT<float>(image->GetWidth(), image->GetHeight()) : ExtentT<float>();
}

ui::AccessibleRole UI_StaticImage::UI_GetAccessibleRole() const {
  return ui::AccessibleRole::kImage;
}

}  // namespace moxui::controls
