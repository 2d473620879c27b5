#pragma once

#include <compare>
#include <cstdint>
#include <limits>

namespace moxmediatypes {

// Ticks of a second. 254016000000 = 2^12 * 3^4 * 5^6 * 7^2, so that a millisecond, a frame at the rates below
// and a sample at 44100, 48000, 96000 or 192000 a second are whole numbers of ticks.
inline constexpr std::int64_t kTicksPerSecond = 254'016'000'000;

// How long a frame, or a sample, lasts: a number of ticks. Any number can be held; those of 0 and below, and
// the invalid rate, are no rates: frames of them have no length, and IsValid() is false.
class FrameRate {
 public:
  // The invalid rate.
  constexpr FrameRate() noexcept = default;
  explicit constexpr FrameRate(std::int64_t ticksPerFrame) noexcept : mTicksPerFrame(ticksPerFrame) {}

  // So many whole frames or samples a second, a frame rounded to the nearest tick; the invalid rate for a
  // number of 0 or below and for one whose frame would be less than half a tick.
  static constexpr FrameRate PerSecond(std::int64_t framesPerSecond) noexcept;

  static const FrameRate kInvalid;  // 9223372036854775807 ticks
  static const FrameRate k15;
  static const FrameRate k23976;  // 24000 / 1001 frames a second
  static const FrameRate k24;
  static const FrameRate k25;
  static const FrameRate k2997;  // 30000 / 1001
  static const FrameRate k30;
  static const FrameRate k48;
  static const FrameRate k50;
  static const FrameRate k5994;  // 60000 / 1001
  static const FrameRate k60;

  constexpr std::int64_t GetTicksPerFrame() const noexcept { return mTicksPerFrame; }
  constexpr bool IsValid() const noexcept { return mTicksPerFrame > 0 && mTicksPerFrame != kInvalidTicks; }

  // The whole number of frames that timecode counts to a second: the rate rounded to the nearest, halves up
  // (24 for 23.976, 30 for 29.97, 60 for 59.94), and at least 1. 0 if the rate isn't valid.
  constexpr std::int64_t GetNominalFramesPerSecond() const noexcept {
    if (!IsValid()) {
      return 0;
    }
    const std::int64_t nearest = (kTicksPerSecond + mTicksPerFrame / 2) / mTicksPerFrame;
    return nearest > 0 ? nearest : 1;
  }

  // Whether SMPTE ST 12-1 knows drop-frame labels for the rate: 29.97 and 59.94 frames a second.
  constexpr bool AllowsDropFrame() const noexcept;

  // By ticks a frame, so that a faster rate is less.
  friend constexpr auto operator<=>(const FrameRate&, const FrameRate&) noexcept = default;

 private:
  static constexpr std::int64_t kInvalidTicks = std::numeric_limits<std::int64_t>::max();

  std::int64_t mTicksPerFrame = kInvalidTicks;
};

inline constexpr FrameRate FrameRate::kInvalid{};
inline constexpr FrameRate FrameRate::k15{16'934'400'000};
inline constexpr FrameRate FrameRate::k23976{10'594'584'000};
inline constexpr FrameRate FrameRate::k24{10'584'000'000};
inline constexpr FrameRate FrameRate::k25{10'160'640'000};
inline constexpr FrameRate FrameRate::k2997{8'475'667'200};
inline constexpr FrameRate FrameRate::k30{8'467'200'000};
inline constexpr FrameRate FrameRate::k48{5'292'000'000};
inline constexpr FrameRate FrameRate::k50{5'080'320'000};
inline constexpr FrameRate FrameRate::k5994{4'237'833'600};
inline constexpr FrameRate FrameRate::k60{4'233'600'000};

constexpr FrameRate FrameRate::PerSecond(std::int64_t framesPerSecond) noexcept {
  if (framesPerSecond <= 0 || framesPerSecond > 2 * kTicksPerSecond) {
    return kInvalid;
  }
  return FrameRate((kTicksPerSecond + framesPerSecond / 2) / framesPerSecond);
}

constexpr bool FrameRate::AllowsDropFrame() const noexcept {
  return *this == k2997 || *this == k5994;
}

}  // namespace moxmediatypes
