#include "audio/TimeRuler.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace playground {
namespace {

// Least distance of two labels, in logical pixels, and what has to stay free between them.
constexpr double kLabelDistance = 88.0;
constexpr double kLabelGap = 16.0;
constexpr double kCharacterWidth = 7.0;

// From one small tick to the next: `amount` of units, of which `perSecond` make up a second, or, where a
// ruler counts samples, one sample. Every `parts`-th has a label, with `places` digits behind the point.
struct Step {
  std::int64_t amount;
  std::int64_t perSecond;
  int parts;
  int places;
};

// Steps of a second and more, their small ticks in tenths of a second.
constexpr std::array<Step, 17> kLongSteps{{{2, 10, 5, 0},
                                           {5, 10, 4, 0},
                                           {10, 10, 5, 0},
                                           {20, 10, 5, 0},
                                           {50, 10, 3, 0},
                                           {50, 10, 6, 0},
                                           {100, 10, 6, 0},
                                           {300, 10, 4, 0},
                                           {600, 10, 5, 0},
                                           {1200, 10, 5, 0},
                                           {3000, 10, 3, 0},
                                           {3000, 10, 6, 0},
                                           {6000, 10, 6, 0},
                                           {18000, 10, 4, 0},
                                           {36000, 10, 6, 0},
                                           {72000, 10, 6, 0},
                                           {216000, 10, 4, 0}}};
constexpr int kFinestPlaces = 8;

// All steps of times, the shortest first, up to ten thousand days and more.
std::vector<Step> TimeSteps() {
  std::vector<Step> steps;
  for (int places = kFinestPlaces; places > 0; --places) {
    std::int64_t perSecond = 10;
    for (int i = 0; i < places; ++i) {
      perSecond *= 10;
    }
    for (auto const& [amount, parts] : {std::pair{2, 5}, {5, 4}, {10, 5}}) {
      steps.push_back({amount, perSecond, parts, places});
    }
  }
  steps.insert(steps.end(), kLongSteps.begin(), kLongSteps.end());
  for (int doubling = 0; doubling < 40; ++doubling) {
    Step next = steps.back();
    next.amount *= 2;
    steps.push_back(next);
  }
  return steps;
}

std::vector<Step> SampleSteps() {
  std::vector<Step> steps{{1, 1, 1, 0}, {1, 1, 2, 0}, {1, 1, 5, 0}};
  constexpr int kDecades = 15;
  std::int64_t decade = 1;
  for (int i = 0; i < kDecades; ++i, decade *= 10) {
    for (auto const& [amount, parts] : {std::pair{2, 5}, {5, 4}, {10, 5}}) {
      steps.push_back({amount * decade, 1, parts, 0});
    }
  }
  return steps;
}

std::string Padded(std::int64_t value, int digits) {
  std::string const text = std::to_string(value);
  auto const missing = digits - static_cast<int>(text.size());
  return std::string(static_cast<std::size_t>(std::max(missing, 0)), '0') + text;
}

std::string ClockText(std::int64_t seconds, std::int64_t fraction, int places) {
  std::string text = seconds >= 3600 ? std::to_string(seconds / 3600) + ":" + Padded(seconds / 60 % 60, 2)
                                     : std::to_string(seconds / 60);
  text += ":" + Padded(seconds % 60, 2);
  return places > 0 ? text + "." + Padded(fraction, places) : text;
}

// Positions of the ticks of one step. A sample number is a time at a rate of one a second.
class Ticks {
 public:
  Ticks(Viewport const& view, RulerUnit unit, int sampleRate, Step const& step)
      : mView(view),
        mUnit(unit),
        mRate(unit == RulerUnit::kSamples ? 1 : sampleRate),
        mStep(step),
        mWholeLeft(static_cast<std::int64_t>(std::floor(view.Left()))) {}

  // Columns between two labels.
  double LabelDistance() const {
    return static_cast<double>(mStep.amount) * mStep.parts / static_cast<double>(mStep.perSecond) * mRate /
           mView.SamplesPerPixel();
  }

