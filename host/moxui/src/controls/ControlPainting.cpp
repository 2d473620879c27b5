#include "ControlPainting.h"

#include <moxui/controls/UI_ControlView.h>

namespace moxui::controls {
namespace {

constexpr float kSmallerBy = 4.0f;
constexpr float kLargerBy = 8.0f;

}  // namespace

skins::ControlLook GetControlLook(UI_ControlView const& control) {
  return {.theme = &control,
          .skinSet = &control.UI_GetCurrentSkinSet(),
          .state = control.GetControlState(true),
          .isUnknown = control.IsValueUnknown()};
}

float GetControlHeight(skins::SkinSet const& skinSet, skins::SkinNumber ofMedium, skins::ComponentSize size) {
  float const medium = skinSet.GetNumber(ofMedium);
  switch (size) {
    case skins::ComponentSize::kSmall:
      return medium - kSmallerBy;
    case skins::ComponentSize::kLarge:
      return medium + kLargerBy;
    default:
      return medium;
  }
}

}  // namespace moxui::controls
