#include "LoggingNode.h"

#include <moxui/testing/Stage.h>
#include <moxui/ui/AutoLayout.h>

#include <gmock/gmock.h>

#include <cmath>

namespace moxui {
namespace {

using moxcore::utility::IntrusivePtr;
using moxcore::utility::MakeIntrusive;
using ::testing::ElementsAre;
using ui::LayoutBinding::kBindBottom;
using ui::LayoutBinding::kBindNone;
using ui::LayoutBinding::kBindRight;
using ui::LayoutBinding::kFreeLeft;
using ui::LayoutBinding::kFreeTop;

struct BindingCase {
  unsigned bindings;
  RectT<float> expected;
};

class Binding : public ::testing::TestWithParam<BindingCase> {};

TEST_P(Binding, FollowsTheParentsEdges) {
  auto const view = MakeIntrusive<ui::UI_SubView>();
  auto const child = MakeIntrusive<ui::UI_Node>();
  view->UI_SetLocalRectF({0, 0, 100, 100});
  view->UI_SetLayoutsChildren(true);
  view->ChildPushBack(child);
  child->UI_SetLocalRectF({10, 10, 20, 20});
  child->UI_SetLayoutBinding(GetParam().bindings);

  view->UI_SetLocalRectF({5, 5, 130, 80});

  EXPECT_EQ(child->UI_GetLocalRectF(ui::RectSpace::kParent), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Flags, Binding,
                         ::testing::Values(BindingCase{kBindNone, {10, 10, 20, 20}},
                                           BindingCase{kBindRight, {10, 10, 50, 20}},
                                           BindingCase{kFreeLeft | kBindRight, {40, 10, 20, 20}},
                                           BindingCase{kBindBottom, {10, 10, 20, 0}},
                                           BindingCase{kFreeTop | kBindBottom, {10, -10, 20, 20}},
                                           BindingCase{kBindRight | kBindBottom, {10, 10, 50, 0}}));

TEST(Layout, PutsChildrenWhereTheyWantToBePut) {
  // Keeps to whole tens, whatever its parent's size.
  class OnTens : public ui::UI_Node {
   public:
    void DoPlace(RectT<float> const& rect) override {
      UI_SetLocalRectF({rect.left, rect.top, std::floor(rect.width / 10.0f) * 10.0f, rect.height});
    }
  };
  auto const view = MakeIntrusive<ui::UI_SubView>();
  auto const child = MakeIntrusive<OnTens>();
  view->UI_SetLocalRectF({0, 0, 100, 100});
  view->UI_SetLayoutsChildren(true);
  view->ChildPushBack(child);
  child->UI_SetLocalRectF({10, 10, 20, 20});
  child->UI_SetLayoutBinding(kBindRight);

  view->UI_SetLocalRectF({0, 0, 127, 100});

  EXPECT_EQ(child->UI_GetLocalRectF(ui::RectSpace::kParent), RectT<float>(10, 10, 40, 20));
}

TEST(Layout, LeavesChildrenAloneUnlessTheViewLaysThemOut) {
  auto const view = MakeIntrusive<ui::UI_SubView>();
  auto const child = MakeIntrusive<ui::UI_Node>();
  view->UI_SetLocalRectF({0, 0, 100, 100});
  view->ChildPushBack(child);
  child->UI_SetLocalRectF({10, 10, 20, 20});
  child->UI_SetLayoutBinding(kBindRight);

  view->UI_SetLocalRectF({0, 0, 200, 100});
  EXPECT_EQ(child->UI_GetLocalRectF(ui::RectSpace::kParent), RectT<float>(10, 10, 20, 20));

  view->UI_SetLayoutsChildren(true);
  view->UI_SetLocalRectF({0, 0, 210, 100});
  EXPECT_EQ(child->UI_GetLocalRectF(ui::RectSpace::kParent), RectT<float>(10, 10, 30, 20));
}

TEST(Layout, TakesTheFirstSizeAsTheStart) {
  auto const view = MakeIntrusive<ui::UI_SubView>();
  auto const child = MakeIntrusive<ui::UI_Node>();
  view->UI_SetLayoutsChildren(true);
  view->ChildPushBack(child);
  child->UI_SetLocalRectF({10, 10, 20, 20});
  child->UI_SetLayoutBinding(kBindRight);

  view->UI_SetLocalRectF({0, 0, 100, 100});
  EXPECT_EQ(child->UI_GetLocalRectF(ui::RectSpace::kParent), RectT<float>(10, 10, 20, 20));
  view->UI_SetLocalRectF({0, 0, 110, 100});
  EXPECT_EQ(child->UI_GetLocalRectF(ui::RectSpace::kParent), RectT<float>(10, 10, 30, 20));
}

TEST(Layout, RunsBeforeTheNextFrameOnceParentsFirst) {
  Log log;
  testing::Stage stage;
  auto const outer = AddNode(stage.GetRootView(), log, "outer", {0, 0, 100, 100});
  auto const inner = AddNode(*outer, log, "inner", {0, 0, 50, 50});
  stage.PaintFrame();

  inner->UI_InvalidateLayout();
  outer->UI_InvalidateLayout();
  outer->UI_InvalidateLayout();
  EXPECT_TRUE(stage.FrameRequested());
  EXPECT_TRUE(log.empty());
  stage.PaintFrame();

  EXPECT_THAT(log, ElementsAre("outer layout", "inner layout"));
}

TEST(Layout, AskedForOutsideATreeRunsInIt) {
  Log log;
  testing::Stage stage;
  auto const node = MakeIntrusive<LoggingNode>(log, "node");
  node->UI_InvalidateLayout();

  stage.GetRootView().ChildPushBack(node);
  stage.PaintFrame();

  EXPECT_THAT(log, ElementsAre("node layout"));
}

/// Shows a text of a width.
class Label : public ui::UI_Node {
 public:
  explicit Label(ExtentT<float> wanted) : mWanted(wanted) {}
  ui::AccessibleRole UI_GetAccessibleRole() const override { return ui::AccessibleRole::kStaticText; }
  ExtentT<float> UI_GetRecommendedSize(scriber::Scriber*) const override { return mWanted; }

 private:
  ExtentT<float> mWanted;
};

IntrusivePtr<Label> AddLabel(ui::UI_SubView& view, RectT<float> const& rect, ExtentT<float> wanted) {
  auto label = MakeIntrusive<Label>(wanted);
  label->UI_SetLocalRectF(rect);
  view.ChildPushBack(label);
  return label;
}

RectT<float> PlaceOf(ui::UI_Node const& node) {
  return node.UI_GetLocalRectF(ui::RectSpace::kParent);
}

TEST(AutoLayout, GrowsTextsMovesWhatFollowsAndGrowsTheView) {
  auto const view = MakeIntrusive<ui::UI_SubView>();
  view->UI_SetLocalRectF({0, 0, 100, 40});
  ui::SetAutoLayoutFlags(*view, {.isOn = true});
  auto const label = AddLabel(*view, {10, 10, 30, 15}, {50, 15});
  auto const number = AddLabel(*view, {45, 10, 40, 15}, {20, 15});

  ui::AutoLayoutSubView(view.Get(), nullptr);

  EXPECT_EQ(PlaceOf(*label), RectT<float>(10, 10, 50, 15));
  EXPECT_EQ(PlaceOf(*number), RectT<float>(65, 10, 40, 15));
  EXPECT_EQ(PlaceOf(*view), RectT<float>(0, 0, 120, 40));
}

TEST(AutoLayout, GrowsParentsOfViewsThatGrew) {
  auto const view = MakeIntrusive<ui::UI_SubView>();
  auto const row = MakeIntrusive<ui::UI_SubView>();
  view->UI_SetLocalRectF({0, 0, 100, 40});
  row->UI_SetLocalRectF({10, 10, 80, 20});
  view->ChildPushBack(row);
  ui::SetAutoLayoutFlags(*view, {.isOn = true});
  ui::SetAutoLayoutFlags(*row, {.isOn = true});
  AddLabel(*row, {0, 0, 80, 20}, {100, 20});

  ui::AutoLayoutSubView(view.Get(), nullptr);

  EXPECT_EQ(PlaceOf(*row), RectT<float>(10, 10, 100, 20));
  EXPECT_EQ(PlaceOf(*view), RectT<float>(0, 0, 120, 40));
}

TEST(AutoLayout, LeavesAViewWithoutTheFlagAlone) {
  auto const view = MakeIntrusive<ui::UI_SubView>();
  view->UI_SetLocalRectF({0, 0, 100, 40});
  auto const label = AddLabel(*view, {10, 10, 30, 15}, {50, 15});

  ui::AutoLayoutSubView(view.Get(), nullptr);

  EXPECT_EQ(PlaceOf(*label), RectT<float>(10, 10, 30, 15));
}

TEST(AutoLayout, ShrinksNothing) {
  auto const view = MakeIntrusive<ui::UI_SubView>();
  view->UI_SetLocalRectF({0, 0, 100, 40});
  ui::SetAutoLayoutFlags(*view, {.isOn = true});
  auto const label = AddLabel(*view, {10, 10, 60, 15}, {20, 10});

  ui::AutoLayoutSubView(view.Get(), nullptr);

  EXPECT_EQ(PlaceOf(*label), RectT<float>(10, 10, 60, 15));
  EXPECT_EQ(PlaceOf(*view), RectT<float>(0, 0, 100, 40));
}

}  // namespace
}  // namespace moxui
