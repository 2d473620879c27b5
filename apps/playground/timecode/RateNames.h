#pragma once

#include <moxmediatypes/FrameRate.h>
#include <moxmediatypes/TimeDisplay.h>

#include <string>
#include <vector>

namespace playground {

// The rates of video that have a timecode, slowest first, and common rates of sound.
std::vector<moxmediatypes::FrameRate> VideoRates();
std::vector<moxmediatypes::FrameRate> AudioRates();
// The formats of video: timecodes by their rates, feet and frames, frames; and those of sound.
std::vector<moxmediatypes::TimeDisplay> VideoDisplays();
std::vector<moxmediatypes::TimeDisplay> AudioDisplays();

// Frames a second, "29.97", or thousands of samples a second, "44.1".
std::string VideoRateText(moxmediatypes::FrameRate rate);
std::string AudioRateText(moxmediatypes::FrameRate rate);

}  // namespace playground
