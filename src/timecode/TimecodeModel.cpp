#include <moxcore/string/TextOperations.h>
#include <moxmediatypes/Timecode.h>
#include <moxmediaui/TimecodeModel.h>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace moxmediaui {

namespace {

constexpr std::int64_t kFramesOfLargeStep = 100;

char16_t const* PlaceholderOf(TimeDisplay format) {
  switch (format.GetType()) {
    case TimeDisplay::kFrames:
      return u"--";
    case TimeDisplay::kFeetFrames16mm:
    case TimeDisplay::kFeetFrames35mm:
      return u"-+--";
    default:
      return u"--:--:--:--";
  }
}

/// A lone sign moves by nothing: it is read as an absolute time, that is not at all.
bool IsRelative(moxcore::Utf16String const& text) {
  return text.size() > 1 && (text.front() == u'+' || text.front() == u'-');
}

/// The highest frame of a second, -1 for a rate that has none.
std::int64_t LastFrameOfSecond(FrameRate rate) {
  if (!rate.IsValid()) {
    return -1;
  }
  std::int64_t const ticks = rate.GetTicksPerFrame();
  std::int64_t const wholeFrames = moxmediatypes::kTicksPerSecond / ticks;
  return moxmediatypes::kTicksPerSecond % ticks == 0 ? wholeFrames - 1 : wholeFrames;
}

}  // namespace

TickTime TimecodeModel::Clamped(TickTime value) const {
  if (value.IsInvalid()) {
    return value;
  }
  return value < mMinTime ? mMinTime : std::min(value, mMaxTime);
}

bool TimecodeModel::SetClamped(TickTime value) {
  TickTime const before = std::exchange(mValue, Clamped(value));
  return mValue != before;
}

bool TimecodeModel::SetTime(TickTime time) {
  return SetClamped(time.IsInvalid() ? time : time + mOffset);
}

bool TimecodeModel::SetBound(TickTime& bound, TickTime time) {
  TickTime const before = std::exchange(bound, time + mOffset);
  return before != bound && SetClamped(mValue);
}

bool TimecodeModel::SetMinTime(TickTime time) {
  return SetBound(mMinTime, time);
}

bool TimecodeModel::SetMaxTime(TickTime time) {
  return SetBound(mMaxTime, time);
}

bool TimecodeModel::SetOffset(TickTime offset) {
  TickTime const before = std::exchange(mOffset, offset);
  auto const moved = [&](TickTime time) { return time - before + offset; };
  TickTime const minTime = moved(mMinTime);
  TickTime const maxTime = moved(mMaxTime);
  TickTime const value = mValue.IsInvalid() ? mValue : moved(mValue);
  if (minTime == mMinTime && maxTime == mMaxTime && value == mValue) {
    return false;
  }
  mMinTime = minTime;
  mMaxTime = maxTime;
  return SetClamped(value);
}

bool TimecodeModel::SetFormat(TimeDisplay format, FrameRate rate) {
  bool const changes = format != mFormat || rate != mFrameRate;
  mFormat = format;
  mFrameRate = rate;
  return changes;
}

void TimecodeModel::SetQuantization(TimeDisplay format, FrameRate rate) {
  mQuantizeFormat = format;
  mQuantizeRate = rate;
}

TimeDisplay TimecodeModel::GetQuantizeFormat() const {
  return mQuantizeFormat == TimeDisplay(TimeDisplay::kNone) ? mFormat : mQuantizeFormat;
}

FrameRate TimecodeModel::GetQuantizeRate() const {
  return mQuantizeRate == FrameRate::kInvalid ? mFrameRate : mQuantizeRate;
}

moxcore::Utf16String TimecodeModel::GetText() const {
  TickTime shown = mValue;
  if (mValue.IsInvalid()) {
    switch (mInvalidDisplay) {
      case InvalidDisplay::kPlaceholder:
        return PlaceholderOf(mFormat);
      case InvalidDisplay::kNothing:
        return {};
      default:
        shown = TickTime();
    }
  }
  return moxmediatypes::TimeToTimecode(shown, mFrameRate, mFormat, mStyle);
}

TickTime TimecodeModel::Day() const {
  return moxmediatypes::HMSFToTime(23, 59, 59, LastFrameOfSecond(mFrameRate), false, mFrameRate, mFormat) +
         TickTime(1, mFrameRate);
}

bool TimecodeModel::SetText(moxcore::Utf16String text) {
  moxcore::string::ConvertFullWidthAndIdeographicCharacters(text);
  TickTime const entered = moxmediatypes::TimecodeToTime(text, mFrameRate, mFormat, mStyle);
  if (entered.IsInvalid() || text == GetText()) {
    return false;
  }
  TickTime const before = mValue;
  if (IsRelative(text)) {
    mValue += entered;
  } else {
    mValue = entered - mOffset < TickTime() ? entered + Day() : entered;
  }
  mValue = Clamped(mValue);
  return mValue != before;
}

bool TimecodeModel::Increment(int count, StepSize size) {
  TimeDisplay const display = GetQuantizeFormat();
  FrameRate const rate = GetQuantizeRate();
  std::int64_t const steps = count;
  bool const isLarge = size == StepSize::kLarge;
  TickTime moved = mValue;
  if (moxmediatypes::IsFeetFramesDisplay(display)) {
    moved.AddFrames(isLarge ? moxmediatypes::GetFramesPerFoot(display) * steps : steps, rate);
  } else {
    bool const countsFrames = display == TimeDisplay(TimeDisplay::kFrames);
    std::int64_t const framesOfStep = !isLarge ? 1 : countsFrames ? kFramesOfLargeStep : 0;
    std::int64_t const secondsOfStep = isLarge && !countsFrames ? 1 : 0;
    std::int64_t const distance = std::abs(steps);
    moved += moxmediatypes::HMSFToTime(0, 0, secondsOfStep * distance, framesOfStep * distance, steps < 0,
                                       rate, display);
  }
  return SetClamped(moved);
}

}  // namespace moxmediaui
