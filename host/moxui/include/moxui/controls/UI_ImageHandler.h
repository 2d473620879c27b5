#pragma once

#include <moxcore/messaging/BindMessageFunction.h>

#include <cstddef>
#include <memory>

namespace moxui::controls {

class UI_PictureSupplyMessage;

/// Finds the picture that a control asks for.
class UI_ImageHandlerInterface {
 public:
  virtual ~UI_ImageHandlerInterface();
  virtual void SupplyImage(UI_PictureSupplyMessage& message) = 0;
  virtual void SetImageIndex(std::size_t index) = 0;
};

/// Receives a UI_PictureSupplyMessage, as what BindConstMessageFunction makes of a member does. One function
/// may serve several controls: the message names its control.
using ImageSupplyFunction = std::shared_ptr<moxcore::messaging::ConstMessageFunction>;

/// Asks a function, with the index put into the message.
class DefaultImageHandler : public UI_ImageHandlerInterface {
 public:
  explicit DefaultImageHandler(ImageSupplyFunction function);
  ~DefaultImageHandler() override;

  ImageSupplyFunction const& GetFunction() const { return mFunction; }
  void SupplyImage(UI_PictureSupplyMessage& message) override;
  void SetImageIndex(std::size_t index) override { mIndex = index; }

 private:
  ImageSupplyFunction mFunction;
  std::size_t mIndex = 0;
};

}  // namespace moxui::controls
