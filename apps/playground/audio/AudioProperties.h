#pragma once

#include "program/Appearance.h"
#include "properties/Property.h"

#include <vector>

namespace playground {

class AudioSession;

// Everything about the waveform of a session that can be worked by hand, in groups. The session outlives what
// comes back. Channels of the current sound are among it, so that another sound asks for another list.
std::vector<PropertyGroup> AudioProperties(AudioSession& session, ThemeChoice theme);

}  // namespace playground
