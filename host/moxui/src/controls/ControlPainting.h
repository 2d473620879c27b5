#pragma once

#include "../skins/ControlLook.h"

#include <moxui/skins/ButtonComponents.h>

namespace moxui::controls {

class UI_ControlView;

/// The look of a control at this moment.
skins::ControlLook GetControlLook(UI_ControlView const& control);

/// Height of a control in a row, by look and size.
float GetControlHeight(skins::SkinSet const& skinSet, skins::SkinNumber ofMedium, skins::ComponentSize size);

}  // namespace moxui::controls
