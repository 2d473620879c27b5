#include "playground/TemporaryFolder.h"
#include "program/AppearanceState.h"
#include "program/ProgramWindow.h"
#include "program/Settings.h"
#include "shell/Page.h"
#include "shell/ProgramState.h"

#include <moxui/platform/Application.h>

#include <gtest/gtest.h>

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>
#include <cstdlib>
#include <functional>
#include <optional>
#include <string>

namespace playground {
namespace {

// A program in its window, as its user meets it: it runs until the window is closed.
class WindowOfTheProgram : public testing::Test {
 protected:
  WindowOfTheProgram() {
    if (char const* const before = std::getenv("XDG_CONFIG_HOME")) {
      mConfigBefore = before;
    }
    setenv("XDG_CONFIG_HOME", mFolder.Path().c_str(), 1);
  }
  ~WindowOfTheProgram() override {
    if (mConfigBefore) {
      setenv("XDG_CONFIG_HOME", mConfigBefore->c_str(), 1);
    } else {
      unsetenv("XDG_CONFIG_HOME");
    }
    ApplyAppearance({});
  }

  // Runs; `act` works on the window once it is shown, which is then closed by its frame's button.
  int Run(Settings const& settings, std::function<void(QWidget&)> const& act) {
    state.appearance = settings.appearance;
    auto& application = *moxui::platform::Application::Get();
    application.PostDelayed(20, [&] {
      for (QWidget* const widget : QApplication::topLevelWidgets()) {
        if (widget->isVisible()) {
          act(*widget);
          application.ProcessEvents();
          widget->close();
        }
      }
    });
    return RunWindow(application, state, settings, false);
  }
  static Settings Saved() { return LoadSettings(SettingsPath()); }
  static void Mouse(QWidget& window, QEvent::Type type, QPointF at) {
    QMouseEvent event(type, at, window.mapToGlobal(at),
                      type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(&window, &event);
  }

  ProgramState state;

 private:
  TemporaryFolder mFolder;
  std::optional<std::string> mConfigBefore;
};

TEST_F(WindowOfTheProgram, RemembersItsSizePageAndAppearanceWhenItIsClosed) {
  Settings settings;
  settings.appearance.theme = ThemeChoice::kLight;
  settings.appearance.look = LookChoice::kClassic;
  state.page = FindPage("slider");
  EXPECT_EQ(Run(settings, [](QWidget& window) { window.resize(1234, 777); }), 0);
  Settings const saved = Saved();
  EXPECT_EQ(saved.windowWidth, 1234);
  EXPECT_EQ(saved.windowHeight, 777);
  EXPECT_EQ(saved.page, "slider");
  EXPECT_EQ(saved.appearance, settings.appearance);
}

TEST_F(WindowOfTheProgram, RemembersTheSizeOnTheScreenAtAnotherScale) {
  Settings settings;
  settings.appearance.scale = 1.5;
  for (auto const& [width, height] : {std::pair{1501, 1003}, {1500, 1000}, {1600, 901}}) {
    Run(settings, [width = width, height = height](QWidget& window) { window.resize(width, height); });
    EXPECT_EQ(Saved().windowWidth, width);
    EXPECT_EQ(Saved().windowHeight, height);
    EXPECT_EQ(Saved().appearance.scale, 1.5);
  }
}

TEST_F(WindowOfTheProgram, OpensAsItWasClosedTimeAfterTime) {
  Settings settings;
  settings.windowWidth = 1445;
  settings.windowHeight = 907;
  settings.appearance.scale = 1.5;
  for (int i = 0; i < 3; ++i) {
    Run(settings, [&](QWidget& window) {
      EXPECT_EQ(window.width(), 1445);
      EXPECT_EQ(window.height(), 907);
    });
    settings = Saved();
  }
}

TEST_F(WindowOfTheProgram, KeepsTheSizeThatItHadBeforeItWasMaximised) {
  Settings settings;
  settings.windowWidth = 1000;
  settings.windowHeight = 700;
  Run(settings, [](QWidget& window) { window.showMaximized(); });
  EXPECT_EQ(Saved().windowWidth, 1000);
  EXPECT_EQ(Saved().windowHeight, 700);
}

TEST_F(WindowOfTheProgram, RecallsTheLayoutsThatWereChosen) {
  using enum moxmediatypes::AudioChannelLabel;
  Settings settings;
  settings.page = "channels";
  settings.layouts = {
      moxmediatypes::AudioChannelLayout{kLeft, kCenter, kRight, kLeftSurround, kRightSurround, kLowFrequency},
      {kCenter},
      moxmediatypes::CreateMonoChannelLayout(),
      {}};
  state.page = FindPage("channels");
  Run(settings, [&](QWidget&) {
    EXPECT_EQ(state.audio.Layout(), settings.layouts[0]);
    EXPECT_EQ(state.channels.LayoutFor(LayoutUse::kSound), settings.layouts[0]);
    EXPECT_EQ(state.channels.LayoutFor(LayoutUse::kOther), settings.layouts[1]);
    EXPECT_EQ(state.channels.LayoutFor(LayoutUse::kBuiltIn), settings.layouts[2]);
    EXPECT_EQ(state.channels.LayoutFor(LayoutUse::kWave), moxmediatypes::CreateStereoChannelLayout());
  });
  settings.layouts[3] = moxmediatypes::CreateStereoChannelLayout();
  EXPECT_EQ(Saved().layouts, settings.layouts);
}

TEST_F(WindowOfTheProgram, LeavesItsSoundAloneWithALayoutForAnotherNumberOfChannels) {
  Settings settings;
  settings.layouts[0] = moxmediatypes::CreateStereoChannelLayout();
  Run(settings, [&](QWidget&) { EXPECT_TRUE(state.audio.Layout().empty()); });
}

TEST_F(WindowOfTheProgram, ClosesInTheMiddleOfADrag) {
  EXPECT_EQ(Run({},
                [](QWidget& window) {
                  Mouse(window, QEvent::MouseButtonPress, {500.0, 400.0});
                  Mouse(window, QEvent::MouseMove, {600.0, 400.0});
                }),
            0);
  EXPECT_FALSE(state.audio.Selection().IsEmpty()) << "the drag was on the waveform";
  EXPECT_EQ(Saved().page, "audio");
  state.audio.ChangeView([](Viewport& view) { view.ZoomAt(10.0, 2.0); });
}

}  // namespace
}  // namespace playground
