#pragma once

#include <moxui/ui/KeyboardEvent.h>

namespace playground {

// Undoes or redoes what was done in `edited`, a class with Undo() and Redo(), where the key asks for that:
// Ctrl+Z; Ctrl+Shift+Z or Ctrl+Y.
template <class Edited>
bool HandleUndoKey(Edited& edited, moxui::ui::KeyboardEvent const& event) {
  using moxui::ui::KeyboardCode;
  using moxui::ui::ModKeys;
  namespace ModKey = moxui::ui::ModKey;
  if (!event.IsAction(moxui::ui::KeyAction::kKeyDown)) {
    return false;
  }
  ModKeys const command(ModKey::kCommand);
  if (event.CompareShortcut(KeyboardCode::kZ, command)) {
    edited.Undo();
    return true;
  }
  if (event.CompareShortcut(KeyboardCode::kZ, ModKeys(ModKey::kCommand | ModKey::kShift)) ||
      event.CompareShortcut(KeyboardCode::kY, command)) {
    edited.Redo();
    return true;
  }
  return false;
}

}  // namespace playground
