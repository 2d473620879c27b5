#pragma once

#include <moxui/controls/UI_ImageHandler.h>

namespace playground {

// Supplies a play triangle in the colour that suits the state of the control that asks.
moxui::controls::ImageSupplyFunction SampleIcon();

}  // namespace playground
