#include "program/CommandLine.h"

#include "program/Localized.h"

#include <array>
#include <utility>

namespace playground {
namespace {

// One option: its name and what its value, if it takes one, does. False: the value means nothing.
struct Option {
  std::string_view name;
  bool takesValue;
  bool (*apply)(CommandLine&, std::string const& value);
};

template <class T>
bool Store(std::optional<T>& field, std::optional<T> const& value) {
  field = value;
  return value.has_value();
}

bool StoreText(std::string& field, std::string const& value) {
  field = value;
  return !value.empty();
}

constexpr std::array<Option, 12> kOptions{{
    {"--help", false,
     [](CommandLine& line, std::string const&) {
       line.task = ProgramTask::kHelp;
       return true;
     }},
    {"--version", false,
     [](CommandLine& line, std::string const&) {
       line.task = ProgramTask::kVersion;
       return true;
     }},
    {"--list", false,
     [](CommandLine& line, std::string const&) {
       line.task = ProgramTask::kList;
       return true;
     }},
    {"--render", true,
     [](CommandLine& line, std::string const& value) {
       line.task = ProgramTask::kRender;
       return StoreText(line.renderDirectory, value);
     }},
    {"--or-render", true,
     [](CommandLine& line, std::string const& value) {
       return StoreText(line.directoryWithoutDisplay, value);
     }},
    {"--page", true, [](CommandLine& line, std::string const& value) { return StoreText(line.page, value); }},
    {"--theme", true,
     [](CommandLine& line, std::string const& value) { return Store(line.theme, ThemeByName(value)); }},
    {"--look", true,
     [](CommandLine& line, std::string const& value) { return Store(line.look, LookByName(value)); }},
    {"--scale", true,
     [](CommandLine& line, std::string const& value) { return Store(line.scale, ScaleFromText(value)); }},
    {"--language", true,
     [](CommandLine& line, std::string const& value) { return Store(line.language, LanguageByName(value)); }},
    {"--right-to-left", false,
     [](CommandLine& line, std::string const&) {
       line.rightToLeft = true;
       return true;
     }},
    {"--autoquit", false,
     [](CommandLine& line, std::string const&) {
       line.quitAfterFirstPaint = true;
       return true;
     }},
}};

Option const* FindOption(std::string_view name) {
  if (name == "-h") {
    name = "--help";
  }
  for (Option const& option : kOptions) {
    if (option.name == name) {
      return &option;
    }
  }
  return nullptr;
}

}  // namespace

Appearance CommandLine::Over(Appearance base) const {
  base.theme = theme.value_or(base.theme);
  base.look = look.value_or(base.look);
  base.language = language.value_or(base.language);
  base.rightToLeft = rightToLeft.value_or(base.rightToLeft);
  base.scale = scale.value_or(base.scale);
  return base;
}

CommandLineResult ParseCommandLine(std::vector<std::string> const& arguments) {
  CommandLineResult result;
  CommandLine& line = result.commandLine;
  auto const failed = [&result](std::string reason) {
    result.error = std::move(reason);
    return result;
  };
  bool onlyFiles = false;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    std::string const& argument = arguments[i];
    if (onlyFiles || argument.size() < 2 || argument.front() != '-') {
      if (argument.empty()) {
        return failed(Text("$$$/playground/commandline/emptyFileName=The name of a file is empty."));
      }
      line.files.push_back(argument);
      continue;
    }
    if (argument == "--") {
      onlyFiles = true;
      continue;
    }
    auto const equals = argument.find('=');
    std::string const name = argument.substr(0, equals);
    Option const* const option = FindOption(name);
    if (option == nullptr) {
      return failed(Text("$$$/playground/commandline/unknownOption=Unknown option \"@0\".", {name}));
    }
    std::string value;
    if (option->takesValue) {
      if (equals != std::string::npos) {
        value = argument.substr(equals + 1);
      } else if (i + 1 < arguments.size()) {
        value = arguments[++i];
      } else {
        return failed(
            Text("$$$/playground/commandline/missingValue=The option \"@0\" needs a value.", {name}));
      }
    } else if (equals != std::string::npos) {
      return failed(
          Text("$$$/playground/commandline/needlessValue=The option \"@0\" takes no value.", {name}));
    }
    if (!option->apply(line, value)) {
      return failed(Text("$$$/playground/commandline/badValue=\"@1\" is no value for the option \"@0\".",
                         {name, value}));
    }
    if (line.task == ProgramTask::kHelp) {
      return result;  // whoever asks for help gets it, whatever else stands on the line
    }
  }
  return result;
}

std::string HelpText() {
  return Text(
      "$$$/playground/commandline/help="
      "Usage: playground [OPTION]... [FILE]...\n"
      "\n"
      "Opens the playground: every control at work. FILEs (sounds: WAV, AIFF, FLAC, Ogg, Opus,\n"
      "MP3; peaks: .dat) are opened on the audio page; without any the program makes its own sound.\n"
      "\n"
      "  --page NAME         open, or render, this page (see --list)\n"
      "  --render DIR        write a picture of every page and state into DIR, without a window\n"
      "  --or-render DIR     the same if there is no display to open a window on\n"
      "  --list              print the names of the pages\n"
      "  --theme NAME        dark, light or high-contrast\n"
      "  --look NAME         classic or v7\n"
      "  --scale FACTOR      from 0.5 to 4, or a percentage such as 150%\n"
      "  --language NAME     en, de, or pseudo: every text stretched and accented\n"
      "  --right-to-left     lay everything out from right to left\n"
      "  --autoquit          quit once the files are read and the window is painted\n"
      "  --help, --version   this text, the version\n"
      "\n"
      "Exit code: 0 when all went well, 1 when the program could not start or, with --render or --autoquit, "
      "a\n"
      "file could not be opened, read or written, 2 when the command line could not be understood. A window\n"
      "tells of its files itself.\n");
}

std::string VersionText() {
  return "playground (moxmediaui) 0.1.0\n";
}

}  // namespace playground
