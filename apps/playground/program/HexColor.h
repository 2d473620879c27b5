#pragma once

#include <moxui/geometry/ColorRGBA.h>

#include <optional>
#include <string>
#include <string_view>

namespace playground {

// The opaque colour of a number 0xRRGGBB.
moxui::ColorRGBA ColorOfNumber(unsigned number);

// "#RRGGBB", or "#RRGGBBAA" when it isn't opaque, in capitals.
std::string HexFromColor(moxui::ColorRGBA const& color);

// Three, four, six or eight hexadecimal digits with or without "#" before them, spaces around them allowed.
std::optional<moxui::ColorRGBA> ColorFromHex(std::string_view text);

}  // namespace playground
