#pragma once

#include <moxui/skins/Look.h>
#include <moxui/skins/Theme.h>

namespace moxui::testing {

/// Runs a theme and a look while it lives, and those from before afterwards.
class RunningLook {
 public:
  explicit RunningLook(bool isV7, ui::ThemeID theme = ui::ThemeID::kDark)
      : mLookBefore(skins::IsRunningV7OrBeyond()), mThemeBefore(ui::Theme::Get().GetID()) {
    skins::SetRunningV7OrBeyond(isV7);
    ui::SetCurrentTheme(theme);
  }
  ~RunningLook() {
    skins::SetRunningV7OrBeyond(mLookBefore);
    ui::SetCurrentTheme(mThemeBefore);
  }
  RunningLook(RunningLook const&) = delete;
  RunningLook& operator=(RunningLook const&) = delete;

 private:
  bool mLookBefore;
  ui::ThemeID mThemeBefore;
};

}  // namespace moxui::testing
