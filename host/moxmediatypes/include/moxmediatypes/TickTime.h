#pragma once

#include <moxmediatypes/FrameRate.h>

#include <compare>
#include <cstdint>
#include <limits>

namespace moxmediatypes {

// A time of a medium, or a distance of two: a number of ticks, 254016000000 to the second, of 64 bits with a
// sign, which reaches about 420 days either way.
//
// Arithmetic is exact; a result beyond the range is the end of the range, it never wraps.
//
// One value, minus 400000 seconds, stands for "no time". It is a convention of those who use times and is
// compared exactly: to the operations below it is a number like any other.
class TickTime {
 public:
  // Zero.
  constexpr TickTime() noexcept = default;
  explicit constexpr TickTime(std::int64_t ticks) noexcept : mTicks(ticks) {}
  // So many frames: frames times rate. A rate that isn't valid gives zero.
  constexpr TickTime(std::int64_t frames, FrameRate rate) noexcept : mTicks(FramesToTicks(frames, rate)) {}

  static const TickTime kInvalid;  // -101606400000000000 ticks

  constexpr std::int64_t GetTicks() const noexcept { return mTicks; }
  constexpr bool IsInvalid() const noexcept { return mTicks == kInvalidTicks; }

  // Moves by so many frames, back if they are negative; a rate that isn't valid moves by nothing.
  constexpr TickTime& AddFrames(std::int64_t frames, FrameRate rate) noexcept {
    return *this += TickTime(frames, rate);
  }

  constexpr TickTime& operator+=(const TickTime& other) noexcept {
    std::int64_t sum = 0;
    mTicks = __builtin_add_overflow(mTicks, other.mTicks, &sum) ? End(mTicks < 0) : sum;
    return *this;
  }
  constexpr TickTime& operator-=(const TickTime& other) noexcept {
    std::int64_t difference = 0;
    mTicks = __builtin_sub_overflow(mTicks, other.mTicks, &difference) ? End(mTicks < 0) : difference;
    return *this;
  }
  friend constexpr TickTime operator+(TickTime a, const TickTime& b) noexcept { return a += b; }
  friend constexpr TickTime operator-(TickTime a, const TickTime& b) noexcept { return a -= b; }
  constexpr TickTime operator-() const noexcept { return TickTime() - *this; }

  friend constexpr auto operator<=>(const TickTime&, const TickTime&) noexcept = default;

 private:
  static constexpr std::int64_t kInvalidTicks = -101'606'400'000'000'000;

  static constexpr std::int64_t End(bool negative) noexcept {
    return negative ? std::numeric_limits<std::int64_t>::min() : std::numeric_limits<std::int64_t>::max();
  }
  static constexpr std::int64_t FramesToTicks(std::int64_t frames, FrameRate rate) noexcept {
    std::int64_t ticks = 0;
    if (!rate.IsValid()) {
      return 0;
    }
    return __builtin_mul_overflow(frames, rate.GetTicksPerFrame(), &ticks) ? End(frames < 0) : ticks;
  }

  std::int64_t mTicks = 0;
};

inline constexpr TickTime TickTime::kInvalid{kInvalidTicks};

}  // namespace moxmediatypes
