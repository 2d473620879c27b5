#include "QtTextEditor.h"

#include "EventTranslation.h"

#include <moxui/ui/KeyboardEvent.h>

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QTextBlock>
#include <QTextBoundaryFinder>
#include <QTextCursor>
#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace moxui::qt {

namespace {

using platform::EditCommand;

/// The last place at or before one that is no place within a character, nor before a mark that belongs to it.
qsizetype WholeCharacters(QString const& text, qsizetype place) {
  if (place <= 0 || place >= text.size()) {
    return std::clamp<qsizetype>(place, 0, text.size());
  }
  QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
  finder.setPosition(place);
  if (!finder.isAtBoundary()) {
    place = std::max<qsizetype>(finder.toPreviousBoundary(), 0);
  }
  return place;
}

QString Cut(QString const& text, qsizetype length) {
  return text.left(WholeCharacters(text, length));
}

bool IsLineEnd(QChar unit) {
  constexpr char16_t kNextLine = 0x85;
  return unit == u'\n' || unit == u'\r' || unit == u'\v' || unit == u'\f' || unit == kNextLine ||
         unit == QChar::LineSeparator || unit == QChar::ParagraphSeparator;
}

QString Fit(QString const& text, bool multiLine, std::size_t maxLength) {
  QString fitting;
  fitting.reserve(text.size());
  for (qsizetype i = 0; i < text.size(); ++i) {
    QChar const unit = text[i];
    if (unit == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') {
      continue;
    }
    // Qt's documents mark frames by two units that no text should have, and take them for line ends.
    bool const isMark = unit.unicode() == 0xFDD0 || unit.unicode() == 0xFDD1;
    fitting += IsLineEnd(unit) ? QChar(multiLine ? u'\n' : u' ')
               : isMark        ? QChar(QChar::ReplacementCharacter)
                               : unit;
  }
  return maxLength > 0 ? Cut(fitting, static_cast<qsizetype>(maxLength)) : fitting;
}

/// The command that a key means on this desktop.
std::optional<EditCommand> CommandOf(QKeyEvent const& key) {
  constexpr std::array kKeys{std::pair{QKeySequence::Undo, EditCommand::kUndo},
                             std::pair{QKeySequence::Redo, EditCommand::kRedo},
                             std::pair{QKeySequence::Cut, EditCommand::kCut},
                             std::pair{QKeySequence::Copy, EditCommand::kCopy},
                             std::pair{QKeySequence::Paste, EditCommand::kPaste},
                             std::pair{QKeySequence::SelectAll, EditCommand::kSelectAll}};
  for (auto const& [sequence, command] : kKeys) {
    if (key.matches(sequence)) {
      return command;
    }
  }
  return std::nullopt;
}

/// One class for one line and for several: a line is a document whose line ends are refused. QPlainTextEdit
/// has the desktop's keys, undo and word rules, and its document tells changes without a window.
class QtTextEditor final : public platform::TextEditor {
 public:
  explicit QtTextEditor(bool multiLine) : mIsMultiLine(multiLine) {
    mEdit.setUndoRedoEnabled(true);
    mEdit.setTabChangesFocus(true);
    mEdit.setLineWrapMode(QPlainTextEdit::NoWrap);
  }

  void SetText(moxcore::Utf16String const& text) override {
    mEdit.setPlainText(Fit(ToQString(text), mIsMultiLine, mMaxLength));
    mEdit.moveCursor(QTextCursor::End);
  }

  moxcore::Utf16String GetText() const override { return ToUtf16(Text()); }

  platform::TextSelection GetSelection() const override {
    QTextCursor const cursor = mEdit.textCursor();
    return {static_cast<std::size_t>(cursor.anchor()), static_cast<std::size_t>(cursor.position())};
  }

