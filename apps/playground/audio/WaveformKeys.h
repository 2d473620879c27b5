#pragma once

namespace moxui::ui {
class KeyboardEvent;
}

namespace playground {

class AudioSession;

// What a key does on the waveform: left and right move the cursor by a column, with command by ten, with
// shift they select; Home and End go to the ends, pages scroll, up and down change the level's zoom; plus and
// minus zoom at the middle, F shows all, Z the selection and then what was shown before, Escape selects
// nothing, command-A all, digits switch channels. False if it does nothing.
bool HandleWaveformKey(AudioSession& session, moxui::ui::KeyboardEvent const& event);

}  // namespace playground
