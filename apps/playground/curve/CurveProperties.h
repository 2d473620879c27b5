#pragma once

#include "properties/Property.h"

#include <functional>
#include <vector>

namespace playground {

class CurveSession;

// Everything of a curve that can be worked in a panel. `type` opens the dialog for the selected point. The
// session outlives what comes back.
std::vector<PropertyGroup> CurveProperties(CurveSession& session, std::function<void()> type);

}  // namespace playground
