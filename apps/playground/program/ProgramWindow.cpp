#include "program/ProgramWindow.h"

#include "program/Localized.h"
#include "program/WindowIcon.h"
#include "shell/Page.h"
#include "shell/Shell.h"

#include <moxui/platform/Application.h>
#include <moxui/platform/Window.h>
#include <moxui/scriber/ImageInterface.h>
#include <moxui/skins/Theme.h>
#include <moxui/ui/NodeTree.h>

#include <cmath>
#include <functional>
#include <memory>
#include <utility>

namespace playground {
namespace {

using moxui::platform::Application;
using moxui::platform::Window;

// How often it is looked whether all is read and painted, in milliseconds.
constexpr int kPaintCheck = 10;

void ShowAppearance(Window& window, Appearance const& appearance) {
  auto const zoom = static_cast<float>(appearance.scale);
  window.SetBackground(moxui::ui::GetColor(moxui::ui::ThemeColorID::kPanelBackground));
  window.SetTitle(Text16("$$$/playground/windowTitle=moxmediaui Playground"));
  window.SetZoom(zoom);
  window.SetMinimumSize({kSmallestWindowWidth * zoom, kSmallestWindowHeight * zoom});
}

// The session begins with the program's own sound; files are opened on other threads and join it later.
void RecallLayouts(ProgramState& state, Settings const& settings) {
  state.channels.Recall(settings.layouts);
  state.audio.SetLayout(state.channels.LayoutForOwnSound());
}

void QuitOncePainted(Application& application, Window& window, AudioSession const& session) {
  application.PostDelayed(kPaintCheck, [&application, &window, &session] {
    if (!session.IsReading() && window.IsShown() && !window.GetTree().NeedsFrame()) {
      application.Quit(0);
    } else {
      QuitOncePainted(application, window, session);
    }
  });
}

}  // namespace

int RunWindow(Application& application, ProgramState& state, Settings settings, bool quitsAfterFirstPaint) {
  RecallLayouts(state, settings);
  moxui::platform::WindowOptions options;
  options.size = {static_cast<float>(settings.windowWidth), static_cast<float>(settings.windowHeight)};
  auto const window = application.CreateWindow(options);
  Shell shell(state, window->GetTree(), window.get());
  shell.SetAppearanceFunction(
      [&window](Appearance const& appearance) { ShowAppearance(*window, appearance); });
  ShowAppearance(*window, state.appearance);
  window->SetIcon(*WindowIcon(*application.GetDrawSupplier()));
  window->SetCloseFunction([&application] {
    application.Quit(0);
    return true;
  });
  window->Show();
  if (quitsAfterFirstPaint) {
    QuitOncePainted(application, *window, state.audio);
  }
  int const code = application.Run();

  if (!window->IsMaximized()) {
    // The tree's size is in logical pixels of the scale, the window's in those of the screen.
    auto const size = window->GetTree().GetSize();
    double const zoom = state.appearance.scale;
    settings.windowWidth = static_cast<int>(std::lround(size.width * zoom));
    settings.windowHeight = static_cast<int>(std::lround(size.height * zoom));
  }
  settings.page = AllPages()[state.page].name;
  settings.appearance = state.appearance;
  settings.rulerCountsSamples = state.audio.Settings().rulerUnit == RulerUnit::kSamples;
  settings.layouts = state.channels.Remembered();
  if (!quitsAfterFirstPaint) {
    SaveSettings(SettingsPath(), settings);
  }
  return code;
}

}  // namespace playground
