#pragma once

#include <moxcore/threads/HighPrecisionTime.h>

#include <cmath>

namespace playground {

// The clock of the process in the test's hand while it lives.
class HandClock : public moxcore::threads::HighPrecisionTime::Clock {
 public:
  HandClock() : mOther(moxcore::threads::HighPrecisionTime::SetClock(this)) {}
  ~HandClock() override { moxcore::threads::HighPrecisionTime::SetClock(mOther); }
  HandClock(HandClock const&) = delete;
  HandClock& operator=(HandClock const&) = delete;

  moxcore::threads::HighPrecisionTime::TimeStamp Now() const noexcept override { return mNow; }
  void Advance(double seconds) { mNow += std::llround(seconds * 1e9); }

 private:
  moxcore::threads::HighPrecisionTime::TimeStamp mNow = 1'000'000'000;
  Clock const* mOther;
};

}  // namespace playground
