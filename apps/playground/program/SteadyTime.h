#pragma once

#include <moxcore/threads/HighPrecisionTime.h>

#include <cstdint>

namespace playground {

// Nanoseconds by the clock of the process, which never goes back.
inline std::int64_t SteadyTime() {
  using moxcore::threads::HighPrecisionTime;
  return HighPrecisionTime::ConvertToNanos(HighPrecisionTime::GetCurrentTimeStamp());
}

}  // namespace playground
