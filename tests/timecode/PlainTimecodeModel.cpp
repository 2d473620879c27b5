#include "PlainTimecodeModel.h"

#include <moxmediatypes/Timecode.h>

#include <cmath>
#include <cstdlib>

namespace timecode_tests {

using moxmediatypes::FrameRate;
using moxmediatypes::TickTime;
using moxmediatypes::TimeDisplay;

void PlainTimecodeModel::Clamp() {
  if (value == kNoTime) {
    return;
  }
  if (value < minTime) {
    value = minTime;
  } else if (value > maxTime) {
    value = maxTime;
  }
}

void PlainTimecodeModel::SetTime(std::int64_t time) {
  if (time == kNoTime) {
    value = kNoTime;
  } else {
    value = time + offset;
    Clamp();
  }
}

void PlainTimecodeModel::SetMinTime(std::int64_t time) {
  if (time + offset != minTime) {
    minTime = time + offset;
    Clamp();
  }
}

void PlainTimecodeModel::SetMaxTime(std::int64_t time) {
  if (time + offset != maxTime) {
    maxTime = time + offset;
    Clamp();
  }
}

void PlainTimecodeModel::SetOffset(std::int64_t newOffset) {
  std::int64_t const newMin = minTime - offset + newOffset;
  std::int64_t const newMax = maxTime - offset + newOffset;
  std::int64_t const newValue = value == kNoTime ? kNoTime : value - offset + newOffset;
  offset = newOffset;
  if (newMin == minTime && newMax == maxTime && newValue == value) {
    return;
  }
  minTime = newMin;
  maxTime = newMax;
  value = newValue;
  Clamp();
}

moxcore::Utf16String PlainTimecodeModel::Text() const {
  return moxmediatypes::TimeToTimecode(TickTime(value == kNoTime ? 0 : value), FrameRate(rate),
                                       TimeDisplay(format));
}

void PlainTimecodeModel::SetText(moxcore::Utf16String const& text) {
  std::int64_t const parsed =
      moxmediatypes::TimecodeToTime(text, FrameRate(rate), TimeDisplay(format)).GetTicks();
  if (text == Text() || parsed == kNoTime) {
    return;
  }
  if (text.length() > 1 && (text[0] == u'+' || text[0] == u'-')) {
    value += parsed;
  } else {
    value = parsed;
    if (value - offset < 0) {
      double const framesPerSecond = 254016000000.0 / static_cast<double>(rate);
      value +=
          moxmediatypes::HMSFToTime(23, 59, 59, static_cast<std::int64_t>(std::ceil(framesPerSecond)) - 1,
                                    false, FrameRate(rate), TimeDisplay(format))
              .GetTicks() +
          rate;
    }
  }
  Clamp();
}

void PlainTimecodeModel::Increment(int count, bool large) {
  int const stepFormat = quantizeFormat == 999 ? format : quantizeFormat;
  std::int64_t const stepRate = quantizeRate == 9223372036854775807 ? rate : quantizeRate;
  if (stepFormat == 111 || stepFormat == 112) {
    int const framesPerFoot = stepFormat == 111 ? 40 : 16;
    value += stepRate * (large ? framesPerFoot * count : count);
  } else {
    int frames = 0;
    int seconds = 0;
    if (!large) {
      frames = count;
    } else if (stepFormat == 109) {
      frames = 100 * count;
    } else {
      seconds = count;
    }
    value += moxmediatypes::HMSFToTime(0, 0, std::abs(seconds), std::abs(frames), seconds < 0 || frames < 0,
                                       FrameRate(stepRate), TimeDisplay(stepFormat))
                 .GetTicks();
  }
  Clamp();
}

}  // namespace timecode_tests
