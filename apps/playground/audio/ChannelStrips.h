#pragma once

#include <optional>

namespace playground {

struct WaveformSettings;

// How the renderer divides a picture into the channels' strips, in device pixels: the strip of channel c
// begins at `top` + c * `stride`. Layered channels share one.
struct ChannelStrips {
  int height = 0;
  int stride = 0;
  int top = 0;

  // Of the line around which a wave swings, from the top of its strip.
  double Centre() const;
};

// Nothing when there is no room. `scale` is that at which is drawn; spare rows lie above the channels only
// where peaks are drawn.
std::optional<ChannelStrips> LayOutStrips(WaveformSettings const& settings, int channelCount, int rows,
                                          double scale, bool drawsSamples);

}  // namespace playground
