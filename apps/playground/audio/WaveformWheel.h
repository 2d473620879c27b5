#pragma once

namespace moxui::ui {
class PointerEvent;
}

namespace playground {

class AudioSession;

// What a wheel turned on the waveform, or beside it in the same columns, does: it zooms at the pointer, with
// shift it scrolls, with command it zooms the level. `scale` is that of the screen. False if the event is
// none of a wheel.
bool HandleWaveformWheel(AudioSession& session, moxui::ui::PointerEvent const& event, float scale);

}  // namespace playground
