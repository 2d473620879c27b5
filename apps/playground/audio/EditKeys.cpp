#include "audio/EditKeys.h"

#include "audio/AudioSession.h"

#include <moxui/ui/KeyboardEvent.h>

namespace playground {

bool HandleEditKey(AudioSession& session, moxui::ui::KeyboardEvent const& event,
                   std::function<void()> const& exportSelection) {
  using moxui::ui::KeyboardCode;
  using moxui::ui::ModKeys;
  namespace ModKey = moxui::ui::ModKey;
  if (!event.IsAction(moxui::ui::KeyAction::kKeyDown)) {
    return false;
  }
  ModKeys const command(ModKey::kCommand);
  if (event.CompareShortcut(KeyboardCode::kZ, command)) {
    session.Undo();
    return true;
  }
  if (event.CompareShortcut(KeyboardCode::kZ, ModKeys(ModKey::kCommand | ModKey::kShift)) ||
      event.CompareShortcut(KeyboardCode::kY, command)) {
    session.Redo();
    return true;
  }
  if (event.CompareShortcut(KeyboardCode::kE, command)) {
    exportSelection();
    return true;
  }
  return false;
}

}  // namespace playground
