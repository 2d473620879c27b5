#pragma once

#include "audio/AudioSession.h"

namespace playground {

// While it lives, what happens to a session's view and selection is one step of its history. The session
// outlives it.
class ViewDrag {
 public:
  explicit ViewDrag(AudioSession& session) : mSession(session) { mSession.BeginDrag(); }
  ~ViewDrag() { mSession.EndDrag(); }
  ViewDrag(ViewDrag const&) = delete;
  ViewDrag& operator=(ViewDrag const&) = delete;

 private:
  AudioSession& mSession;
};

}  // namespace playground