  // The last tick at or before a sample.
  std::int64_t IndexAt(std::int64_t sample) const {
    return (sample / mRate * mStep.perSecond + sample % mRate * mStep.perSecond / mRate) / mStep.amount;
  }

  double ColumnOf(std::int64_t index) const {
    Place const place = PlaceOf(index);
    double const fromLeft = static_cast<double>(place.samples - mWholeLeft) -
                            (mView.Left() - static_cast<double>(mWholeLeft)) + place.fraction;
    return fromLeft / mView.SamplesPerPixel();
  }

  double SampleOf(std::int64_t index) const {
    Place const place = PlaceOf(index);
    return static_cast<double>(place.samples) + place.fraction;
  }

  bool HasLabel(std::int64_t index) const { return index % mStep.parts == 0; }

  std::string LabelOf(std::int64_t index) const {
    std::int64_t const units = index * mStep.amount;
    // The units of a step are a tenth of what its labels tell.
    return mUnit == RulerUnit::kSamples
               ? SampleText(units)
               : ClockText(units / mStep.perSecond, units % mStep.perSecond / 10, mStep.places);
  }

 private:
  struct Place {
    std::int64_t samples;
    double fraction;
  };

  Place PlaceOf(std::int64_t index) const {
    std::int64_t const units = index * mStep.amount;
    std::int64_t const rest = units % mStep.perSecond * mRate;
    return {units / mStep.perSecond * mRate + rest / mStep.perSecond,
            static_cast<double>(rest % mStep.perSecond) / static_cast<double>(mStep.perSecond)};
  }

  Viewport const& mView;
  RulerUnit mUnit;
  std::int64_t mRate;
  Step mStep;
  std::int64_t mWholeLeft;
};

// The shortest step whose labels keep clear of each other.
Ticks FittingTicks(Viewport const& view, int sampleRate, RulerStyle const& style) {
  static std::vector<Step> const kTimes = TimeSteps();
  static std::vector<Step> const kSamples = SampleSteps();
  auto const& steps = style.unit == RulerUnit::kSamples ? kSamples : kTimes;
  auto const last = static_cast<std::int64_t>(std::ceil(view.Left() + view.VisibleSamples()));
  for (Step const& step : steps) {
    Ticks const ticks(view, style.unit, sampleRate, step);
    double const distance = ticks.LabelDistance() / style.columnsPerPixel;
    // No label in view is longer than the last one.
    if (distance >= kLabelDistance &&
        distance >= RulerLabelWidth(ticks.LabelOf(ticks.IndexAt(last))) + kLabelGap) {
      return ticks;
    }
  }
  return {view, style.unit, sampleRate, steps.back()};
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
  return (seconds < 0.0 && units > 0 ? "-" : "") + ClockText(units / scale, units % scale, places);
}

std::string SampleText(std::int64_t samples) {
  std::string text = std::to_string(samples);
  std::size_t const first = text.front() == '-' ? 1 : 0;
  for (std::size_t at = text.size(); at > first + 3;) {
    at -= 3;
    text.insert(at, "\u00A0");
  }
  return text;
}

double RulerLabelWidth(std::string_view label) {
  auto const characters = std::count_if(label.begin(), label.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;  // but for the further bytes of a character
  });
  return static_cast<double>(characters) * kCharacterWidth;
}

std::vector<RulerTick> RulerTicks(Viewport const& view, int sampleRate, RulerStyle const& style) {
  std::vector<RulerTick> ticks;
  if (sampleRate < 1 || view.Frames() < 1 || !(style.columnsPerPixel > 0.0)) {
    return ticks;
  }
  constexpr double kRounding = 1e-6;
  Ticks const fitting = FittingTicks(view, sampleRate, style);
  auto const first = fitting.IndexAt(static_cast<std::int64_t>(std::floor(view.Left())));
  for (auto index = first;; ++index) {
    double const column = fitting.ColumnOf(index);
    if (column > view.Width() + kRounding) {
      return ticks;
    }
    if (column >= -kRounding) {
      ticks.push_back({column, fitting.HasLabel(index) ? fitting.LabelOf(index) : std::string(),
                       fitting.SampleOf(index)});
    }
  }
}

}  // namespace playground
