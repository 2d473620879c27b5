#pragma once

#include <moxmediaui/TimecodeModel.h>

#include <cstdint>
#include <ostream>

namespace moxmediatypes {

// For messages of failed expectations.
inline void PrintTo(TickTime time, std::ostream* stream) {
  *stream << time.GetTicks() << " ticks";
}
inline void PrintTo(TimeDisplay display, std::ostream* stream) {
  *stream << "format " << display.GetType();
}
inline void PrintTo(FrameRate rate, std::ostream* stream) {
  *stream << rate.GetTicksPerFrame() << " ticks per frame";
}

}  // namespace moxmediatypes

namespace timecode_tests {

using moxmediaui::FrameRate;
using moxmediaui::TickTime;
using moxmediaui::TimeDisplay;

inline constexpr TickTime Seconds(std::int64_t seconds) {
  return TickTime(seconds * 254016000000);
}
inline constexpr TickTime kMinute = Seconds(60);
inline constexpr TickTime kHour = Seconds(3600);
inline constexpr TickTime kHundredHours(91445760000000000);
inline constexpr TickTime kNoTime(-101606400000000000);

inline constexpr TimeDisplay kDropFrame(102);
inline constexpr TimeDisplay kFrameCount(109);
inline constexpr TimeDisplay kFeet16(111);
inline constexpr TimeDisplay kFeet35(112);
inline constexpr TimeDisplay kSamples(200);
inline constexpr TimeDisplay kMilliseconds(201);
inline constexpr TimeDisplay kNoFormat(999);

}  // namespace timecode_tests
