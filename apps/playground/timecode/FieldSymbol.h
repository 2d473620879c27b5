#pragma once

#include <moxui/scriber/ScriberTypes.h>

namespace playground {

// The bracket of an in point, 14 by 14, in an ink of the running theme.
moxui::scriber::ImageP FieldSymbol();

}  // namespace playground
