#include <moxmediaui/Module.h>

namespace moxmediaui::utility {

// Images without alpha replace what lies beneath by themselves. The calls that bracket them stay, for a
// surface that needs to be told.
void SetBlendModeToCopy(moxui::scriber::SurfaceInterface* /*surface*/, bool /*copy*/) {}

}  // namespace moxmediaui::utility
