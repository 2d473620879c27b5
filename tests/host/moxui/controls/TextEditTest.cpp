#include "ControlFixture.h"

#include <moxui/controls/UI_TextButton.h>
#include <moxui/controls/UI_TextEdit.h>
#include <moxui/ui/KeyboardEvent.h>

namespace moxui::controls {
namespace {

using moxcore::utility::MakeIntrusive;
using testing::ChangeLog;
using testing::ModalAnswers;
using testing::RunningLook;
using ui::KeyboardCode;

class TextEdit : public testing::ControlTest<UI_TextEdit> {
 protected:
  UI_TextEdit& PutFocused(moxcore::Utf16String text = {}) {
    UI_TextEdit& edit = Put({10, 10, 130, 24});
    edit.SetValue(std::move(text), false);
    edit.UI_GainKeyboardFocus(ui::FocusChangeReason::kByCode);
    return edit;
  }
};

TEST_F(TextEdit, GivesTheLiveText) {
  UI_TextEdit& edit = PutFocused();
  mStage.Type(u"tak");
  EXPECT_EQ(edit.GetValue(), u"tak");
}

TEST_F(TextEdit, SetValueIsSilentAndPutsTheCaretToTheEnd) {
  UI_TextEdit& edit = PutFocused();
  ChangeLog const log(edit);
  edit.SetValue(u"take", false);
  EXPECT_EQ(log.changes, 0);
  EXPECT_EQ(edit.GetTextEdit()->GetSelection(), (platform::TextSelection{.anchor = 4, .caret = 4}));
  mStage.Type(u"7");
  EXPECT_EQ(edit.GetValue(), u"take7");
}

TEST_F(TextEdit, SetValueNotifiesWhenAsked) {
  UI_TextEdit& edit = Put({10, 10, 130, 24});
  ChangeLog const log(edit);
  edit.SetValue(u"take", true);
  EXPECT_EQ(log.changes, 1);
}

TEST_F(TextEdit, SetValueStartsUndoAnew) {
  UI_TextEdit& edit = PutFocused(u"one");
  mStage.Type(u"x");
  edit.SetValue(u"two", false);
  edit.GetTextEdit()->Perform(platform::EditCommand::kUndo);
  EXPECT_EQ(edit.GetValue(), u"two");
}

TEST_F(TextEdit, EnterCommitsAndGivesTheFocusUp) {
  UI_TextEdit& edit = PutFocused();
  ChangeLog const log(edit);
  mStage.Type(u"a");
  EXPECT_EQ(log.changes, 0);
  EXPECT_TRUE(mStage.Key(KeyboardCode::kReturn));
  EXPECT_EQ(log.changes, 1);
  EXPECT_FALSE(edit.UI_TextEditControlHasFocus());
}

TEST_F(TextEdit, EnterKeepsTheFocusWhenReturnDoesNotEndEditing) {
  UI_TextEdit& edit = PutFocused();
  edit.SetReturnEndsEditing(false);
  ChangeLog const log(edit);
  mStage.Type(u"a");
  mStage.Key(KeyboardCode::kReturn);
  EXPECT_EQ(log.changes, 1);
  EXPECT_TRUE(edit.UI_TextEditControlHasFocus());
  edit.SetValue(u"", false);
  edit.UI_LoseKeyboardFocus();
  EXPECT_EQ(log.changes, 1);
}

TEST_F(TextEdit, LosingTheFocusCommitsAChangedTextOnly) {
  UI_TextEdit& edit = PutFocused(u"a");
  ChangeLog const log(edit);
  edit.UI_LoseKeyboardFocus();
  EXPECT_EQ(log.changes, 0);
  edit.UI_GainKeyboardFocus(ui::FocusChangeReason::kByCode);
  mStage.Type(u"b");
  edit.UI_LoseKeyboardFocus();
  EXPECT_EQ(log.changes, 1);
  EXPECT_EQ(edit.GetValue(), u"b");
}

TEST_F(TextEdit, ADeactivatedWindowCommitsToo) {
  UI_TextEdit& edit = PutFocused(u"a");
  ChangeLog const log(edit);
  mStage.Type(u"b");
  mStage.Deactivate();
  EXPECT_EQ(log.changes, 1);
  EXPECT_EQ(edit.GetValue(), u"b");
}

TEST_F(TextEdit, EscapeBringsTheTextOfTheBeginBackAndGivesTheFocusUp) {
  UI_TextEdit& edit = PutFocused(u"before");
  ChangeLog const log(edit);
  mStage.Type(u"after");
  EXPECT_TRUE(mStage.Key(KeyboardCode::kEscape));
  EXPECT_EQ(edit.GetValue(), u"before");
  EXPECT_FALSE(edit.UI_TextEditControlHasFocus());
  EXPECT_EQ(log.changes, 0);
}

TEST_F(TextEdit, FocusChangesThatAreToldTwiceCommitOnce) {
  UI_TextEdit& edit = PutFocused(u"a");
  ChangeLog const log(edit);
  mStage.Type(u"b");
  edit.UI_FocusChanged(ui::FocusChangeReason::kLost);
  edit.UI_FocusChanged(ui::FocusChangeReason::kLost);
  EXPECT_EQ(log.changes, 1);
}

TEST_F(TextEdit, AGainElsewhereThatIsForwardedBeginsNothing) {
  UI_TextEdit& edit = Put({10, 10, 130, 24});
  edit.SetValue(u"a", false);
  ChangeLog const log(edit);
  edit.UI_FocusChanged(ui::FocusChangeReason::kByCode);
  edit.UI_FocusChanged(ui::FocusChangeReason::kLost);
  EXPECT_EQ(log.changes, 0);
}

TEST_F(TextEdit, TellsOfEachKeystroke) {
  UI_TextEdit& edit = PutFocused();
  std::vector<moxcore::Utf16String> heard;
  edit.NotifyWhenTextEdited(ChangeLog::Listener([&](auto& message) {
    EXPECT_TRUE(dynamic_cast<UI_ControlChangedMessage&>(message).IsInteractive());
    heard.push_back(edit.GetValue());
  }));
  mStage.Type(u"ab");
  mStage.Key(KeyboardCode::kLeft);
  EXPECT_EQ(heard, (std::vector<moxcore::Utf16String>{u"a", u"ab"}));
}

TEST_F(TextEdit, FocusThatComesByItselfSelectsAllSoThatTypingReplaces) {
  UI_TextEdit& edit = PutFocused(u"00:00:10:00");
  mStage.Type(u"5");
  EXPECT_EQ(edit.GetValue(), u"5");
}

TEST_F(TextEdit, AClickPlacesTheCaret) {
  UI_TextEdit& edit = Put({10, 10, 130, 24});
  edit.SetValue(u"abc", false);
  mStage.Click({19, 22});
  EXPECT_TRUE(edit.UI_TextEditControlHasFocus());
  EXPECT_EQ(edit.GetTextEdit()->GetSelection(), (platform::TextSelection{.anchor = 0, .caret = 0}));
  mStage.Click({130, 22});
  EXPECT_EQ(edit.GetTextEdit()->GetSelection(), (platform::TextSelection{.anchor = 3, .caret = 3}));
}

TEST_F(TextEdit, ADragSelectsAndShiftClickExtends) {
  UI_TextEdit& edit = Put({10, 10, 130, 24});
  edit.SetValue(u"abc", false);
  mStage.Drag({19, 22}, {135, 22});
  EXPECT_EQ(edit.GetTextEdit()->GetSelection(), (platform::TextSelection{.anchor = 0, .caret = 3}));
  mStage.AdvanceTime(2000);
  mStage.Click({130, 22});
  mStage.AdvanceTime(2000);
  mStage.SetModKeys(ui::ModKey::kShift);
  mStage.Click({19, 22});
  EXPECT_EQ(edit.GetTextEdit()->GetSelection(), (platform::TextSelection{.anchor = 3, .caret = 0}));
}

TEST_F(TextEdit, ADoubleClickSelectsAWord) {
  UI_TextEdit& edit = Put({10, 10, 130, 24});
  edit.SetValue(u"one two", false);
  mStage.DoubleClick({22, 22});
  EXPECT_EQ(edit.GetTextEdit()->GetSelection().Begin(), 0u);
  EXPECT_EQ(edit.GetTextEdit()->GetSelection().End(), 3u);
}

TEST_F(TextEdit, ADragBehindADoubleClickSelectsByWords) {
  UI_TextEdit& edit = Put({10, 10, 200, 24});
  edit.SetValue(u"one two three", false);
  mStage.Click({24, 22});
  mStage.Press({24, 22});
  mStage.Move({50, 22});
  EXPECT_EQ(edit.GetTextEdit()->GetSelection(), (platform::TextSelection{.anchor = 0, .caret = 7}));
  mStage.Move({10, 22});
  EXPECT_EQ(edit.GetTextEdit()->GetSelection(), (platform::TextSelection{.anchor = 0, .caret = 3}));
  mStage.ReleaseHere();
}

TEST_F(TextEdit, ThreeClicksTakeTheWholeLine) {
  UI_TextEdit& edit = Put({10, 10, 200, 24});
  edit.SetValue(u"one two three", false);
  mStage.DoubleClick({24, 22});
  mStage.Click({24, 22});
  EXPECT_EQ(edit.GetTextEdit()->GetSelection(), (platform::TextSelection{.anchor = 0, .caret = 13}));
}

TEST_F(TextEdit, ADragThatRestsOutsideGoesOnSelecting) {
  UI_TextEdit& edit = Put({10, 10, 130, 24});
  edit.SetValue(u"a line that is a good deal longer than its box, and some more of it", false);
  mStage.Press({30, 22});
  mStage.Move({150, 22});
  std::size_t const first = edit.GetTextEdit()->GetSelection().caret;
  mStage.AdvanceTime(200);
  std::size_t const second = edit.GetTextEdit()->GetSelection().caret;
  EXPECT_GT(second, first);
  mStage.AdvanceTime(5000);
  EXPECT_EQ(edit.GetTextEdit()->GetSelection().caret, edit.GetValue().size());
  mStage.Move({60, 22});  // back inside, it rests
  std::size_t const inside = edit.GetTextEdit()->GetSelection().caret;
  mStage.AdvanceTime(500);
  EXPECT_EQ(edit.GetTextEdit()->GetSelection().caret, inside);
  mStage.ReleaseHere();
}

TEST_F(TextEdit, ALongTextShowsItsBeginUntilItIsEdited) {
  UI_TextEdit& edit = Put({10, 10, 130, 24});
  edit.SetValue(u"a line that is a good deal longer than its box", false);
  mStage.Click({20, 22});
  EXPECT_LE(edit.GetTextEdit()->GetSelection().caret, 1u);
}

TEST_F(TextEdit, ARightClickLeavesASelectionThatItHits) {
  UI_TextEdit& edit = PutFocused(u"one two");
  ModalAnswers answers;
  edit.GetTextEdit()->SetSelection({.anchor = 0, .caret = 3});
  mStage.Click({24, 22}, ui::MouseButton::kRight);
  EXPECT_EQ(edit.GetTextEdit()->GetSelection(), (platform::TextSelection{.anchor = 0, .caret = 3}));
  mStage.Click({130, 22}, ui::MouseButton::kRight);
  EXPECT_EQ(edit.GetTextEdit()->GetSelection(), (platform::TextSelection{.anchor = 7, .caret = 7}));
}

TEST_F(TextEdit, ItsMenuOffersWhatCanBeDone) {
  PutFocused(u"abc");
  ModalAnswers answers;
  mStage.Key(KeyboardCode::kContextMenu);
  ASSERT_EQ(answers.GetRecords().size(), 1u);
  auto const& items = answers.GetRecords()[0].menuItems;
  EXPECT_FALSE(items[0].isEnabled);  // nothing to be undone
  EXPECT_TRUE(items[3].isEnabled);   // all is selected, and can be cut
  mStage.Type(u"x");
  mStage.Key(KeyboardCode::kF10, ui::ModKey::kShift);
  ASSERT_EQ(answers.GetRecords().size(), 2u);
  EXPECT_TRUE(answers.GetRecords()[1].menuItems[0].isEnabled);
  EXPECT_FALSE(answers.GetRecords()[1].menuItems[3].isEnabled);
}

TEST_F(TextEdit, GoingElsewhereKeepsWhatWasComposed) {
  UI_TextEdit& edit = PutFocused(u"ab");
  ChangeLog const log(edit);
  edit.GetTextEdit()->SetSelection({.anchor = 2, .caret = 2});
  edit.GetTextEdit()->UI_DoComposition(u"\u306B\u307B", 2);
  edit.UI_LoseKeyboardFocus();
  EXPECT_EQ(edit.GetValue(), u"ab\u306B\u307B");
  EXPECT_EQ(log.changes, 1);
}

TEST_F(TextEdit, ACaretFromTheRightStandsAtTheLeftOfWhatIsTyped) {
  UI_TextEdit& edit = PutFocused();
  mStage.Type(u"\u05D0\u05D1\u05D2");
  OS_EditText& inner = *edit.GetTextEdit();
  float const atEnd = inner.GetCaretRect().left;
  mStage.Key(KeyboardCode::kHome);
  EXPECT_GT(inner.GetCaretRect().left, atEnd);
  EXPECT_EQ(inner.GetPositionAt({atEnd, 5}), 3u);
}

TEST_F(TextEdit, NeverHoldsALineEnd) {
  UI_TextEdit& edit = PutFocused(u"a\r\nb\u2028c");
  EXPECT_EQ(edit.GetValue(), u"a b c");
  EXPECT_EQ(edit.GetTextEdit()->GetSelection().End(), 5u);
}

TEST_F(TextEdit, AShorterLimitCutsTheText) {
  UI_TextEdit& edit = PutFocused(u"abcdef");
  edit.SetMaxLength(4);
  EXPECT_EQ(edit.GetValue(), u"abcd");
  edit.SetValue(u"uvwxyz", false);
  EXPECT_EQ(edit.GetValue(), u"uvwx");
}

TEST_F(TextEdit, ShowsTheFarEndOfAVeryLongLine) {
  UI_TextEdit& edit = PutFocused(moxcore::Utf16String(20000, u'm'));
  mStage.Key(KeyboardCode::kEnd);
  OS_EditText const& inner = *edit.GetTextEdit();
  auto const withText = mStage.TakePicture();
  EXPECT_LE(inner.GetCaretRect().Right(), inner.UI_GetLocalRectF(false).width);
  edit.SetValue(moxcore::Utf16String(20000, u' '), false);
  EXPECT_FALSE(mStage.TakePicture() == withText);
}

TEST_F(TextEdit, UndoesRedoesAndUsesTheClipboard) {
  UI_TextEdit& edit = PutFocused(u"one");
  mStage.Key(KeyboardCode::kC, ui::ModKey::kCommand);
  mStage.Key(KeyboardCode::kEnd);
  mStage.Key(KeyboardCode::kV, ui::ModKey::kCommand);
  EXPECT_EQ(edit.GetValue(), u"oneone");
  mStage.Key(KeyboardCode::kZ, ui::ModKey::kCommand);
  EXPECT_EQ(edit.GetValue(), u"one");
}

TEST_F(TextEdit, ShowsWhatAnInputMethodHasNotFinishedWithoutHavingIt) {
  UI_TextEdit& edit = PutFocused(u"ab");
  OS_EditText& inner = *edit.GetTextEdit();
  inner.SetSelection({.anchor = 1, .caret = 1});
  platform::Pixels const before = mStage.TakePicture();
  float const caret = inner.GetCaretRect().left;
  EXPECT_TRUE(inner.UI_DoComposition(u"\u306B\u307B", 2));
  EXPECT_EQ(edit.GetValue(), u"ab");
  EXPECT_NE(mStage.TakePicture(), before);
  EXPECT_GT(inner.UI_GetTextInputRect().left, caret);
  inner.UI_DoComposition(u"", 0);
  EXPECT_EQ(mStage.TakePicture(), before);
}

TEST_F(TextEdit, TakesWhatAnInputMethodHasFinished) {
  UI_TextEdit& edit = PutFocused(u"ab");
  edit.GetTextEdit()->UI_DoComposition(u"nihon", 5);
  edit.GetTextEdit()->UI_DoComposition(u"", 0);
  mStage.GetTree().HandleKey(
      ui::KeyboardEvent(ui::KeyAction::kKeyDown, KeyboardCode::kNone, {}, u"\u65E5\u672C"));
  EXPECT_EQ(edit.GetValue(), u"\u65E5\u672C");
}

TEST_F(TextEdit, KeepsTheCaretInSight) {
  UI_TextEdit& edit = PutFocused();
  mStage.Type(u"a line that is a good deal longer than its box");
  OS_EditText const& inner = *edit.GetTextEdit();
  EXPECT_LE(inner.GetCaretRect().Right(), inner.UI_GetLocalRectF(false).width);
  EXPECT_GE(inner.GetCaretRect().left, 0.0f);
  mStage.Key(KeyboardCode::kHome);
  EXPECT_FLOAT_EQ(inner.GetCaretRect().left, 0.0f);
}

TEST_F(TextEdit, TheCaretBlinksWhileFocused) {
  UI_TextEdit& edit = PutFocused(u"a");
  edit.GetTextEdit()->SetSelection({.anchor = 1, .caret = 1});
  platform::Pixels const lit = mStage.TakePicture();
  mStage.AdvanceTime(540);
  EXPECT_NE(mStage.TakePicture(), lit);
  mStage.AdvanceTime(530);
  EXPECT_EQ(mStage.TakePicture(), lit);
}

TEST_F(TextEdit, AReadOnlyOneCanBeSelectedButNotChanged) {
  UI_TextEdit& edit = PutFocused(u"abc");
  edit.SetReadOnly(true);
  mStage.Type(u"x");
  EXPECT_EQ(edit.GetValue(), u"abc");
}

TEST_F(TextEdit, TakesNoMoreThanItsLength) {
  UI_TextEdit& edit = PutFocused();
  edit.SetMaxLength(3);
  mStage.Type(u"abcdef");
  EXPECT_EQ(edit.GetValue(), u"abc");
}

TEST_F(TextEdit, IsLeftAloneWhileDisabled) {
  UI_TextEdit& edit = Put({10, 10, 130, 24});
  edit.SetDisabled(true);
  mStage.Click(Centre());
  EXPECT_FALSE(edit.UI_TextEditControlHasFocus());
}

TEST_F(TextEdit, ItsMenuHoldsTheEditCommands) {
  UI_TextEdit& edit = PutFocused(u"abc");
  ModalAnswers answers;
  answers.Expect(3);
  mStage.Click(Centre(), ui::MouseButton::kRight);
  ASSERT_EQ(answers.GetRecords().size(), 1u);
  EXPECT_EQ(answers.GetRecords()[0].menuItems.size(), 9u);
  EXPECT_EQ(edit.GetValue(), u"");
}

TEST_F(TextEdit, IsReachedByTabAndLeftByIt) {
  UI_TextEdit& edit = Put({10, 10, 130, 24});
  auto const next = MakeIntrusive<UI_TextButton>(u"B");
  next->UI_SetLocalRectF({10, 60, 80, 24});
  mStage.GetRootView().ChildPushBack(next);
  mStage.Tab();
  EXPECT_TRUE(edit.UI_TextEditControlHasFocus());
  mStage.Tab();
  EXPECT_TRUE(next->UI_HasKeyboardFocus());
}

TEST_F(TextEdit, RecommendsTheHeightOfItsLook) {
  UI_TextEdit& edit = Put({10, 10, 130, 24});
  EXPECT_FLOAT_EQ(edit.UI_GetRecommendedSizeFromDefaultSupplier().height, 24.0f);
  RunningLook const classic(false);
  EXPECT_FLOAT_EQ(edit.UI_GetRecommendedSizeFromDefaultSupplier().height, 20.0f);
}

TEST_F(TextEdit, TellsAssistiveSoftwareNameAndText) {
  UI_TextEdit& edit = PutFocused(u"abc");
  edit.SetAccessibleName("Preset name");
  EXPECT_EQ(edit.GetTextEdit()->UI_GetAccessibleRole(), ui::AccessibleRole::kTextField);
  EXPECT_EQ(edit.GetTextEdit()->UI_GetAccessibleName(), "Preset name");
  EXPECT_EQ(edit.GetTextEdit()->UI_GetAccessibleValue(), "abc");
}

TEST_F(TextEdit, TextIsAlignedWhileItFits) {
  UI_TextEdit& edit = PutFocused(u"abc");
  edit.GetTextEdit()->SetSelection({.anchor = 3, .caret = 3});
  float const left = edit.GetTextEdit()->GetCaretRect().left;
  edit.SetAlignment(ControlAlignment::kRight);
  EXPECT_NEAR(edit.GetTextEdit()->GetCaretRect().Right(), edit.GetTextEdit()->UI_GetLocalRectF(false).width,
              1.0f);
  edit.SetAlignment(ControlAlignment::kCenter);
  EXPECT_GT(edit.GetTextEdit()->GetCaretRect().left, left);
}

TEST_F(TextEdit, SetFontChangesHowTextIsSet) {
  UI_TextEdit& edit = PutFocused(u"abc");
  edit.GetTextEdit()->SetSelection({.anchor = 3, .caret = 3});
  float const before = edit.GetTextEdit()->GetCaretRect().left;
  edit.SetFont(OS_EditText::GetDefaultFontName(), 24.0f, "Bold");
  EXPECT_GT(edit.GetTextEdit()->GetCaretRect().left, 1.8f * before);
}

TEST_F(TextEdit, EscapeTellsWhoFollowedTheTyping) {
  UI_TextEdit& edit = PutFocused(u"abc");
  std::vector<moxcore::Utf16String> heard;
  edit.NotifyWhenTextEdited(ChangeLog::Listener([&](auto&) { heard.push_back(edit.GetValue()); }));
  mStage.Type(u"x");
  mStage.Key(KeyboardCode::kEscape);
  ASSERT_EQ(heard.size(), 2u);
  EXPECT_EQ(heard[1], u"abc");
  edit.UI_GainKeyboardFocus(ui::FocusChangeReason::kByCode);
  mStage.Key(KeyboardCode::kEscape);
  EXPECT_EQ(heard.size(), 2u);
}

TEST_F(TextEdit, EscapeBringsAnUnknownValueBack) {
  UI_TextEdit& edit = Put({10, 10, 130, 24});
  edit.SetValueUnknown();
  edit.UI_GainKeyboardFocus(ui::FocusChangeReason::kByCode);
  ChangeLog const log(edit);
  mStage.Type(u"x");
  EXPECT_FALSE(edit.IsValueUnknown());
  mStage.Key(KeyboardCode::kEscape);
  EXPECT_TRUE(edit.IsValueUnknown());
  EXPECT_EQ(edit.GetValue(), u"");
  EXPECT_EQ(log.changes, 0);
}

TEST_F(TextEdit, ShowsADashForAnUnknownValue) {
  UI_TextEdit& edit = Put({10, 10, 130, 24});
  edit.SetValue(u"abc", false);
  auto const known = mStage.TakePicture();
  edit.SetValueUnknown();
  auto const unknown = mStage.TakePicture();
  EXPECT_FALSE(unknown == known);
  edit.SetValue(u"", false);
  EXPECT_FALSE(mStage.TakePicture() == unknown);
  edit.SetPlaceholder(u"\u2013");
  EXPECT_TRUE(mStage.TakePicture() == unknown);
}

}  // namespace
}  // namespace moxui::controls
