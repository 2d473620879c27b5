#pragma once

#include "controls/StateTable.h"

#include <moxmediatypes/TickTime.h>

#include <vector>

namespace playground {

// Timecode fields of several kinds, for a table of their states; their unknown state is that of no time.
std::vector<StateColumn> FieldStateColumns(moxmediatypes::TickTime time);

}  // namespace playground
