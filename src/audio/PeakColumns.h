#pragma once

#include <moxmediaui/WaveformDraw.h>

#include <cstdint>

namespace moxmediaui {

/// The peaks of one channel and the pixels of the strip that they are drawn into.
struct PeakStrip {
  float const* pairs = nullptr;     // (upper, lower) of each column
  std::uint32_t* pixels = nullptr;  // row 0 of the strip, at the first column
  int columns = 0;
  int pixelsPerRow = 0;  // from row to row
  int top = 0;           // rows `top` to `top + height` belong to the strip
  int height = 0;
  float centre = 0.0f;   // row of the zero line of bipolar peaks
  float zoom = 1.0f;     // factor of the values, gain included
  float opacity = 1.0f;  // 1.0: bodies replace what lies beneath
  bool hasEdges = true;  // what covers a part of a pixel is drawn, too
  std::uint32_t pixel = 0;
  PeakDataDrawStyle style = PeakDataDrawStyle::kBipolar;
  WaveformScalingStyle scaling = WaveformScalingStyle::kLinear;
};

/// Draws a column for each pair: a body of whole rows, and where it begins and ends within a row a pixel
/// blended by how much of that row it covers. A pair that holds not-a-number shows nothing.
void DrawPeakStrip(PeakStrip const& strip);

/// The same without use of what the processor has beyond the least that programs are built for; for tests.
void DrawPeakStripPortably(PeakStrip const& strip);

}  // namespace moxmediaui
