#pragma once

#include <moxui/controls/ControlText.h>
#include <moxui/controls/UI_Button.h>

namespace moxui::controls {

/// A button with a line of text in its middle.
class UI_TextButton : public UI_Button {
 public:
  UI_TextButton();
  explicit UI_TextButton(moxcore::Utf16String label);
  ~UI_TextButton() override;

  void SetTextLabel(moxcore::Utf16String text);
  void SetLabelText(moxcore::Utf8String const& text);
  moxcore::Utf16String const& GetTextLabel() const { return mLabel.text; }
  /// The middle at first.
  void SetAlignment(ControlAlignment alignment);
  void SetTextIndent(float indent);
  void SetTextTruncation(TextTruncation truncation);
  void SetFontIndex(ui::FontIndex index);
  /// 0: that of the font index.
  void SetFontSize(float size);

  ExtentT<float> UI_GetRecommendedSize(scriber::Scriber* scriber) const override;
  moxcore::Utf8String UI_GetAccessibleName() const override;

 protected:
  void DrawContent(scriber::Scriber* scriber, RectT<float> const& rect,
                   DrawButtonParameters const& parameters) const override;
  ControlText const& GetLabel() const { return mLabel; }

 private:
  ControlText mLabel;
};

}  // namespace moxui::controls
