#pragma once

#include <moxcore/string/String.h>
#include <moxui/ui/KeyboardCode.h>
#include <moxui/ui/PointerEvent.h>

#include <utility>

namespace moxui::ui {

enum class KeyAction : int { kKeyDown = 1, kKeyUp = 2 };

/// A key that went down or up, or text that was put in without a key (code kNone), as an input method does.
class KeyboardEvent {
 public:
  KeyboardEvent(KeyAction action, KeyboardCode code, ModKeys modKeys = {}, moxcore::Utf16String text = {},
                bool isRepeat = false, OS_Event osEvent = {})
      : mAction(action),
        mIsRepeat(isRepeat),
        mModKeys(modKeys),
        mCode(code),
        mText(std::move(text)),
        mOSEvent(osEvent) {}

  KeyAction GetAction() const { return mAction; }
  bool IsAction(KeyAction action) const { return mAction == action; }
  KeyboardCode GetCode() const { return mCode; }
  ModKeys GetModKey() const { return mModKeys; }
  /// What the key types; empty for keys that type nothing.
  moxcore::Utf16String const& GetText() const { return mText; }
  /// Whether the key is held and repeats itself.
  bool IsRepeat() const { return mIsRepeat; }
  OS_Event const& GetOSEvent() const { return mOSEvent; }

  /// Exactly this key with exactly these modifiers.
  bool CompareShortcut(KeyboardCode code, ModKeys modKeys) const {
    return mCode == code && mModKeys == modKeys;
  }

 private:
  KeyAction mAction;
  bool mIsRepeat;
  ModKeys mModKeys;
  KeyboardCode mCode;
  moxcore::Utf16String mText;
  OS_Event mOSEvent;
};

}  // namespace moxui::ui
