#pragma once

#include <moxui/controls/ControlText.h>
#include <moxui/controls/UI_Button.h>

namespace moxui::controls {

/// One of several choices: a round mark, and a label beside it if there is a text. Choosing it puts its
/// siblings under the same parent out, silently; arrow keys choose among them. Choosing what is chosen is no
/// change.
class UI_RadioButton : public UI_Button {
 public:
  explicit UI_RadioButton(ComponentSize size = ComponentSize::kMedium);
  ~UI_RadioButton() override;

  /// Diameter of the mark, by the running look.
  static float GetDefaultButtonSize();

  void SetTextLabel(moxcore::Utf16String text);
  void SetLabelText(moxcore::Utf8String const& text);
  moxcore::Utf16String const& GetTextLabel() const { return mLabel.text; }

  /// The mark: at the leading edge, in the middle of the height; in the middle of all without a label.
  RectT<float> GetMarkRect() const;

  void UI_Draw(scriber::Scriber* scriber) const override;
  ExtentT<float> UI_GetRecommendedSize(scriber::Scriber* scriber) const override;
  bool UI_DoKeyboardEvent(ui::UI_Node* node, ui::KeyboardEvent const& event) override;
  ui::AccessibleRole UI_GetAccessibleRole() const override;
  moxcore::Utf8String UI_GetAccessibleName() const override;

 protected:
  void Clicked() override;

 private:
  bool ChooseSibling(int step);

  ControlText mLabel;
};

}  // namespace moxui::controls
