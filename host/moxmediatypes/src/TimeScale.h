#pragma once

#include <moxmediatypes/FrameRate.h>
#include <moxmediatypes/TimeDisplay.h>

#include <cstdint>

namespace moxmediatypes {

// What a format counts, and how its counts are written.
struct TimeScale {
  enum class Layout { kTimecode, kCount, kFeet };

  Layout layout = Layout::kTimecode;
  std::int64_t ticksPerUnit = 0;            // 0: the rate isn't valid
  std::int64_t unitsPerSecond = 0;          // by which timecode carries
  std::int64_t labelsDroppedPerMinute = 0;  // none in each tenth minute
  std::int64_t framesPerFoot = 0;
};

inline constexpr std::int64_t kMillisecondsPerSecond = 1000;
inline constexpr std::int64_t kTicksPerMillisecond = kTicksPerSecond / kMillisecondsPerSecond;

// GetNominalFramesPerSecond without a division for the usual rates.
constexpr std::int64_t FramesPerSecondOf(FrameRate rate) noexcept {
  switch (rate.GetTicksPerFrame()) {
    case FrameRate::k23976.GetTicksPerFrame():
    case FrameRate::k24.GetTicksPerFrame():
      return 24;
    case FrameRate::k25.GetTicksPerFrame():
      return 25;
    case FrameRate::k2997.GetTicksPerFrame():
    case FrameRate::k30.GetTicksPerFrame():
      return 30;
    case FrameRate::k50.GetTicksPerFrame():
      return 50;
    case FrameRate::k5994.GetTicksPerFrame():
    case FrameRate::k60.GetTicksPerFrame():
      return 60;
    default:
      return rate.GetNominalFramesPerSecond();
  }
}

inline TimeScale ScaleOf(FrameRate rate, TimeDisplay display) noexcept {
  using Layout = TimeScale::Layout;
  if (display.GetType() == TimeDisplay::kMilliseconds) {
    return {.layout = Layout::kCount,
            .ticksPerUnit = kTicksPerMillisecond,
            .unitsPerSecond = kMillisecondsPerSecond};
  }
  TimeScale scale;
  if (rate.IsValid()) {
    scale.ticksPerUnit = rate.GetTicksPerFrame();
    scale.unitsPerSecond = FramesPerSecondOf(rate);
  }
  switch (display.GetType()) {
    case TimeDisplay::kTimecode2997Drop:
    case TimeDisplay::kTimecode5994Drop:
      // 2 at 29.97 frames a second, 4 at 59.94 (SMPTE ST 12-1).
      scale.labelsDroppedPerMinute = rate.AllowsDropFrame() ? scale.unitsPerSecond / 15 : 0;
      break;
    case TimeDisplay::kFrames:
    case TimeDisplay::kAudioSamples:
      scale.layout = Layout::kCount;
      break;
    case TimeDisplay::kFeetFrames16mm:
    case TimeDisplay::kFeetFrames35mm:
      scale.layout = Layout::kFeet;
      scale.framesPerFoot = GetFramesPerFoot(display);
      break;
    default:
      break;
  }
  return scale;
}

// Labels are numbered as if none were dropped, from 00:00:00:00 on; units are counted. Neither is negative.
// The numbers of drop-frame timecode are constants, since dividing by others takes far longer than all else.
template <std::uint64_t kFramesPerSecond>
struct DropFrame {
  static constexpr std::uint64_t kDropped = kFramesPerSecond / 15;
  static constexpr std::uint64_t kLabelsPerMinute = kFramesPerSecond * 60;
  static constexpr std::uint64_t kUnitsPerMinute = kLabelsPerMinute - kDropped;
  static constexpr std::uint64_t kUnitsPerTenMinutes = kLabelsPerMinute * 10 - kDropped * 9;

  static constexpr std::uint64_t LabelOfUnit(std::uint64_t unit) noexcept {
    const std::uint64_t tens = unit / kUnitsPerTenMinutes;
    const std::uint64_t rest = unit % kUnitsPerTenMinutes;
    const std::uint64_t shortMinutes = rest < kDropped ? 0 : (rest - kDropped) / kUnitsPerMinute;
    return unit + kDropped * (tens * 9 + shortMinutes);
  }

  // A label that is dropped counts as the next one that isn't.
  static constexpr std::uint64_t UnitOfLabel(std::uint64_t label) noexcept {
    const std::uint64_t minutes = label / kLabelsPerMinute;
    const std::uint64_t rest = label % kLabelsPerMinute;
    const bool isSkipped = rest < kDropped && minutes % 10 != 0;
    return label - kDropped * (minutes - minutes / 10) + (isSkipped ? kDropped - rest : 0);
  }
};

inline std::uint64_t LabelOfUnit(std::uint64_t unit, const TimeScale& scale) noexcept {
  switch (scale.labelsDroppedPerMinute) {
    case DropFrame<30>::kDropped:
      return DropFrame<30>::LabelOfUnit(unit);
    case DropFrame<60>::kDropped:
      return DropFrame<60>::LabelOfUnit(unit);
    default:
      return unit;
  }
}

inline std::uint64_t UnitOfLabel(std::uint64_t label, const TimeScale& scale) noexcept {
  switch (scale.labelsDroppedPerMinute) {
    case DropFrame<30>::kDropped:
      return DropFrame<30>::UnitOfLabel(label);
    case DropFrame<60>::kDropped:
      return DropFrame<60>::UnitOfLabel(label);
    default:
      return label;
  }
}

// Most counts of media fit 32 bits, which many processors divide several times as fast.
inline std::uint64_t Quotient(std::uint64_t dividend, std::uint64_t divisor) noexcept {
  if (((dividend | divisor) >> 32) == 0) {
    return static_cast<std::uint32_t>(dividend) / static_cast<std::uint32_t>(divisor);
  }
  return dividend / divisor;
}

}  // namespace moxmediatypes
