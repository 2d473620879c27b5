#pragma once

#include "audio/SampleSelection.h"
#include "audio/Viewport.h"

#include <optional>

namespace playground {

// The way to the selection, so that it fills the view, and back to what was shown before.
class SelectionZoom {
 public:
  // What to show when the user asks for the selection: the selection, or, where it is shown already, what was
  // shown before it. Nothing when nothing is selected and there is no way back.
  std::optional<Viewport> Toggle(Viewport const& shown, SampleSelection const& selection);
  // Whether Toggle would do something.
  bool CanToggle(SampleSelection const& selection) const { return !selection.IsEmpty() || mBefore; }
  // The way back alone, once; nothing when there is none.
  std::optional<Viewport> Back(Viewport const& shown);
  // The view became another one by itself, as with the window's size.
  void Follow(Viewport const& before, Viewport const& after);

 private:
  std::optional<Viewport> mBefore;
  std::optional<Viewport> mZoomed;  // what Toggle gave, for as long as there is a way back
  SampleSelection mSelection;       // that it shows
};

}  // namespace playground
