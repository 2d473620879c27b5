#pragma once

#include <moxcore/string/String.h>
#include <moxmediatypes/FrameRate.h>

#include <cstdint>

namespace moxmediatypes {

// How a time is shown: a format, named by its code. Which text a format gives is told by TimeToTimecode
// (Timecode.h). Any code can be held; one without a meaning is shown as timecode without dropped labels.
class TimeDisplay {
 public:
  static constexpr int kTimecode24 = 100;
  static constexpr int kTimecode25 = 101;
  static constexpr int kTimecode2997Drop = 102;
  static constexpr int kTimecode2997NonDrop = 103;
  static constexpr int kTimecode30 = 104;
  static constexpr int kTimecode50 = 105;
  static constexpr int kTimecode5994Drop = 106;
  static constexpr int kTimecode5994NonDrop = 107;
  static constexpr int kTimecode60 = 108;
  static constexpr int kFrames = 109;
  static constexpr int kTimecode23976 = 110;
  static constexpr int kFeetFrames16mm = 111;
  static constexpr int kFeetFrames35mm = 112;
  static constexpr int kTimecode48 = 113;
  static constexpr int kAudioSamples = 200;
  static constexpr int kMilliseconds = 201;
  static constexpr int kNone = 999;

  // Drop-frame timecode of 29.97 frames a second.
  constexpr TimeDisplay() noexcept = default;
  explicit constexpr TimeDisplay(int code) noexcept : mCode(code) {}

  constexpr int GetType() const noexcept { return mCode; }

  friend constexpr bool operator==(const TimeDisplay&, const TimeDisplay&) noexcept = default;

 private:
  int mCode = kTimecode2997Drop;
};

// True for the drop-frame formats, 102 and 106.
bool IsTimeDisplayDropFrame(TimeDisplay display) noexcept;

// Whether drop-frame labels are a choice for the format: true for the formats of 29.97 and 59.94 frames a
// second, drop-frame or not (102, 103, 106, 107).
bool IsDropFrameApplicableForTimeDisplay(TimeDisplay display) noexcept;

// True for the formats that show hours, minutes, seconds and frames: 100 to 108, 110 and 113. With
// `countMilliseconds`, milliseconds (201) count as well, since they too run in seconds.
bool IsHMSFTimeDisplay(TimeDisplay display, bool countMilliseconds) noexcept;

// True for feet and frames, 111 (16 mm film) and 112 (35 mm).
bool IsFeetFramesDisplay(TimeDisplay display) noexcept;

// Frames in a foot of film: 40 on 16 mm (111), 16 on 35 mm with four perforations a frame (112); 0 for any
// other format.
int GetFramesPerFoot(TimeDisplay display) noexcept;

// The timecode format of a rate:
//
//   15, 30: 104     23.976: 110     24: 100     25: 101     48: 113     50: 105     60: 108
//   29.97: 102 if `dropFrame`, else 103         59.94: 106 if `dropFrame`, else 107
//
// Any other rate counts as the nearest of these in frames a second, of two as near the slower, if
// `acceptNearest`; else, and for a rate that isn't valid, the result is `unknownRateDisplay`.
// `allowUserOverride` lets a format that the user chose for the rate come first; this host keeps no such
// choice, so both values give the same.
TimeDisplay GetTimeDisplayForFrameRate(FrameRate rate, bool dropFrame, bool acceptNearest,
                                       TimeDisplay unknownRateDisplay, bool allowUserOverride) noexcept;

// The name of a format for a menu, in the language of the localizer, never empty: the full one
// ("Timecode 29.97 fps, Drop-Frame") if `longForm`, else one for narrow places ("29.97 DF"). A code without a
// meaning is called an unknown format.
moxcore::Utf16String TimeDisplayDescription(TimeDisplay display, bool longForm);

}  // namespace moxmediatypes
