#include <moxui/controls/FocusVisibility.h>

#include <utility>

namespace moxui::controls {

bool FocusVisibility::FocusChanged(ui::FocusChangeReason reason) {
  bool const isGain = reason == ui::FocusChangeReason::kTraversal || reason == ui::FocusChangeReason::kByCode;
  return std::exchange(mShowsRing, isGain) != isGain;
}

bool FocusVisibility::KeyUsed() {
  return !std::exchange(mShowsRing, true);
}

}  // namespace moxui::controls
