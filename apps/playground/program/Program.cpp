#include "program/Program.h"

#include "audio/AudioSession.h"
#include "program/AppearanceState.h"
#include "program/CommandLine.h"
#include "program/Localized.h"
#include "program/ProgramWindow.h"
#include "program/RenderPages.h"
#include "program/Settings.h"
#include "shell/Page.h"
#include "shell/ProgramState.h"

#include <moxaudiotoolkit/peaks/PeakCache.h>
#include <moxcore/config/ApplicationName.h>
#include <moxcore/config/InitializerRegistrar.h>
#include <moxcore/config/Localizer.h>
#include <moxcore/config/ModuleCatalogues.h>
#include <moxcore/utility/ModuleHandle.h>
#include <moxmediaui/Module.h>
#include <moxui/platform/Application.h>
#include <moxui/platform/Display.h>
#include <moxui/platform/Fonts.h>

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace playground {
namespace {

using moxui::platform::Application;

void Complain(std::string const& text) {
  std::cerr << "playground: " << text << std::endl;
}

// The library and the steps of the start run as long as this lives.
class Module {
 public:
  explicit Module(moxui::scriber::SupplierInterface const* supplier) {
    moxmediaui::Initialize(supplier);
    try {
      moxcore::config::RunInitializers(kContexts);
    } catch (...) {
      moxmediaui::Terminate();
      throw;
    }
  }
  ~Module() {
    try {
      moxcore::config::TerminateInitializers(kContexts);
    } catch (std::exception const& error) {
      Complain(error.what());
    }
    moxmediaui::Terminate();
  }
  Module(Module const&) = delete;
  Module& operator=(Module const&) = delete;

 private:
  static constexpr moxcore::config::ContextFlags kContexts = moxcore::config::kCoreContext |
                                                             moxcore::config::kPlaygroundContext |
                                                             moxcore::config::kApplicationContext;
};

bool IsSet(char const* variable) {
  char const* const value = std::getenv(variable);
  return value != nullptr && value[0] != '\0';
}

void PrintPages() {
  for (PageDescriptor const& page : AllPages()) {
    std::cout << page.name << '\n';
  }
}

// Peaks of sounds are kept for the next time, in a folder of the user's.
moxaudiotoolkit::FilePeaksOptions KeepingPeaks() {
  std::string const folder = moxaudiotoolkit::PeakCache::GetDefaultDirectory();
  moxaudiotoolkit::FilePeaksOptions options;
  if (!folder.empty()) {
    options.cache = std::make_shared<moxaudiotoolkit::PeakCache>(folder);
  }
  return options;
}

// What the program has to say before there is anything to look at is in the user's language too.
void SpeakIn(LanguageChoice const& language) {
  moxcore::config::Localizer::Get().SetLanguage(language.tag);
}

// The command line, with what is wrong about it told in the language that it names.
CommandLineResult ReadCommandLine(std::vector<std::string> const& arguments) {
  CommandLineResult result = ParseCommandLine(arguments);
  if (result.commandLine.language) {
    SpeakIn(*result.commandLine.language);
    if (!result.IsOk()) {
      result = ParseCommandLine(arguments);
    }
  }
  return result;
}

// The code of a run that nobody watches.
int CodeFor(AudioSession const& session) {
  return session.Failures().empty() && session.UnreadDocuments().empty() ? kAllWentWell : kFileFailed;
}

int RunWithPlatform(CommandLine const& line, Settings settings, std::optional<std::size_t> page, char* name) {
  // The platform's own arguments are none of ours.
  int count = 1;
  std::vector<char*> arguments{name, nullptr};
  auto const application = Application::Create(count, arguments.data());
  if (!moxui::platform::FontsAvailable()) {
    Complain(Text("$$$/playground/noFonts=There is no font to write with. Install one, such as Open Sans."));
    return kFileFailed;
  }
  Module const module(application->GetDrawSupplier());
  ProgramState state;
  state.appearance = line.Over(settings.appearance);
  state.audio.ChangeSettings([&settings](WaveformSettings& wave) {
    wave.rulerUnit = settings.rulerCountsSamples ? RulerUnit::kSamples : RulerUnit::kTime;
  });
  state.page = page.value_or(FindPageOrFirst(settings.page));
  // What can't be read is told of in the user's language.
  ApplyAppearance(state.appearance);
  state.audio.SetFailureFunction([](OpenFailure const& failure) { Complain(failure.Sentence()); });
  if (line.task != ProgramTask::kRender) {
    state.audio.SetPeaksOptions(KeepingPeaks());
  }
  state.audio.OpenFiles(line.files);
  if (line.task == ProgramTask::kRender) {
    // Pictures are of whole sounds.
    state.audio.WaitForPeaks();
    if (auto const reason = RenderPages(state, line.renderDirectory, page)) {
      Complain(*reason);
      return kFileFailed;
    }
    return CodeFor(state.audio);
  }
  if (!line.files.empty() && !page) {
    state.page = FindPage("audio");
  }
  int const code = RunWindow(*application, state, std::move(settings), line.quitAfterFirstPaint);
  // Whoever sits before the window reads there what has failed.
  return code == kAllWentWell && line.quitAfterFirstPaint ? CodeFor(state.audio) : code;
}

int Render(CommandLine const& line, std::optional<std::size_t> page, char* name) {
  // Pictures need no screen, and are the same on all of them.
  if (!IsSet("QT_QPA_PLATFORM")) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
  }
  // What is remembered is about the window: pictures depend on the command line alone.
  return RunWithPlatform(line, Settings(), page, name);
}

int RunWithoutDisplay(CommandLine line, std::optional<std::size_t> page, char* name) {
  if (line.directoryWithoutDisplay.empty()) {
    Complain(
        Text("$$$/playground/noDisplay=There is no display to open a window on. Pictures of the pages can be "
             "had with --render DIR."));
    return kFileFailed;
  }
  Complain(
      Text("$$$/playground/rendersInstead=There is no display to open a window on: pictures of the "
           "pages go to \"@0\".",
           {line.directoryWithoutDisplay}));
  line.task = ProgramTask::kRender;
  line.renderDirectory = line.directoryWithoutDisplay;
  return Render(line, page, name);
}

int Run(std::vector<std::string> const& arguments, char* name) {
  auto const [line, error] = ReadCommandLine(arguments);
  if (!error.empty()) {
    Complain(error);
    std::cerr << Text("$$$/playground/commandline/seeHelp=Try \"playground --help\".") << std::endl;
    return kNotUnderstood;
  }
  std::optional<std::size_t> page;
  if (!line.page.empty()) {
    page = FindPage(line.page);
    if (*page == AllPages().size()) {
      Complain(
          Text("$$$/playground/commandline/noPage=There is no page \"@0\". The pages are:", {line.page}));
      for (PageDescriptor const& known : AllPages()) {
        std::cerr << "  " << known.name << '\n';
      }
      return kNotUnderstood;
    }
  }
  switch (line.task) {
    case ProgramTask::kHelp:
      std::cout << HelpText();
      return kAllWentWell;
    case ProgramTask::kVersion:
      std::cout << VersionText();
      return kAllWentWell;
    case ProgramTask::kList:
      PrintPages();
      return kAllWentWell;
    case ProgramTask::kRender:
      return Render(line, page, name);
    case ProgramTask::kOpenWindow:
      break;
  }
  Settings settings = LoadSettings(SettingsPath());
  SpeakIn(line.Over(settings.appearance).language);
  if (!moxui::platform::HasDisplay(moxui::platform::DisplayEnvironment::OfProcess())) {
    return RunWithoutDisplay(line, page, name);
  }
  return RunWithPlatform(line, std::move(settings), page, name);
}

}  // namespace

int RunProgram(int argc, char** argv) {
  // Before the command line is read, which may name a language.
  moxcore::config::AddCataloguesFromModule(moxcore::utility::ModuleHandle::FromAddress(&kAllWentWell));
  moxcore::config::SetApplicationName("moxmediaui Playground");
  static char sName[] = "playground";
  try {
    return Run(std::vector<std::string>(argv + std::min(argc, 1), argv + argc), argc > 0 ? argv[0] : sName);
  } catch (std::exception const& error) {
    Complain(error.what());
    return kFileFailed;
  }
}

}  // namespace playground
