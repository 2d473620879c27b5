#include "../controls/RunningLook.h"

#include <moxui/controls/UI_TextButton.h>
#include <moxui/scriber/RasterSupplier.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/testing/Stage.h>
#include <moxui/ui/AutoLayout.h>
#include <moxui/ui/UI_LayoutView.h>

#include <gtest/gtest.h>

#include <cmath>

namespace moxui::ui {
namespace {

using controls::UI_TextButton;
using moxcore::utility::IntrusivePtr;
using moxcore::utility::MakeIntrusive;

constexpr unsigned kAtRight = LayoutBinding::kFreeLeft | LayoutBinding::kBindRight;

class LayoutView : public ::testing::Test {
 protected:
  LayoutView() {
    mRow->UI_SetLocalRectF({7, 290, 305, 24});
    mRow->UI_SetLayoutsChildren(true);
  }
  IntrusivePtr<UI_TextButton> Put(char16_t const* text, RectT<float> const& rect, unsigned binding) {
    auto button = MakeIntrusive<UI_TextButton>(text);
    button->UI_SetLocalRectF(rect);
    button->UI_SetLayoutBinding(binding);
    mRow->ChildPushBack(button);
    return button;
  }
  void Show() {
    mStage.GetRootView().ChildPushBack(mRow);
    mStage.PaintFrame();
  }
  static RectT<float> PlaceOf(UI_Node const& node) { return node.UI_GetLocalRectF(RectSpace::kParent); }
  static float WidthFor(UI_Node const& node) {
    return std::ceil(node.UI_GetRecommendedSizeFromDefaultSupplier().width);
  }

