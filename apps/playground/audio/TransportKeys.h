#pragma once

namespace moxui::ui {
class KeyboardEvent;
}

namespace playground {

class AudioSession;
class Transport;

// What a key does to playback before the waveform hears of it: while there is a playhead, the arrows move it
// (by a column, and while it plays by a second at least; with command ten times as far) and Escape takes it
// away. False if it does nothing.
bool HandlePlayheadKey(AudioSession const& session, Transport& transport,
                       moxui::ui::KeyboardEvent const& event);

// What a key does that no control has taken: J, K and L shuttle, the space bar plays and
// pauses, R switches the loop, Escape stops.
bool HandleTransportKey(Transport& transport, moxui::ui::KeyboardEvent const& event);

}  // namespace playground
