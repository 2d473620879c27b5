#include "LoggingNode.h"

#include <moxui/testing/Stage.h>

#include <gmock/gmock.h>

namespace moxui {
namespace {

using moxcore::utility::MakeIntrusive;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(LocalRect, IsStoredInTheParentsCoordinates) {
  auto const node = MakeIntrusive<ui::UI_SubView>();

  node->UI_SetLocalRectF({10, 20, 30.5F, 40});

  EXPECT_EQ(node->UI_GetLocalRectF(ui::RectSpace::kParent), RectT<float>(10, 20, 30.5F, 40));
  EXPECT_EQ(node->UI_GetLocalRectF(ui::RectSpace::kOwn), RectT<float>(0, 0, 30.5F, 40));
}

TEST(LocalRect, KeepsNegativeExtents) {
  auto const node = MakeIntrusive<ui::UI_SubView>();

  node->UI_SetLocalRectF({10, 20, -5, -6});

  EXPECT_EQ(node->UI_GetLocalRectF(ui::RectSpace::kParent), RectT<float>(10, 20, -5, -6));
}

TEST(LocalRect, RoundsItsEdgesForWholeNumbers) {
  auto const node = MakeIntrusive<ui::UI_SubView>();
  node->UI_SetLocalRectF({0.6F, 0.4F, 10.3F, 10.3F});

  EXPECT_EQ(node->UI_GetLocalRect(ui::RectSpace::kParent), RectT<int>(1, 0, 10, 11));
  node->UI_SetLocalRect({1, 2, 3, 4});
  EXPECT_EQ(node->UI_GetLocalRectF(ui::RectSpace::kParent), RectT<float>(1, 2, 3, 4));
}

TEST(LocalRect, TellsTheNewSizeInOwnCoordinatesOnlyWhenItChanged) {
  Log log;
  LoggingNode node(log, "node");

  node.UI_SetLocalRectF({10, 20, 30, 40});
  node.UI_SetLocalRectF({11, 21, 30, 40});
  node.UI_SetLocalRectF({11, 21, 30, 40});
  node.UI_SetLocalRectF({11, 21, 31, 40});

  EXPECT_THAT(node.sizes, ElementsAre(RectT<float>(0, 0, 30, 40), RectT<float>(0, 0, 31, 40)));
}

TEST(LocalRect, ConvertsToTheDesktopAndBack) {
  Log log;
  testing::Stage stage;
  stage.SetOrigin({1000, 500});
  auto const outer = AddNode(stage.GetRootView(), log, "outer", {10, 20, 100, 100});
  auto const inner = AddNode(*outer, log, "inner", {5, 6, 50, 50});

  EXPECT_EQ(inner->UI_LocalToGlobalF({1, 2}), PointT<float>(1016, 528));
  EXPECT_EQ(inner->UI_GlobalToLocalF({1016, 528}), PointT<float>(1, 2));
}

TEST(LocalRect, ConvertsToAnotherNode) {
  Log log;
  testing::Stage stage;
  auto const outer = AddNode(stage.GetRootView(), log, "outer", {10, 20, 100, 100});
  auto const middle = AddNode(*outer, log, "middle", {5, 6, 50, 50});
  auto const inner = AddNode(*middle, log, "inner", {1, 2, 20, 20});
  auto const other = AddNode(stage.GetRootView(), log, "other", {200, 0, 20, 20});

  EXPECT_EQ(inner->UI_ConvertRectTo(outer.Get(), {0, 0, 3, 4}), RectT<float>(6, 8, 3, 4));
  EXPECT_EQ(outer->UI_ConvertRectTo(inner.Get(), {6, 8, 3, 4}), RectT<float>(0, 0, 3, 4));
  EXPECT_EQ(inner->UI_ConvertRectTo(other.Get(), {0, 0, 3, 4}), RectT<float>(-184, 28, 3, 4));
}

TEST(Scale, IsToldToTheTreeAndToNewcomers) {
  Log log;
  testing::Stage stage;
  auto const node = AddNode(stage.GetRootView(), log, "node", {0, 0, 10, 10});
  EXPECT_EQ(node->GetViewScaleFactor(), 1);

  stage.SetScale(2);
  EXPECT_EQ(node->GetViewScaleFactor(), 2);
  AddNode(stage.GetRootView(), log, "late", {0, 0, 10, 10});

  EXPECT_THAT(log, ElementsAre("node scale2", "late scale2"));
}

TEST(Shown, IsANewNode) {
  EXPECT_TRUE(MakeIntrusive<ui::UI_Node>()->UI_IsShown());
  EXPECT_TRUE(MakeIntrusive<ui::UI_SubView>()->UI_IsEnabled());
}

TEST(Shown, HideIsTheReverseOfShow) {
  auto const node = MakeIntrusive<ui::UI_Node>();

  node->UI_Hide();
  EXPECT_FALSE(node->UI_IsShown());
  node->UI_Hide(false);
  EXPECT_TRUE(node->UI_IsShown());
  node->UI_Show(false);
  EXPECT_FALSE(node->UI_IsShown());
  node->UI_Show();
  EXPECT_TRUE(node->UI_IsShown());
}

TEST(Shown, IsANodesOwnFlag) {
  auto const parent = MakeIntrusive<ui::UI_SubView>();
  auto const child = MakeIntrusive<ui::UI_Node>();
  parent->ChildPushBack(child);

  parent->UI_Hide();

  EXPECT_TRUE(child->UI_IsShown());
}

TEST(Disabled, IsInherited) {
  auto const parent = MakeIntrusive<ui::UI_SubView>();
  auto const child = MakeIntrusive<ui::UI_Node>();
  parent->ChildPushBack(child);

  parent->UI_SetEnabled(false);
  EXPECT_TRUE(child->UI_IsDisabled());
  parent->UI_SetDisabled(false);
  EXPECT_TRUE(child->UI_IsEnabled());
  child->UI_SetDisabled();
  EXPECT_FALSE(parent->UI_IsDisabled());
}

TEST(Disabled, RepaintsOnAChange) {
  Log log;
  testing::Stage stage;
  auto const node = AddNode(stage.GetRootView(), log, "node", {1, 2, 10, 10});
  stage.PaintFrame();

  node->UI_SetDisabled(false);
  EXPECT_THAT(stage.GetTree().GetDamage(), IsEmpty());
  node->UI_SetDisabled();
  EXPECT_THAT(stage.GetTree().GetDamage(), ElementsAre(RectT<float>(1, 2, 10, 10)));
}

TEST(NodeProperties, CarryIdAndUserData) {
  auto const node = MakeIntrusive<ui::UI_Node>();
  EXPECT_EQ(node->UI_GetNodeID(), "");
  EXPECT_FALSE(node->GetUserData().has_value());

  node->UI_SetNodeID("ScrubbingThumb");
  node->SetUserData(7);

  EXPECT_EQ(node->UI_GetNodeID(), "ScrubbingThumb");
  EXPECT_EQ(std::any_cast<int>(node->GetUserData()), 7);
}

TEST(NodeProperties, MapColoursByTheNearestChange) {
  auto const parent = MakeIntrusive<ui::UI_SubView>();
  auto const child = MakeIntrusive<ui::UI_Node>();
  parent->ChildPushBack(child);
  EXPECT_EQ(child->UI_GetColorFromChangeMap(324), 324u);

  parent->UI_SetColorChange(324, 500);
  EXPECT_EQ(child->UI_GetColorFromChangeMap(324), 500u);
  child->UI_SetColorChange(324, 501);
  EXPECT_EQ(child->UI_GetColorFromChangeMap(324), 501u);
  EXPECT_EQ(parent->UI_GetColorFromChangeMap(324), 500u);
  child->UI_ClearColorChange(324);
  EXPECT_EQ(child->UI_GetColorFromChangeMap(324), 500u);
}

}  // namespace
}  // namespace moxui
