#pragma once

#include <moxui/geometry/RectT.h>

#include <cstddef>

namespace moxui::scriber {
class Scriber;
}

namespace playground {

struct WaveformSettings;

// What stands in place of a waveform, in the rectangle `wave`: an invitation where there is no sound, and a
// reason where it has more channels than there is room for.
void DrawNoSound(moxui::scriber::Scriber* scriber, moxui::RectT<float> const& wave,
                 WaveformSettings const& settings);
void DrawTooManyChannels(moxui::scriber::Scriber* scriber, moxui::RectT<float> const& wave,
                         WaveformSettings const& settings, std::size_t channels);

}  // namespace playground
