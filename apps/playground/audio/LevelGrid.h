#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace playground {

struct ChannelStrips;
struct WaveformSettings;

// A level that has a line of the grid.
struct LevelLine {
  std::string label;   // in dB, or as a share of full scale
  std::int32_t y = 0;  // row of the strip, in device pixels from its top
};

// The lines of a strip, from the top down, as the settings ask for them: at equal shares of full scale or
// every 6 dB as far as there is room between them. Levels beyond the strip have none. Channels in one layer
// have no lines in dB: the names of the channels stand where their labels would.
std::vector<LevelLine> LevelLines(WaveformSettings const& settings, ChannelStrips const& strips,
                                  double scale);

// The rows of all channels' lines, as the renderer takes them: as many for each channel.
std::vector<std::int32_t> AmplitudeGrid(WaveformSettings const& settings, ChannelStrips const& strips,
                                        int channelCount, double scale);

}  // namespace playground
