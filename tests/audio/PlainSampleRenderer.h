#pragma once

#include "OpenWaveformDraw.h"

#include <moxui/testing/RecordedCall.h>

#include <vector>

namespace audio_tests {

/// A region of a view of samples, and the gain that it takes.
struct SampleRegion {
  moxmediaui::RectT<int> rect;
  int left = 0;
  int width = 0;
  bool selected = false;
  float gain = 1.0f;
  float scale = 1.0f;
};

/// The value between 44 samples, worked out tap by tap.
float InterpolatePlainly(std::vector<float> const& taps, float fraction);

/// What is called to draw one region of sample data, in order: everything on `surface` and on the layers,
/// which are numbered from `firstLayer` on.
std::vector<moxui::testing::RecordedCall> DrawSamplesPlainly(
    OpenWaveformDraw const& draw, moxmediaui::LayeredChannelDrawingStyle layeredStyle,
    std::vector<std::vector<float>> const& channels, SampleRegion const& region, int firstLayer);

}  // namespace audio_tests
