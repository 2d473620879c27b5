#pragma once

#include "timecode/FieldGrid.h"

#include <moxmediatypes/TickTime.h>

#include <vector>

namespace playground {

// What a timecode field can be told, each thing in a grid of its own: who may work it and what stands beside
// it, what it shows without a time, where it counts from, how far it steps, the size of text that is edited.
std::vector<FieldGridContent> OptionGrids(moxmediatypes::TickTime time);

}  // namespace playground
