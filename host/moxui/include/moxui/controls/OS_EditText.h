#pragma once

#include <moxcore/string/String.h>
#include <moxui/controls/ControlText.h>
#include <moxui/geometry/ColorRGBA.h>
#include <moxui/platform/TextEditor.h>
#include <moxui/skins/ThemeColorID.h>
#include <moxui/ui/AccessibleText.h>
#include <moxui/ui/UI_Node.h>

#include <functional>
#include <memory>

namespace moxui::controls {

class PressCapture;

/// The editable line of text inside a UI_TextEdit: the node that has the focus while text is typed. Editing
/// itself (undo, words, clipboard, input methods) is the platform's; this node paints it and turns pointer
/// positions into carets. Return, Escape and Tab are left to the nodes above.
class OS_EditText : public ui::UI_Node, private ui::AccessibleText {
 public:
  OS_EditText();
  ~OS_EditText() override;

  /// The family that edited text is set in unless another is asked for.
  static moxcore::Utf8String GetDefaultFontName();

  /// The caret goes to the end and undo starts anew; the edited function isn't called.
  void SetText(moxcore::Utf16String text);
  moxcore::Utf16String GetText() const override;
  platform::TextSelection GetSelection() const override;
  void SetSelection(platform::TextSelection selection) override;
  void SelectAll();
  bool Perform(platform::EditCommand command);
  /// Called after each change of the text by the user.
  void SetEditedFunction(std::function<void()> function) { mEdited = std::move(function); }

  /// Size in logical pixels; style "" or "Bold".
  void SetFont(moxcore::Utf8String name, float size, moxcore::Utf8String style);
  void SetAlignment(ControlAlignment alignment);
  void SetTextColor(ColorRGBAOptional colour);
  /// Shown muted while there is no text.
  void SetPlaceholder(moxcore::Utf16String text);
  void SetReadOnly(bool readOnly);
  bool IsReadOnly() const { return mIsReadOnly; }
  void SetMaxLength(std::size_t units);

  /// Where the caret stands, in own coordinates, 1 wide.
  RectT<float> GetCaretRect() const;
  /// The place between two characters that is nearest to a point.
  std::size_t GetPositionAt(PointT<float> point) const override;

  void UI_Draw(scriber::Scriber* scriber) const override;
  void UI_SizeChanged(RectT<float> const& rect) override;
  bool UI_DoMouseEvent(ui::UI_Node* node, ui::MouseEvent const& event) override;
  bool UI_DoKeyboardEvent(ui::UI_Node* node, ui::KeyboardEvent const& event) override;
  bool UI_DoComposition(moxcore::Utf16String const& text, std::size_t caret) override;
  RectT<float> UI_GetTextInputRect() const override { return GetCaretRect(); }
  bool UI_DoCursor(ui::UI_Node* node, PointT<float> point, unsigned flags) override;
  bool UI_DoTimerNotify(int id) override;
  void UI_FocusChanged(ui::FocusChangeReason reason) override;
  bool UI_WantsKeyboardFocus() const override;
  ui::AccessibleRole UI_GetAccessibleRole() const override;
  moxcore::Utf8String UI_GetAccessibleName() const override;
  moxcore::Utf8String UI_GetAccessibleValue() const override;
  moxcore::Utf8String UI_GetAccessibleDescription() const override;
  ui::AccessibleState UI_GetAccessibleState() const override;
  ui::AccessibleText* UI_GetAccessibleText() override { return this; }

 private:
  // ui::AccessibleText
  RectT<float> GetCharacterRect(std::size_t position) const override;
  bool ReplaceText(platform::TextSelection stretch, moxcore::Utf16String const& text) override;

  /// Whether it stands for a value that isn't known.
  bool ShowsUnknown() const;
  platform::TextEditor* Editor();
  scriber::FontP Font() const;
  float TextLeft(scriber::FontInterface const& font) const;
  /// The text with what an input method has not finished yet in the place of the selection.
  moxcore::Utf16String ShownText() const;
  std::size_t ShownCaret() const;
  float Advance(scriber::FontInterface const& font, std::size_t position) const;
  void EditorChanged();
  void KeepCaretInSight();
  void RestartBlinking();
  void Press(ui::MouseEvent const& event);
  void ShowEditMenu(PointT<float> point);
  ColorRGBA ColorOf(ui::ThemeColorID id) const;

  std::unique_ptr<platform::TextEditor> mEditor;
  moxcore::Utf16String mText;
  moxcore::Utf16String mPlaceholder;
  moxcore::Utf16String mComposition;
  std::size_t mCompositionCaret = 0;
  moxcore::Utf8String mFontName;
  moxcore::Utf8String mFontStyle;
  float mFontSize = 0.0f;
  ControlAlignment mAlignment = ControlAlignment::kLeft;
  ColorRGBAOptional mTextColor;
  float mScroll = 0.0f;
  std::size_t mMaxLength = 0;
  int mBlinkTimer;
  bool mIsReadOnly = false;
  bool mCaretIsLit = true;
  std::function<void()> mEdited;
};

}  // namespace moxui::controls
