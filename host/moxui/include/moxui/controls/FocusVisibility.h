#pragma once

#include <moxui/ui/FocusChangeReason.h>

namespace moxui::controls {

/// Whether a control that has the focus shows its ring. A focus that came by a click shows none until a key
/// is used, so that rings don't follow the pointer about.
class FocusVisibility {
 public:
  /// True when what shows has changed.
  bool FocusChanged(ui::FocusChangeReason reason);
  bool KeyUsed();
  bool ShowsRing() const { return mShowsRing; }

 private:
  bool mShowsRing = false;
};

}  // namespace moxui::controls
