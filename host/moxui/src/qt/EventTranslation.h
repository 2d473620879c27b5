#pragma once

#include <moxcore/string/String.h>
#include <moxui/ui/KeyboardEvent.h>
#include <moxui/ui/MouseEvent.h>

#include <QString>
#include <Qt>

class QKeyEvent;

namespace moxui::qt {

ui::MouseButton ToMouseButton(Qt::MouseButton button);
ui::MouseButtons ToMouseButtons(Qt::MouseButtons buttons);
ui::ModKeys ToModKeys(Qt::KeyboardModifiers modifiers);
Qt::KeyboardModifiers ToQtModifiers(ui::ModKeys modKeys);
ui::KeyboardCode ToKeyboardCode(int qtKey, bool isOnKeypad);
int ToQtKey(ui::KeyboardCode code);
ui::KeyboardEvent ToKeyboardEvent(QKeyEvent const& event);

QString ToQString(moxcore::Utf16String const& text);
QString ToQString(moxcore::Utf8String const& text);
moxcore::Utf16String ToUtf16(QString const& text);
moxcore::Utf8String ToUtf8(QString const& text);

}  // namespace moxui::qt
