#include "WideInteger.h"

#include <moxmediatypes/TimeDisplay.h>

#include <array>
#include <cstddef>

namespace moxmediatypes {

namespace {

struct RateDisplay {
  FrameRate rate;
  int code;
  int dropFrameCode;
};

// Slower rates first.
constexpr std::array<RateDisplay, 10> kRateDisplays = {{
    {FrameRate::k15, TimeDisplay::kTimecode30, TimeDisplay::kTimecode30},
    {FrameRate::k23976, TimeDisplay::kTimecode23976, TimeDisplay::kTimecode23976},
    {FrameRate::k24, TimeDisplay::kTimecode24, TimeDisplay::kTimecode24},
    {FrameRate::k25, TimeDisplay::kTimecode25, TimeDisplay::kTimecode25},
    {FrameRate::k2997, TimeDisplay::kTimecode2997NonDrop, TimeDisplay::kTimecode2997Drop},
    {FrameRate::k30, TimeDisplay::kTimecode30, TimeDisplay::kTimecode30},
    {FrameRate::k48, TimeDisplay::kTimecode48, TimeDisplay::kTimecode48},
    {FrameRate::k50, TimeDisplay::kTimecode50, TimeDisplay::kTimecode50},
    {FrameRate::k5994, TimeDisplay::kTimecode5994NonDrop, TimeDisplay::kTimecode5994Drop},
    {FrameRate::k60, TimeDisplay::kTimecode60, TimeDisplay::kTimecode60},
}};

// Whether `rate` is nearer to the faster of two than to the slower, in frames a second: whether it is faster
// than their mean, 1 / rate > (1 / slower + 1 / faster) / 2 by their ticks.
bool IsNearerToFaster(FrameRate rate, FrameRate slower, FrameRate faster) noexcept {
  const WideInteger a = slower.GetTicksPerFrame();
  const WideInteger b = faster.GetTicksPerFrame();
  return rate.GetTicksPerFrame() * (a + b) < 2 * a * b;
}

const RateDisplay& NearestRate(FrameRate rate) noexcept {
  std::size_t nearest = 0;
  while (nearest + 1 < kRateDisplays.size() &&
         IsNearerToFaster(rate, kRateDisplays[nearest].rate, kRateDisplays[nearest + 1].rate)) {
    ++nearest;
  }
  return kRateDisplays[nearest];
}

}  // namespace

bool IsTimeDisplayDropFrame(TimeDisplay display) noexcept {
  const int code = display.GetType();
  return code == TimeDisplay::kTimecode2997Drop || code == TimeDisplay::kTimecode5994Drop;
}

bool IsDropFrameApplicableForTimeDisplay(TimeDisplay display) noexcept {
  const int code = display.GetType();
  return IsTimeDisplayDropFrame(display) || code == TimeDisplay::kTimecode2997NonDrop ||
         code == TimeDisplay::kTimecode5994NonDrop;
}

bool IsHMSFTimeDisplay(TimeDisplay display, bool countMilliseconds) noexcept {
  const int code = display.GetType();
  return (code >= TimeDisplay::kTimecode24 && code <= TimeDisplay::kTimecode60) ||
         code == TimeDisplay::kTimecode23976 || code == TimeDisplay::kTimecode48 ||
         (countMilliseconds && code == TimeDisplay::kMilliseconds);
}

bool IsFeetFramesDisplay(TimeDisplay display) noexcept {
  return GetFramesPerFoot(display) > 0;
}

int GetFramesPerFoot(TimeDisplay display) noexcept {
  switch (display.GetType()) {
    case TimeDisplay::kFeetFrames16mm:
      return 40;
    case TimeDisplay::kFeetFrames35mm:
      return 16;
    default:
      return 0;
  }
}

TimeDisplay GetTimeDisplayForFrameRate(FrameRate rate, bool dropFrame, bool acceptNearest,
                                       TimeDisplay unknownRateDisplay, bool /*allowUserOverride*/) noexcept {
  if (!rate.IsValid()) {
    return unknownRateDisplay;
  }
  const RateDisplay& nearest = NearestRate(rate);
  if (nearest.rate != rate && !acceptNearest) {
    return unknownRateDisplay;
  }
  return TimeDisplay(dropFrame ? nearest.dropFrameCode : nearest.code);
}

}  // namespace moxmediatypes
