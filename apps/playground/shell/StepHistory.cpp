#include "shell/StepHistory.h"

#include <moxcore/threads/HighPrecisionTime.h>

namespace playground {

std::int64_t StepTime() {
  using Time = moxcore::threads::HighPrecisionTime;
  return Time::ConvertToNanos(Time::GetCurrentTimeStamp());
}

}  // namespace playground
