#pragma once

#include <moxcore/string/String.h>

#include <cstddef>
#include <functional>

namespace moxui::ui {
class KeyboardEvent;
}

namespace moxui::platform {

/// A stretch of text by its two ends, in UTF-16 units; the caret stands at one of them.
struct TextSelection {
  std::size_t anchor = 0;
  std::size_t caret = 0;

  std::size_t Begin() const { return anchor < caret ? anchor : caret; }
  std::size_t End() const { return anchor < caret ? caret : anchor; }
  bool IsEmpty() const { return anchor == caret; }
  friend bool operator==(TextSelection const&, TextSelection const&) = default;
};

enum class EditCommand { kUndo, kRedo, kCut, kCopy, kPaste, kDelete, kSelectAll };

/// A text as an editor of one line or of several holds it. Every kind of line end becomes a line feed, or a
/// blank where there is one line only, and what is beyond `maxLength` UTF-16 units (0 for no limit) is cut
/// off before the character that would be split.
moxcore::Utf16String FitText(moxcore::Utf16String const& text, bool multiLine, std::size_t maxLength);

/// The platform's text editing without its picture: keys and commands go in, text and selection come out.
/// Undo, word movement and clipboard behave as everywhere on the desktop; lines on the screen are the
/// owner's, who moves the caret from one to another. Return and Escape aren't used, nor Tab, except Return in
/// an editor of several lines.
class TextEditor {
 public:
  virtual ~TextEditor();
  /// Replaces all; the caret goes to the end and undo starts anew. Doesn't call the changed function.
  virtual void SetText(moxcore::Utf16String const& text) = 0;
  virtual moxcore::Utf16String GetText() const = 0;
  virtual TextSelection GetSelection() const = 0;
  /// Ends within a character go to its begin.
  virtual void SetSelection(TextSelection selection) = 0;
  /// True when the editor used the key.
  virtual bool HandleKey(ui::KeyboardEvent const& event) = 0;
  virtual bool Perform(EditCommand command) = 0;
  /// In place of the selection.
  virtual void InsertText(moxcore::Utf16String const& text) = 0;
  /// Called after the text or the selection has changed by a key or a command.
  virtual void SetChangedFunction(std::function<void()> function) = 0;
  /// The word around a place, for double clicks.
  virtual TextSelection GetWordAt(std::size_t position) const = 0;

  /// Whether a command would do something now.
  virtual bool CanPerform(EditCommand) const { return true; }
  /// 0 for no limit, in UTF-16 units. A longer text is cut.
  virtual void SetMaxLength(std::size_t) {}
  virtual void SetReadOnly(bool) {}
};

}  // namespace moxui::platform
