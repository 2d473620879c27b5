#pragma once

#include "PlainPeakRenderer.h"

#include <random>

namespace audio_tests {

/// A view with settings drawn at random from all that can be set, odd values included.
struct RandomPeakView {
  OpenWaveformDraw draw;
  PeakSettings settings;
  PeakView view;
};

RandomPeakView MakeRandomPeakView(std::mt19937& random);

}  // namespace audio_tests
