#pragma once

#include <moxcore/string/String.h>

namespace moxui::ui {

/// The fonts of a theme: text, smaller text, titles.
enum class FontIndex { kText = 0, kSmall = 1, kTitle = 2 };

/// The family of a theme font, the same in each theme and look.
moxcore::Utf8String GetFontName(FontIndex index);
/// Its size in logical pixels: 12 for text, 11 for small text, 13 for titles.
float GetFontSize(FontIndex index);

}  // namespace moxui::ui
