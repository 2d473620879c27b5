#pragma once

#include "audio/AudioSession.h"

#include <moxui/ui/MouseEvent.h>

namespace playground {

// A drag of a session's view or selection. While it lives, what happens to them is one step of the history.
// The session outlives it.
class ViewDrag {
 public:
  explicit ViewDrag(AudioSession& session, moxui::ui::MouseButton button = moxui::ui::MouseButton::kLeft)
      : mSession(session), mButton(button) {
    mSession.BeginDrag();
  }
  ~ViewDrag() {
    if (mIsOn) {
      mSession.EndDrag();
    }
  }
  ViewDrag(ViewDrag const&) = delete;
  ViewDrag& operator=(ViewDrag const&) = delete;

  // Whether a release is that of the button which the drag began with.
  bool EndsWith(moxui::ui::MouseEvent const& release) const { return release.IsButton(mButton); }
  // Brings view and selection back to where they were.
  void Cancel() {
    if (mIsOn) {
      mIsOn = false;
      mSession.CancelDrag();
    }
  }

 private:
  AudioSession& mSession;
  moxui::ui::MouseButton mButton;
  bool mIsOn = true;
};

}  // namespace playground
