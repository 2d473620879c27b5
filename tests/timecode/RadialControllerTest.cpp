// Turns of a radial controller over a timecode field.
#include "../../src/timecode/RadialTurn.h"
#include "WorkedField.h"

#include <moxcore/debug/DebugDatabase.h>
#include <moxworkspace/TabPanel.h>
#include <moxworkspace/TopLevelWindow.h>
#include <moxworkspace/Workspace.h>

#include <limits>

namespace timecode_tests {
namespace {

constexpr char const* kDelayKey = "Tarvos.HideCursorDelayinMs";

/// The field in one of the two panels of a main window's workspace, with a station of turns that its owner
/// has connected it to.
class RadialField : public WorkedField {
 public:
  RadialField() {
    stage.GetRootView().ChildPushBack(workspace);
    workspace->UI_SetLocalRectF({0, 0, 400, 300});
    Add(panel, {0, 0, 200, 300});
    Add(otherPanel, {200, 0, 200, 300});
    panel->ChildPushBack(field);
    window.SetWorkspace(workspace.Get());
    workspace->SetFocusedTabPanel(panel.Get());
    moxcore::messaging::AddWeakPtrListener(station, moxcore::messaging::ListenerOwner(field), field.Get());
    stage.Move(kPlace);
  }
  ~RadialField() override { moxcore::debug::DebugDatabase::Instance().RemoveEntry(kDelayKey); }

  void Turn(long long delta) {
    moxcore::messaging::BroadcastMessageOnMainThread(station,
                                                     moxmediaui::RadialControllerChangeMessage(delta));
  }

  moxcore::ImmutableString station = moxcore::ImmutableString::Create("moxmediaui.rc.station");
  IntrusivePtr<moxworkspace::Workspace> workspace =
      moxcore::utility::MakeIntrusive<moxworkspace::Workspace>();
  IntrusivePtr<moxworkspace::TabPanel> panel = moxcore::utility::MakeIntrusive<moxworkspace::TabPanel>();
  IntrusivePtr<moxworkspace::TabPanel> otherPanel = moxcore::utility::MakeIntrusive<moxworkspace::TabPanel>();
  moxworkspace::TopLevelWindow window{stage.GetTree()};

