#include "EventTranslation.h"

#include <QKeyEvent>
#include <array>
#include <utility>

namespace moxui::qt {

namespace {

using ui::KeyboardCode;

constexpr std::array kKeys{
    std::pair{Qt::Key_Return, KeyboardCode::kReturn},
    std::pair{Qt::Key_Enter, KeyboardCode::kEnter},
    std::pair{Qt::Key_Escape, KeyboardCode::kEscape},
    std::pair{Qt::Key_Tab, KeyboardCode::kTab},
    std::pair{Qt::Key_Space, KeyboardCode::kSpace},
    std::pair{Qt::Key_Backspace, KeyboardCode::kBackspace},
    std::pair{Qt::Key_Delete, KeyboardCode::kDelete},
    std::pair{Qt::Key_Insert, KeyboardCode::kInsert},
    std::pair{Qt::Key_Left, KeyboardCode::kLeft},
    std::pair{Qt::Key_Right, KeyboardCode::kRight},
    std::pair{Qt::Key_Up, KeyboardCode::kUp},
    std::pair{Qt::Key_Down, KeyboardCode::kDown},
    std::pair{Qt::Key_Home, KeyboardCode::kHome},
    std::pair{Qt::Key_End, KeyboardCode::kEnd},
    std::pair{Qt::Key_PageUp, KeyboardCode::kPageUp},
    std::pair{Qt::Key_PageDown, KeyboardCode::kPageDown},
    std::pair{Qt::Key_Minus, KeyboardCode::kMinus},
    std::pair{Qt::Key_Plus, KeyboardCode::kPlus},
    std::pair{Qt::Key_Equal, KeyboardCode::kEqual},
    std::pair{Qt::Key_Period, KeyboardCode::kPeriod},
    std::pair{Qt::Key_Comma, KeyboardCode::kComma},
    std::pair{Qt::Key_Semicolon, KeyboardCode::kSemicolon},
    std::pair{Qt::Key_Colon, KeyboardCode::kColon},
    std::pair{Qt::Key_Slash, KeyboardCode::kSlash},
    std::pair{Qt::Key_Backslash, KeyboardCode::kBackslash},
    std::pair{Qt::Key_Asterisk, KeyboardCode::kAsterisk},
    std::pair{Qt::Key_Apostrophe, KeyboardCode::kQuote},
    std::pair{Qt::Key_BracketLeft, KeyboardCode::kBracketLeft},
    std::pair{Qt::Key_BracketRight, KeyboardCode::kBracketRight},
    std::pair{Qt::Key_QuoteLeft, KeyboardCode::kGrave},
    std::pair{Qt::Key_Shift, KeyboardCode::kShift},
    std::pair{Qt::Key_Control, KeyboardCode::kCommand},
    std::pair{Qt::Key_Alt, KeyboardCode::kOption},
    std::pair{Qt::Key_Meta, KeyboardCode::kControl},
    std::pair{Qt::Key_CapsLock, KeyboardCode::kCapsLock},
    std::pair{Qt::Key_Menu, KeyboardCode::kContextMenu},
};

KeyboardCode Shifted(KeyboardCode first, int by) {
  return static_cast<KeyboardCode>(static_cast<int>(first) + by);
}

}  // namespace

ui::MouseButton ToMouseButton(Qt::MouseButton button) {
  switch (button) {
    case Qt::LeftButton:
      return ui::MouseButton::kLeft;
    case Qt::MiddleButton:
      return ui::MouseButton::kMiddle;
    case Qt::RightButton:
      return ui::MouseButton::kRight;
    default:
      return ui::MouseButton::kNone;
  }
}

ui::MouseButtons ToMouseButtons(Qt::MouseButtons buttons) {
  ui::MouseButtons result;
  for (auto const button : {Qt::LeftButton, Qt::MiddleButton, Qt::RightButton}) {
    if (buttons.testFlag(button)) {
      result.Set(static_cast<unsigned char>(ToMouseButton(button)));
    }
  }
  return result;
}

ui::ModKeys ToModKeys(Qt::KeyboardModifiers modifiers) {
  ui::ModKeys result;
  result.Set(ui::ModKey::kCommand, modifiers.testFlag(Qt::ControlModifier));
  result.Set(ui::ModKey::kShift, modifiers.testFlag(Qt::ShiftModifier));
  result.Set(ui::ModKey::kOption, modifiers.testFlag(Qt::AltModifier));
  result.Set(ui::ModKey::kControl, modifiers.testFlag(Qt::MetaModifier));
  return result;
}

Qt::KeyboardModifiers ToQtModifiers(ui::ModKeys modKeys) {
  Qt::KeyboardModifiers result;
  result.setFlag(Qt::ControlModifier, modKeys.Has(ui::ModKey::kCommand));
  result.setFlag(Qt::ShiftModifier, modKeys.Has(ui::ModKey::kShift));
  result.setFlag(Qt::AltModifier, modKeys.Has(ui::ModKey::kOption));
  result.setFlag(Qt::MetaModifier, modKeys.Has(ui::ModKey::kControl));
  return result;
}

ui::KeyboardCode ToKeyboardCode(int qtKey, bool isOnKeypad) {
  if (qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z) {
    return Shifted(KeyboardCode::kA, qtKey - Qt::Key_A);
  }
  if (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9) {
    return Shifted(KeyboardCode::k0, qtKey - Qt::Key_0);
  }
  if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F12) {
    return Shifted(KeyboardCode::kF1, qtKey - Qt::Key_F1);
  }
  if (qtKey == Qt::Key_Backtab) {
    return KeyboardCode::kTab;
  }
  if (qtKey == Qt::Key_Return && isOnKeypad) {
    return KeyboardCode::kEnter;
  }
  for (auto const& [key, code] : kKeys) {
    if (key == qtKey) {
      return code;
    }
  }
  return KeyboardCode::kNone;
}

int ToQtKey(ui::KeyboardCode code) {
  int const number = static_cast<int>(code);
  if (code >= KeyboardCode::kA && code <= KeyboardCode::kZ) {
    return Qt::Key_A + number - static_cast<int>(KeyboardCode::kA);
  }
  if (code >= KeyboardCode::k0 && code <= KeyboardCode::k9) {
    return Qt::Key_0 + number - static_cast<int>(KeyboardCode::k0);
  }
  if (code >= KeyboardCode::kF1 && code <= KeyboardCode::kF12) {
    return Qt::Key_F1 + number - static_cast<int>(KeyboardCode::kF1);
  }
  for (auto const& [key, known] : kKeys) {
    if (known == code) {
      return key;
    }
  }
  return 0;
}

ui::KeyboardEvent ToKeyboardEvent(QKeyEvent const& event) {
  bool const isDown = event.type() != QEvent::KeyRelease;
  return {isDown ? ui::KeyAction::kKeyDown : ui::KeyAction::kKeyUp,
          ToKeyboardCode(event.key(), event.modifiers().testFlag(Qt::KeypadModifier)),
          ToModKeys(event.modifiers()),
          ToUtf16(event.text()),
          event.isAutoRepeat(),
          ui::OS_Event(&event)};
}

QString ToQString(moxcore::Utf16String const& text) {
  return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}

QString ToQString(moxcore::Utf8String const& text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

moxcore::Utf16String ToUtf16(QString const& text) {
  moxcore::Utf16String result;
  result.reserve(static_cast<std::size_t>(text.size()));
  for (QChar const unit : text) {
    result.push_back(unit.unicode());
  }
  return result;
}

moxcore::Utf8String ToUtf8(QString const& text) {
  QByteArray const bytes = text.toUtf8();
  return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

}  // namespace moxui::qt
