#include "ControlFixture.h"

#include <moxui/controls/UI_ScrollBar.h>
#include <moxui/controls/UI_ScrollView.h>
#include <moxui/controls/UI_TextButton.h>

#include <limits>

namespace moxui::controls {
namespace {

using moxcore::utility::IntrusivePtr;
using moxcore::utility::MakeIntrusive;
using testing::ChangeLog;
using testing::RunningLook;
using ui::KeyboardCode;

class ScrollBar : public testing::ControlTest<UI_ScrollBar> {};

TEST_F(ScrollBar, ThumbShowsWhichPartIsSeen) {
  UI_ScrollBar& bar = Put({10, 10, 12, 100}, Orientation::kVertical);
  bar.SetLengths(400.0f, 100.0f);
  EXPECT_EQ(bar.GetThumbRect(), RectT<float>(0, 0, 12, 25));
  bar.SetOffset(300.0f);
  EXPECT_EQ(bar.GetThumbRect(), RectT<float>(0, 75, 12, 25));
  bar.SetOffset(999.0f);
  EXPECT_FLOAT_EQ(bar.GetOffset(), 300.0f);
}

TEST_F(ScrollBar, TakesWhatIsNotANumberAsZero) {
  constexpr float kNone = std::numeric_limits<float>::quiet_NaN();
  UI_ScrollBar& bar = Put({10, 10, 12, 100}, Orientation::kVertical);
  bar.SetLengths(400.0f, 100.0f);
  bar.SetOffset(50.0f);
  bar.SetOffset(kNone);
  EXPECT_EQ(bar.GetOffset(), 0.0f);
  bar.SetLengths(kNone, kNone);
  EXPECT_FALSE(bar.IsNeeded());
  EXPECT_EQ(bar.GetMaximumOffset(), 0.0f);
}

TEST_F(ScrollBar, ThumbIsNeverTooSmallToGrab) {
  UI_ScrollBar& bar = Put({10, 10, 12, 100}, Orientation::kVertical);
  bar.SetLengths(100000.0f, 100.0f);
  EXPECT_FLOAT_EQ(bar.GetThumbRect().height, 20.0f);
}

TEST_F(ScrollBar, IsNotNeededWhenAllIsSeen) {
  UI_ScrollBar& bar = Put({10, 10, 12, 100}, Orientation::kVertical);
  bar.SetLengths(100.0f, 100.0f);
  EXPECT_FALSE(bar.IsNeeded());
  EXPECT_TRUE(bar.GetThumbRect().IsEmpty());
  bar.SetLengths(100.5f, 100.0f);
  EXPECT_TRUE(bar.IsNeeded());
}

TEST_F(ScrollBar, DraggingTheThumbScrollsInProportion) {
  UI_ScrollBar& bar = Put({10, 10, 12, 100}, Orientation::kVertical);
  bar.SetLengths(400.0f, 100.0f);
  ChangeLog const log(bar);
  mStage.Press({16, 20});
  mStage.Move({16, 45});
  EXPECT_FLOAT_EQ(bar.GetOffset(), 100.0f);
  mStage.Move({16, 900});
  EXPECT_FLOAT_EQ(bar.GetOffset(), 300.0f);
  mStage.Release({16, 900});
  EXPECT_EQ(log.phases, (std::vector{0, 1, 1, 2}));
}

TEST_F(ScrollBar, APressBesideTheThumbPagesUpToThePointer) {
  UI_ScrollBar& bar = Put({10, 10, 12, 100}, Orientation::kVertical);
  bar.SetLengths(400.0f, 100.0f);
  mStage.Press({16, 75});
  EXPECT_FLOAT_EQ(bar.GetOffset(), 100.0f);
  mStage.AdvanceTime(350);
  EXPECT_FLOAT_EQ(bar.GetOffset(), 200.0f);
  mStage.AdvanceTime(1000);
  EXPECT_FLOAT_EQ(bar.GetOffset(), 200.0f);
  mStage.Release({16, 75});
  mStage.AdvanceTime(1000);
  EXPECT_FLOAT_EQ(bar.GetOffset(), 200.0f);
}

TEST_F(ScrollBar, ALostCaptureScrollsBack) {
  UI_ScrollBar& bar = Put({10, 10, 12, 100}, Orientation::kVertical);
  bar.SetLengths(400.0f, 100.0f);
  mStage.Press({16, 20});
  mStage.Move({16, 45});
  mStage.Deactivate();
  EXPECT_FLOAT_EQ(bar.GetOffset(), 0.0f);
}

TEST_F(ScrollBar, IsTwelveThickInBothLooks) {
  EXPECT_FLOAT_EQ(UI_ScrollBar::GetThickness(), 12.0f);
  RunningLook const classic(false);
  EXPECT_FLOAT_EQ(UI_ScrollBar::GetThickness(), 12.0f);
}

TEST_F(ScrollBar, LiesAlongItsOrientation) {
  UI_ScrollBar& bar = Put({10, 10, 100, 12}, Orientation::kHorizontal);
  bar.SetLengths(200.0f, 100.0f);
  bar.SetOffset(100.0f);
  EXPECT_EQ(bar.GetThumbRect(), RectT<float>(50, 0, 50, 12));
}

class ScrollView : public ::testing::Test {
 protected:
  UI_ScrollView& Put(unsigned style, ExtentT<float> content) {
    mContent->UI_SetLocalRectF({0, 0, content.width, content.height});
    mView = MakeIntrusive<UI_ScrollView>(mContent, style);
    mStage.GetRootView().ChildPushBack(mView);
    mView->SetViewRect({20, 20, 100, 80});
    return *mView;
  }

