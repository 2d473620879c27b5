#pragma once

#include "OpenWaveformDraw.h"

#include <cstdint>
#include <vector>

namespace audio_tests {

/// One image of peaks: where it is drawn and its bytes.
struct PeakPicture {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> bytes;
};

/// A view of peaks: what to paint besides what the drawing object itself is set to.
struct PeakView {
  moxmediaui::RectT<int> rect;
  float scale = 1.0f;
  int channels = 1;
  int slots = 1;
  std::vector<float> pairs;
  float gain = 1.0f;
};

/// The settings that a WaveformDraw doesn't give back.
struct PeakSettings {
  moxmediaui::LayeredChannelDrawingStyle layeredStyle = moxmediaui::LayeredChannelDrawingStyle::kAllAlike;
  bool gainWholeRange = false;
};

/// Columns of a view that are painted alike.
struct PlainRegion {
  int left = 0;
  int width = 0;
  bool selected = false;
  float gain = 1.0f;
};

/// A view split by its selection, in painting order; `gain` is that of the whole view, `selectionGain` that
/// of a view with a selection.
std::vector<PlainRegion> FindRegionsPlainly(OpenWaveformDraw const& draw, bool gainWholeRange,
                                            moxmediaui::RectT<int> const& rect, float gain,
                                            float selectionGain);

/// What drawing peaks puts on the surface, worked out in the plainest way: pixel by pixel, column by column,
/// with rows as floats. Nothing of the drawing is asked of `draw` but its settings, its colours and which
/// channels it has enabled. No fades.
std::vector<PeakPicture> DrawPeaksPlainly(OpenWaveformDraw const& draw, PeakSettings const& settings,
                                          PeakView const& view);

}  // namespace audio_tests
