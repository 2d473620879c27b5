#include "audio/EditKeys.h"

#include "audio/AudioSession.h"
#include "shell/UndoKeys.h"

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
  if (event.CompareShortcut(KeyboardCode::kE, ModKeys(ModKey::kCommand))) {
    exportSelection();
    return true;
  }
  return HandleUndoKey(session, event);
}

}  // namespace playground
