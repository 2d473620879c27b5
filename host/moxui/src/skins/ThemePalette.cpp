#include "ThemePalette.h"

#include <cstddef>
#include <cstdint>

namespace moxui::ui {
namespace {

constexpr ColorRGBA FromHex(std::uint32_t rgb) {
  auto const channel = [rgb](int shift) { return static_cast<float>((rgb >> shift) & 0xFFu) / 255.0f; };
  return {channel(16), channel(8), channel(0), 1.0f};
}

// In the order of ThemeID.
constexpr std::array<ThemePalette, 3> kPalettes = {{
    {.id = ThemeID::kDark,
     .name = "Dark",
     .isLight = false,
     .gray = {FromHex(0x1B1B1D), FromHex(0x222222), FromHex(0x303030), FromHex(0x464648), FromHex(0x5C5C60),
              FromHex(0x7B7B80), FromHex(0x9D9DA3), FromHex(0xC9C9CE), FromHex(0xF2F2F4), FromHex(0x3D3D40)},
     .text = FromHex(0xB4B4BA),
     .interactive = FromHex(0x4DA3FF),
     .interactiveHover = FromHex(0x78BAFF),
     .interactivePressed = FromHex(0x2F8AEB),
     .onInteractive = FromHex(0x1B1B1D),
     .negative = FromHex(0xC9252D),
     .negativeHover = FromHex(0xD7373F),
     .negativePressed = FromHex(0xB11F26),
     .onNegative = FromHex(0xFFFFFF),
     .rangeBandDark = FromHex(0x5E93C8),
     .rangeBandLight = FromHex(0x86B4E0)},
    {.id = ThemeID::kLight,
     .name = "Light",
     .isLight = true,
     .gray = {FromHex(0xFFFFFF), FromHex(0xF4F4F5), FromHex(0xE4E4E7), FromHex(0xCDCDD2), FromHex(0xB2B2B9),
              FromHex(0x8A8A92), FromHex(0x6A6A72), FromHex(0x3F3F46), FromHex(0x18181B), FromHex(0xD8D8DC)},
     .text = FromHex(0x52525A),
     .interactive = FromHex(0x0B63C5),
     .interactiveHover = FromHex(0x0A57AD),
     .interactivePressed = FromHex(0x084889),
     .onInteractive = FromHex(0xFFFFFF),
     .negative = FromHex(0xC9252D),
     .negativeHover = FromHex(0xB11F26),
     .negativePressed = FromHex(0x8F1A20),
     .onNegative = FromHex(0xFFFFFF),
     .rangeBandDark = FromHex(0x1F5F9E),
     .rangeBandLight = FromHex(0x3476B8)},
    {.id = ThemeID::kHighContrast,
     .name = "High Contrast",
     .isLight = false,
     .gray = {FromHex(0x000000), FromHex(0x0A0A0A), FromHex(0x1C1C1C), FromHex(0x5A5A5A), FromHex(0x8C8C8C),
              FromHex(0xB4B4B4), FromHex(0xD0D0D0), FromHex(0xF0F0F0), FromHex(0xFFFFFF), FromHex(0x6E6E6E)},
     .text = FromHex(0xE0E0E0),
     .interactive = FromHex(0xFFE600),
     .interactiveHover = FromHex(0xFFF27A),
     .interactivePressed = FromHex(0xD9C400),
     .onInteractive = FromHex(0x000000),
     .negative = FromHex(0xFF8080),
     .negativeHover = FromHex(0xFFA0A0),
     .negativePressed = FromHex(0xE06060),
     .onNegative = FromHex(0x000000),
     .rangeBandDark = FromHex(0x6CB8FF),
     .rangeBandLight = FromHex(0x9CD0FF)},
}};

using enum ThemeColorID;

constexpr std::array kRoleGrays = {
    //        role                  dark light high contrast
    RoleGrays{kPanelBackground, 1, 1, 1},
    RoleGrays{kTabBackground, 2, 2, 2},
    RoleGrays{kDefaultTextDisabled, 5, 5, 5},
    RoleGrays{kStrongText, 9, 9, 9},
    RoleGrays{kScrollBarThumb, 6, 6, 6},
    RoleGrays{kScrollBarThumbActive, 7, 7, 7},
    RoleGrays{kScrollBarThumbPressed, 8, 8, 8},
    RoleGrays{kScrollBarTrack, 2, 2, 2},
    RoleGrays{kProgressBarEmptyFill, 3, 3, 3},
    RoleGrays{kProgressBarOuterLine, 2, 2, 1},
    RoleGrays{kFieldFill, 2, 1, 1},
    RoleGrays{kFieldFillHover, 3, 2, 3},
    RoleGrays{kFieldFillDisabled, 1, 2, 1},
    RoleGrays{kFieldOutline, 6, 6, 6},
    RoleGrays{kFieldOutlineActive, 7, 7, 9},
    RoleGrays{kFieldOutlineDisabled, 10, 10, 10},
    RoleGrays{kPlaceholderText, 7, 7, 6},
    RoleGrays{kButtonFill, 3, 3, 2},
    RoleGrays{kButtonFillHover, 4, 4, 3},
    RoleGrays{kButtonFillPressed, 2, 6, 1},
    RoleGrays{kButtonFillSelected, 5, 5, 4},
    RoleGrays{kButtonFillDisabled, 2, 2, 1},
    RoleGrays{kButtonOutline, 4, 4, 6},
    RoleGrays{kButtonOutlineActive, 6, 7, 9},
    RoleGrays{kButtonOutlineDisabled, 10, 10, 10},
    RoleGrays{kButtonText, 8, 8, 8},
    RoleGrays{kButtonTextActive, 9, 9, 9},
    RoleGrays{kButtonTextDisabled, 5, 5, 5},
    RoleGrays{kTableGridLine, 3, 3, 4},
    RoleGrays{kTableText, 8, 8, 9},
    RoleGrays{kTableEdgeLine, 4, 4, 5},
    RoleGrays{kTableAlternateRow, 2, 2, 3},
};

}  // namespace

ThemePalette const& GetPalette(ThemeID id) {
  return kPalettes[static_cast<std::size_t>(id)];
}

std::span<RoleGrays const> GetRoleGrays() {
  return kRoleGrays;
}

}  // namespace moxui::ui
