#include "audio/LevelGrid.h"

#include "audio/ChannelStrips.h"
#include "audio/WaveformSettings.h"
#include "program/NumberText.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace playground {
namespace {

constexpr double kDecibelStep = 6.0;
constexpr double kLowestDecibel = -96.0;
// Between two lines of the decibel grid, in logical pixels.
constexpr double kLeastDistance = 10.0;

// A level with its distance from silence, in device pixels.
struct Level {
  std::string label;
  double distance = 0.0;
};

double DistanceOf(double amplitude, WaveformSettings const& settings, double fullScale) {
  return (settings.squareRoot ? std::sqrt(amplitude) : amplitude) * settings.zoom * fullScale;
}

std::vector<Level> Shares(WaveformSettings const& settings, double fullScale) {
  std::vector<Level> levels;
  int const parts = settings.amplitudeDivisions + 1;
  for (int part = parts - 1; part > 0; --part) {
    double const amplitude = static_cast<double>(part) / parts;
    levels.push_back({TextFromNumber(amplitude, 3), DistanceOf(amplitude, settings, fullScale)});
  }
  return levels;
}

std::vector<Level> Decibels(WaveformSettings const& settings, double fullScale, double scale) {
  std::vector<Level> levels;
  double const room = kLeastDistance * scale;
  for (int step = 0; step * -kDecibelStep >= kLowestDecibel; ++step) {
    double const decibel = step * -kDecibelStep;
    double const distance = DistanceOf(std::pow(10.0, decibel / 20.0), settings, fullScale);
    bool const isNearTheLast =
        !levels.empty() && levels.back().distance <= fullScale && levels.back().distance - distance < room;
    // Each further one is nearer to the last and to silence.
    if (isNearTheLast || distance < room) {
      break;
    }
    levels.push_back({TextFromNumber(decibel, 0), distance});
  }
  return levels;
}

}  // namespace

std::vector<LevelLine> LevelLines(WaveformSettings const& settings, ChannelStrips const& strips,
                                  double scale) {
  std::vector<LevelLine> lines;
  bool const inDecibels = settings.amplitudeDivisions == kDecibelGrid;
  if (settings.amplitudeDivisions == 0 || (inDecibels && settings.layered)) {
    return lines;
  }
  bool const bipolar = settings.peakStyle == PeakStyle::kBipolar;
  double const fullScale = bipolar ? strips.Centre() : strips.height;
  double const silence = bipolar ? strips.Centre() : strips.height;
  std::vector<Level> const levels =
      inDecibels ? Decibels(settings, fullScale, scale) : Shares(settings, fullScale);
  auto const add = [&](std::string const& label, double y) {
    lines.push_back({label, static_cast<std::int32_t>(std::clamp(std::floor(y), 0.0, strips.height - 1.0))});
  };
  for (Level const& level : levels) {
    if (level.distance <= fullScale) {
      add(level.label, silence - level.distance);
    }
  }
  for (auto level = levels.rbegin(); bipolar && level != levels.rend(); ++level) {
    if (level->distance <= fullScale) {
      add(level->label, silence + level->distance);
    }
  }
  return lines;
}

std::vector<std::int32_t> AmplitudeGrid(WaveformSettings const& settings, ChannelStrips const& strips,
                                        int channelCount, double scale) {
  std::vector<std::int32_t> positions;
  std::vector<LevelLine> const lines = LevelLines(settings, strips, scale);
  for (int channel = 0; channel < channelCount; ++channel) {
    for (LevelLine const& line : lines) {
      positions.push_back(channel * strips.stride + line.y);
    }
  }
  return positions;
}

}  // namespace playground
