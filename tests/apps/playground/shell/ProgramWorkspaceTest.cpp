#include "playground/StagedProgram.h"

#include <moxcore/messaging/Station.h>
#include <moxmediaui/HotTimecodeControl.h>
#include <moxui/ui/KeyboardEvent.h>
#include <moxworkspace/WorkspaceUtils.h>

#include <gtest/gtest.h>

namespace playground {
namespace {

using moxmediaui::TickTime;
using moxmediaui::UI_HotTimecodeControl;
using moxui::ui::KeyboardCode;
using moxui::ui::ModKeys;
using moxworkspace::TabPanel;

moxworkspace::Workspace* MainWorkspace() {
  auto const* const window = moxworkspace::WorkspaceUtils::FindMainTopLevelWindow();
  return window != nullptr ? window->GetWorkspace() : nullptr;
}

TEST(ProgramWorkspace, IsThatOfTheMainWindowAndHoldsTheViewInItsFocusedPanel) {
  {
    StagedProgram program;
    EXPECT_EQ(MainWorkspace(), &program.shell.GetWorkspace());
    TabPanel* const panel = MainWorkspace()->GetFocusedTabPanel();
    EXPECT_EQ(panel, &program.shell.GetWorkspace().GetPanel());
    EXPECT_EQ(TabPanel::FindPanelOf(program.shell.View().GetPage()), panel);
    EXPECT_EQ(program.shell.View().UI_GetLocalRectF(true), moxui::RectT<float>(0.0f, 0.0f, 1200.0f, 800.0f));
  }
  EXPECT_EQ(MainWorkspace(), nullptr);
}

TEST(ProgramWorkspace, IsTheWindowsAgainAfterEachSwitchOfTheLook) {
  StagedProgram program;
  Appearance appearance;
  for (ThemeChoice const theme : {ThemeChoice::kLight, ThemeChoice::kHighContrast, ThemeChoice::kDark}) {
    appearance.theme = theme;
    program.shell.SetAppearance(appearance);
    program.stage.PaintFrame();
    EXPECT_EQ(MainWorkspace(), &program.shell.GetWorkspace());
    EXPECT_EQ(TabPanel::FindPanelOf(program.shell.View().GetPage()), MainWorkspace()->GetFocusedTabPanel());
    EXPECT_EQ(program.stage.GetRoot(), &program.shell.GetWorkspace());
  }
}

TEST(ProgramWorkspace, FillsTheWindowAtEachSize) {
  StagedProgram program;
  program.stage.GetTree().SetSize({1000.0f, 640.0f});
  program.stage.PaintFrame();
  EXPECT_EQ(program.shell.View().UI_GetLocalRectF(true), moxui::RectT<float>(0.0f, 0.0f, 1000.0f, 640.0f));
}

TEST(ProgramWorkspace, HandsKeysThatNothingHasTheFocusForToTheView) {
  StagedProgram program;
  program.stage.GetTree().SetFocus(nullptr, moxui::ui::FocusChangeReason::kByCode);
  EXPECT_TRUE(program.stage.Key(KeyboardCode::kF, ModKeys(moxui::ui::ModKey::kCommand)));
  EXPECT_TRUE(program.shell.View().GetSearch().UI_HasKeyboardFocus());
}

TEST(ProgramWorkspace, KeepsItsPanelFocusedWhereverIsPressed) {
  StagedProgram program;
  for (moxui::PointT<float> const point : {moxui::PointT<float>{600.0f, 60.0f}, {100.0f, 700.0f}}) {
    program.stage.Click(point, moxui::ui::MouseButton::kRight);
    EXPECT_EQ(MainWorkspace()->GetFocusedTabPanel(), &program.shell.GetWorkspace().GetPanel());
  }
}

TEST(ProgramWorkspace, HasRadialTurnsMoveATimecodeFieldUnderThePointer) {
  StagedProgram program;
  auto const field = moxcore::utility::MakeIntrusive<UI_HotTimecodeControl>();
  program.shell.View().GetPage()->ChildPushBack(field);
  field->UI_SetLocalRectF({40.0f, 100.0f, 100.0f, 24.0f});
  auto const station = moxcore::ImmutableString::Create("moxmediaui.rc.station");
  moxcore::messaging::AddWeakPtrListener(station, moxcore::messaging::ListenerOwner(field), field.Get());
  auto const turn = [station] {
    moxcore::messaging::BroadcastMessageOnMainThread(station, moxmediaui::RadialControllerChangeMessage(1));
  };
  program.stage.PaintFrame();
  program.stage.Move({5.0f, 5.0f});
  turn();
  EXPECT_EQ(field->GetTime(), TickTime());
  program.stage.Move(program.stage.CenterOf(*field));
  EXPECT_TRUE(field->IsInActiveHover());
  turn();
  EXPECT_EQ(field->GetTime(), TickTime(1, moxmediaui::FrameRate::k2997));
}

}  // namespace
}  // namespace playground
