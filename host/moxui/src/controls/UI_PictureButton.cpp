#include "ImagePainting.h"

#include <moxui/controls/UI_PictureButton.h>
#include <moxui/scriber/ImageInterface.h>

#include <utility>

namespace moxui::controls {

UI_PictureButton::UI_PictureButton() {
  SetDisplayBorderAlways(false);
  SetDisplayContainerAlways(false);
}

UI_PictureButton::~UI_PictureButton() = default;

void UI_PictureButton::SetImageName(moxcore::Utf8String name) {
  mImageName = std::move(name);
}

void UI_PictureButton::DrawContent(scriber::Scriber* scriber, RectT<float> const& rect,
                                   DrawButtonParameters const&) const {
  if (scriber::ImageP const image = GetImage()) {
    DrawImageCentered(scriber, *image, rect);
  }
}

}  // namespace moxui::controls
