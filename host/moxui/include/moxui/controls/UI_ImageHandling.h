#pragma once

#include <moxui/controls/UI_ImageHandler.h>
#include <moxui/controls/UI_PictureSupplyMessage.h>
#include <moxui/ui/UI_Node.h>
#include <moxui/ui/UI_NodeManager.h>

#include <utility>

namespace moxui::controls {

/// Adds a picture, found anew for each drawing, to a control class.
template <class Control>
class UI_ImageHandling : public Control {
 public:
  using Control::Control;

  /// The handler's picture for the state of the moment; null without a handler or an answer.
  scriber::ImageP GetImage() const {
    if (mImageHandler == nullptr) {
      return nullptr;
    }
    auto const* const manager = ui::UI_NodeManager::Get(false);
    UI_PictureSupplyMessage message(*this, Control::GetControlState(true),
                                    manager != nullptr ? manager->GetDefaultDrawSupplier() : nullptr);
    mImageHandler->SupplyImage(message);
    return message.GetImage();
  }

  std::shared_ptr<UI_ImageHandlerInterface> GetImageHandler() const { return mImageHandler; }
  /// Doesn't invalidate.
  void SetImageHandler(std::shared_ptr<UI_ImageHandlerInterface> handler) {
    mImageHandler = std::move(handler);
  }

  /// A null function counts as none.
  bool HasImageSupplyFunction() const { return GetImageSupplyFunction() != nullptr; }
  /// Null when the handler isn't one over a function.
  ImageSupplyFunction GetImageSupplyFunction() const {
    auto const* const handler = DefaultHandler();
    return handler != nullptr ? handler->GetFunction() : nullptr;
  }
  /// The function already held changes nothing; another one is wrapped into a new handler.
  void SetImageSupplyFunction(ImageSupplyFunction function) {
    if (GetImageSupplyFunction() == function) {
      return;
    }
    mImageHandler = std::make_shared<DefaultImageHandler>(std::move(function));
    Control::UI_Invalidate();
  }

  /// Requires a handler.
  void SetImageIndex(std::size_t index) {
    mImageHandler->SetImageIndex(index);
    Control::UI_Invalidate();
  }

 private:
  DefaultImageHandler const* DefaultHandler() const {
    return dynamic_cast<DefaultImageHandler const*>(mImageHandler.get());
  }

  std::shared_ptr<UI_ImageHandlerInterface> mImageHandler;
};

}  // namespace moxui::controls
