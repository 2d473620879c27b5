#pragma once

#include <moxcore/string/String.h>
#include <moxmediatypes/FrameRate.h>
#include <moxmediatypes/TickTime.h>
#include <moxmediatypes/TimeDisplay.h>

#include <cstdint>

namespace moxmediaui {

using moxmediatypes::FrameRate;
using moxmediatypes::TickTime;
using moxmediatypes::TimeDisplay;

/// Which of its two pairs of format and rate a timecode control shows.
enum class DisplayType : std::int32_t { kVideo = 0, kAudio = 1 };

/// What a field shows while its value is the invalid time.
enum class InvalidDisplay : std::int32_t {
  kTimeZero = 0,     ///< the text of time zero
  kPlaceholder = 1,  ///< "--" for frames, "-+--" for feet and frames, else "--:--:--:--"
  kNothing = 2,
};

/// Which formats the menu of a video field offers.
enum class TimecodeOptions : std::int32_t {
  kFixedListWithDropFrame = 0,
  kFixedList = 1,
  kSupportedFormats = 2,  ///< those that belong to the rate
};

enum class TextSize : std::int32_t {
  kToolkit = 0,    ///< that of the toolkit's text font
  kLarge = 1,      ///< 15 points
  kLargeBold = 2,  ///< the same in the style "Bold"
};

/// How a host shows times: its formats and rates of video and of audio.
struct TimecodeInfo {
  TimeDisplay videoDisplay;
  FrameRate videoRate;
  TimeDisplay audioDisplay;
  FrameRate audioRate;

  friend bool operator==(TimecodeInfo const&, TimecodeInfo const&) = default;
};

/// The value behind a timecode field: a time within bounds, how it is shown, read and stepped. Pure
/// arithmetic: it needs no toolkit, notifies nobody and may live on any thread.
///
/// An offset is added to every time that goes in. Value and bounds are stored, shown and read back with it;
/// so GetMinTime doesn't give what SetMinTime was given unless the offset is zero.
///
/// The value lies within the bounds or is the invalid time (TickTime::kInvalid), which stands for "no time".
/// Bounds aren't checked against each other; where they are crossed, what lies below the lower one becomes
/// the lower one, and all else is at most the upper one.
class TimecodeModel {
 public:
  enum class StepSize {
    kFrames,
    kLarge,  ///< 100 frames of a frame count, a foot of feet and frames, else a second
  };

  // All three with the offset in them. Setters that can change the value give whether they did.
  TickTime GetValue() const { return mValue; }
  /// The invalid time is taken as it is; any other moves by the offset and into the bounds.
  bool SetTime(TickTime time);
  TickTime GetMinTime() const { return mMinTime; }
  bool SetMinTime(TickTime time);
  TickTime GetMaxTime() const { return mMaxTime; }
  bool SetMaxTime(TickTime time);
  TickTime GetOffset() const { return mOffset; }
  /// Bounds and a valid value move along.
  bool SetOffset(TickTime offset);
  /// The value less the offset, of the invalid time too: with an offset other than zero "no time" comes out
  /// as a number next to it.
  TickTime GetTime() const { return mValue - mOffset; }

  TimeDisplay GetFormat() const { return mFormat; }
  FrameRate GetFrameRate() const { return mFrameRate; }
  /// Gives whether either became another one. The value stays.
  bool SetFormat(TimeDisplay format, FrameRate rate);
  /// In what Increment steps, if not in the format shown; TimeDisplay::kNone and FrameRate::kInvalid stand
  /// for that. Texts are no matter of it.
  void SetQuantization(TimeDisplay format, FrameRate rate);
  TimeDisplay GetQuantizeFormat() const;
  FrameRate GetQuantizeRate() const;

  /// Handed to moxmediatypes' TimeToTimecode and TimecodeToTime.
  std::uint32_t GetStyle() const { return mStyle; }
  void SetStyle(std::uint32_t style) { mStyle = style; }
  InvalidDisplay GetInvalidDisplay() const { return mInvalidDisplay; }
  void SetInvalidDisplay(InvalidDisplay display) { mInvalidDisplay = display; }

  /// The value as text.
  moxcore::Utf16String GetText() const;
  /// Takes the value from a text that a user typed, in full-width characters too, and gives whether it
  /// changed. Nothing happens for a text that can't be read, nor for the one that GetText gives: a field that
  /// wasn't edited keeps a value that its format can't express.
  ///
  /// A leading sign moves the value by what follows. Anything else is the new value, and a day later if it
  /// lies before the offset; a day is what `23:59:59` and all its frames in the format make, and a frame.
  bool SetText(moxcore::Utf16String text);
  /// Moves the value by `count` steps, back if it is negative, and gives whether it changed. From the invalid
  /// time, far below any bound, steps lead to the lower bound.
  bool Increment(int count, StepSize size);

  friend bool operator==(TimecodeModel const&, TimecodeModel const&) = default;

 private:
  bool SetBound(TickTime& bound, TickTime time);
  bool SetClamped(TickTime value);
  TickTime Clamped(TickTime value) const;
  TickTime Day() const;

  TickTime mValue;
  TickTime mMinTime;
  TickTime mMaxTime{91'445'760'000'000'000};  // 100 hours
  TickTime mOffset;
  FrameRate mFrameRate = FrameRate::k2997;
  TimeDisplay mFormat{TimeDisplay::kTimecode2997Drop};
  FrameRate mQuantizeRate;
  TimeDisplay mQuantizeFormat{TimeDisplay::kNone};
  std::uint32_t mStyle = 0;
  InvalidDisplay mInvalidDisplay = InvalidDisplay::kTimeZero;
};

}  // namespace moxmediaui
