#pragma once

#include "audio/Viewport.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace playground {

// What a ruler counts.
enum class RulerUnit : std::uint8_t { kTime, kSamples };

struct RulerStyle {
  RulerUnit unit = RulerUnit::kTime;
  double columnsPerPixel = 1.0;  // columns of the view to a logical pixel
};

struct RulerTick {
  double column = 0.0;  // where it stands, in columns of the view
  std::string label;    // empty for the small ticks between two labels
  double sample = 0.0;  // of the sound
};

// The ticks of a ruler above the view: labels at round times or sample numbers, as close as is easy to read
// and never so that one reaches the next, with small ticks between them. Exact for each single sample at any
// length: positions are reckoned in whole numbers, but for a time that lies between two samples.
std::vector<RulerTick> RulerTicks(Viewport const& view, int sampleRate, RulerStyle const& style = {});

// The width that a label takes at most, in logical pixels, whatever the look.
double RulerLabelWidth(std::string_view label);

// A position as minutes, seconds and as many places as `resolution`, in seconds, asks for: "1:02.50". Hours
// stand before them when there are any.
std::string TimeText(double seconds, double resolution);

// A number of samples, its digits in groups of three.
std::string SampleText(std::int64_t samples);

}  // namespace playground
