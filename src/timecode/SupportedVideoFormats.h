#pragma once

#include <moxmediatypes/FrameRate.h>
#include <moxmediatypes/TimeDisplay.h>

#include <vector>

namespace moxmediaui {

/// The formats in which times at a rate of video are shown, in the order of menus: its timecodes, feet and
/// frames where there is film of the rate, and frames. A rate of none of the tables gets the timecode of the
/// nearest, and frames.
std::vector<moxmediatypes::TimeDisplay> ListSupportedVideoFormats(moxmediatypes::FrameRate rate);

}  // namespace moxmediaui
