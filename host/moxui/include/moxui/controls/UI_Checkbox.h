#pragma once

#include <moxui/controls/ControlText.h>
#include <moxui/controls/UI_Button.h>

namespace moxui::controls {

/// A box with a mark, and a label beside it if there is a text. A click or Space turns it; a box whose value
/// is unknown shows a dash and turns on.
class UI_Checkbox : public UI_Button {
 public:
  explicit UI_Checkbox(ComponentSize size = ComponentSize::kMedium);
  ~UI_Checkbox() override;

  /// Side of the square, by the running look.
  static float GetDefaultCheckSize(ComponentSize size = ComponentSize::kDefault, int variant = 0);

  bool IsChecked() const { return GetValue(); }
  void SetChecked(bool checked) { SetValue(checked); }
  void SetTextLabel(moxcore::Utf16String text);
  void SetLabelText(moxcore::Utf8String const& text);
  moxcore::Utf16String const& GetTextLabel() const { return mLabel.text; }
  void SetFontIndex(ui::FontIndex index);

  /// The box: at the leading edge, in the middle of the height; in the middle of all without a label.
  RectT<float> GetBoxRect() const;

  void UI_Draw(scriber::Scriber* scriber) const override;
  ExtentT<float> UI_GetRecommendedSize(scriber::Scriber* scriber) const override;
  ui::AccessibleRole UI_GetAccessibleRole() const override;
  moxcore::Utf8String UI_GetAccessibleName() const override;

 private:
  ControlText mLabel;
};

}  // namespace moxui::controls
