#pragma once

namespace moxui::ui {
class KeyboardEvent;
}

namespace playground {

class AudioSession;

// What a key does on the waveform: arrows scroll and change the level's zoom, with shift they select; plus
// and minus zoom at the middle, Home and End go to the ends, F shows all, Z the selection and then what was
// shown before, Escape selects nothing, command-A all, digits switch channels. False if it does nothing.
bool HandleWaveformKey(AudioSession& session, moxui::ui::KeyboardEvent const& event);

}  // namespace playground
