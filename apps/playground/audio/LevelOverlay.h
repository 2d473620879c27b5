#pragma once

#include "audio/ChannelStrips.h"
#include "audio/WaveformPicture.h"

#include <moxaudiotoolkit/waveform/QueryPyramid.h>
#include <moxui/geometry/ColorRGBA.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace moxmediaui {
class WaveformDraw;
}
namespace moxui::scriber {
class Scriber;
}

namespace playground {

struct WaveformSettings;

// A picture of a waveform, over which more is drawn.
struct DrawnWaveform {
  moxmediaui::WaveformDraw const& draw;
  WaveformSettings const& settings;
  std::shared_ptr<moxaudiotoolkit::waveform::WaveformData> data;
  moxaudiotoolkit::waveform::ColumnLevels const& levels;  // of the same columns; none where none are shown
  std::shared_ptr<moxaudiotoolkit::waveform::WaveformData> rms;  // of RmsPairs
  int columns = 0;
  int rows = 0;
  float scale = 1.0f;
  bool isGrowing = false;                    // not all of it has been read
  std::optional<ChannelStrips> strips = {};  // nothing where the channels don't fit
  int end = 0;                               // the first column behind the end of the sound
};

// Plus and minus the RMS of each column, as far as its peaks reach. Null where single samples are drawn, or
// channels in layers: there is none then.
std::shared_ptr<moxaudiotoolkit::waveform::WaveformData> RmsPairs(
    WaveformSettings const& settings, moxaudiotoolkit::waveform::WaveformData const& peaks,
    moxaudiotoolkit::waveform::ColumnLevels const& levels);

// The RMS of each column within its peaks, in a tone between the wave's and the ground's. Everything that
// becomes of the peaks (zoom, gain, fade, style, selection), as `draw` paints them, becomes of it.
void PaintRms(WaveformPicture::Piece const& piece, DrawnWaveform const& waveform,
              moxmediaui::WaveformDraw const& draw);

// A mark at the top of its strip for each column in which a channel clips.
void DrawClipMarks(moxui::scriber::Scriber& scriber, DrawnWaveform const& waveform);

// A veil in the ground's colour over the columns that have not been read yet, which would pass for silence
// without it: of the first `columns` columns, `rows` high.
void DrawUnread(moxui::scriber::Scriber& scriber, moxaudiotoolkit::waveform::ColumnLevels const& levels,
                moxui::ColorRGBA const& ground, int columns, int rows);

// The red of a clip mark on a ground: the one that stands out more.
moxui::ColorRGBA ClipColorOn(moxui::ColorRGBA const& ground);
// The tone of the RMS in a wave of a colour.
moxui::ColorRGBA RmsColor(moxui::ColorRGBA const& wave, moxui::ColorRGBA const& ground);

}  // namespace playground
