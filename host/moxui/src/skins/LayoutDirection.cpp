#include <moxui/skins/LayoutDirection.h>
#include <moxui/skins/ThemeChanged.h>

namespace moxui::skins {
namespace {

bool gIsRightToLeft = false;

}  // namespace

bool IsRightToLeft() {
  return gIsRightToLeft;
}

void SetRightToLeft(bool rightToLeft) {
  if (gIsRightToLeft == rightToLeft) {
    return;
  }
  gIsRightToLeft = rightToLeft;
  ui::NotifyThemeChanged();
}

scriber::TextAlignment GetLeadingAlignment() {
  return gIsRightToLeft ? scriber::TextAlignment::kRight : scriber::TextAlignment::kLeft;
}

}  // namespace moxui::skins
