#pragma once

#include <moxui/geometry/Flags.h>

namespace moxui::skins {

/// The bits of UI_ControlView::GetControlState.
namespace ControlState {
inline constexpr unsigned int kPressed = 1;
inline constexpr unsigned int kRollover = 2;
inline constexpr unsigned int kDisabled = 4;
inline constexpr unsigned int kFocused = 8;
}  // namespace ControlState

/// The face of a control's parts that a state asks for: disabled before pressed before hover.
enum class Interaction { kIdle, kHover, kPressed, kDisabled };

constexpr Interaction GetInteraction(Flags<unsigned int> state) {
  if (state.Has(ControlState::kDisabled)) {
    return Interaction::kDisabled;
  }
  if (state.Has(ControlState::kPressed)) {
    return Interaction::kPressed;
  }
  return state.Has(ControlState::kRollover) ? Interaction::kHover : Interaction::kIdle;
}

}  // namespace moxui::skins
