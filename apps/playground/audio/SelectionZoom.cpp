#include "audio/SelectionZoom.h"

namespace playground {

std::optional<Viewport> SelectionZoom::Toggle(Viewport const& shown, SampleSelection const& selection) {
  if (selection.IsEmpty()) {
    return Back(shown);
  }
  Viewport target = shown;
  target.Show(static_cast<double>(selection.Left()),
              static_cast<double>(selection.Left() + selection.Width()));
  if (target == shown || (shown == mZoomed && selection == mSelection)) {
    // Whoever came here another way has nothing to go back to but the whole.
    if (!mBefore) {
      mBefore = shown;
      mBefore->ShowAll();
    }
    return Back(shown);
  }
  mBefore = shown;
  mZoomed = target;
  mSelection = selection;
  return target;
}

std::optional<Viewport> SelectionZoom::Back(Viewport const& shown) {
  std::optional<Viewport> before = mBefore;
  mBefore.reset();
  mZoomed.reset();
  if (before && before->Width() != shown.Width()) {
    before->StretchTo(shown.Width());
  }
  return before;
}

void SelectionZoom::Follow(Viewport const& before, Viewport const& after) {
  if (before == mZoomed) {
    mZoomed = after;
  }
}

}  // namespace playground
