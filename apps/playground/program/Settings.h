#pragma once

#include "channels/ChannelDesk.h"
#include "program/Appearance.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace playground {

inline constexpr int kSmallestWindowWidth = 960;
inline constexpr int kSmallestWindowHeight = 600;
inline constexpr int kLargestWindowEdge = 16384;

// What the program remembers from one time to the next. The window's size is in logical pixels.
struct Settings {
  int windowWidth = 1440;
  int windowHeight = 900;
  std::string page;  // empty: the first one
  Appearance appearance;
  bool rulerCountsSamples = false;  // else times
  ChannelDesk::Layouts layouts;     // by their use; empty: nothing was chosen

  bool operator==(Settings const&) const = default;
};

// One "key=value" a line. Reading takes what it understands: lines that mean nothing are passed over and
// values out of range leave the default, so that a damaged file never keeps the program from starting.
Settings SettingsFromText(std::string_view text);
std::string TextFromSettings(Settings const& settings);

// $XDG_CONFIG_HOME/moxmediaui/playground.ini, else ~/.config/moxmediaui/playground.ini; empty when there is
// neither, and nothing is remembered then.
std::filesystem::path SettingsPath();

// The defaults when there is no file or it can't be read.
Settings LoadSettings(std::filesystem::path const& path);
// Replaces the file as a whole, making its folder; false when it couldn't be written.
bool SaveSettings(std::filesystem::path const& path, Settings const& settings);

}  // namespace playground
