#pragma once

#include <moxui/scriber/SurfaceInterface.h>

namespace moxmediaui {

/// Saves a surface's state and restores it at the end of the block, whichever way the block is left.
class SavedState {
 public:
  explicit SavedState(moxui::scriber::SurfaceInterface& surface) : mSurface(surface) { mSurface.SaveState(); }
  ~SavedState() { mSurface.RestoreState(); }
  SavedState(SavedState const&) = delete;
  SavedState& operator=(SavedState const&) = delete;

 private:
  moxui::scriber::SurfaceInterface& mSurface;
};

}  // namespace moxmediaui
