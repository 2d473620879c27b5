#pragma once

#include <cstdint>

namespace moxcore::threads {

// Monotonic time for measuring how long something took; its origin means nothing.
class HighPrecisionTime {
 public:
  // In the clock's own units; differences convert like values.
  using TimeStamp = std::int64_t;

  static TimeStamp GetCurrentTimeStamp() noexcept;
  static std::int64_t ConvertToNanos(TimeStamp stamp) noexcept;

  // A clock in a test's hand.
  class Clock {
   public:
    virtual ~Clock();
    virtual TimeStamp Now() const noexcept = 0;
  };
  // Takes time stamps from `clock`, whose units are nanoseconds and which must outlive its use; null gives
  // the system's clock back. Gives the clock that was used before.
  static Clock const* SetClock(Clock const* clock) noexcept;
};

}  // namespace moxcore::threads
