#include "ControlFixture.h"

#include <moxui/controls/UI_HotTextNumber.h>
#include <moxui/platform/Application.h>
#include <moxui/platform/CursorControl.h>
#include <moxui/ui/KeyboardEvent.h>

#include <cmath>
#include <limits>

namespace moxui::controls {
namespace {

using testing::ChangeLog;
using ui::KeyboardCode;

constexpr double kLargest = std::numeric_limits<double>::max();

class HotTextNumber : public testing::ControlTest<UI_HotTextNumber> {
 protected:
  UI_HotTextNumber& PutNumber(double value = 10.0) {
    UI_HotTextNumber& number = Put({100, 100, 80, 24});
    number.SetValue(value);
    return number;
  }
  // A pixel goes by before the first step of a mouse counts.
  void DragBy(float dx, float dy) {
    PointT<float> const from = Centre();
    mStage.AdvanceTime(2000);
    mStage.Press(from);
    mStage.Move({from.x + dx, from.y + dy});
    mStage.ReleaseHere();
  }
  void TypeInto(std::u16string_view text) {
    mControl->OpenEdit();
    mStage.Type(text);
    mStage.Key(KeyboardCode::kReturn);
  }
  bool PointerIsShown() { return platform::Application::Get()->GetCursor().IsCursorShown(); }
};

TEST_F(HotTextNumber, BeginsWithTheRangeOfDoublesAndPlainSteps) {
  UI_HotTextNumber& number = Put({100, 100, 80, 24});
  EXPECT_EQ(number.GetValue(), 0.0);
  EXPECT_EQ(number.GetMinValue(), -kLargest);
  EXPECT_EQ(number.GetMaxValue(), kLargest);
  EXPECT_EQ(number.GetIncrement(), 1.0);
  EXPECT_EQ(number.GetShiftIncrement(), 10.0);
  EXPECT_EQ(number.GetCmdIncrement(), 0.1);
  EXPECT_EQ(number.GetDecimalPlaces(), 0);
  EXPECT_EQ(number.GetText(), u"0");
}

TEST_F(HotTextNumber, HoldsToItsRangeSilently) {
  UI_HotTextNumber& number = PutNumber();
  ChangeLog const log(number);
  number.SetMaxValue(5.0);
  EXPECT_EQ(number.GetValue(), 5.0);
  number.SetMinValue(-2.0);
  number.SetValue(-7.0);
  EXPECT_EQ(number.GetValue(), -2.0);
  number.SetMinValue(8.0);  // the ends are crossed: the last one counts
  EXPECT_EQ(number.GetMaxValue(), 8.0);
  EXPECT_EQ(number.GetValue(), 8.0);
  number.SetMaxValue(1.0);
  EXPECT_EQ(number.GetMinValue(), 1.0);
  EXPECT_EQ(log.changes, 0);
}

TEST_F(HotTextNumber, IgnoresWhatIsNotFinite) {
  UI_HotTextNumber& number = PutNumber();
  double const infinity = std::numeric_limits<double>::infinity();
  for (double const bad : {infinity, -infinity, std::nan("")}) {
    number.SetValue(bad);
    number.SetMinValue(bad);
    number.SetMaxValue(bad);
    number.SetIncrement(bad);
    number.SetShiftIncrement(bad);
    number.SetCmdIncrement(bad);
    EXPECT_FALSE(number.UI_SetAccessibleValue(bad));
  }
  EXPECT_EQ(number.GetValue(), 10.0);
  EXPECT_EQ(number.GetIncrement(), 1.0);
  EXPECT_EQ(number.GetMaxValue(), kLargest);
}

TEST_F(HotTextNumber, ADragMovesItByAnIncrementForEachPixel) {
  UI_HotTextNumber& number = PutNumber();
  number.SetIncrement(0.5);
  ChangeLog const log(number);
  DragBy(5, 0);
  EXPECT_EQ(number.GetValue(), 12.0);
  EXPECT_EQ(log.phases, (std::vector<int>{0, 1, 2}));
  EXPECT_EQ(log.changes, 1);
  EXPECT_FALSE(number.IsEditing());
  DragBy(0, -5);
  EXPECT_EQ(number.GetValue(), 14.0);
  DragBy(-3, 0);
  EXPECT_EQ(number.GetValue(), 13.0);
}

TEST_F(HotTextNumber, ShiftAndCommandHaveIncrementsOfTheirOwn) {
  UI_HotTextNumber& number = PutNumber(0.0);
  number.SetDecimalPlaces(1);
  mStage.SetModKeys(ui::ModKey::kShift);
  DragBy(3, 0);
  EXPECT_EQ(number.GetValue(), 20.0);
  mStage.SetModKeys(ui::ModKey::kCommand);
  DragBy(4, 0);
  EXPECT_EQ(number.GetValue(), 20.3);
  EXPECT_EQ(number.GetText(), u"20.3");
}

TEST_F(HotTextNumber, StepsThatThePlacesDoNotShowAreKept) {
  UI_HotTextNumber& number = PutNumber(0.0);
  mStage.SetModKeys(ui::ModKey::kCommand);
  DragBy(7, 0);
  EXPECT_EQ(number.GetText(), u"1");
  EXPECT_EQ(number.GetValue(), 0.6);
}

TEST_F(HotTextNumber, APenHasNoDeadZone) {
  UI_HotTextNumber& number = PutNumber();
  mStage.SetPointerSubType(ui::PointerSubType::kPen);
  DragBy(1, 0);
  EXPECT_EQ(number.GetValue(), 11.0);
}

TEST_F(HotTextNumber, ADragStopsAtTheEnds) {
  UI_HotTextNumber& number = PutNumber();
  number.SetMaxValue(12.0);
  PointT<float> const from = Centre();
  mStage.Press(from);
  mStage.Move({from.x + 50, from.y});
  EXPECT_EQ(number.GetValue(), 12.0);
  mStage.Move({from.x + 48, from.y});
  EXPECT_EQ(number.GetValue(), 10.0);  // the way beyond the end isn't gone back
  mStage.ReleaseHere();
}

TEST_F(HotTextNumber, TheHiddenPointerComesBackToWhereItWasPressed) {
  PutNumber();
  PointT<float> const from = Centre();
  mStage.Press(from);
  EXPECT_TRUE(PointerIsShown());  // it may be a click
  mStage.Move({from.x + 9, from.y});
  EXPECT_FALSE(PointerIsShown());
  mStage.ReleaseHere();
  EXPECT_TRUE(PointerIsShown());
  EXPECT_EQ(mStage.GetPointerPosition(), from);
}

TEST_F(HotTextNumber, EscapeTakesADragBack) {
  UI_HotTextNumber& number = PutNumber();
  ChangeLog const log(number);
  PointT<float> const from = Centre();
  mStage.Press(from);
  mStage.Move({from.x + 9, from.y});
  EXPECT_EQ(number.GetValue(), 18.0);
  mStage.Key(KeyboardCode::kEscape);
  EXPECT_EQ(number.GetValue(), 10.0);
  EXPECT_EQ(log.phases, (std::vector<int>{0, 1, 3}));
  EXPECT_TRUE(PointerIsShown());
  mStage.ReleaseHere();
  EXPECT_FALSE(number.IsEditing());
}

TEST_F(HotTextNumber, ALostCaptureTakesADragBack) {
  UI_HotTextNumber& number = PutNumber();
  number.SetValueUnknown();
  PointT<float> const from = Centre();
  mStage.Press(from);
  mStage.Move({from.x + 9, from.y});
  EXPECT_FALSE(number.IsValueUnknown());
  mStage.Deactivate();
  EXPECT_TRUE(number.IsValueUnknown());
  EXPECT_EQ(number.GetValue(), 10.0);
  EXPECT_TRUE(PointerIsShown());
}

TEST_F(HotTextNumber, TheEndOfADraggedOneShowsThePointerAgain) {
  PutNumber();
  PointT<float> const from = Centre();
  mStage.Press(from);
  mStage.Move({from.x + 9, from.y});
  ASSERT_FALSE(PointerIsShown());
  mStage.GetRootView().ChildRemove(mControl.Get());
  mControl.Reset();
  EXPECT_TRUE(PointerIsShown());
}

TEST_F(HotTextNumber, AListenerMayLetGoOfItInADrag) {
  UI_HotTextNumber& number = PutNumber();
  number.NotifyWhenChangedInteractively(ChangeLog::Listener([&](auto&) {
    if (mControl) {
      mStage.GetRootView().ChildRemove(mControl.Get());
      mControl.Reset();
    }
  }));
  PointT<float> const from = Centre();
  mStage.Press(from);
  mStage.Move({from.x + 9, from.y});
  mStage.Move({from.x + 19, from.y});
  mStage.ReleaseHere();
  EXPECT_FALSE(mControl);
  EXPECT_TRUE(PointerIsShown());
}

TEST_F(HotTextNumber, AClickOpensAnEditWithTheNumberAlone) {
  UI_HotTextNumber& number = PutNumber();
  number.SetTextLabel(u" px");
  number.SetFormatPadSign(true);
  mStage.Click(Centre());
  EXPECT_TRUE(number.IsEditing());
  EXPECT_EQ(number.GetTextEdit()->GetValue(), u"10");
}

TEST_F(HotTextNumber, TakesTypedNumbersAndHoldsThemToTheRange) {
  UI_HotTextNumber& number = PutNumber();
  number.SetMaxValue(1600.0);
  number.SetDecimalPlaces(1);
  ChangeLog const log(number);
  TypeInto(u"12.5");
  EXPECT_EQ(number.GetValue(), 12.5);
  TypeInto(u"9999");
  EXPECT_EQ(number.GetValue(), 1600.0);
  EXPECT_EQ(log.changes, 2);
  EXPECT_TRUE(log.phases.empty());
}

TEST_F(HotTextNumber, AnEntryThatCannotBeReadChangesNothing) {
  UI_HotTextNumber& number = PutNumber();
  ChangeLog const log(number);
  for (std::u16string_view const text : {u"", u"abc", u"--", u"1e999", u"\U0001F3AC", u"\u200F"}) {
    TypeInto(text);
    EXPECT_EQ(number.GetValue(), 10.0);
    EXPECT_EQ(number.GetText(), u"10");
  }
  EXPECT_EQ(log.changes, 0);
}

TEST_F(HotTextNumber, AnUneditedEntryKeepsWhatThePlacesDoNotShow) {
  UI_HotTextNumber& number = PutNumber(1.0 / 3.0);
  number.SetDecimalPlaces(2);
  ChangeLog const log(number);
  number.OpenEdit();
  mStage.Key(KeyboardCode::kReturn);
  EXPECT_EQ(number.GetValue(), 1.0 / 3.0);
  EXPECT_EQ(log.changes, 0);
}

TEST_F(HotTextNumber, ADigitOpensTheEditAndReplaces) {
  UI_HotTextNumber& number = PutNumber();
  mStage.Tab();
  mStage.Type(u"42");
  EXPECT_TRUE(number.IsEditing());
  mStage.Key(KeyboardCode::kReturn);
  EXPECT_EQ(number.GetValue(), 42.0);
  mStage.Type(u"x");
  EXPECT_FALSE(number.IsEditing());
}

TEST_F(HotTextNumber, KeysStepAndGoToTheEnds) {
  UI_HotTextNumber& number = PutNumber();
  ChangeLog const log(number);
  mStage.Tab();
  mStage.Key(KeyboardCode::kUp);
  mStage.Key(KeyboardCode::kRight);
  EXPECT_EQ(number.GetValue(), 12.0);
  EXPECT_EQ(log.phases, (std::vector<int>{0, 1, 2, 0, 1, 2}));
  mStage.Key(KeyboardCode::kDown, ui::ModKey::kShift);
  EXPECT_EQ(number.GetValue(), 2.0);
  mStage.Key(KeyboardCode::kLeft, ui::ModKey::kCommand);
  EXPECT_EQ(number.GetValue(), 1.9);
  mStage.Key(KeyboardCode::kPageUp);
  EXPECT_EQ(number.GetValue(), 11.9);
  mStage.Key(KeyboardCode::kEnd);
  EXPECT_EQ(number.GetValue(), 11.9);  // there is no end
  number.SetMinValue(0.0);
  number.SetMaxValue(20.0);
  mStage.Key(KeyboardCode::kEnd);
  EXPECT_EQ(number.GetValue(), 20.0);
  int const changes = log.changes;
  mStage.Key(KeyboardCode::kUp);
  EXPECT_EQ(log.changes, changes);
  mStage.Key(KeyboardCode::kHome);
  EXPECT_EQ(number.GetValue(), 0.0);
}

TEST_F(HotTextNumber, KeysGoToNoEndThatStandsForNone) {
  UI_HotTextNumber& number = PutNumber();
  number.SetMinValue(-1.79769e+308);  // as view archives write the largest number
  number.SetMaxValue(1.79769e+308);
  ChangeLog const log(number);
  mStage.Tab();
  EXPECT_TRUE(mStage.Key(KeyboardCode::kHome));
  EXPECT_TRUE(mStage.Key(KeyboardCode::kEnd));
  EXPECT_EQ(number.GetValue(), 10.0);
  EXPECT_EQ(log.changes, 0);
}

TEST_F(HotTextNumber, AKeyMakesAnUnknownValueKnown) {
  UI_HotTextNumber& number = PutNumber();
  number.SetValueUnknown();
  mStage.Tab();
  mStage.Key(KeyboardCode::kUp);
  EXPECT_FALSE(number.IsValueUnknown());
  EXPECT_EQ(number.GetValue(), 11.0);
}

TEST_F(HotTextNumber, ShowsItsFormats) {
  UI_HotTextNumber& number = PutNumber(1234.5);
  number.SetDecimalPlaces(2);
  number.SetFormatUseSeparator(true);
  EXPECT_EQ(number.GetText(), u"1,234.50");
  number.SetFormatNoTrailingZeros(true);
  number.SetFormatAlwaysSign(true);
  EXPECT_EQ(number.GetText(), u"+1,234.5");
  number.SetFormatNormal(true);
  EXPECT_EQ(number.GetText(), u"1234.50");
  number.SetFormatNormal(false);
  number.SetFormatAlwaysSign(false);
  number.SetFormatPadSign(true);
  number.SetFormatNoLocalization(true);
  EXPECT_EQ(number.GetText(), u"\u20071,234.5");
  number.SetFormatPadSign(false);
  number.SetFormatLeadingSpaces(true);
  number.SetMaxValue(1000000.0);
  EXPECT_EQ(number.GetText(), u"\u2007\u20071,234.5");
  number.SetTextLabel(u" Hz");
  EXPECT_EQ(number.UI_GetAccessibleValue(), "1,234.5 Hz");
}

TEST_F(HotTextNumber, SetTextReadsSilently) {
  UI_HotTextNumber& number = PutNumber();
  ChangeLog const log(number);
  number.SetText(u"7");
  EXPECT_EQ(number.GetValue(), 7.0);
  number.SetText(u"seven");
  EXPECT_EQ(number.GetValue(), 7.0);
  EXPECT_EQ(log.changes, 0);
}

TEST_F(HotTextNumber, TellsAssistiveSoftwareItsRange) {
  UI_HotTextNumber& number = PutNumber();
  number.SetMinValue(1.0);
  number.SetMaxValue(400.0);
  EXPECT_EQ(number.UI_GetAccessibleRole(), ui::AccessibleRole::kSpinBox);
  auto const range = number.UI_GetAccessibleRange();
  ASSERT_TRUE(range.has_value());
  EXPECT_EQ(range->minimum, 1.0);
  EXPECT_EQ(range->maximum, 400.0);
  EXPECT_EQ(range->value, 10.0);
  EXPECT_EQ(range->step, 1.0);
  ChangeLog const log(number);
  EXPECT_TRUE(number.UI_SetAccessibleValue(1000.0));
  EXPECT_EQ(number.GetValue(), 400.0);
  EXPECT_EQ(log.changes, 1);
  number.SetDisabled(true);
  EXPECT_FALSE(number.UI_SetAccessibleValue(3.0));
}

}  // namespace
}  // namespace moxui::controls
