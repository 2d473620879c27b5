#pragma once

#include <moxui/geometry/ColorRGBA.h>

namespace moxui::ui {
class ThemeProvider;
}

/// The colours that controls paint with, by role. A null provider means the running theme.
namespace moxui::skins::utilities {

/// Exactly one of the two is true; high contrast counts as dark.
bool GetIsLightTheme(ui::ThemeProvider const* provider = nullptr);
bool GetIsDarkTheme(ui::ThemeProvider const* provider = nullptr);

/// The gray scale, 1 (the panel's ground) to 9 (its strongest ink); 10 is the subdued tone of idle rings.
ColorRGBA GetPrismaGrayColor(ui::ThemeProvider const* provider, int index);
ColorRGBA GetPrismaGrayColor(int index);

ColorRGBA GetInteractiveControlColor(ui::ThemeProvider const* provider = nullptr);
ColorRGBA GetFocusColor(ui::ThemeProvider const* provider = nullptr);
ColorRGBA GetDefaultTextColor(ui::ThemeProvider const* provider = nullptr);
ColorRGBA GetDefaultTextDisabledColor(ui::ThemeProvider const* provider = nullptr);
ColorRGBA GetTabBackgroundColor(ui::ThemeProvider const* provider = nullptr);
ColorRGBA GetScrollBarThumbColor(ui::ThemeProvider const* provider = nullptr);
ColorRGBA GetProgressBarEmptyFillColor(ui::ThemeProvider const* provider = nullptr);
ColorRGBA GetProgressBarOuterLineColor(ui::ThemeProvider const* provider = nullptr);

}  // namespace moxui::skins::utilities
