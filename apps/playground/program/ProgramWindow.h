#pragma once

#include "program/Settings.h"

namespace moxui::platform {
class Application;
}

namespace playground {

struct ProgramState;

// Opens the window and handles events until the user closes it, or, with `quitsAfterFirstPaint`, until all
// files are read and it has been painted. Size, page, appearance and layouts of channels are remembered at
// the end. Gives the program's code.
int RunWindow(moxui::platform::Application& application, ProgramState& state, Settings settings,
              bool quitsAfterFirstPaint);

}  // namespace playground
