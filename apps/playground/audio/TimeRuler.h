#pragma once

#include "audio/Viewport.h"

#include <string>
#include <vector>

namespace playground {

struct RulerTick {
  double column = 0.0;  // where it stands, in columns of the view
  std::string label;    // empty for the small ticks between two labels
};

// Least distance of two labels, in logical pixels.
inline constexpr double kRulerLabelDistance = 88.0;

// The ticks of a ruler above the view: labels at round times, at least `labelDistance` columns apart, with
// small ticks between them.
std::vector<RulerTick> RulerTicks(Viewport const& view, int sampleRate, double labelDistance);

// A position as minutes, seconds and as many places as `resolution`, in seconds, asks for: "1:02.50". Hours
// stand before them when there are any.
std::string TimeText(double seconds, double resolution);

}  // namespace playground