  testing::RunningLook mLook{true};
  testing::Stage mStage{ExtentT<float>(400, 400)};
  IntrusivePtr<UI_LayoutView> mRow = MakeIntrusive<UI_LayoutView>();
};

// A button that measures and places itself: as wide as half of the row, and a little lower.
class HalfARow : public UI_TextButton {
 public:
  using UI_TextButton::UI_TextButton;
  ExtentT<float> DoMeasure(scriber::Scriber* scriber, ExtentT<float> available) const override {
    EXPECT_NE(scriber, nullptr);
    return {available.width / 2.0f, 24.0f};
  }
  void DoPlace(RectT<float> const& rect) override { UI_SetLocalRectF(rect.Offset({0.0f, 3.0f})); }
};

TEST_F(LayoutView, AsksEachForItsSizeInTheRowAndHasItPlaceItself) {
  auto const half = MakeIntrusive<HalfARow>(u"OK");
  half->UI_SetLocalRectF({0, 0, 24, 24});
  mRow->ChildPushBack(half);
  auto const next = Put(u"-", {30, 0, 60, 24}, LayoutBinding::kBindNone);
  Show();
  EXPECT_EQ(PlaceOf(*half), RectT<float>(0, 3, 153, 24));
  EXPECT_EQ(PlaceOf(*next), RectT<float>(159, 0, 60, 24));
}

TEST_F(LayoutView, AutoLayoutAsksAndPlacesInTheSameWay) {
  auto const view = MakeIntrusive<UI_SubView>();
  SetAutoLayoutFlags(*view, {.isOn = true, .isHorizontal = true});
  view->UI_SetLocalRectF({0, 0, 100, 30});
  auto const half = MakeIntrusive<HalfARow>(u"OK");
  half->UI_SetLocalRectF({0, 0, 24, 24});
  view->ChildPushBack(half);
  scriber::SurfaceP const surface = scriber::GetRasterSupplier()->NewOffscreenSurface(1, 1, 1.0f);
  scriber::Scriber scratch(scriber::GetRasterSupplier(), surface.Get());
  AutoLayoutSubView(view.Get(), &scratch);
  EXPECT_EQ(PlaceOf(*half), RectT<float>(0, 3, 50, 24));
}

TEST_F(LayoutView, ButtonsAtTheRightEdgeGrowToTheLeftAndKeepTheirDistance) {
  auto const ok = Put(u"OK", {245, 0, 24, 24}, kAtRight);
  auto const cancel = Put(u"Cancel", {281, 0, 24, 24}, kAtRight);
  Show();
  EXPECT_FLOAT_EQ(PlaceOf(*cancel).Right(), 305.0f);
  EXPECT_FLOAT_EQ(PlaceOf(*cancel).width, WidthFor(*cancel));
  EXPECT_GT(PlaceOf(*cancel).width, 24.0f);
  EXPECT_FLOAT_EQ(PlaceOf(*ok).Right(), PlaceOf(*cancel).left - 12.0f);
  EXPECT_FLOAT_EQ(PlaceOf(*ok).width, WidthFor(*ok));
}

TEST_F(LayoutView, OthersGrowToTheRightAndPushWhatLiesThere) {
  auto const add = Put(u"Add a channel", {0, 0, 24, 24}, LayoutBinding::kBindNone);
  auto const remove = Put(u"-", {30, 0, 60, 24}, LayoutBinding::kBindNone);
  auto const far = Put(u"x", {265, 0, 40, 24}, kAtRight);
  Show();
  EXPECT_FLOAT_EQ(PlaceOf(*add).left, 0.0f);
  EXPECT_FLOAT_EQ(PlaceOf(*add).width, WidthFor(*add));
  EXPECT_EQ(PlaceOf(*remove), RectT<float>(WidthFor(*add) + 6.0f, 0, 60, 24));
  EXPECT_EQ(PlaceOf(*far), RectT<float>(265, 0, 40, 24));
}

TEST_F(LayoutView, WhatStretchesGivesUpTheWidthThatAnotherTakes) {
  auto const label = Put(u"Preset:", {0, 0, 30, 20}, LayoutBinding::kBindNone);
  auto const strip = Put(u"", {35, 0, 269, 20}, LayoutBinding::kBindRight);
  Show();
  EXPECT_GT(WidthFor(*label), 30.0f);
  EXPECT_FLOAT_EQ(PlaceOf(*strip).left, WidthFor(*label) + 5.0f);
  EXPECT_FLOAT_EQ(PlaceOf(*strip).Right(), 304.0f);
}

TEST_F(LayoutView, NothingShrinksAndALayoutAgainChangesNothing) {
  auto const ok = Put(u"OK", {136, 0, 80, 19}, kAtRight);
  auto const cancel = Put(u"Cancel", {221, 0, 80, 19}, kAtRight);
  Show();
  mRow->UI_LayoutChildren();
  EXPECT_EQ(PlaceOf(*ok), RectT<float>(136, 0, 80, 19));
  EXPECT_EQ(PlaceOf(*cancel), RectT<float>(221, 0, 80, 19));
}

TEST_F(LayoutView, WhatStandsOnAnotherLineOrIsHiddenStays) {
  auto const below = Put(u"x", {100, 30, 60, 20}, kAtRight);
  auto const hidden = Put(u"Hidden for now", {160, 0, 10, 20}, kAtRight);
  hidden->UI_Hide();
  Put(u"A long label", {281, 0, 24, 20}, kAtRight);
  Show();
  EXPECT_EQ(PlaceOf(*below), RectT<float>(100, 30, 60, 20));
  EXPECT_EQ(PlaceOf(*hidden), RectT<float>(160, 0, 10, 20));
}

TEST_F(LayoutView, GrowsNothingWhileItIsOff) {
  mRow->SetAutoLayout(false);
  auto const cancel = Put(u"Cancel", {281, 0, 24, 24}, kAtRight);
  Show();
  EXPECT_FLOAT_EQ(PlaceOf(*cancel).width, 24.0f);
  mRow->SetAutoLayout(true);
  mStage.PaintFrame();
  EXPECT_FLOAT_EQ(PlaceOf(*cancel).width, WidthFor(*cancel));
}

TEST_F(LayoutView, FollowsItsSizeBeforeItGrows) {
  auto const cancel = Put(u"Cancel", {281, 0, 24, 24}, kAtRight);
  Show();
  mRow->UI_SetLocalRectF({7, 290, 355, 24});
  mStage.PaintFrame();
  EXPECT_FLOAT_EQ(PlaceOf(*cancel).Right(), 355.0f);
}

}  // namespace
}  // namespace moxui::ui
