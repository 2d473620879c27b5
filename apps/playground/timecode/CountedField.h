#pragma once

#include <moxmediaui/HotTimecodeControl.h>

namespace playground {

// A timecode field whose owner says where counts of frames and feet begin.
class CountedField : public moxmediaui::UI_HotTimecodeControl {
 public:
  // Acts when the format or the offset is set next, or the host refreshes the counting.
  void SetCountsFromOne(bool fromOne) { SetGeneralClipMediaFrameCountOffset(fromOne ? 1 : 0); }
  // Brings the text up to date after what is merely stored, such as how no time is shown.
  void SetInlineText() { SetInlineTextStringFromTimecode(); }
};

}  // namespace playground
