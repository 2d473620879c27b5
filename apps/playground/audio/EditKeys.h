#pragma once

#include <functional>

namespace moxui::ui {
class KeyboardEvent;
}

namespace playground {

class AudioSession;

// What a key does on the audio page wherever the focus is, unless a control there has a use for it:
// command-Z undoes, with shift or command-Y it redoes, command-E exports the selection. False if it does
// nothing.
bool HandleEditKey(AudioSession& session, moxui::ui::KeyboardEvent const& event,
                   std::function<void()> const& exportSelection);

}  // namespace playground
