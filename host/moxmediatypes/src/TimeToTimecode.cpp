#include "TimeScale.h"

#include <moxmediatypes/Timecode.h>

#include <array>
#include <cstddef>
#include <cstdint>

namespace moxmediatypes {

namespace {

// A text of digits, written from its end. The longest has a sign, twelve digits of frames, four of minutes
// and seconds, 19 of hours, and separators.
class ReversedText {
 public:
  void Put(char16_t unit) noexcept { mUnits[--mBegin] = unit; }

  void PutTwoDigits(std::uint64_t number) noexcept {
    Put(Digit(number % 10));
    Put(Digit(number / 10));
  }

  void PutNumber(std::uint64_t number) noexcept {
    for (; number >= 100; number /= 100) {
      PutTwoDigits(number % 100);
    }
    if (number < 10) {
      Put(Digit(number));
    } else {
      PutTwoDigits(number);
    }
  }

  // With as many digits as `highest` has, and two at least.
  void PutPadded(std::uint64_t number, std::uint64_t highest) noexcept {
    PutTwoDigits(number % 100);
    for (number /= 100, highest /= 100; highest != 0; number /= 10, highest /= 10) {
      Put(Digit(number % 10));
    }
  }

  moxcore::Utf16String Text() const { return {mUnits.data() + mBegin, mUnits.size() - mBegin}; }

 private:
  static char16_t Digit(std::uint64_t number) noexcept { return static_cast<char16_t>(u'0' + number); }

  std::array<char16_t, 48> mUnits;
  std::size_t mBegin = 48;
};

void PutTimecode(ReversedText& text, std::uint64_t unit, const TimeScale& scale) noexcept {
  const char16_t separator = scale.labelsDroppedPerMinute > 0 ? u';' : u':';
  const auto unitsPerSecond = static_cast<std::uint64_t>(scale.unitsPerSecond);
  const std::uint64_t label = LabelOfUnit(unit, scale);
  const std::uint64_t seconds = Quotient(label, unitsPerSecond);
  text.PutPadded(label - seconds * unitsPerSecond, unitsPerSecond - 1);
  text.Put(separator);
  text.PutTwoDigits(seconds % 60);
  text.Put(separator);
  text.PutTwoDigits(seconds / 60 % 60);
  text.Put(separator);
  const std::uint64_t hours = seconds / 3600;
  if (hours < 100) {
    text.PutTwoDigits(hours);
  } else {
    text.PutNumber(hours);
  }
}

void PutUnits(ReversedText& text, std::uint64_t unit, const TimeScale& scale) noexcept {
  switch (scale.layout) {
    case TimeScale::Layout::kTimecode:
      PutTimecode(text, unit, scale);
      break;
    case TimeScale::Layout::kFeet: {
      const auto framesPerFoot = static_cast<std::uint64_t>(scale.framesPerFoot);
      const std::uint64_t feet = Quotient(unit, framesPerFoot);
      text.PutTwoDigits(unit - feet * framesPerFoot);
      text.Put(u'+');
      text.PutNumber(feet);
      break;
    }
    case TimeScale::Layout::kCount:
      text.PutNumber(unit);
      break;
  }
}

}  // namespace

moxcore::Utf16String TimeToTimecode(TickTime time, FrameRate rate, TimeDisplay display,
                                    std::uint32_t /*styleFlags*/) {
  TimeScale scale = ScaleOf(rate, display);
  std::int64_t unit = 0;
  if (scale.ticksPerUnit > 0) {
    unit = time.GetTicks() / scale.ticksPerUnit;
    unit -= time.GetTicks() % scale.ticksPerUnit < 0 ? 1 : 0;
  } else {
    scale.unitsPerSecond = 1;
  }
  ReversedText text;
  if (unit < 0) {
    PutUnits(text, std::uint64_t{0} - static_cast<std::uint64_t>(unit), scale);
    text.Put(u'-');
  } else {
    PutUnits(text, static_cast<std::uint64_t>(unit), scale);
  }
  return text.Text();
}

}  // namespace moxmediatypes
