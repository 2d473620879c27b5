#pragma once

#include <moxui/scriber/SurfaceInterface.h>

namespace moxui::scriber {

/// Saves a surface's state and restores it at the end of the block, whichever way the block is left. Keeps
/// the surface, too.
class SavedState {
 public:
  explicit SavedState(SurfaceInterface& surface) : mSurface(&surface) { mSurface->SaveState(); }
  ~SavedState() { mSurface->RestoreState(); }
  SavedState(SavedState const&) = delete;
  SavedState& operator=(SavedState const&) = delete;

 private:
  SurfaceP mSurface;
};

}  // namespace moxui::scriber
