#include <moxmediaui/TimecodeControlNotifier.h>

namespace moxmediaui {

TimecodeControlListener::~TimecodeControlListener() = default;

TimecodeControlNotifier::~TimecodeControlNotifier() = default;

void TimecodeControlNotifier::RefreshTimecodeInfo(TimecodeInfo const& info) {
  if (mListener != nullptr) {
    mListener->OnRefreshTimecodeInfo(info);
  }
}

void TimecodeControlNotifier::RefreshFrameCountOffset() {
  if (mListener != nullptr) {
    mListener->OnRefreshFrameCountOffset();
  }
}

}  // namespace moxmediaui
