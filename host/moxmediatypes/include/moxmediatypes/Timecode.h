#pragma once

#include <moxcore/string/String.h>
#include <moxmediatypes/FrameRate.h>
#include <moxmediatypes/TickTime.h>
#include <moxmediatypes/TimeDisplay.h>

#include <cstdint>
#include <string_view>

namespace moxmediatypes {

// The text of a time, by the code of `display`:
//
//   102, 106   HH;MM;SS;FF where the rate allows drop-frame labels (29.97 and 59.94 frames a second), else as
//              the next
//   other      HH:MM:SS:FF; codes without a meaning too
//   109        frames
//   111, 112   feet+FF, 40 or 16 frames a foot
//   200        units of `rate`, that is samples
//   201        milliseconds, whatever the rate
//
// Timecode counts the frames of `rate` itself, whichever rate the code is named for, so many to a second as
// FrameRate::GetNominalFramesPerSecond tells. Drop-frame labels are those of SMPTE ST 12-1: the labels
// of frames 0 and 1 (at 59.94: 0 to 3) of each minute don't exist, but for each tenth minute, so that the
// labels keep up with the clock. Hours go on after 24. Hours, minutes and seconds have two digits at least,
// frames as many as the highest needs, two at least; other counts have no leading zeros.
//
// A time within a frame shows that frame, which for negative times too is the one that began last. A
// negative text is a minus sign and the magnitude; there is no minus zero. A rate that isn't valid gives
// the text of time zero. The invalid time has no text of its own: its ticks are shown.
//
// No bit of `styleFlags` has a meaning so far; all are ignored.
moxcore::Utf16String TimeToTimecode(TickTime time, FrameRate rate, TimeDisplay display,
                                    std::uint32_t styleFlags = 0);

// The time that a text denotes, as a user types it; TickTime::kInvalid if it can't be read. What
// TimeToTimecode gave is read as the time at which that frame, sample or millisecond begins.
//
// White space around the text doesn't count. A leading "+" or "-" is the sign of all of it. Then:
//
//   timecode   Up to four numbers, the last one frames, with ":", ";", "." or "," between them; which of them
//              stand there tells nothing. Missing and empty numbers are 0: "1:" is a second, ":05" five
//              frames, "1::05" a minute and five frames. A number may be beyond its range and carries over.
//              Digits alone are taken in pairs from the right, the fourth pair and all before it being hours:
//              "1234" is 12 seconds 34 frames. After digits alone, each trailing period, of three at most,
//              stands for "00": "3." is three seconds, "3.." three minutes, "1234." 12 minutes 34 seconds.
//              In drop-frame timecode, that of `display` and `rate` and not of the text, a label that
//              doesn't exist denotes the next one that does.
//   feet       Feet and frames with "+" between them, or frames alone: "5+08", "5+", "88".
//   counts     Digits alone.
//
// A text without a digit, with more numbers than that or with any other character can't be read. Full-width
// digits and separators are such characters: moxcore::string::ConvertFullWidthAndIdeographicCharacters makes
// them readable. A time beyond the range of TickTime is the end of it. A rate that isn't valid gives time
// zero for a text that can be read. The text of minus 400000 seconds denotes the invalid time, as it must.
//
// `styleFlags` as above.
TickTime TimecodeToTime(std::u16string_view text, FrameRate rate, TimeDisplay display,
                        std::uint32_t styleFlags = 0) noexcept;

// The time of a timecode. Counts may have any size; they carry over as the numbers of a text do, and a label
// that drop-frame timecode leaves out denotes the next one that exists. Counts below 0, such as a frame
// count of -1, borrow. The result is negated if `negative`, and is an end of the range if it lies beyond.
//
// In formats without hours and minutes a second has as many frames as in timecode that drops none. `frames`
// are what the format counts: of milliseconds (201) there are 1000 to a second, of audio samples (200) so
// many as the rate says.
//
// A rate that isn't valid gives time zero in every format, so that a step of so many frames is no step.
TickTime HMSFToTime(std::int64_t hours, std::int64_t minutes, std::int64_t seconds, std::int64_t frames,
                    bool negative, FrameRate rate, TimeDisplay display) noexcept;

}  // namespace moxmediatypes
