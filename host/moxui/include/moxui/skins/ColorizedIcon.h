#pragma once

#include <moxui/geometry/ColorRGBA.h>
#include <moxui/geometry/Flags.h>
#include <moxui/scriber/ScriberTypes.h>

#include <string_view>

namespace moxui::scriber {
class Scriber;
}
namespace moxui::ui {
class ThemeProvider;
}
namespace moxui::utility {
class ResourceManager;
}

namespace moxui::skins::utilities {

/// The image of the icon `name` (see IconTone.h for names) among `resources`, in the colour that a control's
/// state asks for: `rest`, `active` while the pointer is over the control or presses it, `disabled` before
/// both. The icon's own white, `currentColor` and opacity give way to that colour and its alpha. Made by the
/// scriber's supplier anew at each call; null if there is no such icon or it can't be made. The colours are
/// given, so the theme of `provider`, from which a caller takes them, has no say; it may be null.
scriber::ImageP GetColorizedSVGIconImage(ui::ThemeProvider const* provider, scriber::Scriber* scriber,
                                         std::string_view name, ColorRGBA const& rest,
                                         ColorRGBA const& active, ColorRGBA const& disabled,
                                         Flags<unsigned int> state,
                                         moxui::utility::ResourceManager const* resources);

}  // namespace moxui::skins::utilities
