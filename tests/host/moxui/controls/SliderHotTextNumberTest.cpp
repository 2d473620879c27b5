#include "ControlFixture.h"

#include <moxui/controls/UI_SliderHotTextNumber.h>
#include <moxui/skins/LayoutDirection.h>

#include <cmath>
#include <limits>
#include <string_view>
#include <vector>

namespace moxui::controls {
namespace {

using testing::ChangeLog;
using ui::KeyboardCode;

class SliderHotTextNumber : public testing::ControlTest<UI_SliderHotTextNumber> {
 protected:
  /// A size of type: the slider goes to 400, a typed one to 1600.
  UI_SliderHotTextNumber& PutSize(double value = 100.0) {
    UI_SliderHotTextNumber& size = Put({20, 40, 300, 30});
    size.Init();
    size.SetExtent(1.0, 400.0);
    size.ShowExtentLabels(false);
    size.SetSliderLocation({0, 5});
    size.SetSliderThickness(20.0f);
    Number().SetDecimalPlaces(1);
    Number().SetMaxValue(1600.0);
    Number().SetIncrement(1.0);
    size.SetValue(value);
    mStage.PaintFrame();
    return size;
  }
  UI_Slider& Slider() const { return *mControl->GetSlider(); }
  UI_HotTextNumber& Number() const { return *mControl->GetHotTextNumber(); }
  RectT<float> PlaceOf(ui::UI_Node const& node) const {
    return node.UI_GetLocalRectF(ui::RectSpace::kParent);
  }
  PointT<float> Thumb() const { return mStage.CenterOf(*Slider().GetSliderThumb()); }
  void Type(std::u16string_view text) {
    mStage.Click(mStage.CenterOf(Number()));
    mStage.Type(text);
    mStage.Key(KeyboardCode::kReturn);
  }
};

TEST_F(SliderHotTextNumber, ShowsNothingBeforeItsPartsAreJoined) {
  UI_SliderHotTextNumber& size = Put({20, 40, 300, 30});
  EXPECT_EQ(size.ChildSize(), 0u);
  size.Init();
  std::size_t const parts = size.ChildSize();
  EXPECT_GT(parts, 1u);
  size.Init();
  EXPECT_EQ(size.ChildSize(), parts);
}

TEST_F(SliderHotTextNumber, TheNumberGoesBeyondTheExtentAndTheThumbStandsAtItsEnd) {
  UI_SliderHotTextNumber& size = PutSize();
  ChangeLog const log(size);
  EXPECT_EQ(Slider().GetValue(), 100.0);
  size.SetValue(1200.0);
  EXPECT_EQ(size.GetValue(), 1200.0);
  EXPECT_EQ(Slider().GetValue(), 400.0);
  size.SetValue(9999.0);
  EXPECT_EQ(size.GetValue(), 1600.0);
  size.SetValue(0.0);
  EXPECT_EQ(size.GetValue(), 1.0);
  EXPECT_EQ(Slider().GetValue(), 1.0);
  EXPECT_EQ(log.changes, 0);
  EXPECT_TRUE(log.phases.empty());
}

TEST_F(SliderHotTextNumber, OfItsPartsEachFollowsTheOtherSilently) {
  UI_SliderHotTextNumber& size = PutSize();
  ChangeLog const log(size);
  Slider().SetValue(57.38);
  EXPECT_EQ(Number().GetValue(), 57.38);
  Number().SetValue(12.25);
  EXPECT_EQ(Slider().GetValue(), 12.25);
  Number().SetMaxValue(10.0);
  EXPECT_EQ(Slider().GetValue(), 10.0);
  EXPECT_EQ(size.GetValue(), 10.0);
  EXPECT_EQ(log.changes, 0);
}

TEST_F(SliderHotTextNumber, ItsExtentIsTheNumbersRangeToo) {
  UI_SliderHotTextNumber& size = PutSize();
  size.SetExtent(10.0, 50.0);
  EXPECT_EQ(Number().GetMinValue(), 10.0);
  EXPECT_EQ(Number().GetMaxValue(), 50.0);
  EXPECT_EQ(size.GetValue(), 50.0);
  EXPECT_EQ(Slider().GetValue(), 50.0);
  double const infinity = std::numeric_limits<double>::infinity();
  size.SetExtent(0.0, infinity);
  size.SetExtent(-infinity, 60.0);
  EXPECT_EQ(Slider().GetMinimum(), 10.0);
  EXPECT_EQ(Slider().GetMaximum(), 50.0);
}

TEST_F(SliderHotTextNumber, ADraggedThumbGivesWhatTheNumberShows) {
  UI_SliderHotTextNumber& size = PutSize();
  ChangeLog const log(size);
  PointT<float> const from = Thumb();
  mStage.Press(from);
  mStage.Move({from.x + 10, from.y});
  mStage.Move({from.x + 37, from.y});
  double const value = size.GetValue();
  EXPECT_GT(value, 100.0);
  EXPECT_EQ(value, std::round(value * 10.0) / 10.0);
  EXPECT_NEAR(Slider().GetValue(), value, 0.05);
  EXPECT_TRUE(size.IsChangingInteractively());
  EXPECT_EQ(log.changes, 0);
  mStage.ReleaseHere();
  EXPECT_EQ(log.phases, (std::vector<int>{0, 1, 1, 2}));
  EXPECT_EQ(log.changes, 1);
  EXPECT_FALSE(log.lastWasInteractive);
}

TEST_F(SliderHotTextNumber, EscapeBringsAValueBeyondTheExtentBack) {
  UI_SliderHotTextNumber& size = PutSize(1200.0);
  ChangeLog const log(size);
  PointT<float> const from = Thumb();
  mStage.Press(from);
  mStage.Move({from.x - 30, from.y});
  EXPECT_LT(size.GetValue(), 400.0);
  mStage.Key(KeyboardCode::kEscape);
  EXPECT_EQ(size.GetValue(), 1200.0);
  EXPECT_EQ(Number().GetText(), u"1200.0");
  EXPECT_EQ(Slider().GetValue(), 400.0);
  EXPECT_EQ(log.phases, (std::vector<int>{0, 1, 3}));
  EXPECT_EQ(log.changes, 1);
  mStage.ReleaseHere();
}

TEST_F(SliderHotTextNumber, ADraggedNumberTakesTheThumbAlong) {
  UI_SliderHotTextNumber& size = PutSize();
  ChangeLog const log(size);
  PointT<float> const from = mStage.CenterOf(Number());
  mStage.Press(from);
  mStage.Move({from.x + 6, from.y});
  mStage.ReleaseHere();
  EXPECT_EQ(size.GetValue(), 105.0);
  EXPECT_EQ(Slider().GetValue(), 105.0);
  EXPECT_EQ(log.phases, (std::vector<int>{0, 1, 2}));
  EXPECT_EQ(log.changes, 1);
}

TEST_F(SliderHotTextNumber, ATypedValueIsToldOnceAndMayPassTheEnd) {
  UI_SliderHotTextNumber& size = PutSize();
  ChangeLog const log(size);
  Type(u"1600");
  EXPECT_EQ(size.GetValue(), 1600.0);
  EXPECT_EQ(Slider().GetValue(), 400.0);
  EXPECT_EQ(log.changes, 1);
  EXPECT_TRUE(log.phases.empty());
  Type(u"1600");
  EXPECT_EQ(log.changes, 1);
  // Told after a drag as before it.
  mStage.Drag(Thumb(), {Thumb().x - 20, Thumb().y});
  EXPECT_EQ(log.changes, 2);
  Type(u"7");
  EXPECT_EQ(log.changes, 3);
}

TEST_F(SliderHotTextNumber, KeysOnTheSliderMoveByTheNumbersIncrement) {
  UI_SliderHotTextNumber& size = PutSize();
  ChangeLog const log(size);
  Slider().UI_GainKeyboardFocus(ui::FocusChangeReason::kTraversal);
  mStage.Key(KeyboardCode::kRight);
  EXPECT_EQ(size.GetValue(), 101.0);
  Number().SetIncrement(2.5);
  mStage.Key(KeyboardCode::kLeft);
  EXPECT_EQ(size.GetValue(), 98.5);
  mStage.Key(KeyboardCode::kEnd);
  EXPECT_EQ(size.GetValue(), 400.0);
  EXPECT_EQ(log.changes, 3);
}

TEST_F(SliderHotTextNumber, BothPartsAreStopsOfTraversal) {
  PutSize();
  mStage.Tab();
  EXPECT_TRUE(Slider().UI_HasKeyboardFocus());
  mStage.Tab();
  EXPECT_TRUE(Number().UI_HasKeyboardFocus());
}

TEST_F(SliderHotTextNumber, IsUnknownWithItsPartsForWhoeverKnowsItAsAControlOnly) {
  UI_SliderHotTextNumber& size = PutSize();
  static_cast<UI_ControlView&>(size).SetValueUnknown();
  EXPECT_TRUE(Slider().IsValueUnknown());
  EXPECT_TRUE(Number().IsValueUnknown());
}

TEST_F(SliderHotTextNumber, IsUnknownAsAWholeUntilItIsSet) {
  UI_SliderHotTextNumber& size = PutSize();
  size.SetValueUnknown();
  EXPECT_TRUE(Slider().IsValueUnknown());
  EXPECT_TRUE(Number().IsValueUnknown());
  size.SetExtent(1.0, 500.0);
  EXPECT_TRUE(size.IsValueUnknown());
  EXPECT_TRUE(Slider().IsValueUnknown());
  PointT<float> const from = Thumb();
  mStage.Press(from);
  mStage.Move({from.x + 30, from.y});
  EXPECT_FALSE(size.IsValueUnknown());
  EXPECT_FALSE(Number().IsValueUnknown());
  mStage.Key(KeyboardCode::kEscape);
  EXPECT_TRUE(size.IsValueUnknown());
  EXPECT_TRUE(Number().IsValueUnknown());
  mStage.ReleaseHere();
  size.SetValue(3.0);
  EXPECT_FALSE(size.IsValueUnknown());
  EXPECT_FALSE(Slider().IsValueUnknown());
}

TEST_F(SliderHotTextNumber, TheNumberStandsAtTheFarEndBesideTheSlider) {
  PutSize();
  RectT<float> const slider = PlaceOf(Slider());
  RectT<float> const number = PlaceOf(Number());
  EXPECT_EQ(slider.TopLeft(), PointT<float>(0, 5));
  EXPECT_EQ(slider.height, 20.0f);
  EXPECT_EQ(number.Right(), 300.0f);
  EXPECT_EQ(number.Center().y, slider.Center().y);
  EXPECT_EQ(slider.Right(), number.left - 8.0f);
  EXPECT_GE(number.width, Number().UI_GetRecommendedSizeFromDefaultSupplier().width);
  mControl->SetValue(1600.0);
  EXPECT_EQ(PlaceOf(Number()), number);  // it has had the room for the longest already
}

TEST_F(SliderHotTextNumber, IsMirroredFromRightToLeftButForTheSlidersValues) {
  skins::SetRightToLeft(true);
  PutSize();
  EXPECT_EQ(PlaceOf(Number()).left, 0.0f);
  EXPECT_EQ(PlaceOf(Slider()).Right(), 300.0f);
  skins::SetRightToLeft(false);
}

TEST_F(SliderHotTextNumber, ItsNumberMayBeHiddenOrPlacedByItsClient) {
  UI_SliderHotTextNumber& size = PutSize();
  size.SetHotTextVisibility(false);
  EXPECT_FALSE(Number().UI_IsShown());
  EXPECT_EQ(PlaceOf(Slider()).width, 300.0f);
  size.SetHotTextVisibility(true);
  size.SetAllowHotTextManualPlacement(true);
  Number().UI_SetLocalRectF({100, 0, 50, 20});
  size.UI_SetLocalRectF({20, 40, 280, 30});
  EXPECT_EQ(PlaceOf(Number()), RectT<float>(100, 0, 50, 20));
  EXPECT_EQ(PlaceOf(Slider()).width, 280.0f);
}

TEST_F(SliderHotTextNumber, ItsEndsCanBeReadBelowTheSlider) {
  UI_SliderHotTextNumber& size = PutSize();
  auto const label = [&](std::size_t index) -> UI_StaticText& {
    return dynamic_cast<UI_StaticText&>(*size.ChildGet(index));
  };
  EXPECT_FALSE(label(2).UI_IsShown());
  float const without = size.UI_GetRecommendedSizeFromDefaultSupplier().height;
  size.ShowExtentLabels(true);
  EXPECT_TRUE(label(2).UI_IsShown());
  EXPECT_TRUE(label(3).UI_IsShown());
  EXPECT_EQ(label(2).GetValue(), u"1.0");
  EXPECT_EQ(label(3).GetValue(), u"400.0");
  EXPECT_EQ(PlaceOf(label(2)).top, PlaceOf(Slider()).Bottom());
  EXPECT_EQ(PlaceOf(label(3)).Right(), PlaceOf(Slider()).Right());
  EXPECT_GT(size.UI_GetRecommendedSizeFromDefaultSupplier().height, without);
}

TEST_F(SliderHotTextNumber, TheThumbMayBeHiddenWhileTheValueIsBeyondTheEnd) {
  UI_SliderHotTextNumber& size = PutSize(500.0);
  EXPECT_TRUE(Slider().GetSliderThumb()->UI_IsShown());
  auto const withThumb = mStage.TakePicture();
  size.ShowSliderThumbOutsideBounds(false);
  EXPECT_FALSE(Slider().GetSliderThumb()->UI_IsShown());
  EXPECT_FALSE(mStage.TakePicture() == withThumb);
  size.SetValue(400.0);
  EXPECT_TRUE(Slider().GetSliderThumb()->UI_IsShown());
  size.SetValue(401.0);
  size.ShowSliderThumbOutsideBounds(true);
  EXPECT_TRUE(Slider().GetSliderThumb()->UI_IsShown());
}

TEST_F(SliderHotTextNumber, TheThumbIsAButtonThatLeavesPressesToTheSlider) {
  PutSize();
  Slider().GetSliderThumb()->SetSpringLoaded(true);
  mStage.Press(Thumb());
  EXPECT_FALSE(Slider().GetSliderThumb()->IsDown());
  EXPECT_TRUE(Slider().IsDown());
  mStage.ReleaseHere();
}

TEST_F(SliderHotTextNumber, DisabledItIsLeftAlone) {
  UI_SliderHotTextNumber& size = PutSize();
  size.SetDisabled(true);
  mStage.Drag(Thumb(), {Thumb().x + 40, Thumb().y});
  Type(u"7");
  EXPECT_EQ(size.GetValue(), 100.0);
}

TEST_F(SliderHotTextNumber, AListenerMayLetGoOfIt) {
  PutSize();
  mControl->NotifyWhenChangedInteractively(ChangeLog::Listener([&](auto&) {
    if (mControl) {
      mStage.GetRootView().ChildRemove(mControl.Get());
      mControl.Reset();
    }
  }));
  PointT<float> const from = Thumb();
  mStage.Press(from);
  mStage.Move({from.x + 30, from.y});
  mStage.ReleaseHere();
  EXPECT_FALSE(mControl);
}

TEST_F(SliderHotTextNumber, ItsPartsOutliveIt) {
  PutSize();
  auto const slider = mControl->GetSlider();
  auto const number = mControl->GetHotTextNumber();
  mStage.GetRootView().ChildRemove(mControl.Get());
  mControl.Reset();
  slider->SetValue(5.0);
  number->SetValue(7.0);
  EXPECT_EQ(slider->GetValue(), 5.0);
  EXPECT_EQ(number->GetValue(), 7.0);
}

TEST_F(SliderHotTextNumber, GivesItsNameToItsParts) {
  UI_SliderHotTextNumber& size = PutSize();
  size.UI_SetToolTip("Font Size", 200);
  EXPECT_EQ(Slider().UI_GetAccessibleName(), "Font Size");
  EXPECT_EQ(Number().UI_GetAccessibleName(), "Font Size");
  Number().SetAccessibleName("Size in points");
  EXPECT_EQ(Number().UI_GetAccessibleName(), "Size in points");
  EXPECT_EQ(size.UI_GetAccessibleRole(), ui::AccessibleRole::kGroup);
}

}  // namespace
}  // namespace moxui::controls
