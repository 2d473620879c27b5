#pragma once

#include <moxui/controls/UI_ImageHandler.h>

namespace playground {

enum class TransportIcon { kToStart, kPlay, kPause, kStop, kToEnd, kLoop };

// The picture of a button of that meaning, drawn in the colour of the button's state.
moxui::controls::ImageSupplyFunction IconOf(TransportIcon icon);

}  // namespace playground
