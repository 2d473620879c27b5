#pragma once

#include <moxui/controls/UI_Button.h>
#include <moxui/controls/UI_ImageHandling.h>

namespace moxui::controls {

/// A button with a picture in its middle, at the picture's own size: what its supply function answers or,
/// without one, what the image provider of the node manager has under its name. It has a ground only while it
/// is under the pointer, pressed or on, unless told otherwise.
class UI_PictureButton : public UI_ImageHandling<UI_Button> {
 public:
  UI_PictureButton();
  ~UI_PictureButton() override;

  /// The name under which an image provider finds the picture.
  void SetImageName(moxcore::Utf8String name);
  moxcore::Utf8String const& GetImageName() const { return mImageName; }
  /// Whether an archive was written while the picture was there; a plain store, which draws nothing else.
  void SetIsImageLoaded(bool loaded) { mIsImageLoaded = loaded; }
  bool IsImageLoaded() const { return mIsImageLoaded; }

 protected:
  void DrawContent(scriber::Scriber* scriber, RectT<float> const& rect,
                   DrawButtonParameters const& parameters) const override;

 private:
  scriber::ImageP FindImage() const;

  moxcore::Utf8String mImageName;
  bool mIsImageLoaded = false;
};

}  // namespace moxui::controls
