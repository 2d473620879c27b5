#pragma once

#include <moxui/controls/UI_ControlMessage.h>
#include <moxui/geometry/Flags.h>
#include <moxui/scriber/ImageInterface.h>
#include <moxui/scriber/ScriberTypes.h>

#include <cstddef>

namespace moxui::controls {

/// A control asks for its picture. Whoever knows one answers with SetImage; unanswered means no picture.
class UI_PictureSupplyMessage : public UI_ConstControlMessage {
 public:
  UI_PictureSupplyMessage(UI_ControlView const& control, Flags<unsigned int> state,
                          scriber::SupplierInterface const* supplier)
      : UI_ConstControlMessage(control), mState(state), mSupplier(supplier) {}
  ~UI_PictureSupplyMessage() override;

  /// The control's state at the moment of the question (the bits of GetControlState).
  Flags<unsigned int> GetStateFlags() const { return mState; }
  /// May be null.
  scriber::SupplierInterface const* GetDrawSupplier() const { return mSupplier; }
  /// Which of several pictures (UI_ImageHandling::SetImageIndex).
  std::size_t GetImageIndex() const { return mIndex; }
  void SetImageIndex(std::size_t index) { mIndex = index; }

  void SetImage(scriber::ImageP image);
  scriber::ImageP const& GetImage() const { return mImage; }

 private:
  Flags<unsigned int> mState;
  scriber::SupplierInterface const* mSupplier;
  std::size_t mIndex = 0;
  scriber::ImageP mImage;
};

}  // namespace moxui::controls
