#pragma once

#include <moxui/geometry/ColorRGBA.h>
#include <moxui/geometry/RectT.h>
#include <moxui/scriber/ScriberTypes.h>
#include <moxui/skins/TextTruncation.h>

#include <string_view>

namespace moxui::scriber {
class Scriber;
}

namespace moxui::skins {

/// What stands where a value isn't known.
inline constexpr std::u16string_view kUnknownText = u"\u2013";

/// One line of text centred in the height of a box, aligned in its width. Without truncation it is clipped to
/// the box.
void DrawTextLine(scriber::Scriber* scriber, std::u16string_view text, RectT<float> const& box,
                  scriber::TextAlignment alignment, TextTruncation truncation,
                  scriber::FontInterface const& font, ColorRGBA const& colour);

/// The baseline of a line in the middle of a box, on a whole pixel.
float GetCenteredBaseline(RectT<float> const& box, scriber::FontInterface const& font);

}  // namespace moxui::skins
