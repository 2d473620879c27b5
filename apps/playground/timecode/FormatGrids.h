#pragma once

#include "timecode/FieldGrid.h"

#include <moxmediatypes/TickTime.h>

namespace playground {

// A field for each format of video at each of its rates, all at one time; where a rate has no drop-frame
// labels there is none.
FieldGridContent VideoFormatGrid(moxmediatypes::TickTime time);
// The same for sound.
FieldGridContent AudioFormatGrid(moxmediatypes::TickTime time);

}  // namespace playground
