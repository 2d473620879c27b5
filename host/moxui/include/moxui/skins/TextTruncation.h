#pragma once

#include <moxcore/string/String.h>

#include <string_view>

namespace moxui::scriber {
class FontInterface;
}

namespace moxui::skins {

/// What a text that doesn't fit gives up: nothing (it is clipped), or its start, end or middle for an
/// ellipsis.
enum class TextTruncation { kNone = 0, kStart = 1, kEnd = 2, kMiddle = 3 };

/// The text if it is no wider than `width`, else as much of it as fits with an ellipsis (U+2026) in the place
/// of what was taken out, no space before it; empty when not even that fits. Pairs of surrogates and marks
/// stay with their characters.
moxcore::Utf16String TruncateText(std::u16string_view text, float width, scriber::FontInterface const& font,
                                  TextTruncation truncation);

}  // namespace moxui::skins
