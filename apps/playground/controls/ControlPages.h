#pragma once

#include "shell/Page.h"

#include <vector>

namespace playground {

// A page for each stock control, in the order of the list.
std::vector<PageDescriptor> ControlPages();

}  // namespace playground
