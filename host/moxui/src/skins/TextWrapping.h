#pragma once

#include <string_view>
#include <vector>

namespace moxui::scriber {
class FontInterface;
}

namespace moxui::skins {

/// The lines of a text that is wrapped at words into a width, and broken at line feeds. A word that is wider
/// than the width has a line of its own. Blanks at the end of a wrapped line belong to none.
std::vector<std::u16string_view> WrapText(std::u16string_view text, float width,
                                          scriber::FontInterface const& font);

/// Height of one line, in whole pixels.
float GetLineHeight(scriber::FontInterface const& font);

}  // namespace moxui::skins
