#pragma once

#include <moxmediatypes/FrameRate.h>
#include <moxmediatypes/TickTime.h>
#include <moxmediatypes/TimeDisplay.h>

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace moxmediatypes {

// What a timecode format promises, told as literally as can be and with no regard for speed. Shares no line
// with the library, so that both are wrong together only if they were understood wrongly.

// Frames to a second, as labels count them, and labels that each minute but the tenth begins without.
std::int64_t LiteralFramesPerSecond(FrameRate rate);
std::int64_t LiteralDroppedLabels(FrameRate rate, TimeDisplay display);

// A counter of wheels that turns frame by frame, as the label on a recorder does. It begins at the label
// `hour`:00:00:00, which is never dropped.
class LabelWheels {
 public:
  LabelWheels(FrameRate rate, TimeDisplay display, int hour);

  void Turn();
  // "HH:MM:SS:FF". Of rates beyond 100 frames a second it shows too little.
  std::u16string_view Text() const { return {mText.data(), mText.size()}; }
  int GetHour() const { return mHour; }
  // Within the last second of a minute or the first of the next.
  bool IsAboutMinute() const { return mSecond == 0 || mSecond == 59; }

 private:
  void Show(std::size_t place, std::int64_t number);

  std::int64_t mFramesPerSecond;
  std::int64_t mDropped;
  int mHour;
  int mMinute = 0;
  int mSecond = 0;
  std::int64_t mFrame = 0;
  std::array<char16_t, 11> mText;
};

// The time of a text, by the rules of entry. Nothing if it can't be read.
std::optional<TickTime> ReadLiterally(std::u16string_view text, FrameRate rate, TimeDisplay display);

}  // namespace moxmediatypes
