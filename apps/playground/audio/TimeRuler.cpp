#include "audio/TimeRuler.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <utility>

namespace playground {
namespace {

struct Step {
  double seconds;
  int parts;  // small ticks divide it into so many
};

constexpr std::array<Step, 14> kLongSteps{{{1, 5},
                                           {2, 4},
                                           {5, 5},
                                           {10, 5},
                                           {15, 3},
                                           {30, 6},
                                           {60, 6},
                                           {120, 4},
                                           {300, 5},
                                           {600, 5},
                                           {900, 3},
                                           {1800, 6},
                                           {3600, 6},
                                           {7200, 4}}};

Step StepOfAtLeast(double seconds) {
  if (seconds < 1.0) {
    double decade = std::pow(10.0, std::floor(std::log10(seconds)));
    for (Step const candidate : {Step{1, 5}, Step{2, 4}, Step{5, 5}, Step{10, 5}}) {
      if (candidate.seconds * decade >= seconds * (1.0 - 1e-9)) {
        return {candidate.seconds * decade, candidate.parts};
      }
    }
  }
  for (Step const& step : kLongSteps) {
    if (step.seconds >= seconds) {
      return step;
    }
  }
  double const hours = std::ceil(seconds / 7200.0);
  return {hours * 7200.0, 4};
}

std::string Padded(std::int64_t value, int digits) {
  std::string const text = std::to_string(value);
  auto const missing = digits - static_cast<int>(text.size());
  return std::string(static_cast<std::size_t>(std::max(missing, 0)), '0') + text;
}

}  // namespace

std::string TimeText(double seconds, double resolution) {
  constexpr int kMostPlaces = 6;
  int places = 0;
  std::int64_t scale = 1;
  for (double unit = 1.0; places < kMostPlaces && unit > resolution * (1.0 + 1e-9); unit /= 10.0) {
    ++places;
    scale *= 10;
  }
  auto const units = static_cast<std::int64_t>(std::llround(std::abs(seconds) * static_cast<double>(scale)));
  std::int64_t const whole = units / scale;
  std::string text = seconds < 0.0 && units > 0 ? "-" : "";
  if (whole >= 3600) {
    text += std::to_string(whole / 3600) + ":" + Padded(whole / 60 % 60, 2);
  } else {
    text += std::to_string(whole / 60);
  }
  text += ":" + Padded(whole % 60, 2);
  if (places > 0) {
    text += "." + Padded(units % scale, places);
  }
  return text;
}

std::vector<RulerTick> RulerTicks(Viewport const& view, int sampleRate, double labelDistance) {
  std::vector<RulerTick> ticks;
  if (sampleRate < 1 || view.Frames() < 1 || !(labelDistance >= 1.0)) {
    return ticks;
  }
  double const secondsPerColumn = view.SamplesPerPixel() / sampleRate;
  Step const step = StepOfAtLeast(secondsPerColumn * labelDistance);
  double const part = step.seconds / step.parts;
  double const begin = view.Left() / sampleRate;
  double const end = begin + secondsPerColumn * view.Width();
  auto index = static_cast<std::int64_t>(std::ceil(begin / part - 1e-9));
  for (; static_cast<double>(index) * part <= end; ++index) {
    double const seconds = static_cast<double>(index) * part;
    RulerTick tick{.column = view.ColumnOf(seconds * sampleRate), .label = {}};
    if (index % step.parts == 0) {
      tick.label = TimeText(seconds, step.seconds);
    }
    ticks.push_back(std::move(tick));
  }
  return ticks;
}

}  // namespace playground
