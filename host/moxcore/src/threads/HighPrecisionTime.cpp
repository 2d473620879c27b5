#include <moxcore/threads/HighPrecisionTime.h>

#include <atomic>
#include <chrono>

namespace moxcore::threads {

namespace {

std::atomic<HighPrecisionTime::Clock const*> sClock{nullptr};

}  // namespace

HighPrecisionTime::Clock::~Clock() = default;

HighPrecisionTime::TimeStamp HighPrecisionTime::GetCurrentTimeStamp() noexcept {
  if (auto const* const clock = sClock.load(std::memory_order_acquire)) {
    return clock->Now();
  }
  return std::chrono::nanoseconds(std::chrono::steady_clock::now().time_since_epoch()).count();
}

// The stamps of every clock are nanoseconds already.
std::int64_t HighPrecisionTime::ConvertToNanos(TimeStamp stamp) noexcept {
  return stamp;
}

HighPrecisionTime::Clock const* HighPrecisionTime::SetClock(Clock const* clock) noexcept {
  return sClock.exchange(clock, std::memory_order_acq_rel);
}

}  // namespace moxcore::threads
