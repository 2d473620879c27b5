#include "program/Settings.h"

#include "program/NumberText.h"

#include <moxcore/config/Errors.h>
#include <moxcore/filesupport/FileUtils.h>
#include <moxcore/filesupport/SafeSave.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <limits>
#include <system_error>

namespace playground {
namespace {

constexpr std::size_t kLongestFile = 65536;
constexpr std::size_t kLongestPageName = 64;
// So that all of them leave room in the file.
constexpr std::size_t kMostChannels = 1024;
// In the order of LayoutUse.
constexpr std::array<std::string_view, kLayoutUseCount> kLayoutKeys{"layout-sound", "layout-other",
                                                                    "layout-built-in", "layout-wave"};

int EdgeOr(std::string_view text, int smallest, int otherwise) {
  auto const value = IntegerFromText(text);
  if (!value || *value <= 0) {
    return otherwise;
  }
  return static_cast<int>(std::clamp<std::int64_t>(*value, smallest, kLargestWindowEdge));
}

bool IsPageName(std::string_view text) {
  return text.size() <= kLongestPageName && std::all_of(text.begin(), text.end(), [](char c) {
           return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-';
         });
}

// The labels' numbers with blanks between them. Nothing for what isn't all of that.
moxmediatypes::AudioChannelLayout LayoutFromText(std::string_view text) {
  moxmediatypes::AudioChannelLayout layout;
  while (!text.empty()) {
    auto const end = std::min(text.find(' '), text.size());
    auto const label = IntegerFromText(text.substr(0, end));
    if (!label || *label < 0 || *label > std::numeric_limits<std::uint32_t>::max() ||
        layout.size() == kMostChannels) {
      return {};
    }
    layout.emplace_back(static_cast<std::uint32_t>(*label));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return layout;
}

std::string TextFromLayout(moxmediatypes::AudioChannelLayout const& layout) {
  std::string text;
  for (auto const channel : layout) {
    text.append(text.empty() ? "" : " ").append(std::to_string(channel.GetNumber()));
  }
  return text;
}

void TakeLine(Settings& settings, std::string_view line) {
  auto const equals = line.find('=');
  if (equals == std::string_view::npos) {
    return;
  }
  std::string_view const key = line.substr(0, equals);
  std::string_view const value = line.substr(equals + 1);
  Appearance& appearance = settings.appearance;
  if (key == "width") {
    settings.windowWidth = EdgeOr(value, kSmallestWindowWidth, settings.windowWidth);
  } else if (key == "height") {
    settings.windowHeight = EdgeOr(value, kSmallestWindowHeight, settings.windowHeight);
  } else if (key == "page" && IsPageName(value)) {
    settings.page = value;
  } else if (key == "theme") {
    appearance.theme = ThemeByName(value).value_or(appearance.theme);
  } else if (key == "look") {
    appearance.look = LookByName(value).value_or(appearance.look);
  } else if (key == "language") {
    appearance.language = LanguageByName(value).value_or(appearance.language);
  } else if (key == "right-to-left") {
    appearance.rightToLeft = value == "yes";
  } else if (key == "scale") {
    appearance.scale = ScaleFromText(value).value_or(appearance.scale);
  } else if (key == "ruler") {
    settings.rulerCountsSamples = value == "samples";
  } else if (auto const use = std::ranges::find(kLayoutKeys, key); use != kLayoutKeys.end()) {
    settings.layouts[static_cast<std::size_t>(use - kLayoutKeys.begin())] = LayoutFromText(value);
  }
}

}  // namespace

Settings SettingsFromText(std::string_view text) {
  Settings settings;
  while (!text.empty()) {
    auto const end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    if (line.ends_with('\r')) {
      line.remove_suffix(1);
    }
    TakeLine(settings, line);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return settings;
}

std::string TextFromSettings(Settings const& settings) {
  Appearance const& appearance = settings.appearance;
  std::string text;
  auto const add = [&text](std::string_view key, std::string_view value) {
    text.append(key).append("=").append(value).append("\n");
  };
  add("width", std::to_string(settings.windowWidth));
  add("height", std::to_string(settings.windowHeight));
  add("page", settings.page);
  add("theme", ThemeName(appearance.theme));
  add("look", LookName(appearance.look));
  add("scale", TextFromNumber(appearance.scale, 4));
  add("language", LanguageName(appearance.language));
  add("right-to-left", appearance.rightToLeft ? "yes" : "no");
  add("ruler", settings.rulerCountsSamples ? "samples" : "time");
  for (std::size_t use = 0; use < kLayoutKeys.size(); ++use) {
    auto const& layout = settings.layouts[use];
    if (!layout.empty() && layout.size() <= kMostChannels) {
      add(kLayoutKeys[use], TextFromLayout(layout));
    }
  }
  return text;
}

std::filesystem::path SettingsPath() {
  std::filesystem::path base;
  if (char const* const config = std::getenv("XDG_CONFIG_HOME"); config != nullptr && config[0] == '/') {
    base = config;
  } else if (char const* const home = std::getenv("HOME"); home != nullptr && home[0] == '/') {
    base = std::filesystem::path(home) / ".config";
  } else {
    return {};
  }
  return base / "moxmediaui" / "playground.ini";
}

Settings LoadSettings(std::filesystem::path const& path) {
  std::error_code error;
  if (path.empty() || !std::filesystem::is_regular_file(path, error)) {
    return {};
  }
  std::ifstream stream(path, std::ios::binary);
  std::string text(kLongestFile, '\0');
  stream.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(std::max<std::streamsize>(stream.gcount(), 0)));
  return SettingsFromText(text);
}

bool SaveSettings(std::filesystem::path const& path, Settings const& settings) {
  if (path.empty()) {
    return false;
  }
  namespace files = moxcore::filesupport;
  if (!files::FileUtils::EnsureDirectoryExists(moxcore::Utf8String(path.parent_path().string()))) {
    return false;
  }
  try {
    files::SafeSave save(files::File(moxcore::Utf8String(path.string())));
    files::FileUtils::SimpleWriteStringToFile(save.GetTempFile().FullPath(), TextFromSettings(settings));
    save.Commit();
    return true;
  } catch (moxcore::config::mox_exception const&) {
    return false;
  }
}

}  // namespace playground
