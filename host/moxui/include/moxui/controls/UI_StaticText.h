#pragma once

#include <moxui/controls/ControlText.h>
#include <moxui/controls/UI_ControlView.h>

#include <type_traits>

namespace moxui::controls {

/// A text to be read: one line, truncated where it doesn't fit, or with SetMultiLine wrapped at words.
/// Without a value known it shows a dash. Its recommended size is that of the text alone, without margins.
class UI_StaticText : public UI_ControlView {
 public:
  UI_StaticText();
  explicit UI_StaticText(moxcore::Utf16String text);
  ~UI_StaticText() override;

  void SetValue(moxcore::Utf16String text);
  void SetLabelText(moxcore::Utf8String const& text);
  moxcore::Utf16String const& GetValue() const { return mText.text; }
  /// Of the whole text in its font, fraction kept, as if in one line; 0 when empty.
  float GetTextWidth() const;

  /// Until it is set, the text begins where the language's lines begin.
  void SetAlignment(ControlAlignment alignment);
  ControlAlignment GetAlignment() const;
  void SetTextTruncation(TextTruncation truncation);
  void SetTextIndent(float indent);
  void SetMultiLine(bool multiLine);
  void SetFontIndex(ui::FontIndex index);
  /// 0: that of the font index, or the custom size in force.
  void SetFontSize(float size);
  void SetBold(bool bold);
  /// In place of the theme's text colour, disabled or not.
  virtual void SetCustomTextColor(ColorRGBA const& colour);
  virtual void ClearCustomTextColor();

  void UI_Draw(scriber::Scriber* scriber) const override;
  ExtentT<float> UI_GetRecommendedSize(scriber::Scriber* scriber) const override;
  ui::AccessibleRole UI_GetAccessibleRole() const override;
  moxcore::Utf8String UI_GetAccessibleName() const override;

 private:
  /// The shape of every setter of a part of the text; true when it has changed.
  template <typename T>
  bool StoreText(T ControlText::*field, std::type_identity_t<T> value);

  ControlText mText;
  ColorRGBAOptional mCustomColor;
  bool mMultiLine = false;
};

}  // namespace moxui::controls
