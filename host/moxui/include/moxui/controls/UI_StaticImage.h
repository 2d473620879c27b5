#pragma once

#include <moxui/controls/UI_ControlView.h>
#include <moxui/controls/UI_ImageHandling.h>

namespace moxui::controls {

/// A picture to be looked at, at its own size in the middle of its rectangle. Nothing shows without one.
class UI_StaticImage : public UI_ImageHandling<UI_ControlView> {
 public:
  UI_StaticImage();
  ~UI_StaticImage() override;

  void UI_Draw(scriber::Scriber* scriber) const override;
  ExtentT<float> UI_GetRecommendedSize(scriber::Scriber* scriber) const override;
  ui::AccessibleRole UI_GetAccessibleRole() const override;
};

}  // namespace moxui::controls
