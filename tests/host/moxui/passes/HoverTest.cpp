#include "LoggingNode.h"

#include <moxui/testing/Stage.h>

#include <gmock/gmock.h>

namespace moxui {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

class Hover : public ::testing::Test {
 protected:
  Hover() {
    outer->logsMouseOver = inner->logsMouseOver = other->logsMouseOver = true;
    outer->logsMoves = inner->logsMoves = other->logsMoves = true;
    outer->takes = inner->takes = other->takes = true;
  }

  Log log;
  testing::Stage stage;
  LoggingNodePtr outer = AddNode(stage.GetRootView(), log, "outer", {0, 0, 100, 100});
  LoggingNodePtr inner = AddNode(*outer, log, "inner", {20, 20, 50, 50});
  LoggingNodePtr other = AddNode(stage.GetRootView(), log, "other", {100, 0, 100, 100});
};

TEST_F(Hover, EntersOutermostFirstAsAMoveAndDoesNotClimb) {
  stage.Move({30, 30});

  EXPECT_THAT(log, ElementsAre("outer over", "outer move", "inner over", "inner move", "inner move"));
}

TEST_F(Hover, LeavesInnermostFirst) {
  stage.Move({30, 30});
  log.clear();

  stage.Move({250, 250});

  EXPECT_THAT(log, ElementsAre("inner out", "inner leave", "outer out", "outer leave"));
}

TEST_F(Hover, GoingToOnesOwnChildIsNoLeave) {
  stage.Move({5, 5});
  log.clear();

  stage.Move({30, 30});

  EXPECT_THAT(log, ElementsAre("inner over", "inner move", "inner move"));
  EXPECT_TRUE(stage.GetTree().IsHovered(outer.Get(), false));
  EXPECT_FALSE(stage.GetTree().IsHovered(outer.Get(), true));
}

TEST_F(Hover, ComingBackFromTheChildLeavesTheChildOnly) {
  stage.Move({30, 30});
  log.clear();

  stage.Move({5, 5});

  EXPECT_THAT(log, ElementsAre("inner out", "inner leave", "outer move"));
}

TEST_F(Hover, TellsPositionsInEachNodesOwnCoordinates) {
  stage.Move({30, 30});
  EXPECT_EQ(inner->lastPosition, PointT<float>(10, 10));

  stage.Move({250, 250});

  EXPECT_EQ(inner->lastPosition, PointT<float>(230, 230));
  EXPECT_EQ(outer->lastPosition, PointT<float>(250, 250));
}

TEST_F(Hover, EndsWhenThePointerLeavesTheWindow) {
  stage.Move({30, 30});
  log.clear();

  stage.Leave();

  EXPECT_THAT(log, ElementsAre("inner out", "inner leave", "outer out", "outer leave"));
  EXPECT_FALSE(stage.GetTree().GetHoveredNode());
}

TEST_F(Hover, RestsWhileAPressHoldsThePointerAndIsWorkedOutAfterwards) {
  stage.Press({30, 30});
  log.clear();

  stage.Move({150, 50});
  EXPECT_THAT(log, ElementsAre("inner move"));
  log.clear();
  stage.Release({150, 50});

  EXPECT_THAT(log, ElementsAre("inner release", "inner out", "inner leave", "outer out", "outer leave",
                               "other over", "other move"));
}

TEST_F(Hover, RepaintsANodeThatAsksForIt) {
  stage.PaintFrame();
  inner->repaintsOnHover = true;

  stage.Move({30, 30});

  EXPECT_THAT(stage.GetTree().GetDamage(), ElementsAre(RectT<float>(20, 20, 50, 50)));
}

TEST_F(Hover, EndsForAHiddenNodeAtOnceAndItHearsOfIt) {
  stage.Move({30, 30});
  log.clear();

  inner->UI_Hide();
  EXPECT_FALSE(stage.GetTree().IsHovered(inner.Get(), false));
  stage.PaintFrame();

  EXPECT_THAT(log, ElementsAre("inner out", "inner leave"));
  EXPECT_TRUE(stage.GetTree().IsHovered(outer.Get(), true));
}

TEST_F(Hover, EndsForARemovedNode) {
  stage.Move({30, 30});
  stage.GetRootView().ChildRemove(outer);

  EXPECT_FALSE(stage.GetTree().IsHovered(outer.Get(), false));
  outer.Reset();
  inner.Reset();
  stage.Move({31, 31});
  stage.Move({150, 50});

  EXPECT_TRUE(stage.GetTree().IsHovered(other.Get(), true));
}

TEST_F(Hover, FollowsNodesThatMoveUnderARestingPointer) {
  stage.Move({150, 150});
  log.clear();

  other->UI_SetLocalRectF({100, 100, 100, 100});
  stage.PaintFrame();

  EXPECT_THAT(log, ElementsAre("other over", "other move"));
}

TEST_F(Hover, DoesNotEnterWhatALeaveHandlerHasHidden) {
  stage.Move({30, 30});
  outer->onMouse = [this](ui::MouseEvent const& event) {
    if (event.IsAction(ui::PointerAction::kLeave)) {
      other->UI_Hide();
    }
  };
  log.clear();

  stage.Move({150, 50});

  EXPECT_THAT(log, Not(Contains("other over")));
}

TEST_F(Hover, ReachesDisabledNodes) {
  other->UI_SetDisabled();

  stage.Move({150, 50});

  EXPECT_THAT(log, Contains("other over"));
}

TEST_F(Hover, GoesWithALiftedFinger) {
  stage.SetPointerSubType(ui::PointerSubType::kTouch);

  stage.Click({30, 30});

  EXPECT_FALSE(stage.GetTree().GetHoveredNode());
}

TEST_F(Hover, DeletedNodesInsideAnEnterHandlerAreNotEntered) {
  outer->onMouse = [this](ui::MouseEvent const&) {
    outer->DeleteChildren();
    inner.Reset();
  };

  stage.Move({30, 30});

  EXPECT_THAT(log, Not(Contains("inner over")));
}

class Cursor : public Hover {};

TEST_F(Cursor, IsAskedOfTheTargetAndThenOfItsParentsInTheTargetsCoordinates) {
  inner->logsCursor = outer->logsCursor = true;
  outer->takesCursor = true;
  inner->logsMoves = outer->logsMoves = inner->logsMouseOver = outer->logsMouseOver = false;

  stage.Move({30, 30});

  EXPECT_THAT(log, ElementsAre("inner cursor", "outer cursor of inner"));
  EXPECT_EQ(outer->lastPosition, PointT<float>(10, 10));
  EXPECT_EQ(stage.CursorResetCount(), 0);
}

TEST_F(Cursor, IsTheUsualOneWhereNobodySetsOne) {
  stage.Move({30, 30});

  EXPECT_EQ(stage.CursorResetCount(), 1);
}

}  // namespace
}  // namespace moxui
