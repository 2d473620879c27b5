#pragma once

#include <moxworkspace/TopLevelWindow.h>

#include <vector>

namespace moxworkspace {

/// Those that live, in order of their making.
std::vector<TopLevelWindow*>& TopLevelWindows();

}  // namespace moxworkspace
