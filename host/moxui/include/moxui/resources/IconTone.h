#pragma once

#include <moxcore/utility/ModuleResources.h>
#include <moxui/geometry/ColorRGBA.h>
#include <moxui/geometry/Flags.h>

#include <string_view>

namespace moxui::ui {
class ThemeProvider;
}

/// Icons are SVG documents in one tone: white at an opacity of 0.65, or `currentColor`. They are coloured by
/// replacing that tone in their bytes.
namespace moxui::utility {

class ResourceManager;

/// Units of an icon's document to the logical pixel: an icon of 36 units is 18 logical pixels wide.
inline constexpr float kIconScale = 2.0f;

/// The tone of an icon for a control's state (the bits of GetControlState); null means the running theme.
ColorRGBA GetIconTone(ui::ThemeProvider const* provider, Flags<unsigned int> state);

/// The document with `tone` in place of its own: white fills and strokes and `currentColor` take the colour,
/// an opacity of 0.65 takes its alpha. All else stays as it is.
moxcore::utility::ResourceBytes ApplyIconTone(moxcore::utility::ResourceBytes const& document,
                                              ColorRGBA const& tone);

/// Finds an icon's document: a plain name X is the resource S_X_N_D_AT_2X of type SVG; a name that begins
/// with S_ is taken as it stands, then with _AT_2X. The resources' name may be written with @2x as well.
/// False, with `document` untouched, if there is none.
bool FindIconDocument(ResourceManager const& resources, std::string_view name,
                      moxcore::utility::ResourceBytes& document);

}  // namespace moxui::utility
