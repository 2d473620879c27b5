#pragma once

#include <moxui/controls/UI_Button.h>
#include <moxui/controls/UI_ImageHandling.h>

namespace moxui::controls {

/// A button with a picture in its middle, at the picture's own size. It has a ground only while it is under
/// the pointer, pressed or on, unless told otherwise.
class UI_PictureButton : public UI_ImageHandling<UI_Button> {
 public:
  UI_PictureButton();
  ~UI_PictureButton() override;

  /// The name under which an image provider finds the picture; plain store.
  void SetImageName(moxcore::Utf8String name);
  moxcore::Utf8String const& GetImageName() const { return mImageName; }

 protected:
  void DrawContent(scriber::Scriber* scriber, RectT<float> const& rect,
                   DrawButtonParameters const& parameters) const override;

 private:
  moxcore::Utf8String mImageName;
};

}  // namespace moxui::controls
