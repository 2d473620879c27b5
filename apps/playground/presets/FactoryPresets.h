#pragma once

#include <moxcore/string/String.h>
#include <moxcore/utility/Guid.h>

namespace playground {

// The kind of all presets of the waveform's view.
moxcore::Guid WaveformPresetType();

// The presets that the program brings along, as the text of a list.
moxcore::Utf8String FactoryPresetsText();

}  // namespace playground
