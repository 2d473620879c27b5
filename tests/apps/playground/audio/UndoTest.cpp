#include "audio/EditBar.h"
#include "audio/GlyphButton.h"
#include "audio/OverviewBar.h"
#include "audio/WaveformView.h"
#include "playground/StagedProgram.h"

#include <moxui/ui/KeyboardEvent.h>

#include <gtest/gtest.h>

namespace playground {
namespace {

using moxui::PointT;
using moxui::ui::KeyboardCode;
using moxui::ui::ModKeys;
namespace ModKey = moxui::ui::ModKey;

class Undo : public testing::Test {
 protected:
  PointT<float> At(float share) { return StagedProgram::PointIn(program.Audio().Waveform(), share); }
  Viewport const& View() { return program.Session().View(); }
  SampleSelection const& Selection() { return program.Session().Selection(); }
  void Focus() { program.Audio().Waveform().UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kByCode); }
  void Pause() { program.stage.AdvanceTime(2000.0); }
  bool PressUndo() { return program.stage.Key(KeyboardCode::kZ, ModKeys(ModKey::kCommand)); }
  bool PressRedo() { return program.stage.Key(KeyboardCode::kZ, ModKeys(ModKey::kCommand | ModKey::kShift)); }
  // How often undo finds a step.
  int Steps() {
    int steps = 0;
    while (program.Session().Undo()) {
      ++steps;
    }
    return steps;
  }

