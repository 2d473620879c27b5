#pragma once

#include <moxui/controls/OS_EditText.h>
#include <moxui/controls/UI_ControlView.h>

namespace moxui::controls {

class UI_ScrollBar;

/// A box with a text that the user edits: one line, or several with SetMultiLine. Enter commits and, at
/// first, gives up the focus; losing the focus commits a text that was changed; Escape brings back the text
/// of the begin and gives the focus up. Among several lines Return makes a new one, and the number pad's
/// Enter, or Return with command, commits. Change listeners hear commits; NotifyWhenTextEdited hears every
/// keystroke.
class UI_TextEdit : public UI_ControlView {
 public:
  UI_TextEdit();
  ~UI_TextEdit() override;

  /// The text of the moment, uncommitted typing included.
  moxcore::Utf16String GetValue() const;
  /// The caret goes to the end and undo starts anew. With `notify` listeners hear of it as of a commit.
  void SetValue(moxcore::Utf16String const& text, bool notify);
  void SetLabelText(moxcore::Utf8String const& text);

  /// Hears UI_ControlChangedMessage, interactive, after each change of the text by the user.
  moxcore::messaging::Connection NotifyWhenTextEdited(MessageHandler function);

  /// Several lines are wrapped at words and have a scroll bar while they don't fit. One line at first.
  void SetMultiLine(bool multiLine);
  bool IsMultiLine() const { return mEdit->IsMultiLine(); }
  /// Size in logical pixels; style "" or "Bold".
  void SetFont(moxcore::Utf8String name, float size, moxcore::Utf8String style);
  /// Until it is set, the text begins where the language's lines begin.
  void SetAlignment(ControlAlignment alignment);
  void SetPlaceholder(moxcore::Utf16String text);
  void SetReadOnly(bool readOnly);
  /// In UTF-16 units; 0 for no limit.
  void SetMaxLength(std::size_t units);
  /// Whether Enter gives up the focus after committing, as at first.
  void SetReturnEndsEditing(bool ends) { mReturnEndsEditing = ends; }
  /// Whether the box has a ground and frame, as at first.
  void SetDrawFrame(bool draws);
  void SelectAll() { mEdit->SelectAll(); }

  /// Null while there is one line only.
  UI_ScrollBar* GetScrollBar() const { return mScrollBar.Get(); }
  /// The inner node that takes the focus.
  moxcore::utility::IntrusivePtr<OS_EditText> const& GetTextEdit() const { return mEdit; }
  bool UI_TextEditControlHasFocus() const { return mEdit->UI_HasKeyboardFocus(); }

  void UI_Draw(scriber::Scriber* scriber) const override;
  PaddingT<float> UI_GetDrawOverhang() const override;
  ExtentT<float> UI_GetRecommendedSize(scriber::Scriber* scriber) const override;
  void UI_SizeChanged(RectT<float> const& rect) override;
  void UI_SkinSetUpdated() override;
  /// The focus goes to the inner node.
  bool UI_GainKeyboardFocus(ui::FocusChangeReason reason) override;
  bool UI_DoMouseEvent(ui::UI_Node* node, ui::MouseEvent const& event) override;
  bool UI_DoKeyboardEvent(ui::UI_Node* node, ui::KeyboardEvent const& event) override;
  /// Starts and ends editing as the focus comes and goes; repeated calls change nothing.
  void UI_FocusChanged(ui::FocusChangeReason reason) override;
  bool UI_WantsKeyboardFocus() const override;
  bool UI_InvalidateOnMouseOverChange(bool over) override;

 private:
  void Commit();
  void Restore();
  void PlaceEdit();
  void PlaceScrollBar();
  void EditScrolled();
  void BarMoved(moxcore::messaging::Message* message);
  void TextEdited();
  bool Commits(ui::KeyboardEvent const& event) const;

  moxcore::utility::IntrusivePtr<OS_EditText> mEdit;
  moxcore::utility::IntrusivePtr<UI_ScrollBar> mScrollBar;  ///< of several lines
  ControlListeners mEditListeners;
  moxcore::Utf16String mTextAtBegin;
  std::optional<ControlAlignment> mAlignment;
  bool mIsEditing = false;
  bool mWasUnknownAtBegin = false;
  bool mReturnEndsEditing = true;
  bool mDrawFrame = true;
  bool mIsPlacing = false;
};

}  // namespace moxui::controls
