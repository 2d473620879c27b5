#include "TickMagnitude.h"
#include "TimeScale.h"
#include "WideInteger.h"

#include <moxmediatypes/Timecode.h>

#include <algorithm>
#include <cstdint>
#include <limits>

namespace moxmediatypes {

TickTime HMSFToTime(std::int64_t hours, std::int64_t minutes, std::int64_t seconds, std::int64_t frames,
                    bool negative, FrameRate rate, TimeDisplay display) noexcept {
  if (!rate.IsValid()) {
    return TickTime();
  }
  const TimeScale scale = ScaleOf(rate, display);
  const WideInteger allMinutes = WideInteger{hours} * 60 + minutes;
  const WideInteger label = (allMinutes * 60 + seconds) * scale.unitsPerSecond + frames;
  constexpr WideInteger kHighest = std::numeric_limits<std::uint64_t>::max();
  const auto held = static_cast<std::uint64_t>(std::min(label < 0 ? -label : label, kHighest));
  return TimeOfLabel(held, negative != (label < 0), scale);
}

}  // namespace moxmediatypes