  StagedProgram program;
};

TEST_F(Undo, BeginsWithNothingToUndo) {
  program.stage.PaintFrame();
  EXPECT_FALSE(program.Session().CanUndo());
  EXPECT_FALSE(program.Session().CanRedo());
  EXPECT_FALSE(program.Audio().Edit().UndoButton().UI_IsEnabled());
  EXPECT_FALSE(program.Audio().Edit().RedoButton().UI_IsEnabled());
  EXPECT_FALSE(program.Audio().Edit().ZoomButton().UI_IsEnabled());
}

TEST_F(Undo, DragOfASelectionIsOneStep) {
  program.stage.Drag(At(0.25f), At(0.5f), 20);
  SampleSelection const selected = Selection();
  ASSERT_FALSE(selected.IsEmpty());
  EXPECT_TRUE(PressUndo());
  EXPECT_TRUE(Selection().IsEmpty());
  EXPECT_EQ(Selection().Head(), 0);
  EXPECT_FALSE(program.Session().CanUndo());
  EXPECT_TRUE(PressRedo());
  EXPECT_EQ(Selection(), selected);
}

TEST_F(Undo, DragThatScrollsWhileItSelectsIsOneStep) {
  program.Session().ChangeView([](Viewport& view) { view.ZoomAt(view.Width() / 2.0, 8.0); });
  Viewport const before = View();
  program.stage.Press(At(0.5f));
  program.stage.Move({At(1.0f).x + 30.0f, At(1.0f).y});
  program.stage.AdvanceTime(1000.0);
  program.stage.Release({At(1.0f).x + 30.0f, At(1.0f).y});
  ASSERT_FALSE(View() == before);
  program.Session().Undo();
  EXPECT_EQ(View(), before);
  EXPECT_TRUE(Selection().IsEmpty());
}

TEST_F(Undo, WaitsForTheEndOfADrag) {
  program.stage.Drag(At(0.25f), At(0.5f));
  Pause();
  program.stage.Press(At(0.6f));
  program.stage.Move(At(0.7f));
  SampleSelection const dragged = Selection();
  EXPECT_FALSE(program.Session().CanUndo());
  PressUndo();
  EXPECT_EQ(Selection(), dragged);
  program.stage.Release(At(0.7f));
  EXPECT_EQ(Steps(), 2);
}

TEST_F(Undo, BurstOfWheelTurnsIsOneStep) {
  for (int i = 0; i < 5; ++i) {
    program.stage.Wheel(At(0.3f), {0.0f, 30.0f});
    program.stage.AdvanceTime(50.0);
  }
  Viewport const zoomed = View();
  Pause();
  program.stage.Wheel(At(0.3f), {0.0f, 30.0f});
  program.Session().Undo();
  EXPECT_EQ(View(), zoomed);
  program.Session().Undo();
  EXPECT_TRUE(View().ShowsAll());
  EXPECT_FALSE(program.Session().CanUndo());
}

TEST_F(Undo, HeldKeyIsOneStep) {
  program.Session().ChangeView([](Viewport& view) { view.ZoomAt(view.Width() / 2.0, 8.0); });
  Focus();
  for (int i = 0; i < 10; ++i) {
    program.stage.Key(KeyboardCode::kRight);
    program.stage.AdvanceTime(30.0);
  }
  EXPECT_EQ(Steps(), 2);
}

TEST_F(Undo, KeysOfDifferentKindsAreDifferentSteps) {
  Focus();
  program.stage.Key(KeyboardCode::kPlus);
  program.stage.Key(KeyboardCode::kPlus);
  program.stage.Key(KeyboardCode::kPageDown);
  program.stage.Key(KeyboardCode::kRight, ModKeys(ModKey::kShift));
  program.stage.Key(KeyboardCode::kF);
  EXPECT_EQ(Steps(), 4);
}

TEST_F(Undo, OverviewsDragIsOneStep) {
  program.Session().ChangeView([](Viewport& view) { view.ZoomAt(view.Width() / 2.0, 8.0); });
  Viewport const before = View();
  OverviewBar& overview = program.Audio().Overview();
  auto const thumb = overview.UI_ConvertRectTo(nullptr, overview.ThumbRect());
  program.stage.Drag(thumb.Center(), {thumb.Center().x + 50.0f, thumb.Center().y}, 10);
  ASSERT_FALSE(View() == before);
  program.Session().Undo();
  EXPECT_EQ(View(), before);
}

TEST_F(Undo, AnotherWindowSizeIsNoStepAndTheOldPartIsShownInTheNewWidth) {
  program.Session().ChangeView([](Viewport& view) { view.Show(48000.0, 96000.0); });
  program.Session().ChangeView([](Viewport& view) { view.ShowAll(); });
  program.stage.GetTree().SetSize({1400.0f, 900.0f});
  program.stage.PaintFrame();
  int const width = View().Width();
  EXPECT_TRUE(program.Session().Undo());
  EXPECT_EQ(View().Width(), width);
  EXPECT_NEAR(View().Left(), 48000.0, 1e-6);
  EXPECT_NEAR(View().VisibleSamples(), 48000.0, 1e-6);
  EXPECT_TRUE(program.Session().Undo());
  EXPECT_FALSE(program.Session().CanUndo());
}

TEST_F(Undo, EachSoundHasItsOwnStepsAndIsFoundAsItWasLeft) {
  program.stage.Drag(At(0.25f), At(0.5f));
  SampleSelection const selected = Selection();
  program.Session().ShowDocument(program.Session().Documents().size());
  EXPECT_FALSE(program.Session().CanUndo());
  program.Session().ShowDocument(0);
  EXPECT_EQ(Selection(), selected);
  EXPECT_TRUE(program.Session().CanUndo());
  program.Session().Undo();
  EXPECT_TRUE(Selection().IsEmpty());
}

TEST_F(Undo, StepsOutliveAnotherAppearance) {
  program.stage.Drag(At(0.25f), At(0.5f));
  Appearance light = program.state.appearance;
  light.theme = ThemeChoice::kLight;
  program.shell.SetAppearance(light);
  EXPECT_TRUE(program.Session().CanUndo());
  EXPECT_TRUE(program.Audio().Edit().UndoButton().UI_IsEnabled());
}

TEST_F(Undo, DragThatAnotherAppearanceEndsIsAStep) {
  program.stage.Press(At(0.25f));
  program.stage.Move(At(0.5f));
  Appearance light = program.state.appearance;
  light.theme = ThemeChoice::kLight;
  program.shell.SetAppearance(light);
  EXPECT_TRUE(program.Session().CanUndo());
}

TEST_F(Undo, ButtonsWorkAndTellTheirKeys) {
  EditBar& bar = program.Audio().Edit();
  program.stage.Drag(At(0.25f), At(0.5f));
  ASSERT_TRUE(bar.UndoButton().UI_IsEnabled());
  program.stage.Click(program.stage.CenterOf(bar.UndoButton()));
  EXPECT_TRUE(Selection().IsEmpty());
  ASSERT_TRUE(bar.RedoButton().UI_IsEnabled());
  program.stage.Click(program.stage.CenterOf(bar.RedoButton()));
  EXPECT_FALSE(Selection().IsEmpty());
  program.stage.Click(program.stage.CenterOf(bar.ZoomButton()));
  EXPECT_NEAR(View().VisibleSamples(), static_cast<double>(Selection().Width()), 1e-6);
  program.stage.Move(program.stage.CenterOf(bar.UndoButton()));
  program.stage.AdvanceTime(1000.0);
  EXPECT_NE(program.stage.GetShownToolTip().find("Ctrl+Z"), std::string::npos);
  EXPECT_EQ(bar.UndoButton().UI_GetAccessibleName(), "Undo");
}

TEST_F(Undo, WorksFromControlsBesideTheWaveform) {
  program.stage.Drag(At(0.25f), At(0.5f));
  program.Audio().Overview().UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kByCode);
  EXPECT_TRUE(PressUndo());
  EXPECT_TRUE(Selection().IsEmpty());
  EXPECT_TRUE(program.stage.Key(KeyboardCode::kY, ModKeys(ModKey::kCommand)));
  EXPECT_FALSE(Selection().IsEmpty());
}

TEST_F(Undo, KeyZGoesToTheSelectionAndBack) {
  Focus();
  program.Session().ChangeView([](Viewport& view) { view.Show(24000.0, 144000.0); });
  Viewport const before = View();
  program.Session().ChangeSelection([](SampleSelection& selection) { selection.Select(48000, 96000); });
  program.stage.Key(KeyboardCode::kZ);
  EXPECT_NEAR(View().VisibleSamples(), 48000.0, 1e-6);
  program.stage.Key(KeyboardCode::kZ);
  EXPECT_EQ(View(), before);
  program.stage.Key(KeyboardCode::kZ);
  program.stage.Key(KeyboardCode::kPlus);
  program.stage.Key(KeyboardCode::kZ, ModKeys(ModKey::kShift));
  EXPECT_EQ(View(), before);
}

}  // namespace
}  // namespace playground
