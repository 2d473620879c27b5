#include <moxui/skins/Theme.h>
#include <moxui/skins/ThemeColors.h>

#include <algorithm>

namespace moxui::skins::utilities {

using ui::GetColorOf;
using ui::ThemeColorID;
using ui::ThemeProvider;

bool GetIsLightTheme(ThemeProvider const* provider) {
  return ui::GetThemeOf(provider).IsLight();
}

bool GetIsDarkTheme(ThemeProvider const* provider) {
  return !GetIsLightTheme(provider);
}

ColorRGBA GetPrismaGrayColor(ThemeProvider const* provider, int index) {
  return GetColorOf(provider, static_cast<ThemeColorID>(std::clamp(index, 1, 10)));
}

ColorRGBA GetPrismaGrayColor(int index) {
  return GetPrismaGrayColor(nullptr, index);
}

ColorRGBA GetInteractiveControlColor(ThemeProvider const* provider) {
  return GetColorOf(provider, ThemeColorID::kInteractive);
}

ColorRGBA GetFocusColor(ThemeProvider const* provider) {
  return GetColorOf(provider, ThemeColorID::kFocus);
}

ColorRGBA GetDefaultTextColor(ThemeProvider const* provider) {
  return GetColorOf(provider, ThemeColorID::kDefaultText);
}

ColorRGBA GetDefaultTextDisabledColor(ThemeProvider const* provider) {
  return GetColorOf(provider, ThemeColorID::kDefaultTextDisabled);
}

ColorRGBA GetTabBackgroundColor(ThemeProvider const* provider) {
  return GetColorOf(provider, ThemeColorID::kTabBackground);
}

ColorRGBA GetScrollBarThumbColor(ThemeProvider const* provider) {
  return GetColorOf(provider, ThemeColorID::kScrollBarThumb);
}

ColorRGBA GetProgressBarEmptyFillColor(ThemeProvider const* provider) {
  return GetColorOf(provider, ThemeColorID::kProgressBarEmptyFill);
}

ColorRGBA GetProgressBarOuterLineColor(ThemeProvider const* provider) {
  return GetColorOf(provider, ThemeColorID::kProgressBarOuterLine);
}

}  // namespace moxui::skins::utilities
