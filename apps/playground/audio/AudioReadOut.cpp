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
                         std::function<ShownLevel(std::size_t channel, int column)> const& level) {
  int const rate = session.Current().SampleRate();
  if (rate == 0 || !column) {
    return SelectionText(session);
  }
  double const sample = std::floor(session.View().SampleAt(*column));
  std::string text = Text("$$$/playground/audio/pointerAt=@0, sample @1",
                          {TimeText(sample / rate, ResolutionOf(session, rate)),
                           std::to_string(static_cast<std::int64_t>(sample))});
  std::size_t const channels = session.Current().ChannelCount();
  text += "    " + Text("$$$/playground/audio/levelsAt=Amplitude | RMS in dB:");
  for (std::size_t channel = 0; channel < std::min(channels, kMostLevels); ++channel) {
    ShownLevel const shown = level(channel, *column);
    text += "   " + ShortChannelName(channel, channels) + " " + DecibelNumber(shown.amplitude) + " | " +
            DecibelNumber(shown.rms);
  }
  return text;
}

}  // namespace playground