  void SetSelection(platform::TextSelection selection) override {
    QString const text = Text();
    QTextCursor cursor = mEdit.textCursor();
    cursor.setPosition(Place(text, selection.anchor));
    cursor.setPosition(Place(text, selection.caret), QTextCursor::KeepAnchor);
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

  bool Perform(EditCommand command) override {
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
    cursor.setPosition(Place(Text(), position));
    cursor.select(QTextCursor::WordUnderCursor);
    return {static_cast<std::size_t>(cursor.anchor()), static_cast<std::size_t>(cursor.position())};
  }

  bool CanPerform(EditCommand command) const override {
    bool const hasSelection = mEdit.textCursor().hasSelection();
    switch (command) {
      case EditCommand::kUndo:
        return !mIsReadOnly && mEdit.document()->isUndoAvailable();
      case EditCommand::kRedo:
        return !mIsReadOnly && mEdit.document()->isRedoAvailable();
      case EditCommand::kCut:
      case EditCommand::kDelete:
        return !mIsReadOnly && hasSelection;
      case EditCommand::kCopy:
        return hasSelection;
      case EditCommand::kPaste:
        return !mIsReadOnly && !QGuiApplication::clipboard()->text().isEmpty();
      case EditCommand::kSelectAll:
        return !mEdit.document()->isEmpty();
    }
    return false;
  }

  void SetMaxLength(std::size_t length) override {
    mMaxLength = length;
    if (length > 0 && static_cast<std::size_t>(Length()) > length) {
      SetText(GetText());
    }
  }

  void SetReadOnly(bool readOnly) override {
    mIsReadOnly = readOnly;
    mEdit.setTextInteractionFlags(readOnly ? Qt::TextSelectableByKeyboard : Qt::TextEditorInteraction);
  }

 private:
  qsizetype Length() const { return mEdit.document()->characterCount() - 1; }

  /// As it was put in, no-break spaces too, but for the ends of lines.
  QString Text() const {
    QString text = mEdit.document()->toRawText();
    text.replace(QChar::ParagraphSeparator, u'\n');
    return text;
  }

  static int Place(QString const& text, std::size_t position) {
    std::size_t const held = std::min(position, static_cast<std::size_t>(text.size()));
    return static_cast<int>(WholeCharacters(text, static_cast<qsizetype>(held)));
  }

  void Insert(QString const& text) {
    if (mIsReadOnly) {
      return;
    }
    QTextCursor cursor = mEdit.textCursor();
    QString fitting = Fit(text, mIsMultiLine, 0);
    if (mMaxLength > 0) {
      auto const kept = Length() - (cursor.selectionEnd() - cursor.selectionStart());
      auto const room = std::max<qsizetype>(static_cast<qsizetype>(mMaxLength) - kept, 0);
      fitting = Cut(fitting, room);
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
    // Marks of direction and joiners are typed like letters.
    bool const types = isPlain && !text.isEmpty() && text.front().category() != QChar::Other_Control;
    if (types) {
      Insert(text);
      return !mIsReadOnly;
    }
    bool const isReturn =
        event.GetCode() == ui::KeyboardCode::kReturn || event.GetCode() == ui::KeyboardCode::kEnter;
    if (isReturn) {
      Insert(QStringLiteral("\n"));
      return !mIsReadOnly;
    }
    QKeyEvent key(QEvent::KeyPress, ToQtKey(event.GetCode()), ToQtModifiers(event.GetModKey()), text,
                  event.IsRepeat());
    if (auto const command = CommandOf(key)) {
      return PerformCommand(*command);
    }
    if (event.GetCode() == ui::KeyboardCode::kBackspace && isPlain && DeletePicture()) {
      return true;
    }
    key.ignore();
    QCoreApplication::sendEvent(&mEdit, &key);
    return key.isAccepted();
  }

  bool PerformCommand(EditCommand command) {
    switch (command) {
      case EditCommand::kUndo:
        if (!mIsReadOnly) {
          mEdit.undo();
        }
        return !mIsReadOnly;
      case EditCommand::kRedo:
        if (!mIsReadOnly) {
          mEdit.redo();
        }
        return !mIsReadOnly;
      case EditCommand::kCut:
        CopySelection();
        return DeleteSelection();
      case EditCommand::kCopy:
        CopySelection();
        return true;
      case EditCommand::kPaste:
        Insert(QGuiApplication::clipboard()->text());
        return !mIsReadOnly;
      case EditCommand::kDelete:
        return DeleteSelection();
      case EditCommand::kSelectAll:
        mEdit.selectAll();
        return true;
    }
    return false;
  }

  // Without a selection the clipboard keeps what it has.
  void CopySelection() const {
    QTextCursor const cursor = mEdit.textCursor();
    if (cursor.hasSelection()) {
      QGuiApplication::clipboard()->setText(
          Text().mid(cursor.selectionStart(), cursor.selectionEnd() - cursor.selectionStart()));
    }
  }

  bool DeleteSelection() {
    if (!mIsReadOnly) {
      mEdit.textCursor().removeSelectedText();
    }
    return !mIsReadOnly;
  }

  /// Backspace behind what is drawn as one picture out of several code points takes all of it, where behind
  /// a letter with marks it takes the last mark.
  bool DeletePicture() {
    QTextCursor cursor = mEdit.textCursor();
    int const end = cursor.position();
    if (mIsReadOnly || cursor.hasSelection() || end == 0) {
      return false;
    }
    QString const text = Text();
    auto const begin = static_cast<int>(WholeCharacters(text, end - 1));
    QStringView const character = QStringView(text).mid(begin, end - begin);
    constexpr char16_t kJoiner = 0x200D;
    constexpr char16_t kPictureForm = 0xFE0F;
    bool const isPicture = std::ranges::any_of(
        character, [](QChar unit) { return unit.isSurrogate() || unit == kJoiner || unit == kPictureForm; });
    if (!isPicture) {
      return false;
    }
    cursor.setPosition(begin, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    mEdit.setTextCursor(cursor);
    return true;
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

namespace moxui::platform {

moxcore::Utf16String FitText(moxcore::Utf16String const& text, bool multiLine, std::size_t maxLength) {
  return qt::ToUtf16(qt::Fit(qt::ToQString(text), multiLine, maxLength));
}

}  // namespace moxui::platform
