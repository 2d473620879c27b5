// Editing of a timecode field, its cursor and its keys.
#include "WorkedField.h"

#include <moxui/skins/ThemeColors.h>
#include <moxui/ui/KeyboardEvent.h>

namespace timecode_tests {
namespace {

using TimecodeEdit = WorkedField;

TEST_F(TimecodeEdit, CoversTheFieldAndShowsItsText) {
  field->GetTextControl()->UI_SetLocalRectF({30, 0, 10, 10});
  Click();
  EXPECT_TRUE(IsEditing());
  EXPECT_TRUE(field->HasFocus());
  EXPECT_TRUE(IsCursorShown());
  EXPECT_EQ(field->GetTextControl()->UI_GetLocalRectF(true), RectT<float>(0, 0, 100, 24));
  EXPECT_EQ(field->ShownText(), u"00:01:00:00");
  EXPECT_THAT(TakeHeard(), IsEmpty());
}

TEST_F(TimecodeEdit, OpensAfterALongPressToo) {
  Press();
  stage.AdvanceTime(60000);
  Release();
  EXPECT_TRUE(IsEditing());
}

TEST_F(TimecodeEdit, EnterTakesTheText) {
  Click();
  stage.Type(u"5:00");
  EXPECT_EQ(field->GetTime(), kMinute);
  stage.Key(KeyboardCode::kReturn);
  EXPECT_FALSE(IsEditing());
  EXPECT_EQ(field->GetTime(), Seconds(5));
  EXPECT_EQ(field->ShownText(), u"00:00:05:00");
  EXPECT_THAT(TakeHeard(), ElementsAre(Changed(Seconds(5))));
}

TEST_F(TimecodeEdit, EscapeBringsTheTextBackAndTellsOfTheEnd) {
  Click();
  stage.Type(u"5:00");
  stage.Key(KeyboardCode::kEscape);
  EXPECT_FALSE(IsEditing());
  EXPECT_EQ(field->GetTime(), kMinute);
  EXPECT_EQ(field->ShownText(), u"00:01:00:00");
  EXPECT_THAT(TakeHeard(), ElementsAre(Changed(kMinute)));
}

TEST_F(TimecodeEdit, ATextThatCannotBeReadIsUndone) {
  Click();
  stage.Type(u"tomorrow");
  stage.Key(KeyboardCode::kReturn);
  EXPECT_EQ(field->ShownText(), u"00:01:00:00");
  EXPECT_THAT(TakeHeard(), ElementsAre(Changed(kMinute)));
  Click();
  EXPECT_TRUE(IsEditing());
}

TEST_F(TimecodeEdit, ARelativeTextMovesTheValue) {
  Click();
  stage.Type(u"-1:00");
  stage.Key(KeyboardCode::kReturn);
  EXPECT_EQ(field->GetTime(), Seconds(59));
}

TEST_F(TimecodeEdit, AnUneditedTextLeavesAValueBetweenFrames) {
  field->SetTime(kMinute + TickTime(77), false);
  Click();
  stage.Key(KeyboardCode::kReturn);
  EXPECT_THAT(TakeHeard(), ElementsAre(Changed(kMinute + TickTime(77))));
}

TEST_F(TimecodeEdit, TabAndAPressElsewhereTakeTheTextToo) {
  auto const next = moxcore::utility::MakeIntrusive<OpenTimecodeControl>();
  next->UI_SetLocalRectF({20, 80, 100, 24});
  stage.GetRootView().ChildPushBack(next);
  Click();
  stage.Type(u"5:00");
  stage.Tab();
  EXPECT_TRUE(next->UI_HasKeyboardFocus(true));
  EXPECT_EQ(field->GetTime(), Seconds(5));
  EXPECT_THAT(TakeHeard(), ElementsAre(Changed(Seconds(5))));
  Click();
  stage.Type(u"6:00");
  stage.Click({300, 200});
  EXPECT_EQ(field->GetTime(), Seconds(6));
  EXPECT_FALSE(IsEditing());
  EXPECT_THAT(TakeHeard(), ElementsAre(Changed(Seconds(6))));
}

TEST_F(TimecodeEdit, GrowsAndShrinksWithItsField) {
  Click();
  stage.Type(u"5:00");
  for (RectT<float> const rect : {RectT<float>(40, 40, 220, 30), RectT<float>(0, 0, 30, 12)}) {
    field->UI_SetLocalRectF(rect);
    EXPECT_EQ(field->GetTextControl()->UI_GetLocalRectF(true), RectT<float>(0, 0, rect.width, rect.height));
  }
  EXPECT_TRUE(IsEditing());
  stage.Key(KeyboardCode::kReturn);
  EXPECT_EQ(field->GetTime(), Seconds(5));
}

TEST_F(TimecodeEdit, HiddenLeavesTheEditToItsSymbol) {
  RectT<float> const before = field->GetTextControl()->UI_GetLocalRectF(true);
  field->UI_SetLocalRectF({40, 40, 220, 30});
  EXPECT_EQ(field->GetTextControl()->UI_GetLocalRectF(true), before);
}

TEST_F(TimecodeEdit, AnyTextLeavesTheFieldInUse) {
  for (moxcore::Utf16String const& text :
       {moxcore::Utf16String(u"\xD800"), moxcore::Utf16String(u"\u200F\u202E1:00"),
        moxcore::Utf16String(u"\U0001F468\u200D\U0001F469"), moxcore::Utf16String(100000, u'9'),
        moxcore::Utf16String(u"1:00\0:00", 8), moxcore::Utf16String(u"1:00\n2:00")}) {
    Click();
    field->GetTextControl()->SetValue(text, false);
    stage.PaintFrame();
    stage.Key(KeyboardCode::kReturn);
    EXPECT_FALSE(IsEditing());
    EXPECT_EQ(field->ShownText(), field->GetTimecodeString());
  }
  Click();
  stage.Type(u"5:00");
  stage.Key(KeyboardCode::kReturn);
  EXPECT_EQ(field->GetTime(), Seconds(5));
}

TEST_F(TimecodeEdit, EndsOnceWhenTheWindowIsDeactivated) {
  Click();
  stage.Type(u"5:00");
  stage.Deactivate();
  EXPECT_THAT(TakeHeard(), ElementsAre(Changed(Seconds(5))));
  stage.Activate();
  EXPECT_FALSE(IsEditing());
  EXPECT_THAT(TakeHeard(), IsEmpty());
}

TEST_F(TimecodeEdit, AListenerMayLetGoOfTheField) {
  log->whenHeard = [this](Heard const&) {
    if (auto const gone = std::exchange(field, nullptr)) {
      stage.GetRootView().ChildRemove(gone);
    }
  };
  Click();
  stage.Type(u"5:00");
  stage.Key(KeyboardCode::kReturn);
  EXPECT_FALSE(field);
}

TEST_F(TimecodeEdit, ADragAfterAnEditDrags) {
  Click();
  stage.Key(KeyboardCode::kEscape);
  TakeHeard();
  Press();
  MoveBy(3, 0);
  Release();
  EXPECT_FALSE(IsEditing());
  EXPECT_EQ(Frames(), 2);
}

// Cursor

TEST_F(TimecodeEdit, TheScrubCursorIsOverTheMiddleOfTheField) {
  auto const shownAt = [&](PointT<float> point) {
    stage.Move({5, 5});
    moxui::platform::Application::Get()->GetCursor().DisplayCursor(moxui::platform::CursorID::kArrow,
                                                                   moxui::platform::CursorMode::kUntilNext);
    return field->UI_DoCursor(field.Get(), point, 0) && ShownCursor() == 18;
  };
  EXPECT_TRUE(shownAt({0, 2}));
  EXPECT_TRUE(shownAt({99.5f, 21.5f}));
  EXPECT_FALSE(shownAt({0, 1.5f}));
  EXPECT_FALSE(shownAt({0, 22}));
  EXPECT_FALSE(shownAt({100, 10}));
  EXPECT_FALSE(shownAt({-0.5f, 10}));
  field->UI_SetLocalRectF({20, 40, 100, 4});
  EXPECT_FALSE(shownAt({50, 2}));
}

TEST_F(TimecodeEdit, TheScrubCursorIsForFieldsThatCanBeDragged) {
  PointT<float> const middle{50, 12};
  field->SetAsFixed(true);
  EXPECT_FALSE(field->UI_DoCursor(field.Get(), middle, 0));
  field->SetAsFixed(false);
  field->UI_SetDisabled();
  EXPECT_FALSE(field->UI_DoCursor(field.Get(), middle, 0));
  field->UI_SetEnabled();
  stage.Press({300, 200});
  EXPECT_FALSE(field->UI_DoCursor(field.Get(), middle, 0));
  stage.Release({300, 200});
  EXPECT_TRUE(field->UI_DoCursor(field.Get(), middle, 0));
  Click();
  EXPECT_FALSE(field->UI_DoCursor(field.Get(), middle, 0));
}

// Right presses

TEST_F(TimecodeEdit, KeepsRightPressesFromTheNodesAbove) {
  class Above : public moxui::ui::UI_SubView {
   public:
    bool UI_DoMouseEvent(moxui::ui::UI_Node*, moxui::ui::MouseEvent const& event) override {
      presses += event.IsRightButtonSingleDown() ? 1 : 0;
      return false;
    }
    int presses = 0;
  };
  auto const above = moxcore::utility::MakeIntrusive<Above>();
  above->UI_SetLocalRectF({0, 0, 400, 300});
  stage.GetRootView().ChildPushBack(above);
  above->ChildPushBack(field);
  stage.Click(kPlace, MouseButton::kRight);
  EXPECT_EQ(above->presses, 0);
  field->SetHandleRightClick(true);
  stage.AdvanceTime(1000);
  stage.Click(kPlace, MouseButton::kRight);
  EXPECT_EQ(above->presses, 1);
}

// Keyboard

class KeyedField : public WorkedField {
 protected:
  KeyedField() { stage.Tab(); }
};

TEST_F(KeyedField, ArrowsStepAndTheFocusLeavesWithOneChanged) {
  ASSERT_TRUE(field->UI_HasKeyboardFocus(true));
  stage.Key(KeyboardCode::kUp);
  stage.Key(KeyboardCode::kRight);
  stage.Key(KeyboardCode::kUp, ModKey::kShift);
  stage.Key(KeyboardCode::kDown);
  stage.Key(KeyboardCode::kLeft, ModKey::kShift);
  EXPECT_EQ(Frames(), 1);
  EXPECT_EQ(TakeHeard().size(), 5u);
  field->UI_LoseKeyboardFocus();
  EXPECT_THAT(TakeHeard(), ElementsAre(Changed(kMinute + kFrame)));
}

TEST_F(KeyedField, TellsNothingWhenTheFocusOnlyPassesBy) {
  field->UI_LoseKeyboardFocus();
  EXPECT_THAT(TakeHeard(), IsEmpty());
  stage.Tab();
  stage.Deactivate();
  stage.Activate();
  stage.Key(KeyboardCode::kDown, ModKey::kCommand);
  field->UI_LoseKeyboardFocus();
  EXPECT_THAT(TakeHeard(), IsEmpty());
}

TEST_F(KeyedField, EnterOpensTheEditAndGetsTheFocusBack) {
  stage.Key(KeyboardCode::kReturn);
  EXPECT_TRUE(IsEditing());
  EXPECT_TRUE(field->HasFocus());
  EXPECT_THAT(TakeHeard(), IsEmpty());
  stage.Type(u"5:00");
  stage.Key(KeyboardCode::kEnter);
  EXPECT_FALSE(IsEditing());
  EXPECT_TRUE(field->UI_HasKeyboardFocus(true));
  EXPECT_THAT(TakeHeard(), ElementsAre(Changed(Seconds(5))));
  stage.Key(KeyboardCode::kReturn);
  stage.Type(u"9");
  stage.Key(KeyboardCode::kEscape);
  EXPECT_TRUE(field->UI_HasKeyboardFocus(true));
  EXPECT_EQ(field->GetTime(), Seconds(5));
  EXPECT_THAT(TakeHeard(), ElementsAre(Changed(Seconds(5))));
}

TEST_F(KeyedField, AnEditThatWasClickedOpenGivesTheFocusAway) {
  stage.Key(KeyboardCode::kReturn);
  stage.Click({300, 200});
  Click();
  stage.Key(KeyboardCode::kReturn);
  EXPECT_FALSE(IsEditing());
  EXPECT_FALSE(field->UI_HasKeyboardFocus(false));
}

TEST_F(KeyedField, AFixedOrDisabledFieldIsPassedOver) {
  field->UI_LoseKeyboardFocus();
  field->SetAsFixed(true);
  EXPECT_FALSE(stage.Tab());
  field->SetAsFixed(false);
  field->UI_SetDisabled();
  EXPECT_FALSE(stage.Tab());
}

TEST_F(KeyedField, OtherKeysGoOn) {
  EXPECT_FALSE(stage.Key(KeyboardCode::kSpace));
  EXPECT_FALSE(stage.Key(KeyboardCode::kUp, ModKey::kCommand));
  EXPECT_FALSE(stage.Key(KeyboardCode::kContextMenu));
}

// Assistive software

TEST_F(TimecodeEdit, IsATextFieldOfItsNameAndText) {
  field->UI_SetToolTip("In point", 200);
  EXPECT_EQ(field->UI_GetAccessibleRole(), moxui::ui::AccessibleRole::kTextField);
  EXPECT_EQ(field->UI_GetAccessibleName(), "In point");
  EXPECT_EQ(field->UI_GetAccessibleValue(), "00:01:00:00");
  EXPECT_FALSE(field->UI_GetAccessibleState().isReadOnly);
  EXPECT_TRUE(field->UI_DoAccessibleAction());
  EXPECT_TRUE(IsEditing());
  EXPECT_EQ(field->GetTextControl()->GetTextEdit()->UI_GetAccessibleName(), "In point");
}

TEST_F(TimecodeEdit, IsAPlainTextWhenFixed) {
  field->SetAsFixed(true);
  EXPECT_EQ(field->UI_GetAccessibleRole(), moxui::ui::AccessibleRole::kStaticText);
  EXPECT_FALSE(field->UI_DoAccessibleAction());
}

}  // namespace
}  // namespace timecode_tests
