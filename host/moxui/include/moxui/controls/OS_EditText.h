#pragma once

#include <moxcore/string/String.h>
#include <moxui/controls/ControlText.h>
#include <moxui/geometry/ColorRGBA.h>
#include <moxui/platform/TextEditor.h>
#include <moxui/scriber/ScriberTypes.h>
#include <moxui/skins/ThemeColorID.h>
#include <moxui/ui/AccessibleText.h>
#include <moxui/ui/UI_Node.h>

#include <functional>
#include <memory>
#include <optional>

namespace moxui::scriber {
struct TextLine;
}

namespace moxui::controls {

/// The editable text inside a UI_TextEdit, one line or several: the node that has the focus while text is
/// typed. Editing itself (undo, words, clipboard) is the platform's; this node lays the text out, paints it,
/// and turns pointer positions into carets. Escape and Tab are left to the nodes above, and Return unless it
/// makes a new line.
class OS_EditText : public ui::UI_Node, private ui::AccessibleText {
 public:
  OS_EditText();
  ~OS_EditText() override;

  /// The family that edited text is set in unless another is asked for.
  static moxcore::Utf8String GetDefaultFontName();

  /// The caret goes to the end and undo starts anew; the edited function isn't called. Line ends become line
  /// feeds, or blanks where there is one line, and a text beyond the longest length is cut.
  void SetText(moxcore::Utf16String const& text);
  moxcore::Utf16String GetText() const override;
  platform::TextSelection GetSelection() const override;
  /// Ends within a character go to its begin.
  void SetSelection(platform::TextSelection selection) override;
  void SelectAll();
  bool Perform(platform::EditCommand command);
  /// Called after each change of the text by the user.
  void SetEditedFunction(std::function<void()> function) { mEdited = std::move(function); }

  /// Whether there may be several lines: wrapped at words, scrolled up and down. One at first.
  void SetMultiLine(bool multiLine);
  bool IsMultiLine() const { return mIsMultiLine; }
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

  // Several lines
  /// Of all lines together.
  float GetContentHeight() const;
  /// How far the text is scrolled up; clamped.
  void SetScrollOffset(float offset);
  float GetScrollOffset() const { return mScroll.y; }
  /// Called when the offset or the height of the content may have become another.
  void SetScrolledFunction(std::function<void()> function) { mScrolled = std::move(function); }

  void UI_Draw(scriber::Scriber* scriber) const override;
  void UI_SizeChanged(RectT<float> const& rect) override;
  bool UI_DoPointerEvent(ui::UI_Node* node, ui::PointerEvent const& event) override;
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
  struct Laid;
  /// What a press and the drag behind it select by.
  enum class Grain { kCharacter, kWord, kParagraph };

  // ui::AccessibleText
  RectT<float> GetCharacterRect(std::size_t position) const override;
  bool ReplaceText(platform::TextSelection stretch, moxcore::Utf16String const& text) override;

  /// Whether it stands for a value that isn't known.
  bool ShowsUnknown() const;
  platform::TextEditor* Editor();
  void EditorChanged();
  ColorRGBA ColorOf(ui::ThemeColorID id) const;

  // Geometry
  scriber::FontP Font() const;
  /// The text with what an input method has not finished yet in the place of the selection.
  moxcore::Utf16String ShownText() const;
  std::size_t ShownCaret() const;
  /// The shown text in its lines; null without a font.
  Laid const* Layout() const;
  float Room() const;
  /// Of the layout, in own coordinates.
  PointT<float> TextOrigin(Laid const& laid) const;
  float Baseline(Laid const& laid, std::size_t line) const;
  float SidewaysScroll(Laid const& laid) const;
  void KeepCaretInSight();
  void TellScrolled();

  // Painting
  void DrawSelection(scriber::SurfaceInterface& surface, Laid const& laid) const;
  void DrawLines(scriber::SurfaceInterface& surface, Laid const& laid, ColorRGBA const& colour) const;
  void DrawCompositionLine(scriber::SurfaceInterface& surface, Laid const& laid,
                           ColorRGBA const& colour) const;

  // Input
  void RestartBlinking();
  void FinishComposition();
  bool MoveByLines(ui::KeyboardEvent const& event);
  bool LeavesToOthers(ui::KeyboardEvent const& event) const;
  void Press(ui::MouseEvent const& event);
  void ContinuePress(ui::MouseEvent const& event);
  void EndPress();
  void ExtendTo(PointT<float> point);
  platform::TextSelection StretchAt(std::size_t position) const;
  void ShowEditMenu(PointT<float> point);

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
  PointT<float> mScroll;
  mutable std::unique_ptr<Laid> mLaid;
  std::optional<float> mGoal;  ///< along the line, of a caret that goes from line to line
  Grain mGrain = Grain::kCharacter;
  platform::TextSelection mPressed;  ///< what the press itself selected
  PointT<float> mDragPoint;
  std::size_t mMaxLength = 0;
  int mBlinkTimer;
  int mDragTimer;
  bool mIsMultiLine = false;
  bool mIsReadOnly = false;
  bool mCaretIsLit = true;
  std::function<void()> mEdited;
  std::function<void()> mScrolled;
};

}  // namespace moxui::controls
