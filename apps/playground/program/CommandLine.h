#pragma once

#include "program/Appearance.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace playground {

enum class ProgramTask { kOpenWindow, kRender, kList, kHelp, kVersion };

// What the user asked for. What they left out is not there, so that the settings file can answer.
struct CommandLine {
  ProgramTask task = ProgramTask::kOpenWindow;
  std::string renderDirectory;
  std::string directoryWithoutDisplay;  // to render into where no window can be opened; empty: nowhere
  std::string page;
  std::optional<ThemeChoice> theme;
  std::optional<LookChoice> look;
  std::optional<LanguageChoice> language;
  std::optional<bool> rightToLeft;
  std::optional<double> scale;
  bool quitAfterFirstPaint = false;  // and after the files have been read
  std::vector<std::string> files;

  // `base` with what was asked for in its place.
  Appearance Over(Appearance base) const;
};

// A command line, or the reason why there is none, a sentence for the user; then the command line has what
// was read up to there.
struct CommandLineResult {
  CommandLine commandLine;
  std::string error;

  bool IsOk() const { return error.empty(); }
};

// Reads the arguments behind the program's name. Options may stand before, between and behind the files, as
// "--name value" or "--name=value"; all that follows "--" is a file, and so is "-" alone.
CommandLineResult ParseCommandLine(std::vector<std::string> const& arguments);

std::string HelpText();
std::string VersionText();

}  // namespace playground
