#pragma once

#include <moxmediaui/TimecodeControlNotifier.h>

namespace playground {

// Stands for an application around a timecode field: tells it how times are shown from now on.
class TimecodeHost : public moxmediaui::TimecodeControlNotifier {
 public:
  void Push(moxmediaui::TimecodeInfo const& info) { RefreshTimecodeInfo(info); }
  // Whether counts begin at one may have changed.
  void PushCounting() { RefreshFrameCountOffset(); }
};

}  // namespace playground
