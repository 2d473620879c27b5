#pragma once

#include "playback/AudioOutput.h"

#include <memory>

namespace playground {

// The machine's own sound device, by SDL, which converts rate and channels to what the device takes. Nothing
// of SDL is touched before it is opened.
std::unique_ptr<AudioOutput> NewSdlOutput();

}  // namespace playground
