#include "SupportedVideoFormats.h"

#include <algorithm>
#include <array>

namespace moxmediaui {

namespace {

using moxmediatypes::FrameRate;
using moxmediatypes::TimeDisplay;

struct FormatsOfRate {
  FrameRate rate;
  std::array<int, 5> codes;  ///< ended by 0
};

constexpr std::array kFormats = {
    FormatsOfRate{FrameRate::k15, {104, 108, 109}},
    FormatsOfRate{FrameRate::k23976, {110, 103, 111, 112, 109}},
    FormatsOfRate{FrameRate::k24, {100, 103, 111, 112, 109}},
    FormatsOfRate{FrameRate::k25, {101, 111, 112, 109}},
    FormatsOfRate{FrameRate::k2997, {102, 103, 111, 112, 109}},
    FormatsOfRate{FrameRate::k30, {104, 111, 112, 109}},
    FormatsOfRate{FrameRate::k48, {113, 111, 112, 109}},
    FormatsOfRate{FrameRate::k50, {105, 109}},
    FormatsOfRate{FrameRate::k5994, {106, 107, 109}},
    FormatsOfRate{FrameRate::k60, {108, 109}},
};

}  // namespace

std::vector<TimeDisplay> ListSupportedVideoFormats(FrameRate rate) {
  auto const* const known = std::ranges::find(kFormats, rate, &FormatsOfRate::rate);
  if (known == kFormats.end()) {
    return {moxmediatypes::GetTimeDisplayForFrameRate(rate, true, true,
                                                      TimeDisplay(TimeDisplay::kTimecode2997Drop), false),
            TimeDisplay(TimeDisplay::kFrames)};
  }
  std::vector<TimeDisplay> formats;
  for (int const code : known->codes) {
    if (code != 0) {
      formats.emplace_back(code);
    }
  }
  return formats;
}

}  // namespace moxmediaui
