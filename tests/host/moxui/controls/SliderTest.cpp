#include "ControlFixture.h"

#include <moxcore/utility/IntrusivePtr.h>
#include <moxui/controls/UI_Slider.h>
#include <moxui/ui/UI_NodeManager.h>

#include <limits>

namespace moxui::controls {
namespace {

using moxcore::utility::MakeIntrusive;
using testing::ChangeLog;
using testing::RunningLook;
using ui::KeyboardCode;

// 14 wide thumbs leave 100 pixels of way between 17 and 117.
constexpr RectT<float> kRect(10, 20, 114, 24);

PointT<float> At(double value) {
  return {17.0f + 100.0f * static_cast<float>(value), 32.0f};
}

class Slider : public testing::ControlTest<UI_Slider> {};

TEST_F(Slider, RunsFromZeroToOneAndClampsSilently) {
  UI_Slider& slider = Put(kRect);
  ChangeLog const log(slider);
  EXPECT_EQ(slider.GetValueRange(), std::pair(0.0, 0.0));
  slider.SetValueRange(0.25, 0.25);
  EXPECT_EQ(slider.GetValue(), 0.25);
  slider.SetValueRange(-1.0, 7.0);
  EXPECT_EQ(slider.GetValueRange(), std::pair(0.0, 1.0));
  slider.SetValue(2.0);
  EXPECT_EQ(slider.GetValueRange(), std::pair(1.0, 1.0));
  EXPECT_EQ(log.changes, 0);
  EXPECT_TRUE(log.phases.empty());
}

TEST_F(Slider, IsNotDraggedOnceTakingTheFocusHasTakenItOut) {
  UI_Slider& slider = Put(kRect);
  ChangeLog const log(slider);
  moxcore::utility::IntrusivePtr<UI_Slider> const kept(&slider);
  slider.InstallFocusChangedFunction([](ui::UI_Node* node, ui::FocusChangeReason) {
    if (node->UI_GetParentNode() != nullptr) {
      node->UI_GetParentNode()->UI_GetContainer()->ChildRemove(node);
    }
  });
  mStage.Press(At(0.5));
  EXPECT_EQ(slider.GetValue(), 0.0);
  EXPECT_TRUE(log.phases.empty());
  EXPECT_EQ(mStage.GetTree().GetCapture(), nullptr);
}

TEST_F(Slider, APressOnTheTrackJumpsThereAndDragsOn) {
  UI_Slider& slider = Put(kRect);
  ChangeLog const log(slider);
  mStage.Press(At(0.5));
  EXPECT_NEAR(slider.GetValue(), 0.5, 1e-6);
  mStage.Move(At(0.75));
  EXPECT_NEAR(slider.GetValue(), 0.75, 1e-6);
  EXPECT_EQ(log.changes, 0);
  mStage.Release(At(0.75));
  EXPECT_EQ(log.phases, (std::vector{0, 1, 1, 2}));
  EXPECT_EQ(log.changes, 1);
  EXPECT_FALSE(log.lastWasInteractive);
}

TEST_F(Slider, AGrabbedThumbStaysUnderThePointer) {
  UI_Slider& slider = Put(kRect);
  slider.SetValue(0.5);
  mStage.Press({At(0.5).x + 5.0f, 32.0f});
  EXPECT_EQ(slider.GetValue(), 0.5);
  mStage.Move({At(0.6).x + 5.0f, 32.0f});
  EXPECT_NEAR(slider.GetValue(), 0.6, 1e-6);
}

TEST_F(Slider, TellsASettledChangeAfterAnUnmovedGestureToo) {
  UI_Slider& slider = Put(kRect);
  slider.SetValue(0.5);
  ChangeLog const log(slider);
  mStage.Click(At(0.5));
  EXPECT_EQ(log.phases, (std::vector{0, 2}));
  EXPECT_EQ(log.changes, 1);
}

TEST_F(Slider, ADragIsHeldToTheEnds) {
  UI_Slider& slider = Put(kRect);
  mStage.Press(At(0.5));
  mStage.Move({-300, 32});
  EXPECT_EQ(slider.GetValue(), 0.0);
  mStage.Move({600, 100});
  EXPECT_EQ(slider.GetValue(), 1.0);
}

TEST_F(Slider, EscapeBringsTheValueOfThePressBack) {
  UI_Slider& slider = Put(kRect);
  slider.SetValueRange(0.2, 0.3);
  ChangeLog const log(slider);
  std::vector<std::pair<double, double>> atCancel;
  slider.NotifyWhenChanged(ChangeLog::Listener([&](auto&) { atCancel.push_back(slider.GetValueRange()); }));
  mStage.Press(At(0.8));
  mStage.Move(At(0.9));
  EXPECT_TRUE(mStage.Key(KeyboardCode::kEscape));
  EXPECT_EQ(slider.GetValueRange(), std::pair(0.2, 0.3));
  EXPECT_EQ(log.phases, (std::vector{0, 1, 1, 3}));
  EXPECT_EQ(atCancel, (std::vector{std::pair(0.2, 0.3)}));
  mStage.Release(At(0.9));
  EXPECT_EQ(log.changes, 1);
}

TEST_F(Slider, ALostCaptureBringsTheUnknownValueBack) {
  UI_Slider& slider = Put(kRect);
  slider.SetValueUnknown();
  ChangeLog const log(slider);
  mStage.Press(At(0.8));
  EXPECT_FALSE(slider.IsValueUnknown());
  mStage.Deactivate();
  EXPECT_TRUE(slider.IsValueUnknown());
  EXPECT_EQ(log.phases.back(), 3);
  EXPECT_EQ(log.changes, 1);
}

TEST_F(Slider, KeysStepPageAndGoToTheEnds) {
  UI_Slider& slider = Put(kRect);
  slider.SetLimits(0.0, 200.0);
  slider.SetPageSize(50.0);
  slider.UI_GainKeyboardFocus(ui::FocusChangeReason::kByCode);
  ChangeLog const log(slider);
  mStage.Key(KeyboardCode::kRight);
  EXPECT_NEAR(slider.GetValue(), 2.0, 1e-9);
  mStage.Key(KeyboardCode::kUp, ui::ModKey::kShift);
  EXPECT_NEAR(slider.GetValue(), 22.0, 1e-9);
  mStage.Key(KeyboardCode::kLeft, ui::ModKey::kCommand);
  EXPECT_NEAR(slider.GetValue(), 21.8, 1e-9);
  mStage.Key(KeyboardCode::kPageUp);
  EXPECT_NEAR(slider.GetValue(), 71.8, 1e-9);
  mStage.Key(KeyboardCode::kPageDown);
  mStage.Key(KeyboardCode::kEnd);
  EXPECT_EQ(slider.GetValue(), 200.0);
  EXPECT_EQ(log.changes, 6);
  mStage.Key(KeyboardCode::kEnd);
  EXPECT_EQ(log.changes, 6);
  mStage.Key(KeyboardCode::kHome);
  EXPECT_EQ(slider.GetValue(), 0.0);
  slider.SetStepSize(5.0);
  mStage.Key(KeyboardCode::kUp);
  EXPECT_EQ(slider.GetValue(), 5.0);
}

TEST_F(Slider, EachKeyTellsAWholeGesture) {
  UI_Slider& slider = Put(kRect);
  slider.UI_GainKeyboardFocus(ui::FocusChangeReason::kByCode);
  ChangeLog const log(slider);
  mStage.Key(KeyboardCode::kRight);
  EXPECT_EQ(log.phases, (std::vector{0, 1, 2}));
  EXPECT_EQ(log.changes, 1);
}

TEST_F(Slider, IgnoresPointerAndKeysWhileDisabled) {
  UI_Slider& slider = Put(kRect);
  slider.SetDisabled(true);
  mStage.Click(At(0.5));
  EXPECT_EQ(slider.GetValue(), 0.0);
}

TEST_F(Slider, AVerticalOneGrowsUpward) {
  UI_Slider& slider = Put({10, 10, 24, 114}, SliderStyle::kPlain, Orientation::kVertical);
  mStage.Click({22, 10 + 7 + 25});
  EXPECT_NEAR(slider.GetValue(), 0.75, 1e-6);
  EXPECT_NEAR(slider.GetDrawParameters().GetThumbRect().Center().y, 32.0f, 1e-4);
}

TEST_F(Slider, KnowsItsCapture) {
  UI_Slider& slider = Put(kRect);
  auto* const manager = ui::UI_NodeManager::Get(false);
  ASSERT_NE(manager, nullptr);
  EXPECT_FALSE(slider.IsSliderThumbCaptured(nullptr));
  mStage.Press(At(0.5));
  EXPECT_TRUE(slider.IsSliderThumbCaptured(manager->GetInputCapture()));
  mStage.Release(At(0.5));
  EXPECT_FALSE(slider.IsSliderThumbCaptured(manager->GetInputCapture()));
}

TEST_F(Slider, ACustomThumbIsAShownChildOneAboveTheBottom) {
  UI_Slider& slider = Put({10, 20, 200, 24}, SliderStyle::kBare, Orientation::kHorizontal);
  slider.SetIsCustomThumb(true);
  slider.SetDrawTrackUseFullWidth(true);
  auto const thumb = MakeIntrusive<UI_Button>();
  slider.InstallSliderThumb(thumb);
  slider.SetThumbSize(12.0f, 12.0f);
  EXPECT_EQ(thumb->UI_GetParentNode(), &slider);
  EXPECT_TRUE(thumb->UI_IsShown());
  EXPECT_EQ(thumb->UI_GetLocalRectF(true), RectT<float>(-6, 11, 12, 12));
  slider.SetValueRange(0.5, 0.5);
  EXPECT_EQ(thumb->UI_GetLocalRectF(true), RectT<float>(94, 11, 12, 12));
  slider.UI_SetLocalRectF({10, 20, 200, 11});
  slider.SetThumbSize(9.0f, 10.0f);
  EXPECT_FLOAT_EQ(thumb->UI_GetLocalRectF(true).top, 0.0f);
}

TEST_F(Slider, ACustomThumbFollowsLimitsFlagsAndLook) {
  UI_Slider& slider = Put({0, 0, 114, 24});
  auto const thumb = MakeIntrusive<UI_Button>();
  slider.SetValue(0.5);
  slider.InstallSliderThumb(thumb);
  auto const place = [&] { return thumb->UI_GetLocalRectF(true); };
  EXPECT_EQ(place(), slider.GetDrawParameters().GetThumbRect());
  EXPECT_FLOAT_EQ(place().left, 50.0f);
  slider.SetLimits(0.0, 2.0);  // the value stays and now lies at a quarter of the way
  EXPECT_FLOAT_EQ(place().left, 25.0f);
  slider.SetIsCustomThumb(true);
  EXPECT_FLOAT_EQ(place().Bottom(), 23.0f);
  RunningLook const classic(false);
  EXPECT_EQ(place(), slider.GetDrawParameters().GetThumbRect());
}

TEST_F(Slider, WithoutFullWidthTheThumbStaysInside) {
  UI_Slider& slider = Put({10, 20, 200, 24}, SliderStyle::kBare, Orientation::kHorizontal);
  slider.SetThumbSize(10.0f, 10.0f);
  EXPECT_FLOAT_EQ(slider.GetDrawParameters().GetThumbRect().left, 0.0f);
  slider.SetValue(1.0);
  EXPECT_FLOAT_EQ(slider.GetDrawParameters().GetThumbRect().Right(), 200.0f);
  slider.SetDrawTrackUseFullWidth(true);
  EXPECT_FLOAT_EQ(slider.GetDrawParameters().GetThumbRect().Right(), 205.0f);
  EXPECT_EQ(slider.GetDrawParameters().GetRectF(), RectT<float>(0, 0, 200, 24));
}

TEST_F(Slider, AcceptsEventsOfAThumbThatLeavesThemToIt) {
  class Thumb : public UI_Button {
    bool UI_DoMouseEvent(ui::UI_Node*, ui::MouseEvent const&) override { return false; }
  };
  UI_Slider& slider = Put({10, 20, 200, 24}, SliderStyle::kBare, Orientation::kHorizontal);
  slider.SetIsCustomThumb(true);
  slider.SetDrawTrackUseFullWidth(true);
  auto const thumb = MakeIntrusive<Thumb>();
  slider.InstallSliderThumb(thumb);
  slider.SetThumbSize(10.0f, 10.0f);
  slider.SetValue(0.5);
  ChangeLog const log(slider);
  mStage.Drag(mStage.CenterOf(*thumb), mStage.CenterOf(*thumb) + PointT<float>(50, 0), 1);
  EXPECT_NEAR(slider.GetValue(), 0.75, 1e-6);
  EXPECT_EQ(log.phases, (std::vector{0, 1, 2}));
  EXPECT_FALSE(thumb->UI_WantsKeyboardFocus());
}

TEST_F(Slider, MayBeDeletedByItsListener) {
  UI_Slider& slider = Put(kRect);
  slider.NotifyWhenChanged(ChangeLog::Listener([&](auto&) {
    mControl.Reset();
    mStage.GetRootView().DeleteChildren();
  }));
  mStage.Click(At(0.5));
  EXPECT_EQ(mStage.GetRootView().ChildSize(), 0u);
}

TEST_F(Slider, AWidthOfZeroDividesByNothing) {
  UI_Slider& slider = Put({10, 20, 0, 24});
  slider.SetValue(0.5);
  EXPECT_FLOAT_EQ(slider.GetDrawParameters().GetTrackRect().width, 0.0f);
  mStage.TakePicture();
}

TEST_F(Slider, TellsAssistiveSoftwareItsValue) {
  UI_Slider& slider = Put(kRect);
  slider.SetValue(0.25);
  EXPECT_EQ(slider.UI_GetAccessibleRole(), ui::AccessibleRole::kSlider);
  EXPECT_EQ(slider.UI_GetAccessibleValue(), "0.25");
  slider.SetValueUnknown();
  EXPECT_EQ(slider.UI_GetAccessibleValue(), "");
}

TEST_F(Slider, IgnoresValuesThatAreNotFinite) {
  UI_Slider& slider = Put(kRect);
  slider.SetValueRange(0.25, 0.5);
  constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
  constexpr double kEndless = std::numeric_limits<double>::infinity();
  for (double const odd : {kNone, kEndless, -kEndless}) {
    slider.SetValue(odd);
    slider.SetValueRange(odd, 0.75);
    slider.SetValueRange(0.0, odd);
    slider.SetLimits(odd, 2.0);
    slider.SetLimits(-1.0, odd);
    EXPECT_EQ(slider.GetValueRange(), std::pair(0.25, 0.5));
    EXPECT_EQ(slider.GetMinimum(), 0.0);
    EXPECT_EQ(slider.GetMaximum(), 1.0);
  }
  slider.SetValueUnknown();
  slider.SetValue(kNone);
  EXPECT_TRUE(slider.IsValueUnknown());
}

}  // namespace
}  // namespace moxui::controls
