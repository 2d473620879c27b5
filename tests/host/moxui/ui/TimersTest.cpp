#include "LoggingNode.h"

#include <moxui/testing/Stage.h>
#include <moxui/ui/UI_TimerManager.h>

#include <gmock/gmock.h>

namespace moxui {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Timers : public ::testing::Test {
 protected:
  Log log;
  testing::Stage stage;
  LoggingNodePtr node = AddNode(stage.GetRootView(), log, "node", {0, 0, 50, 50});
};

TEST_F(Timers, Repeat) {
  node->UI_InstallTimer(100, 7);

  stage.AdvanceTime(99);
  EXPECT_THAT(log, IsEmpty());
  stage.AdvanceTime(1);
  EXPECT_THAT(log, ElementsAre("node timer7"));
  stage.AdvanceTime(200);

  EXPECT_EQ(log.size(), 3u);
}

TEST_F(Timers, AreKeptByNodeAndId) {
  node->UI_InstallTimer(100, 1);
  node->UI_InstallTimer(50, 2);

  stage.AdvanceTime(100);

  EXPECT_THAT(log, ElementsAre("node timer2", "node timer1", "node timer2"));
}

TEST_F(Timers, BeginAnewWhenInstalledAgain) {
  node->UI_InstallTimer(100, 7);
  stage.AdvanceTime(60);

  node->UI_InstallTimer(100, 7);
  stage.AdvanceTime(60);
  EXPECT_THAT(log, IsEmpty());
  stage.AdvanceTime(40);

  EXPECT_THAT(log, ElementsAre("node timer7"));
}

TEST_F(Timers, HavePeriodsOfAtLeastTenMilliseconds) {
  for (float const period : {0.0F, -5.0F, 3.0F}) {
    log.clear();
    node->UI_InstallTimer(period, 7);
    stage.AdvanceTime(9);
    EXPECT_THAT(log, IsEmpty());
    stage.AdvanceTime(1);
    EXPECT_EQ(log.size(), 1u);
  }
}

TEST_F(Timers, AreToldOnceHoweverLateAndGoOnInStep) {
  node->UI_InstallTimer(100, 7);
  double const start = stage.GetTime();
  auto& timers = stage.GetTree().GetTimers();

  timers.FireDueTimers(start + 350);
  timers.FireDueTimers(start + 350);

  EXPECT_THAT(log, ElementsAre("node timer7"));
  EXPECT_EQ(timers.GetNextDue(), start + 400);
}

TEST_F(Timers, AreRemovedWithTheViewsTimers) {
  node->UI_InstallTimer(100, 1);
  node->UI_InstallTimer(100, 2);

  node->UI_RemoveSubViewTimers();
  stage.AdvanceTime(1000);

  EXPECT_THAT(log, IsEmpty());
  EXPECT_LT(node->UI_GetTimerManager()->GetNextDue(), 0.0);
}

TEST_F(Timers, AreRemovedOneByOne) {
  node->UI_InstallTimer(100, 1);
  node->UI_InstallTimer(100, 2);

  node->UI_RemoveTimer(1);
  stage.AdvanceTime(100);

  EXPECT_THAT(log, ElementsAre("node timer2"));
}

TEST_F(Timers, EndWithTheirNode) {
  node->UI_InstallTimer(100, 1);
  stage.GetRootView().DeleteChildren();
  node.Reset();

  stage.AdvanceTime(1000);

  EXPECT_THAT(log, IsEmpty());
}

TEST_F(Timers, MayBeRemovedByTheirOwnHandler) {
  node->onTimer = [this](int) { node->UI_RemoveSubViewTimers(); };
  node->UI_InstallTimer(100, 1);
  node->UI_InstallTimer(100, 2);

  stage.AdvanceTime(1000);

  EXPECT_THAT(log, ElementsAre("node timer1"));
}

TEST_F(Timers, MayDeleteTheirNode) {
  node->onTimer = [this](int) {
    stage.GetRootView().DeleteChildren();
    node.Reset();
  };
  node->UI_InstallTimer(100, 1);

  stage.AdvanceTime(1000);

  EXPECT_THAT(log, ElementsAre("node timer1"));
}

TEST_F(Timers, OfADetachedNodeStartWhenItComesIntoATree) {
  stage.GetRootView().ChildRemove(node);
  node->UI_InstallTimer(100, 1);
  EXPECT_EQ(node->UI_GetTimerManager(), nullptr);
  stage.AdvanceTime(1000);
  EXPECT_THAT(log, IsEmpty());

  stage.GetRootView().ChildPushBack(node);
  stage.AdvanceTime(100);

  EXPECT_THAT(log, ElementsAre("node timer1"));
}

TEST_F(Timers, RestWhileTheirNodeIsTakenOut) {
  node->UI_InstallTimer(100, 1);
  stage.GetRootView().ChildRemove(node);
  stage.AdvanceTime(1000);
  EXPECT_THAT(log, IsEmpty());

  stage.GetRootView().ChildPushBack(node);
  stage.AdvanceTime(100);

  EXPECT_THAT(log, ElementsAre("node timer1"));
}

class ToolTip : public Timers {
 protected:
  ToolTip() { node->UI_SetToolTip("Mute", 200); }
};

TEST_F(ToolTip, ShowsAfterItsDelay) {
  stage.Move({5, 5});
  stage.AdvanceTime(199);
  EXPECT_EQ(stage.GetShownToolTip(), "");
  stage.AdvanceTime(1);

  EXPECT_EQ(stage.GetShownToolTip(), "Mute");
  EXPECT_EQ(node->UI_GetToolTip(), "Mute");
  EXPECT_EQ(node->UI_GetToolTipDelay(), 200);
}

TEST_F(ToolTip, WaitsUntilThePointerRests) {
  stage.Move({5, 5});
  stage.AdvanceTime(150);
  stage.Move({6, 5});
  stage.AdvanceTime(150);
  EXPECT_EQ(stage.GetShownToolTip(), "");
  stage.AdvanceTime(50);

  EXPECT_EQ(stage.GetShownToolTip(), "Mute");
}

TEST_F(ToolTip, GoesWithThePointer) {
  stage.Move({5, 5});
  stage.AdvanceTime(200);

  stage.Move({100, 100});

  EXPECT_EQ(stage.GetShownToolTip(), "");
}

TEST_F(ToolTip, GoesAtAPressAndDoesNotComeBack) {
  stage.Move({5, 5});
  stage.AdvanceTime(200);

  stage.Click({5, 5});
  EXPECT_EQ(stage.GetShownToolTip(), "");
  stage.AdvanceTime(1000);

  EXPECT_EQ(stage.GetShownToolTip(), "");
}

TEST_F(ToolTip, IsThatOfTheNearestAncestorThatHasOne) {
  AddNode(*node, log, "inner", {0, 0, 20, 20});

  stage.Move({5, 5});
  stage.AdvanceTime(200);

  EXPECT_EQ(stage.GetShownToolTip(), "Mute");
}

TEST_F(ToolTip, StaysAsThePointerGoesOnWithinItsNode) {
  AddNode(*node, log, "inner", {20, 20, 20, 20});
  stage.Move({5, 5});
  stage.AdvanceTime(200);

  stage.Move({25, 25});

  EXPECT_EQ(stage.GetShownToolTip(), "Mute");
}

TEST_F(ToolTip, FollowsItsTextWhileItIsShown) {
  stage.Move({5, 5});
  stage.AdvanceTime(200);

  node->UI_SetToolTip("Unmute", 200);
  EXPECT_EQ(stage.GetShownToolTip(), "Unmute");
  node->UI_SetToolTip("", 200);

  EXPECT_EQ(stage.GetShownToolTip(), "");
}

TEST_F(ToolTip, AsksForNoFrame) {
  stage.PaintFrame();

  node->UI_SetToolTip("Other", 400);

  EXPECT_FALSE(stage.FrameRequested());
}

TEST_F(ToolTip, GoesWithItsNode) {
  stage.Move({5, 5});
  stage.AdvanceTime(200);

  node->UI_Hide();

  EXPECT_EQ(stage.GetShownToolTip(), "");
}

}  // namespace
}  // namespace moxui
