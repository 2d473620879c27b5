#pragma once

#include "program/Appearance.h"

#include <moxui/geometry/ColorRGBA.h>

#include <array>
#include <vector>

namespace playground {

// The places of a waveform picture that have a colour of their own, apart from the channels'.
enum class WaveformColor {
  kBackground,
  kSelectionBackground,
  kCenterline,
  kGridline,
  kDivider,
  kControl,
};
inline constexpr int kWaveformColorCount = 6;

// The colours that a theme gives to a waveform: a quiet ground with the sound as the brightest thing on it.
struct WaveformPalette {
  std::array<moxui::ColorRGBA, kWaveformColorCount> colors;
  moxui::ColorRGBA ink;                            // the strongest that the theme writes with
  moxui::ColorRGBA wave;                           // every channel, while channels share a colour
  moxui::ColorRGBA selectedWave;                   // the same inside a selection
  std::vector<moxui::ColorRGBA> channels;          // one after another, then from the first on again
  std::vector<moxui::ColorRGBA> selectedChannels;  // the same inside a selection

  moxui::ColorRGBA Color(WaveformColor place) const { return colors[static_cast<std::size_t>(place)]; }
};

WaveformPalette PaletteOf(ThemeChoice theme);

// Inside a selection waves move this far toward the ink.
inline constexpr float kSelectedShare = 0.45f;

// Black or white, whichever is easier to read on a ground that the user may have chosen.
moxui::ColorRGBA InkOn(moxui::ColorRGBA const& ground);
// The contrast of two opaque colours, 1 to 21, by their relative luminance as WCAG 2 defines them.
double ContrastOf(moxui::ColorRGBA const& a, moxui::ColorRGBA const& b);

// `over` at `alpha` on an opaque `ground`, as one opaque colour.
moxui::ColorRGBA Mixed(moxui::ColorRGBA ground, moxui::ColorRGBA over, float alpha);

}  // namespace playground
