#include <moxui/controls/UI_PictureSupplyMessage.h>

#include <utility>

namespace moxui::controls {

UI_PictureSupplyMessage::~UI_PictureSupplyMessage() = default;

void UI_PictureSupplyMessage::SetImage(scriber::ImageP image) {
  mImage = std::move(image);
}

}  // namespace moxui::controls
