#pragma once

#include <moxaudiotoolkit/waveform/QueryPyramid.h>
#include <moxui/geometry/ColorRGBA.h>

#include <cstdint>
#include <memory>
#include <vector>

namespace moxmediaui {
class WaveformDraw;
}
namespace moxui::scriber {
class Scriber;
}

namespace playground {

struct ChannelStrips;
struct WaveformPalette;
struct WaveformSettings;

// Pixels to paint RMS on, kept from one frame to the next: fresh memory for them would take longer than the
// painting.
struct RmsPixels {
  std::shared_ptr<std::vector<std::uint32_t>> shown;
  std::vector<std::uint32_t> onWhite;
};

// A picture of a waveform, over which more is drawn.
struct DrawnWaveform {
  moxmediaui::WaveformDraw const& draw;
  WaveformSettings const& settings;
  WaveformPalette const& palette;
  moxaudiotoolkit::waveform::WaveformData const& data;
  moxaudiotoolkit::waveform::ColumnLevels const& levels;  // of the same columns
  int columns = 0;
  int rows = 0;
  float scale = 1.0f;
};

// The RMS of each column within its peaks, in a tone between the wave's and the ground's. Everything that
// becomes of the peaks (zoom, gain, fade, style, selection) becomes of it. Where single samples are drawn, or
// channels in layers, there is none.
void DrawRms(moxui::scriber::Scriber& scriber, DrawnWaveform const& waveform, RmsPixels& pixels);

// A mark at the top of its strip for each column in which a channel clips.
void DrawClipMarks(moxui::scriber::Scriber& scriber, DrawnWaveform const& waveform,
                   ChannelStrips const& strips);

// A veil over the columns that have not been read yet, which would pass for silence without it.
void DrawUnread(moxui::scriber::Scriber& scriber, DrawnWaveform const& waveform);

// The red of a clip mark on a ground: the one that stands out more.
moxui::ColorRGBA ClipColorOn(moxui::ColorRGBA const& ground);
// The tone of the RMS in a wave of a colour.
moxui::ColorRGBA RmsColor(moxui::ColorRGBA const& wave, moxui::ColorRGBA const& ground);

}  // namespace playground
