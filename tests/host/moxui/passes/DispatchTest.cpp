#include "LoggingNode.h"

#include <moxui/testing/Stage.h>

#include <gmock/gmock.h>

namespace moxui {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Dispatch : public ::testing::Test {
 protected:
  Log log;
  testing::Stage stage;
  LoggingNodePtr outer = AddNode(stage.GetRootView(), log, "outer", {10, 10, 200, 200});
  LoggingNodePtr inner = AddNode(*outer, log, "inner", {20, 30, 50, 50});
};

TEST_F(Dispatch, ClimbsFromTheTargetToTheRootWithTheTargetPassedAlong) {
  stage.Press({40, 50});

  EXPECT_THAT(log, ElementsAre("inner press", "outer press of inner"));
}

TEST_F(Dispatch, AsksPreHandlersFromTheRootDownFirst) {
  outer->logsPre = inner->logsPre = true;

  stage.Press({40, 50});

  EXPECT_THAT(log, ElementsAre("outer pre of inner", "inner pre", "inner press", "outer press of inner"));
}

TEST_F(Dispatch, EndsAtAPreHandlerThatTakesTheEvent) {
  outer->logsPre = outer->takesPre = true;

  EXPECT_TRUE(stage.Press({40, 50}));

  EXPECT_THAT(log, ElementsAre("outer pre of inner"));
}

TEST_F(Dispatch, EndsAtTheHandlerThatTakesTheEvent) {
  inner->takes = true;

  EXPECT_TRUE(stage.Press({40, 50}));

  EXPECT_THAT(log, ElementsAre("inner press"));
}

TEST_F(Dispatch, PassesARefusedEventToTheParentAndNeverToASiblingBeneath) {
  auto const above = AddNode(*outer, log, "above", {20, 30, 50, 50});

  EXPECT_FALSE(stage.Press({40, 50}));

  EXPECT_THAT(log, ElementsAre("above press", "outer press of above"));
}

TEST_F(Dispatch, GivesPositionsInTheTargetsCoordinatesToEveryHandler) {
  stage.Press({40, 50});

  EXPECT_EQ(inner->lastPosition, PointT<float>(10, 10));
  EXPECT_EQ(outer->lastPosition, PointT<float>(10, 10));
}

TEST_F(Dispatch, TellsButtonModifiersAndSubType) {
  stage.SetModKeys(ui::ModKey::kShift);
  stage.SetPointerSubType(ui::PointerSubType::kPen);

  stage.Press({40, 50}, ui::MouseButton::kRight);

  EXPECT_EQ(inner->lastButton, ui::MouseButton::kRight);
  EXPECT_EQ(inner->lastModKeys, ui::ModKeys(ui::ModKey::kShift));
  EXPECT_EQ(inner->lastSubType, ui::PointerSubType::kPen);
}

TEST_F(Dispatch, TellsAMoveTheHeldButtonLeftBeforeRight) {
  inner->takes = true;
  stage.Move({40, 50});
  EXPECT_EQ(inner->lastButton, ui::MouseButton::kNone);

  stage.Press({40, 50}, ui::MouseButton::kRight);
  stage.Move({41, 50});
  EXPECT_EQ(inner->lastButton, ui::MouseButton::kRight);

  stage.Press({41, 50}, ui::MouseButton::kLeft);
  stage.Move({42, 50});
  EXPECT_EQ(inner->lastButton, ui::MouseButton::kLeft);
}

TEST_F(Dispatch, SendsTheWheelToWhatLiesUnderThePointer) {
  stage.Wheel({40, 50}, {0, -48});

  EXPECT_THAT(log, ElementsAre("inner wheel", "outer wheel of inner"));
}

TEST_F(Dispatch, DoesNotReachHiddenNodes) {
  inner->UI_Hide();

  stage.Press({40, 50});

  EXPECT_THAT(log, ElementsAre("outer press"));
}

TEST_F(Dispatch, ReachesDisabledNodes) {
  inner->UI_SetDisabled();

  stage.Press({40, 50});

  EXPECT_THAT(log, ElementsAre("inner press", "outer press of inner"));
}

TEST_F(Dispatch, GoesOnWithTheParentWhenAHandlerDeletesItsOwnNode) {
  inner->onMouse = [this](ui::MouseEvent const& event) {
    if (event.IsAction(ui::PointerAction::kPress)) {
      outer->DeleteChildren();
      inner.Reset();
    }
  };

  stage.Press({40, 50});

  ASSERT_EQ(log.size(), 2u);
  EXPECT_EQ(log[0], "inner press");
  EXPECT_EQ(log[1], "outer press of inner");
}

TEST_F(Dispatch, SkipsAncestorsThatAHandlerHasDeleted) {
  inner->onMouse = [this](ui::MouseEvent const& event) {
    if (event.IsAction(ui::PointerAction::kPress)) {
      stage.GetRootView().DeleteChildren();
      outer.Reset();
      inner.Reset();
    }
  };

  stage.Press({40, 50});

  EXPECT_THAT(log, ElementsAre("inner press"));
  EXPECT_FALSE(stage.Release({40, 50}));
}

TEST_F(Dispatch, SurvivesTheLossOfTheWholeTreeInAHandler) {
  inner->onMouse = [this](ui::MouseEvent const&) { stage.GetTree().SetRoot(nullptr); };

  EXPECT_FALSE(stage.Press({40, 50}));
  EXPECT_EQ(stage.GetRoot(), nullptr);
}

TEST_F(Dispatch, ReachesNobodyOutsideTheRoot) {
  EXPECT_FALSE(stage.Press({-5, -5}));
  EXPECT_THAT(log, IsEmpty());
}

TEST(DispatchLayers, HitTheLastChildFirst) {
  Log log;
  testing::Stage stage;
  AddNode(stage.GetRootView(), log, "below", {0, 0, 100, 100});
  AddNode(stage.GetRootView(), log, "above", {50, 50, 100, 100});

  stage.Press({60, 60});
  stage.Release({60, 60});
  EXPECT_EQ(log.front(), "above press");
  log.clear();

  stage.Press({40, 40});
  EXPECT_THAT(log, ElementsAre("above leave", "below press"));
}

TEST(DispatchLayers, FollowAMoveToTheTop) {
  Log log;
  testing::Stage stage;
  auto const first = AddNode(stage.GetRootView(), log, "first", {0, 0, 100, 100});
  AddNode(stage.GetRootView(), log, "second", {0, 0, 100, 100});

  stage.GetRootView().ChildPushBack(first);
  stage.Press({5, 5});

  EXPECT_THAT(log, ElementsAre("first press"));
}

TEST(HitTest, ReachesChildrenOutsideTheirParent) {
  Log log;
  testing::Stage stage;
  auto const parent = AddNode(stage.GetRootView(), log, "parent", {50, 50, 20, 20});
  AddNode(*parent, log, "child", {0, -30, 40, 20});

  stage.Press({85, 25});

  EXPECT_THAT(log, ElementsAre("child press", "parent press of child"));
}

TEST(HitTest, StopsAtClips) {
  Log log;
  testing::Stage stage;
  auto const parent = AddNode(stage.GetRootView(), log, "parent", {50, 50, 20, 20});
  AddNode(*parent, log, "child", {0, -30, 40, 20});
  parent->UI_SetClipsChildren(true);

  stage.Press({85, 25});

  EXPECT_THAT(log, IsEmpty());
}

TEST(HitTest, CountsNegativeExtentsAsNothing) {
  Log log;
  testing::Stage stage;
  AddNode(stage.GetRootView(), log, "inverted", {50, 50, -20, -20});

  stage.Press({40, 40});

  EXPECT_THAT(log, IsEmpty());
}

TEST(HitTest, TakesTheTopLeftEdgesIntoARectangleAndNotTheOthers) {
  Log log;
  testing::Stage stage;
  AddNode(stage.GetRootView(), log, "node", {10, 10, 10, 10});

  EXPECT_NE(stage.GetTree().FindNode({10, 10}), stage.GetRoot());
  EXPECT_EQ(stage.GetTree().FindNode({20, 10}), stage.GetRoot());
  EXPECT_EQ(stage.GetTree().FindNode({10, 20}), stage.GetRoot());
}

}  // namespace
}  // namespace moxui
