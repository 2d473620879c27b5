#pragma once

#include <moxui/geometry/ColorRGBA.h>
#include <moxui/skins/ThemeColorID.h>

namespace moxui::ui {

/// A number that names exactly this colour, the same for equal colours. Numbers last as long as the process.
ThemeColorID GetCustomColorID(ColorRGBA const& colour);
/// The colour of such a number; opaque black for any other.
ColorRGBA GetCustomColor(ThemeColorID id);

}  // namespace moxui::ui
