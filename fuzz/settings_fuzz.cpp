// Reads bytes as the playground's settings file. Whatever was read is within its bounds and, written, reads
// as the same.
#include "program/Settings.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

void Require(bool condition) {
  if (!condition) {
    std::abort();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace playground;
  Settings const settings = SettingsFromText({reinterpret_cast<char const*>(data), size});
  Require(settings.windowWidth >= kSmallestWindowWidth && settings.windowWidth <= kLargestWindowEdge);
  Require(settings.windowHeight >= kSmallestWindowHeight && settings.windowHeight <= kLargestWindowEdge);
  Require(settings.appearance.scale >= kSmallestScale && settings.appearance.scale <= kLargestScale);
  Require(LanguageByName(LanguageName(settings.appearance.language)) == settings.appearance.language);
  Settings const once = SettingsFromText(TextFromSettings(settings));
  // A scale is written with four digits behind the point.
  Require(SettingsFromText(TextFromSettings(once)) == once);
  Require(once.page == settings.page && once.windowWidth == settings.windowWidth);
  return 0;
}
