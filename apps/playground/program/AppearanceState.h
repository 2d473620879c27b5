#pragma once

#include "program/Appearance.h"

namespace playground {

// How everything looks at the moment.
Appearance const& CurrentAppearance();

// Makes theme, look, language and direction those of `appearance`. The scale is for whoever shows a window or
// makes a picture, and pages place what they hold by the direction themselves. Views made before keep their
// texts and sizes: they are to be made anew.
void ApplyAppearance(Appearance const& appearance);

}  // namespace playground
