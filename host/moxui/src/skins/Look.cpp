#include <moxui/skins/Look.h>
#include <moxui/skins/ThemeChanged.h>

namespace moxui::skins {
namespace {

bool gRunsV7 = true;

}  // namespace

bool IsRunningV7OrBeyond() {
  return gRunsV7;
}

void SetRunningV7OrBeyond(bool runs) {
  if (gRunsV7 == runs) {
    return;
  }
  gRunsV7 = runs;
  ui::NotifyThemeChanged();
}

int GetToolTipDelay() {
  return gRunsV7 ? 200 : 400;
}

}  // namespace moxui::skins
