#include <moxui/controls/UI_ImageHandler.h>
#include <moxui/controls/UI_PictureSupplyMessage.h>

#include <utility>

namespace moxui::controls {

UI_ImageHandlerInterface::~UI_ImageHandlerInterface() = default;

DefaultImageHandler::DefaultImageHandler(ImageSupplyFunction function) : mFunction(std::move(function)) {}

DefaultImageHandler::~DefaultImageHandler() = default;

void DefaultImageHandler::SupplyImage(UI_PictureSupplyMessage& message) {
  message.SetImageIndex(mIndex);
  if (mFunction && *mFunction) {
    (*mFunction)(&message);
  }
}

}  // namespace moxui::controls
