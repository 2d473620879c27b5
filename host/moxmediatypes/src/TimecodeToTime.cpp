#include "TickMagnitude.h"
#include "TimeScale.h"
#include "TimecodeText.h"

#include <moxmediatypes/Timecode.h>

#include <array>
#include <cstddef>
#include <cstdint>

namespace moxmediatypes {

namespace {

using Fields = std::array<std::uint64_t, NumberFields::kMost>;

// Hours, minutes, seconds, frames of digits alone, taken in pairs from the right. `number` is followed by
// "00" for each of `periods`, three at most.
Fields FieldsOfDigits(std::uint64_t number, std::size_t periods) noexcept {
  Fields fields{};
  std::size_t index = fields.size() - 1 - periods;
  for (; index > 0; --index, number /= 100) {
    fields[index] = number % 100;
  }
  fields[0] = number;
  return fields;
}

Fields FieldsFromTheRight(const NumberFields& numbers) noexcept {
  Fields fields{};
  for (std::size_t i = 0; i < numbers.count; ++i) {
    fields[fields.size() - numbers.count + i] = numbers.numbers[i];
  }
  return fields;
}

TickTime TimeOfTimecode(const NumberFields& numbers, bool negative, const TimeScale& scale) noexcept {
  const auto [hours, minutes, seconds, frames] = numbers.hasTrailingPeriodsOnly
                                                     ? FieldsOfDigits(numbers.numbers[0], numbers.count - 1)
                                                     : FieldsFromTheRight(numbers);
  const std::uint64_t allMinutes = SaturatedSum(SaturatedProduct(hours, 60), minutes);
  const std::uint64_t allSeconds = SaturatedSum(SaturatedProduct(allMinutes, 60), seconds);
  const auto framesPerSecond = static_cast<std::uint64_t>(scale.unitsPerSecond);
  return TimeOfLabel(SaturatedSum(SaturatedProduct(allSeconds, framesPerSecond), frames), negative, scale);
}

TickTime TimeOfFeet(const NumberFields& numbers, bool negative, const TimeScale& scale) noexcept {
  if (numbers.count == 1) {
    return TimeOfUnits(numbers.numbers[0], negative, scale);
  }
  const auto framesPerFoot = static_cast<std::uint64_t>(scale.framesPerFoot);
  const std::uint64_t frames =
      SaturatedSum(SaturatedProduct(numbers.numbers[0], framesPerFoot), numbers.numbers[1]);
  return TimeOfUnits(frames, negative, scale);
}

}  // namespace

TickTime TimecodeToTime(std::u16string_view text, FrameRate rate, TimeDisplay display,
                        std::uint32_t /*styleFlags*/) noexcept {
  using Layout = TimeScale::Layout;
  const TimeScale scale = ScaleOf(rate, display);
  const SignedText entry = TakeSign(text);
  NumberFields numbers;
  switch (scale.layout) {
    case Layout::kFeet:
      return ReadNumbers(entry.digits, u"+", 2, numbers) ? TimeOfFeet(numbers, entry.negative, scale)
                                                         : TickTime::kInvalid;
    case Layout::kCount:
      return ReadNumbers(entry.digits, u"", 1, numbers)
                 ? TimeOfUnits(numbers.numbers[0], entry.negative, scale)
                 : TickTime::kInvalid;
    case Layout::kTimecode:
      break;
  }
  return ReadNumbers(entry.digits, u":;.,", NumberFields::kMost, numbers)
             ? TimeOfTimecode(numbers, entry.negative, scale)
             : TickTime::kInvalid;
}

}  // namespace moxmediatypes
