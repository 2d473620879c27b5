#pragma once

#include "program/Appearance.h"

namespace playground {

// How everything looks at the moment.
Appearance const& CurrentAppearance();

// Makes theme, look and language those of `appearance`. The scale and the direction are for whoever shows a
// window or makes a picture. Views made before keep their texts and sizes: they are to be made anew.
void ApplyAppearance(Appearance const& appearance);

}  // namespace playground
