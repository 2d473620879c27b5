#pragma once

#include <moxui/scriber/ScriberTypes.h>

namespace moxui::skins {

/// Whether the interface is laid out from right to left, as Arabic and Hebrew are read: a property of the
/// process, read at layout and paint, off at first. Stock controls mirror what has a leading side: marks and
/// their labels, arrows, pictures beside texts, scroll bars, and texts whose alignment nobody has set. What
/// measures (sliders, and all that shows time) runs from left to right in every language.
bool IsRightToLeft();
/// Switches the direction. When it changes, the theme-changed functions are called after the new one answers.
void SetRightToLeft(bool rightToLeft);

/// Where a line of text begins: left, or right where the interface is laid out from right to left.
scriber::TextAlignment GetLeadingAlignment();

}  // namespace moxui::skins
