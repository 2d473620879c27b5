#include "LoggingNode.h"

#include <moxui/testing/Stage.h>

#include <gmock/gmock.h>

namespace moxui {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

class PressTarget : public ::testing::Test {
 protected:
  PressTarget() { left->takes = right->takes = true; }

  Log log;
  testing::Stage stage;
  LoggingNodePtr left = AddNode(stage.GetRootView(), log, "left", {0, 0, 100, 100});
  LoggingNodePtr right = AddNode(stage.GetRootView(), log, "right", {100, 0, 100, 100});
};

TEST_F(PressTarget, GetsMovesAndTheReleaseOutsideOfIt) {
  left->logsMoves = right->logsMoves = true;
  stage.Press({50, 50});
  log.clear();

  stage.Release({150, 50});

  EXPECT_EQ(log[0], "left move");
  EXPECT_EQ(log[1], "left release");
  EXPECT_EQ(left->lastPosition.x, 150);
}

TEST_F(PressTarget, HoldsUntilTheLastButtonIsUp) {
  stage.Press({50, 50}, ui::MouseButton::kLeft);
  stage.Press({50, 50}, ui::MouseButton::kRight);
  stage.Release({150, 50}, ui::MouseButton::kLeft);
  log.clear();

  stage.Release({160, 50}, ui::MouseButton::kRight);

  EXPECT_EQ(log.front(), "left release");
}

TEST_F(PressTarget, IsNobodyWhenNobodyTookThePress) {
  left->takes = false;
  stage.Press({50, 50});
  log.clear();

  stage.Release({150, 50});

  EXPECT_THAT(log, ElementsAre("left leave", "right release"));
}

TEST_F(PressTarget, KeepsTheReleaseFromWhatAppearsUnderThePointer) {
  auto const shown = AddNode(stage.GetRootView(), log, "shown", {0, 0, 100, 100});
  shown->UI_Hide();
  left->onMouse = [&](ui::MouseEvent const& event) {
    if (event.IsAction(ui::PointerAction::kPress)) {
      shown->UI_Show();
    }
  };

  stage.Click({50, 50});

  EXPECT_THAT(log, Contains("left release"));
  EXPECT_THAT(log, Not(Contains("shown release")));
}

TEST_F(PressTarget, TakesTheRestOfItsPressAlongWhenItGoes) {
  stage.Press({50, 50});
  log.clear();
  stage.GetRootView().ChildRemove(left);

  stage.Release({150, 50});

  EXPECT_THAT(log, Not(Contains("right release")));
  log.clear();
  stage.Click({150, 50});
  EXPECT_THAT(log, ElementsAre("right press", "right release"));
}

TEST_F(PressTarget, ClimbsAsEver) {
  auto const inner = AddNode(*left, log, "inner", {10, 10, 20, 20});
  stage.Press({15, 15});
  log.clear();

  stage.Release({150, 50});

  EXPECT_EQ(log[0], "inner release");
  EXPECT_EQ(log[1], "left release of inner");
}

TEST_F(PressTarget, GetsTheReleaseThatAPlatformsLoopSwallowedOnceItsHandlerIsDone) {
  left->onMouse = [&](ui::MouseEvent const& event) {
    if (event.IsAction(ui::PointerAction::kPress)) {
      stage.ForgetButtons();
      stage.GetTree().CheckSwallowedRelease();
      log.emplace_back("loop ended");
    }
  };

  stage.Press({50, 50});

  EXPECT_THAT(log, ElementsAre("left press", "loop ended", "left release"));
  EXPECT_EQ(left->lastClickCount, 0);
}

TEST_F(PressTarget, GetsNoSecondReleaseWhileTheButtonIsDown) {
  stage.Press({50, 50});
  log.clear();

  stage.GetTree().CheckSwallowedRelease();

  EXPECT_THAT(log, IsEmpty());
}

class ClickCount : public PressTarget {};

TEST_F(ClickCount, CountsPressesAtOnePlace) {
  stage.Press({50, 50});
  EXPECT_EQ(left->lastClickCount, 1);
  stage.Release({50, 50});
  EXPECT_EQ(left->lastClickCount, 1);
  stage.Press({50, 50});
  EXPECT_EQ(left->lastClickCount, 2);
  stage.Release({50, 50});
  EXPECT_EQ(left->lastClickCount, 2);
  stage.Press({50, 50});
  EXPECT_EQ(left->lastClickCount, 3);
}

TEST_F(ClickCount, BeginsAnewAfterAPause) {
  stage.Click({50, 50});
  stage.AdvanceTime(401);

  stage.Press({50, 50});

  EXPECT_EQ(left->lastClickCount, 1);
}

TEST_F(ClickCount, BeginsAnewElsewhere) {
  stage.Click({50, 50});

  stage.Press({55, 50});

  EXPECT_EQ(left->lastClickCount, 1);
}

TEST_F(ClickCount, BeginsAnewWithAnotherButton) {
  stage.Click({50, 50});

  stage.Press({50, 50}, ui::MouseButton::kRight);

  EXPECT_EQ(left->lastClickCount, 1);
}

TEST_F(ClickCount, IsNoneForAReleaseOnceThePointerHasLeftThePlace) {
  stage.Press({50, 50});
  stage.Move({60, 50});

  stage.Release({50, 50});

  EXPECT_EQ(left->lastClickCount, 0);
}

TEST_F(ClickCount, StandsASmallMovement) {
  stage.Press({50, 50});

  stage.Release({53, 47});

  EXPECT_EQ(left->lastClickCount, 1);
}

TEST_F(ClickCount, IsNoneForMoves) {
  stage.Click({50, 50});

  stage.Move({51, 50});

  EXPECT_EQ(left->lastClickCount, 0);
}

TEST_F(ClickCount, MakesADoubleClickOfTheSecondPress) {
  bool isDoubleClick = false;
  bool wasAtRelease = false;
  left->onMouse = [&](ui::MouseEvent const& event) {
    isDoubleClick = isDoubleClick || event.IsLeftButtonDoubleClick();
    wasAtRelease =
        wasAtRelease || (event.IsAction(ui::PointerAction::kRelease) && event.IsLeftButtonDoubleClick());
  };

  stage.Click({50, 50});
  EXPECT_FALSE(isDoubleClick);
  stage.Click({50, 50});

  EXPECT_TRUE(isDoubleClick);
  EXPECT_FALSE(wasAtRelease);
}

TEST_F(ClickCount, TellsARightPressFromALeftOne) {
  bool isRight = false;
  left->onMouse = [&](ui::MouseEvent const& event) { isRight = isRight || event.IsRightButtonSingleDown(); };

  stage.Click({50, 50});
  EXPECT_FALSE(isRight);
  stage.Click({50, 50}, ui::MouseButton::kRight);

  EXPECT_TRUE(isRight);
}

}  // namespace
}  // namespace moxui
