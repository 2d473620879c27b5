#pragma once

#include <span>
#include <string_view>

namespace playground {

// A colour that can be chosen by its name, a literal; the number is 0xRRGGBB.
struct NamedColor {
  std::string_view name;
  unsigned number;
};

std::span<NamedColor const> NamedColors();

}  // namespace playground
