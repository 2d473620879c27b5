#pragma once

#include "controls/ControlSheet.h"

#include <vector>

namespace playground {

// Rows with a button each, which opens a box as a client would: for each icon of message boxes, and for each
// other kind of dialog.
std::vector<ControlSample> MessageBoxSamples();
std::vector<ControlSample> DialogSamples();

}  // namespace playground
