#pragma once

namespace moxui::ui {
class KeyboardEvent;
}

namespace playground {

class CurveSession;

// Does what a key means to the selected point of a curve: arrows move it a level, with shift ten, with
// command a tenth; pages and Home and End select others; Insert or plus adds one, Delete removes it. False
// for keys that mean nothing here.
bool HandleCurveKey(CurveSession& session, moxui::ui::KeyboardEvent const& event);

}  // namespace playground
