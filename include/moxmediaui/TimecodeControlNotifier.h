#pragma once

#include <moxmediaui/TimecodeModel.h>

#include <memory>

namespace moxmediaui {

/// Hears a host tell that the way it shows times has changed.
class TimecodeControlListener {
 public:
  virtual ~TimecodeControlListener();

  virtual void OnRefreshTimecodeInfo(TimecodeInfo const& info) = 0;
  /// Whether counts begin at one may have changed.
  virtual void OnRefreshFrameCountOffset() = 0;
};

/// The wire from a host to one timecode control: hosts derive from it and call the Refresh operations. It may
/// outlive several controls, one after another (TimecodeControlInfo); it holds the control by plain pointer,
/// so the host calls ClearListener before the control goes.
class TimecodeControlNotifier {
 public:
  TimecodeControlNotifier() = default;
  virtual ~TimecodeControlNotifier();

  /// Takes the place of an earlier listener.
  void SetListener(TimecodeControlListener* listener) { mListener = listener; }
  void ClearListener() { mListener = nullptr; }

 protected:
  TimecodeControlNotifier(TimecodeControlNotifier const&) = default;
  TimecodeControlNotifier& operator=(TimecodeControlNotifier const&) = default;

  // Nothing without a listener.
  void RefreshTimecodeInfo(TimecodeInfo const& info);
  void RefreshFrameCountOffset();

 private:
  TimecodeControlListener* mListener = nullptr;
};

/// What a host gives a timecode control at its start: TimecodeInfo and who will tell of another one, or null.
struct TimecodeControlInfo {
  TimeDisplay videoDisplay;
  FrameRate videoRate;
  TimeDisplay audioDisplay;
  FrameRate audioRate;
  std::shared_ptr<TimecodeControlNotifier> notifier;
};

}  // namespace moxmediaui
