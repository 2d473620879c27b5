#include "audio/AudioReadOut.h"

#include "audio/AudioSession.h"
#include "audio/ChannelNames.h"
#include "audio/TimeRuler.h"
#include "program/Localized.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace playground {
namespace {

constexpr std::size_t kMostLevels = 8;
constexpr double kSilence = 1e-5;

// As fine as the view is, but never finer than a sample needs.
double ResolutionOf(AudioSession const& session, int rate) {
  return std::clamp(session.View().SamplesPerPixel() / rate, 1e-6, 1e-3);
}

}  // namespace

std::string DecibelNumber(double amplitude) {
  if (!(amplitude > kSilence)) {
    return "-\u221E";
  }
  std::array<char, 32> text;
  std::snprintf(text.data(), text.size(), "%.1f", 20.0 * std::log10(amplitude));
  return text.data();
}

std::string SelectionText(AudioSession const& session) {
  int const rate = session.Current().SampleRate();
  if (rate == 0) {
    return {};
  }
  double const resolution = ResolutionOf(session, rate);
  auto const time = [&](std::int64_t sample) {
    return TimeText(static_cast<double>(sample) / rate, resolution);
  };
  SampleSelection const& selection = session.Selection();
  if (selection.IsEmpty()) {
    return Text("$$$/playground/audio/cursorAt=Cursor at @0", {time(selection.Head())});
  }
  return Text("$$$/playground/audio/selectionText=Selection @0 to @1, @2 (@3 samples)",
              {time(selection.Left()), time(selection.Left() + selection.Width()), time(selection.Width()),
               std::to_string(selection.Width())});
}

std::string AudioReadOut(AudioSession const& session, std::optional<int> column,
                         std::function<ShownLevel(std::size_t channel, int column)> const& level,
                         std::function<bool(std::string const& line)> const& fits) {
  int const rate = session.Current().SampleRate();
  if (rate == 0 || !column) {
    return SelectionText(session);
  }
  double const sample = std::floor(session.View().SampleAt(*column));
  std::string const time = TimeText(sample / rate, ResolutionOf(session, rate));
  std::string const place = Text("$$$/playground/audio/pointerAt=@0, sample @1",
                                 {time, std::to_string(static_cast<std::int64_t>(sample))});
  std::size_t const channels = session.Current().ChannelCount();
  std::string both;
  std::string amplitudes;
  for (std::size_t channel = 0; channel < std::min(channels, kMostLevels); ++channel) {
    ShownLevel const shown = level(channel, *column);
    std::string const amplitude =
        "   " + ShortChannelName(session, channel) + " " + DecibelNumber(shown.amplitude);
    both += amplitude + " | " + DecibelNumber(shown.rms);
    amplitudes += amplitude;
  }
  std::string const ofBoth = "    " + Text("$$$/playground/audio/levelsAt=Amplitude | RMS in dB:");
  std::string const ofAmplitudes = "    " + Text("$$$/playground/audio/amplitudesAt=Amplitude in dB:");
  std::string const unit = " dB";
  std::array<std::string, 5> const lines{place + ofBoth + both, place + " " + both + unit,
                                         time + " " + both + unit, time + ofAmplitudes + amplitudes,
                                         time + " " + amplitudes + unit};
  auto const line = std::ranges::find_if(lines, fits);
  return line == lines.end() ? place : *line;
}

}  // namespace playground