 private:
  void Add(IntrusivePtr<moxworkspace::TabPanel> const& child, RectT<float> const& rect) {
    child->UI_SetLocalRectF(rect);
    workspace->ChildPushBack(child);
  }
};

struct TurnCase {
  long long delta;
  std::int64_t frames;
};

class RadialTurn : public RadialField, public ::testing::WithParamInterface<TurnCase> {};

TEST_P(RadialTurn, IsOneStepHoweverFar) {
  Turn(GetParam().delta);
  EXPECT_EQ(Frames(), GetParam().frames);
  EXPECT_THAT(TakeHeard(), ElementsAre(Changing(kMinute + TickTime(GetParam().frames, k25))));
  EXPECT_EQ(IsCursorShown(), GetParam().delta == 0);
  stage.AdvanceTime(10000);
}

INSTANTIATE_TEST_SUITE_P(Turns, RadialTurn,
                         ::testing::Values(TurnCase{1, 1}, TurnCase{7, 1}, TurnCase{0, 1}, TurnCase{-1, -1},
                                           TurnCase{-900, -1},
                                           TurnCase{std::numeric_limits<long long>::min(), -1}));

TEST_F(RadialField, TakesTheModifierKeysThatAreDown) {
  stage.SetModKeys(ModKey::kShift);
  Turn(1);
  EXPECT_EQ(Frames(), 25);
}

TEST_F(RadialField, NeverTellsOfAnEnd) {
  Turn(1);
  Turn(1);
  Turn(-1);
  stage.AdvanceTime(5000);
  EXPECT_EQ(TakeHeard().size(), 3u);
  EXPECT_EQ(Frames(), 1);
}

TEST_F(RadialField, TellsNothingAtTheBound) {
  field->SetMaxTime(kMinute);
  Turn(1);
  EXPECT_THAT(TakeHeard(), IsEmpty());
  EXPECT_FALSE(IsCursorShown());
  stage.AdvanceTime(800);
  EXPECT_TRUE(IsCursorShown());
}

TEST_F(RadialField, ShowsThePointerWhenItHasRestedFor800Milliseconds) {
  Turn(1);
  stage.AdvanceTime(799);
  EXPECT_FALSE(IsCursorShown());
  Turn(1);  // anew
  stage.AdvanceTime(799);
  EXPECT_FALSE(IsCursorShown());
  stage.AdvanceTime(1);
  EXPECT_TRUE(IsCursorShown());
  stage.AdvanceTime(10000);  // the timer goes on, to no effect
  EXPECT_TRUE(IsCursorShown());
}

TEST_F(RadialField, LooksTheDelayUpAtEachTurn) {
  auto& settings = moxcore::debug::DebugDatabase::Instance();
  settings.SetEntry(kDelayKey, "200");
  Turn(1);
  stage.AdvanceTime(199);
  EXPECT_FALSE(IsCursorShown());
  stage.AdvanceTime(1);
  EXPECT_TRUE(IsCursorShown());
  settings.SetEntry(kDelayKey, "none");
  Turn(1);
  EXPECT_FALSE(IsCursorShown());
  stage.AdvanceTime(10);  // timers can't be faster
  EXPECT_TRUE(IsCursorShown());
}

TEST(HideCursorDelay, IsReadFromLeadingDigits) {
  struct DelayCase {
    char const* text;
    std::uint32_t delay;
  };
  for (DelayCase const test : {DelayCase{"800", 800},
                               {"0", 0},
                               {"", 0},
                               {"ms", 0},
                               {"12ms", 12},
                               {" 5", 0},
                               {"-5", 0},
                               {"+5", 0},
                               {"007", 7},
                               {"1.5", 1},
                               {"4294967295", 4294967295u},
                               {"4294967296", 0},
                               {"99999999999999999999999", 0}}) {
    EXPECT_EQ(moxmediaui::ReadHideCursorDelay(test.text), test.delay) << test.text;
  }
}

TEST_F(RadialField, OtherTimersAreNotIts) {
  EXPECT_FALSE(field->UI_DoTimerNotify(-12345));
}

// Where a turn counts

TEST_F(RadialField, StepsOnlyUnderThePointer) {
  for (PointT<float> const outside :
       {PointT<float>(19, 52), PointT<float>(121, 52), PointT<float>(60, 39), PointT<float>(60, 65)}) {
    stage.Move(outside);
    Turn(1);
    EXPECT_FALSE(field->IsInActiveHover());
  }
  EXPECT_EQ(Frames(), 0);
  for (PointT<float> const edge : {PointT<float>(20, 40), PointT<float>(120, 64)}) {
    stage.Move(edge);
    EXPECT_TRUE(field->IsInActiveHover());
  }
}

TEST_F(RadialField, StepsOnlyInTheFocusedPanel) {
  workspace->SetFocusedTabPanel(otherPanel.Get());
  Turn(1);
  workspace->SetFocusedTabPanel(nullptr);
  Turn(1);
  EXPECT_EQ(Frames(), 0);
  workspace->SetFocusedTabPanel(panel.Get());
  Turn(1);
  EXPECT_EQ(Frames(), 1);
}

// The innermost panel decides.
TEST_F(RadialField, APanelInsideTheFocusedOneIsAnother) {
  auto const inner = moxcore::utility::MakeIntrusive<moxworkspace::TabPanel>();
  inner->UI_SetLocalRectF({0, 0, 200, 300});
  panel->ChildPushBack(inner);
  inner->ChildPushBack(field);
  EXPECT_FALSE(field->IsInActiveHover());
  workspace->SetFocusedTabPanel(inner.Get());
  EXPECT_TRUE(field->IsInActiveHover());
}

TEST_F(RadialField, StepsNowhereOutsideOfPanels) {
  workspace->ChildPushBack(field);
  EXPECT_FALSE(field->IsInActiveHover());
}

TEST_F(RadialField, NeedsAWorkspaceAndAnExtent) {
  field->UI_SetLocalRectF({20, 40, 0, 24});
  stage.Move({20, 52});
  EXPECT_FALSE(field->IsInActiveHover());
  field->UI_SetLocalRectF({20, 40, 100, 24});
  EXPECT_TRUE(field->IsInActiveHover());
  window.SetWorkspace(nullptr);
  EXPECT_FALSE(field->IsInActiveHover());
}

TEST_F(WorkedField, ATurnWithoutAMainWindowDoesNothing) {
  stage.Move(kPlace);
  EXPECT_FALSE(field->IsInActiveHover());
  field->ListenToMessage(moxmediaui::RadialControllerChangeMessage(1));
  EXPECT_EQ(Frames(), 0);
}

TEST_F(RadialField, ADisabledFieldStays) {
  field->UI_SetDisabled();
  Turn(1);
  EXPECT_EQ(Frames(), 0);
  EXPECT_TRUE(IsCursorShown());
}

// The owner connects the field: it never does so itself.
TEST_F(RadialField, HearsTurnsOnlyWhereItsOwnerHasConnectedIt) {
  moxcore::messaging::RemoveListener(station, field.Get());
  Turn(1);
  EXPECT_EQ(Frames(), 0);
}

TEST_F(RadialField, BringsThePointerBackWhenItGoes) {
  Turn(1);
  EXPECT_FALSE(IsCursorShown());
  panel->ChildRemove(field);
  field.Reset();
  EXPECT_TRUE(IsCursorShown());
}

}  // namespace
}  // namespace timecode_tests