  RunningLook mLook{true};
  testing::Stage mStage{ExtentT<float>(300, 300)};
  IntrusivePtr<ui::UI_SubView> mContent = MakeIntrusive<ui::UI_SubView>();
  IntrusivePtr<UI_ScrollView> mView;
};

TEST_F(ScrollView, HoldsTheGivenViewInItsContentView) {
  UI_ScrollView& view = Put(264, {100, 400});
  EXPECT_EQ(mContent->UI_GetParentNode(), view.GetContentView().Get());
  EXPECT_EQ(view.UI_GetLocalRectF(true), RectT<float>(20, 20, 100, 80));
}

TEST_F(ScrollView, Style264HasAVerticalBarOnlyAndFitsTheWidth) {
  UI_ScrollView& view = Put(264, {500, 400});
  EXPECT_EQ(view.GetScrollBarX(), nullptr);
  ASSERT_NE(view.GetScrollBarY(), nullptr);
  EXPECT_TRUE(view.GetScrollBarY()->UI_IsShown());
  EXPECT_EQ(view.GetViewedRect(), RectT<float>(0, 0, 88, 80));
  EXPECT_EQ(view.GetContentView()->UI_GetLocalRectF(true), RectT<float>(0, 0, 88, 400));
}

TEST_F(ScrollView, HidesABarThatIsNotNeeded) {
  UI_ScrollView& view = Put(264, {100, 80});
  EXPECT_FALSE(view.GetScrollBarY()->UI_IsShown());
  EXPECT_EQ(view.GetViewedRect(), RectT<float>(0, 0, 100, 80));
  mContent->UI_SetLocalRectF({0, 0, 100, 81});
  view.Update();
  EXPECT_TRUE(view.GetScrollBarY()->UI_IsShown());
}

TEST_F(ScrollView, OneBarsRoomMayMakeTheOtherNeeded) {
  UI_ScrollView& view = Put(ScrollViewStyle::kHorizontalBar | ScrollViewStyle::kVerticalBar, {95, 81});
  EXPECT_TRUE(view.GetScrollBarX()->UI_IsShown());
  EXPECT_TRUE(view.GetScrollBarY()->UI_IsShown());
  EXPECT_EQ(view.GetViewedRect(), RectT<float>(0, 0, 88, 68));
  EXPECT_EQ(view.GetScrollBarX()->UI_GetLocalRectF(true), RectT<float>(0, 68, 88, 12));
  EXPECT_EQ(view.GetScrollBarY()->UI_GetLocalRectF(true), RectT<float>(88, 0, 12, 68));
}

TEST_F(ScrollView, TakesTheGivenExtentOfTheContent) {
  UI_ScrollView& view = Put(264, {100, 10});
  view.SetContentRect({0, 0, 100, 300});
  EXPECT_EQ(view.GetContentView()->UI_GetLocalRectF(true).height, 300.0f);
  EXPECT_TRUE(view.GetScrollBarY()->UI_IsShown());
  view.SetContentRect({0, 0, 100, 50});
  EXPECT_FALSE(view.GetScrollBarY()->UI_IsShown());
}

TEST_F(ScrollView, ScrollsByTheWheelUpToTheEnds) {
  UI_ScrollView& view = Put(264, {100, 180});
  EXPECT_TRUE(mStage.Wheel({50, 50}, {0, -30}));
  EXPECT_EQ(view.GetViewedRect().top, 30.0f);
  EXPECT_EQ(mContent->UI_GetParentNode()->UI_GetLocalRectF(true).top, -30.0f);
  EXPECT_TRUE(mStage.Wheel({50, 50}, {0, -500}));
  EXPECT_EQ(view.GetViewedRect().top, 100.0f);
  EXPECT_FALSE(mStage.Wheel({50, 50}, {0, -10}));
  EXPECT_TRUE(mStage.Wheel({50, 50}, {0, 500}));
  EXPECT_EQ(view.GetViewedRect().top, 0.0f);
}

TEST_F(ScrollView, ShiftTurnsTheWheelSideways) {
  UI_ScrollView& view = Put(ScrollViewStyle::kHorizontalBar | ScrollViewStyle::kVerticalBar, {400, 400});
  mStage.SetModKeys(ui::ModKey::kShift);
  mStage.Wheel({50, 50}, {0, -30});
  EXPECT_EQ(view.GetViewedRect().TopLeft(), PointT<float>(30, 0));
}

TEST_F(ScrollView, FollowsItsBar) {
  UI_ScrollView& view = Put(264, {100, 160});
  PointT<float> const thumb = mStage.CenterOf(*view.GetScrollBarY()) - PointT<float>(0, 20);
  mStage.Drag(thumb, thumb + PointT<float>(0, 20));
  EXPECT_EQ(view.GetViewedRect().top, 40.0f);
}

TEST_F(ScrollView, ScrollIntoViewMovesNoFurtherThanNeeded) {
  UI_ScrollView& view = Put(264, {100, 1000});
  view.ScrollIntoView({0, 100, 10, 20}, false);
  EXPECT_EQ(view.GetViewedRect().top, 40.0f);
  view.ScrollIntoView({0, 90, 10, 20}, false);
  EXPECT_EQ(view.GetViewedRect().top, 40.0f);
  view.ScrollIntoView({0, 10, 10, 20}, false);
  EXPECT_EQ(view.GetViewedRect().top, 10.0f);
}

TEST_F(ScrollView, ScrollIntoViewAlignsTheTopWhenAsked) {
  UI_ScrollView& view = Put(264, {100, 1000});
  view.ScrollIntoView({0, 100, 10, 20}, true);
  EXPECT_EQ(view.GetViewedRect().top, 100.0f);
  view.ScrollIntoView({0, 0, 1, 1}, true);
  EXPECT_EQ(view.GetViewedRect().top, 0.0f);
  view.ScrollIntoView({0, 990, 10, 20}, true);
  EXPECT_EQ(view.GetViewedRect().top, 920.0f);
}

TEST_F(ScrollView, TakesAnOffsetThatIsNotANumberAsZero) {
  constexpr float kNone = std::numeric_limits<float>::quiet_NaN();
  UI_ScrollView& view = Put(264, {100, 1000});
  view.ScrollTo({0, 100});
  view.ScrollTo({kNone, kNone});
  EXPECT_EQ(view.GetViewedRect().TopLeft(), PointT<float>(0, 0));
}

TEST_F(ScrollView, HoldsTheOffsetWhenTheContentShrinks) {
  UI_ScrollView& view = Put(264, {100, 1000});
  view.ScrollTo({0, 900});
  mContent->UI_SetLocalRectF({0, 0, 100, 200});
  view.Update();
  EXPECT_EQ(view.GetViewedRect().top, 120.0f);
}

TEST_F(ScrollView, TellsWhenWhatIsSeenHasChanged) {
  UI_ScrollView& view = Put(264, {100, 1000});
  int calls = 0;
  view.NotifyWhenScrolled(ChangeLog::Listener([&](auto&) { ++calls; }));
  view.ScrollTo({0, 50});
  view.ScrollTo({0, 50});
  EXPECT_EQ(calls, 1);
}

TEST_F(ScrollView, ClipsItsContent) {
  UI_ScrollView& view = Put(264, {100, 1000});
  auto const button = MakeIntrusive<UI_TextButton>(u"x");
  button->UI_SetLocalRectF({0, 70, 80, 24});
  mContent->ChildPushBack(button);
  EXPECT_EQ(mStage.GetTree().FindNode({40, 95}), button.Get());
  EXPECT_NE(mStage.GetTree().FindNode({40, 105}), button.Get());
  view.ScrollTo({0, 20});
  EXPECT_EQ(mStage.GetTree().FindNode({40, 90}), button.Get());
}

TEST_F(ScrollView, BringsTheFocusIntoSightWhenTraversed) {
  UI_ScrollView& view = Put(264, {100, 1000});
  for (float const top : {0.0f, 500.0f}) {
    auto const button = MakeIntrusive<UI_TextButton>(u"x");
    button->UI_SetLocalRectF({0, top, 80, 24});
    mContent->ChildPushBack(button);
  }
  mStage.Tab();
  EXPECT_EQ(view.GetViewedRect().top, 0.0f);
  mStage.Tab();
  EXPECT_EQ(view.GetViewedRect().top, 444.0f);
}

TEST_F(ScrollView, ScrollsByKeysThatNobodyInsideTakes) {
  UI_ScrollView& view = Put(264, {100, 1000});
  auto const button = MakeIntrusive<UI_TextButton>(u"x");
  button->UI_SetLocalRectF({0, 0, 80, 24});
  mContent->ChildPushBack(button);
  button->UI_GainKeyboardFocus(ui::FocusChangeReason::kByCode);
  mStage.Key(KeyboardCode::kPageDown);
  EXPECT_EQ(view.GetViewedRect().top, 60.0f);
  mStage.Key(KeyboardCode::kEnd);
  EXPECT_EQ(view.GetViewedRect().top, 920.0f);
  EXPECT_FALSE(mStage.Key(KeyboardCode::kDown));
  mStage.Key(KeyboardCode::kHome);
  EXPECT_EQ(view.GetViewedRect().top, 0.0f);
}

TEST_F(ScrollView, TakesTheFocusWhenThereIsMoreAndNobodyInsideDoes) {
  UI_ScrollView& view = Put(264, {100, 1000});
  EXPECT_TRUE(view.UI_WantsKeyboardFocus());
  mStage.Tab();
  EXPECT_TRUE(view.UI_HasKeyboardFocus(true));
  EXPECT_FALSE(view.UI_GetAccessibleName().empty());
  mStage.Key(KeyboardCode::kDown);
  EXPECT_EQ(view.GetViewedRect().top, 20.0f);
  mStage.Key(KeyboardCode::kPageDown);
  EXPECT_EQ(view.GetViewedRect().top, 80.0f);
  mStage.Key(KeyboardCode::kEnd);
  EXPECT_EQ(view.GetViewedRect().top, 920.0f);
  mStage.Key(KeyboardCode::kHome);
  EXPECT_EQ(view.GetViewedRect().top, 0.0f);

  auto const button = MakeIntrusive<UI_TextButton>(u"x");
  button->UI_SetLocalRectF({0, 0, 80, 24});
  mContent->ChildPushBack(button);
  EXPECT_FALSE(view.UI_WantsKeyboardFocus());
}

TEST_F(ScrollView, LeavesTheFocusAloneWhenAllIsSeen) {
  UI_ScrollView& view = Put(264, {100, 80});
  EXPECT_FALSE(view.UI_WantsKeyboardFocus());
  EXPECT_FALSE(mStage.Tab());
}

TEST_F(ScrollView, ShowsThatItHasTheFocusOnceKeysAreUsed) {
  UI_ScrollView& view = Put(264, {100, 1000});
  auto const without = mStage.TakePicture();
  mStage.Click({50, 50});
  EXPECT_TRUE(view.UI_HasKeyboardFocus(true));
  mStage.Leave();
  EXPECT_TRUE(mStage.TakePicture() == without);
  view.UI_LoseKeyboardFocus();
  mStage.Tab();
  EXPECT_FALSE(mStage.TakePicture() == without);
}

}  // namespace
}  // namespace moxui::controls
