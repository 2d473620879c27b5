#pragma once

namespace playground {

// At this height the text of a timecode field, which stands 7 above its bottom, is in its middle.
inline constexpr float kTimecodeFieldHeight = 24.0f;

}  // namespace playground
