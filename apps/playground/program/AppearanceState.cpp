#include "program/AppearanceState.h"

#include <moxcore/config/Localizer.h>
#include <moxui/skins/LayoutDirection.h>
#include <moxui/skins/Look.h>
#include <moxui/skins/Theme.h>

namespace playground {
namespace {

Appearance& State() {
  static Appearance state;
  return state;
}

moxui::ui::ThemeID ThemeIDOf(ThemeChoice theme) {
  switch (theme) {
    case ThemeChoice::kLight:
      return moxui::ui::ThemeID::kLight;
    case ThemeChoice::kHighContrast:
      return moxui::ui::ThemeID::kHighContrast;
    case ThemeChoice::kDark:
      break;
  }
  return moxui::ui::ThemeID::kDark;
}

}  // namespace

Appearance const& CurrentAppearance() {
  return State();
}

void ApplyAppearance(Appearance const& appearance) {
  State() = appearance;
  moxcore::config::Localizer::Get().SetLanguage(appearance.language.tag);
  moxui::skins::SetRightToLeft(appearance.rightToLeft);
  moxui::skins::SetRunningV7OrBeyond(appearance.look == LookChoice::kV7);
  moxui::ui::SetCurrentTheme(ThemeIDOf(appearance.theme));
}

}  // namespace playground
