#pragma once

namespace playground {

class CurveSession;

// Has the selected point typed in a dialog over the window; the curve follows the numbers meanwhile. What was
// done is one step, or nothing when the user gave up.
void TypeSelectedPoint(CurveSession& session);

}  // namespace playground
