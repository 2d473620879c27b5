#pragma once

#include <moxui/geometry/ColorRGBA.h>
#include <moxui/skins/Theme.h>

#include <array>
#include <span>
#include <string_view>

namespace moxui::ui {

/// What one theme consists of. Roles that aren't listed here take a step of the gray scale.
struct ThemePalette {
  ThemeID id;
  std::string_view name;
  bool isLight;
  std::array<ColorRGBA, 10> gray;
  ColorRGBA text;
  ColorRGBA interactive;
  ColorRGBA interactiveHover;
  ColorRGBA interactivePressed;
  ColorRGBA onInteractive;
  ColorRGBA negative;
  ColorRGBA negativeHover;
  ColorRGBA negativePressed;
  ColorRGBA onNegative;
  /// Play range bands, on this theme's empty track.
  ColorRGBA rangeBandDark;
  ColorRGBA rangeBandLight;
};

/// The step of the gray scale that a role takes in each theme.
struct RoleGrays {
  ThemeColorID role;
  int dark;
  int light;
  int highContrast;
};

ThemePalette const& GetPalette(ThemeID id);
std::span<RoleGrays const> GetRoleGrays();

}  // namespace moxui::ui
