#include "QtTextEditor.h"

#include "EventTranslation.h"

#include <moxui/ui/KeyboardEvent.h>

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QTextBlock>
#include <QTextCursor>
#include <algorithm>
#include <utility>

namespace moxui::qt {

namespace {

/// One class for one line and for several: a line is a document whose line ends are refused. QPlainTextEdit
/// has the desktop's keys, undo and word rules, and its document tells changes without a window.
class QtTextEditor final : public platform::TextEditor {
 public:
  explicit QtTextEditor(bool multiLine) : mIsMultiLine(multiLine) {
    mEdit.setUndoRedoEnabled(true);
    mEdit.setTabChangesFocus(true);
  }

  void SetText(moxcore::Utf16String const& text) override {
    mEdit.setPlainText(Fitting(ToQString(text)));
    mEdit.moveCursor(QTextCursor::End);
  }

  moxcore::Utf16String GetText() const override { return ToUtf16(mEdit.toPlainText()); }

  platform::TextSelection GetSelection() const override {
    QTextCursor const cursor = mEdit.textCursor();
    return {static_cast<std::size_t>(cursor.anchor()), static_cast<std::size_t>(cursor.position())};
  }

  void SetSelection(platform::TextSelection selection) override {
    QTextCursor cursor = mEdit.textCursor();
    cursor.setPosition(Place(selection.anchor));
    cursor.setPosition(Place(selection.caret), QTextCursor::KeepAnchor);
    mEdit.setTextCursor(cursor);
  }

  bool HandleKey(ui::KeyboardEvent const& event) override {
    if (!event.IsAction(ui::KeyAction::kKeyDown)) {
      return false;
    }
    switch (event.GetCode()) {
      case ui::KeyboardCode::kEscape:
      case ui::KeyboardCode::kTab:
        return false;
      case ui::KeyboardCode::kReturn:
      case ui::KeyboardCode::kEnter:
        if (!mIsMultiLine) {
          return false;
        }
        break;
      case ui::KeyboardCode::kUp:
      case ui::KeyboardCode::kDown:
        if (!mIsMultiLine) {
          return MoveToEnd(event);
        }
        break;
      default:
        break;
    }
    return Change([&] { return SendKey(event); });
  }

  bool Perform(platform::EditCommand command) override {
    return Change([&] { return PerformCommand(command); });
  }

  void InsertText(moxcore::Utf16String const& text) override {
    Change([&] {
      Insert(ToQString(text));
      return true;
    });
  }

  void SetChangedFunction(std::function<void()> function) override { mChanged = std::move(function); }

  platform::TextSelection GetWordAt(std::size_t position) const override {
    QTextCursor cursor = mEdit.textCursor();
    cursor.setPosition(Place(position));
    cursor.select(QTextCursor::WordUnderCursor);
    return {static_cast<std::size_t>(cursor.anchor()), static_cast<std::size_t>(cursor.position())};
  }

  void SetMaxLength(std::size_t length) override { mMaxLength = length; }
  void SetReadOnly(bool readOnly) override {
    mIsReadOnly = readOnly;
    mEdit.setTextInteractionFlags(readOnly ? Qt::TextSelectableByKeyboard : Qt::TextEditorInteraction);
  }

 private:
  int Place(std::size_t position) const {
    auto const length = static_cast<std::size_t>(mEdit.document()->characterCount() - 1);
    return static_cast<int>(std::min(position, length));
  }

  QString Fitting(QString text) const {
    if (!mIsMultiLine) {
      text.replace("\r\n", " ").replace('\n', ' ').replace('\r', ' ').replace(QChar::ParagraphSeparator, ' ');
    }
    if (mMaxLength > 0 && static_cast<std::size_t>(text.size()) > mMaxLength) {
      text.truncate(static_cast<qsizetype>(mMaxLength));
      if (!text.isEmpty() && text.back().isHighSurrogate()) {
        text.chop(1);
      }
    }
    return text;
  }

  void Insert(QString const& text) {
    if (mIsReadOnly) {
      return;
    }
    QTextCursor cursor = mEdit.textCursor();
    QString fitting = Fitting(text);
    if (mMaxLength > 0) {
      auto const kept = static_cast<qsizetype>(mEdit.document()->characterCount() - 1) -
                        (cursor.selectionEnd() - cursor.selectionStart());
      auto const room = std::max<qsizetype>(static_cast<qsizetype>(mMaxLength) - kept, 0);
      fitting.truncate(room);
      if (!fitting.isEmpty() && fitting.back().isHighSurrogate()) {
        fitting.chop(1);
      }
    }
    cursor.insertText(fitting);
    mEdit.setTextCursor(cursor);
  }

  bool MoveToEnd(ui::KeyboardEvent const& event) {
    return Change([&] {
      auto const mode =
          event.GetModKey().Has(ui::ModKey::kShift) ? QTextCursor::KeepAnchor : QTextCursor::MoveAnchor;
      mEdit.moveCursor(event.GetCode() == ui::KeyboardCode::kUp ? QTextCursor::Start : QTextCursor::End,
                       mode);
      return true;
    });
  }

  bool SendKey(ui::KeyboardEvent const& event) {
    bool const isPlain = !event.GetModKey().HasAny(ui::ModKeys(ui::ModKey::kCommand | ui::ModKey::kControl));
    QString const text = ToQString(event.GetText());
    bool const types = isPlain && !text.isEmpty() && (text.front().isPrint() || text.front().isSurrogate());
    if (types) {
      Insert(text);
      return !mIsReadOnly;
    }
    QKeyEvent key(QEvent::KeyPress, ToQtKey(event.GetCode()), ToQtModifiers(event.GetModKey()), text,
                  event.IsRepeat());
    if (key.matches(QKeySequence::Paste)) {
      return PerformCommand(platform::EditCommand::kPaste);
    }
    key.ignore();
    QCoreApplication::sendEvent(&mEdit, &key);
    return key.isAccepted();
  }

  bool PerformCommand(platform::EditCommand command) {
    switch (command) {
      case platform::EditCommand::kUndo:
        mEdit.undo();
        return true;
      case platform::EditCommand::kRedo:
        mEdit.redo();
        return true;
      case platform::EditCommand::kCut:
        if (mIsReadOnly) {
          return false;
        }
        mEdit.cut();
        return true;
      case platform::EditCommand::kCopy:
        mEdit.copy();
        return true;
      case platform::EditCommand::kPaste:
        Insert(QGuiApplication::clipboard()->text());
        return !mIsReadOnly;
      case platform::EditCommand::kDelete:
        if (!mIsReadOnly) {
          mEdit.textCursor().removeSelectedText();
        }
        return !mIsReadOnly;
      case platform::EditCommand::kSelectAll:
        mEdit.selectAll();
        return true;
    }
    return false;
  }

  /// Runs an edit and tells of it if it changed something.
  bool Change(auto const& edit) {
    auto const textBefore = GetText();
    auto const selectionBefore = GetSelection();
    bool const used = edit();
    if (mChanged && (GetSelection() != selectionBefore || GetText() != textBefore)) {
      auto const changed = mChanged;  // it may be replaced, or end this editor
      changed();
    }
    return used;
  }

  QPlainTextEdit mEdit;
  bool mIsMultiLine;
  bool mIsReadOnly = false;
  std::size_t mMaxLength = 0;
  std::function<void()> mChanged;
};

}  // namespace

std::unique_ptr<platform::TextEditor> NewTextEditor(bool multiLine) {
  return std::make_unique<QtTextEditor>(multiLine);
}

}  // namespace moxui::qt
