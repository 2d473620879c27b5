#include <moxcore/threads/HighPrecisionTime.h>

#include <gtest/gtest.h>

namespace moxcore::threads {
namespace {

class TestClock : public HighPrecisionTime::Clock {
 public:
  HighPrecisionTime::TimeStamp Now() const noexcept override { return now; }
  HighPrecisionTime::TimeStamp now = 0;
};

TEST(HighPrecisionTime, NeverRunsBackwards) {
  auto last = HighPrecisionTime::GetCurrentTimeStamp();
  for (int i = 0; i < 1000; ++i) {
    auto const now = HighPrecisionTime::GetCurrentTimeStamp();
    EXPECT_GE(now, last);
    last = now;
  }
}

TEST(HighPrecisionTime, TakesTheTestsClock) {
  TestClock clock;
  EXPECT_EQ(HighPrecisionTime::SetClock(&clock), nullptr);
  auto const begin = HighPrecisionTime::GetCurrentTimeStamp();
  clock.now += 100'000'000;
  EXPECT_EQ(HighPrecisionTime::ConvertToNanos(HighPrecisionTime::GetCurrentTimeStamp() - begin), 100'000'000);
  EXPECT_EQ(HighPrecisionTime::SetClock(nullptr), &clock);
  EXPECT_NE(HighPrecisionTime::GetCurrentTimeStamp(), clock.now);
}

}  // namespace
}  // namespace moxcore::threads
