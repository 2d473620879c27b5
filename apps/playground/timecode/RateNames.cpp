#include "timecode/RateNames.h"

#include "program/NumberText.h"

namespace playground {

using moxmediatypes::FrameRate;
using moxmediatypes::TimeDisplay;

namespace {

double PerSecond(FrameRate rate) {
  return static_cast<double>(moxmediatypes::kTicksPerSecond) / static_cast<double>(rate.GetTicksPerFrame());
}

}  // namespace

std::vector<FrameRate> VideoRates() {
  return {FrameRate::k15, FrameRate::k23976, FrameRate::k24, FrameRate::k25,   FrameRate::k2997,
          FrameRate::k30, FrameRate::k48,    FrameRate::k50, FrameRate::k5994, FrameRate::k60};
}

std::vector<FrameRate> AudioRates() {
  return {FrameRate::PerSecond(44100), FrameRate::PerSecond(48000), FrameRate::PerSecond(96000),
          FrameRate::PerSecond(192000)};
}

std::vector<TimeDisplay> VideoDisplays() {
  std::vector<TimeDisplay> displays;
  for (int const code :
       {TimeDisplay::kTimecode23976, TimeDisplay::kTimecode24, TimeDisplay::kTimecode25,
        TimeDisplay::kTimecode2997Drop, TimeDisplay::kTimecode2997NonDrop, TimeDisplay::kTimecode30,
        TimeDisplay::kTimecode48, TimeDisplay::kTimecode50, TimeDisplay::kTimecode5994Drop,
        TimeDisplay::kTimecode5994NonDrop, TimeDisplay::kTimecode60, TimeDisplay::kFeetFrames16mm,
        TimeDisplay::kFeetFrames35mm, TimeDisplay::kFrames}) {
    displays.emplace_back(code);
  }
  return displays;
}

std::vector<TimeDisplay> AudioDisplays() {
  return {TimeDisplay(TimeDisplay::kAudioSamples), TimeDisplay(TimeDisplay::kMilliseconds)};
}

std::string VideoRateText(FrameRate rate) {
  return TextFromNumber(PerSecond(rate), 3);
}

std::string AudioRateText(FrameRate rate) {
  return TextFromNumber(PerSecond(rate) / 1000.0, 3);
}

}  // namespace playground
