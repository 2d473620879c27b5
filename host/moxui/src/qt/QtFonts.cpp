#include "QtFonts.h"

#include "EventTranslation.h"

#include <moxui/platform/Fonts.h>
#include <moxui/scriber/FontNames.h>

#include <QFontDatabase>
#include <QGuiApplication>
#include <QRawFont>

namespace moxui::qt {

QFont HouseFont() {
  QFont font(ToQString(utils::ValidateFontName(utils::kHouseFontName)));
  font.setPixelSize(12);
  font.setHintingPreference(QFont::PreferNoHinting);
  font.setStyleStrategy(static_cast<QFont::StyleStrategy>(QFont::NoSubpixelAntialias | QFont::NoFontMerging |
                                                          QFont::PreferAntialias));
  return font;
}

}  // namespace moxui::qt

namespace moxui::platform {

bool FontsAvailable() {
  if (QGuiApplication::instance() == nullptr || QFontDatabase::families().isEmpty()) {
    return false;
  }
  // Families may be listed that have no letters, and without any font all letters are the same box.
  QRawFont const font = QRawFont::fromFont(qt::HouseFont());
  auto const glyphs = font.glyphIndexesForString("ab");
  return font.isValid() && glyphs.size() == 2 && glyphs[0] != 0 && glyphs[0] != glyphs[1];
}

moxcore::Utf8String GetHouseFontName() {
  return utils::ValidateFontName(utils::kHouseFontName);
}

std::vector<moxcore::Utf8String> GetFontFamilies() {
  std::vector<moxcore::Utf8String> families;
  for (QString const& family : QFontDatabase::families()) {
    if (!QFontDatabase::isPrivateFamily(family)) {
      families.push_back(qt::ToUtf8(family));
    }
  }
  return families;
}

}  // namespace moxui::platform
