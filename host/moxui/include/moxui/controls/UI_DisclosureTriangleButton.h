#pragma once

#include <moxui/controls/UI_Button.h>

namespace moxui::controls {

/// A triangle that points right while what it stands for is collapsed (value 0) and down while it is expanded
/// (value 1). A click, Space or Enter turns it; Right expands and Left collapses. Laid out from right to left
/// it points left and the two keys change places.
class UI_DisclosureTriangleButton : public UI_Button {
 public:
  UI_DisclosureTriangleButton();
  ~UI_DisclosureTriangleButton() override;

  void UI_Draw(scriber::Scriber* scriber) const override;
  ExtentT<float> UI_GetRecommendedSize(scriber::Scriber* scriber) const override;
  bool UI_DoKeyboardEvent(ui::UI_Node* node, ui::KeyboardEvent const& event) override;
  ui::AccessibleState UI_GetAccessibleState() const override;
};

}  // namespace moxui::controls
