#pragma once

#include <moxui/controls/ControlText.h>
#include <moxui/controls/FocusVisibility.h>
#include <moxui/controls/UI_InteractiveControlView.h>
#include <moxui/controls/UI_TextEdit.h>

namespace moxui::controls {

class PressCapture;

/// A text in the interactive colour that is edited where it stands. A click, or Enter while it has the focus,
/// opens an edit over it; Enter or leaving the edit takes what was typed, Escape doesn't. Change listeners
/// hear of a text that the user has changed.
class UI_HotText : public UI_InteractiveControlView {
 public:
  UI_HotText();
  explicit UI_HotText(moxcore::Utf16String text);
  ~UI_HotText() override;

  /// Silent.
  virtual void SetText(moxcore::Utf16String const& text);
  /// What is shown while it isn't edited, without the label.
  virtual moxcore::Utf16String GetText() const { return mText.text; }
  /// Shown behind the text, as a unit is behind a number; it isn't edited.
  void SetTextLabel(moxcore::Utf16String label);
  moxcore::Utf16String const& GetTextLabel() const { return mLabel; }

  // Appearance
  /// Until it is set, the text begins where the language's lines begin.
  void SetAlignment(ControlAlignment alignment);
  void SetTextIndent(float indent);
  void SetTextTruncation(TextTruncation truncation);
  void SetFontIndex(ui::FontIndex index);
  /// 0: that of the font index, or the custom size in force.
  void SetFontSize(float size);
  /// In a box, as what is to be typed into, rather than as hot text.
  void SetNumericInput(bool inBox);
  bool GetNumericInput() const { return mIsInBox; }
  void SetSuppressFocusDrawing(bool suppress);

  // Behaviour
  /// Change listeners hear of an entry that changed nothing, too.
  void SetAlwaysNotify(bool always) { mAlwaysNotify = always; }
  /// Whether a press takes the focus, as at first, if the control wants it.
  void SetChangeFocusOnClick(bool changes) { mChangeFocusOnClick = changes; }
  /// Of what is typed, in UTF-16 units; 0 for no limit.
  void SetMaxLength(std::size_t units) { mEdit->SetMaxLength(units); }

  /// Opens the edit with all of its text selected. Nothing happens while disabled.
  void OpenEdit();
  bool IsEditing() const { return mEdit->UI_IsShown(); }
  /// The edit, which is hidden while nothing is edited.
  moxcore::utility::IntrusivePtr<UI_TextEdit> const& GetTextEdit() const { return mEdit; }

  void UI_Draw(scriber::Scriber* scriber) const override;
  PaddingT<float> UI_GetDrawOverhang() const override;
  ExtentT<float> UI_GetRecommendedSize(scriber::Scriber* scriber) const override;
  void UI_SizeChanged(RectT<float> const& rect) override;
  void UI_SkinSetUpdated() override;
  bool UI_DoMouseEvent(ui::UI_Node* node, ui::MouseEvent const& event) override;
  bool UI_DoPreKeyboardEvent(ui::UI_Node* node, ui::KeyboardEvent const& event) override;
  bool UI_DoKeyboardEvent(ui::UI_Node* node, ui::KeyboardEvent const& event) override;
  bool UI_DoCursor(ui::UI_Node* node, PointT<float> point, unsigned flags) override;
  void UI_FocusChanged(ui::FocusChangeReason reason) override;
  bool UI_WantsKeyboardFocus() const override;
  bool UI_InvalidateOnMouseOverChange(bool over) override;
  ui::AccessibleRole UI_GetAccessibleRole() const override;
  moxcore::Utf8String UI_GetAccessibleValue() const override;
  bool UI_DoAccessibleAction() override;

 protected:
  /// What the edit begins with.
  virtual moxcore::Utf16String GetTextToEdit() const { return GetText(); }
  /// Takes what the user typed, silently; false if that changes nothing.
  virtual bool TakeTypedText(moxcore::Utf16String const& text);
  /// Whether a key that types something opens the edit with it.
  virtual bool OpensEditFor(ui::KeyboardEvent const&) const { return false; }
  /// Whether the pointer changes the value when it is dragged; it is then hidden meanwhile.
  virtual bool CanDrag() const { return false; }
  // A press goes to DragTo with every move, and ends. What is no drag in the end was a click.
  virtual void BeginDrag(ui::MouseEvent const&) {}
  virtual void DragTo(ui::MouseEvent const&) {}
  /// True if it was a drag.
  virtual bool EndDrag(bool) { return false; }
  /// A key while the control itself has the focus.
  virtual bool DoValueKey(ui::KeyboardEvent const&) { return false; }

  /// What is shown has changed.
  virtual void ShowTextAnew();
  /// Has the focus ring shown, once the keyboard is used.
  void KeyUsed();

 private:
  template <typename T>
  void StoreText(T ControlText::*field, T value);
  void PlaceEdit();
  void EditCommitted(moxcore::messaging::Message* message);
  void CloseEdit();
  void PressEvent(ui::MouseEvent const& event);
  /// True if it was a drag.
  bool EndPress(bool cancelled);
  RectT<float> TextBox() const;
  moxcore::Utf16String ShownText() const;

  ControlText mText;
  moxcore::Utf16String mLabel;
  moxcore::utility::IntrusivePtr<UI_TextEdit> mEdit;
  moxcore::utility::IntrusivePtr<PressCapture> mCapture;  ///< while it is pressed
  FocusVisibility mFocusVisibility;
  bool mIsInBox = false;
  bool mSuppressFocusDrawing = false;
  bool mAlwaysNotify = false;
  bool mChangeFocusOnClick = true;
  bool mEditOpenedByKey = false;
};

}  // namespace moxui::controls
