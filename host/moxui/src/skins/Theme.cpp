#include "CustomColors.h"
#include "ThemePalette.h"

#include <moxui/skins/Theme.h>
#include <moxui/skins/ThemeChanged.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace moxui::ui {
namespace {

constexpr float kSelectionOpacity = 0.25f;

ThemeID gRunning = ThemeID::kDark;

class RunningThemeProvider : public ThemeProvider {
 public:
  Theme const& GetTheme() const override { return Theme::Get(); }
};

int GrayOfRole(RoleGrays const& grays, ThemeID theme) {
  switch (theme) {
    case ThemeID::kDark:
      return grays.dark;
    case ThemeID::kLight:
      return grays.light;
    case ThemeID::kHighContrast:
      return grays.highContrast;
  }
  return grays.dark;
}

}  // namespace

Theme const& Theme::Get() {
  return Get(gRunning);
}

Theme const& Theme::Get(ThemeID id) {
  static std::array<Theme, 3> const themes = {Theme(GetPalette(ThemeID::kDark)),
                                              Theme(GetPalette(ThemeID::kLight)),
                                              Theme(GetPalette(ThemeID::kHighContrast))};
  return themes[static_cast<std::size_t>(id)];
}

ThemeID Theme::GetID() const {
  return mPalette->id;
}

std::string_view Theme::GetName() const {
  return mPalette->name;
}

bool Theme::IsLight() const {
  return mPalette->isLight;
}

ColorRGBA Theme::GetColor(ThemeColorID id) const {
  if (id >= ThemeColorID::kFirstCustomThemeColor) {
    return GetCustomColor(id);
  }
  if (id >= ThemeColorID::kGray1 && id <= ThemeColorID::kGray10) {
    return GetGray(static_cast<int>(id));
  }
  switch (id) {
    case ThemeColorID::kInteractive:
    case ThemeColorID::kFocus:
    case ThemeColorID::kProgressBarFill:
      return mPalette->interactive;
    case ThemeColorID::kInteractiveHover:
      return mPalette->interactiveHover;
    case ThemeColorID::kInteractivePressed:
      return mPalette->interactivePressed;
    case ThemeColorID::kOnInteractive:
      return mPalette->onInteractive;
    case ThemeColorID::kNegative:
      return mPalette->negative;
    case ThemeColorID::kNegativeHover:
      return mPalette->negativeHover;
    case ThemeColorID::kNegativePressed:
      return mPalette->negativePressed;
    case ThemeColorID::kOnNegative:
      return mPalette->onNegative;
    case ThemeColorID::kSelectionFill:
      return mPalette->interactive.WithAlpha(kSelectionOpacity);
    case ThemeColorID::kRangeBandDark:
      return mPalette->rangeBandDark;
    case ThemeColorID::kRangeBandLight:
      return mPalette->rangeBandLight;
    default:
      break;
  }
  for (RoleGrays const& grays : GetRoleGrays()) {
    if (grays.role == id) {
      return GetGray(GrayOfRole(grays, mPalette->id));
    }
  }
  return mPalette->text;
}

ColorRGBA Theme::GetGray(int index) const {
  return mPalette->gray[static_cast<std::size_t>(std::clamp(index, 1, 10) - 1)];
}

ColorRGBA ThemeProvider::GetColor(ThemeColorID id) const {
  return GetTheme().GetColor(id);
}

ThemeProvider const* GetDefaultThemeProvider() {
  static RunningThemeProvider const provider;
  return &provider;
}

Theme const& GetThemeOf(ThemeProvider const* provider) {
  return provider != nullptr ? provider->GetTheme() : Theme::Get();
}

ColorRGBA GetColorOf(ThemeProvider const* provider, ThemeColorID id) {
  return provider != nullptr ? provider->GetColor(id) : Theme::Get().GetColor(id);
}

void SetCurrentTheme(ThemeID id) {
  if (gRunning == id) {
    return;
  }
  gRunning = id;
  NotifyThemeChanged();
}

ColorRGBA GetColor(ThemeColorID id) {
  return Theme::Get().GetColor(id);
}

ColorRGBA GetColor(unsigned id) {
  return GetColor(static_cast<ThemeColorID>(id));
}

}  // namespace moxui::ui
