#include "CustomColors.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace moxui::ui {
namespace {

constexpr auto kFirst = static_cast<unsigned>(ThemeColorID::kFirstCustomThemeColor);

std::vector<ColorRGBA>& Colors() {
  static std::vector<ColorRGBA> colors;
  return colors;
}

}  // namespace

ThemeColorID GetCustomColorID(ColorRGBA const& colour) {
  auto& colors = Colors();
  auto const found = std::find(colors.begin(), colors.end(), colour);
  auto const index = static_cast<unsigned>(found - colors.begin());
  if (found == colors.end()) {
    colors.push_back(colour);
  }
  return static_cast<ThemeColorID>(kFirst + index);
}

ColorRGBA GetCustomColor(ThemeColorID id) {
  auto const index = static_cast<std::size_t>(static_cast<unsigned>(id) - kFirst);
  return index < Colors().size() ? Colors()[index] : ColorRGBAFixed::Black;
}

}  // namespace moxui::ui
