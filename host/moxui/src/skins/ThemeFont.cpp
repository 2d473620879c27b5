#include <moxui/scriber/FontNames.h>
#include <moxui/skins/ThemeFont.h>

namespace moxui::ui {

moxcore::Utf8String GetFontName(FontIndex) {
  return moxcore::Utf8String(utils::kHouseFontName);
}

float GetFontSize(FontIndex index) {
  switch (index) {
    case FontIndex::kText:
      return 12.0f;
    case FontIndex::kSmall:
      return 11.0f;
    case FontIndex::kTitle:
      return 13.0f;
  }
  return 12.0f;
}

}  // namespace moxui::ui
