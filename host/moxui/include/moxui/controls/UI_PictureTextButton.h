#pragma once

#include <moxui/controls/UI_ImageHandling.h>
#include <moxui/controls/UI_TextButton.h>

namespace moxui::controls {

/// A button with a picture and a line of text behind it, both together in its middle.
class UI_PictureTextButton : public UI_ImageHandling<UI_TextButton> {
 public:
  using UI_ImageHandling<UI_TextButton>::UI_ImageHandling;
  UI_PictureTextButton();
  ~UI_PictureTextButton() override;

  ExtentT<float> UI_GetRecommendedSize(scriber::Scriber* scriber) const override;

 protected:
  void DrawContent(scriber::Scriber* scriber, RectT<float> const& rect,
                   DrawButtonParameters const& parameters) const override;
};

}  // namespace moxui::controls
