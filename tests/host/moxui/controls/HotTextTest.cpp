#include "ControlFixture.h"

#include <moxui/controls/UI_HotText.h>
#include <moxui/controls/UI_TextButton.h>
#include <moxui/ui/KeyboardEvent.h>

namespace moxui::controls {
namespace {

using moxcore::utility::MakeIntrusive;
using testing::ChangeLog;
using ui::KeyboardCode;

class HotText : public testing::ControlTest<UI_HotText> {
 protected:
  UI_HotText& PutText() { return Put({10, 10, 130, 24}, u"Untitled"); }
};

TEST_F(HotText, AClickOpensAnEditOverIt) {
  UI_HotText& text = PutText();
  mStage.Press(Centre());
  EXPECT_FALSE(text.IsEditing());
  EXPECT_TRUE(text.IsDown());
  mStage.ReleaseHere();
  EXPECT_TRUE(text.IsEditing());
  EXPECT_FALSE(text.IsDown());
  EXPECT_EQ(text.GetTextEdit()->GetValue(), u"Untitled");
  mStage.Type(u"Take 7");  // all was selected
  EXPECT_EQ(text.GetTextEdit()->GetValue(), u"Take 7");
  EXPECT_EQ(text.GetText(), u"Untitled");
}

TEST_F(HotText, APressThatEndsOutsideOpensNothing) {
  UI_HotText& text = PutText();
  mStage.Drag(Centre(), {300, 200});
  EXPECT_FALSE(text.IsEditing());
}

TEST_F(HotText, EnterTakesWhatWasTyped) {
  UI_HotText& text = PutText();
  ChangeLog const log(text);
  mStage.Click(Centre());
  mStage.Type(u"Take 7");
  mStage.Key(KeyboardCode::kReturn);
  EXPECT_FALSE(text.IsEditing());
  EXPECT_EQ(text.GetText(), u"Take 7");
  EXPECT_EQ(log.changes, 1);
}

TEST_F(HotText, EscapeTakesNothing) {
  UI_HotText& text = PutText();
  ChangeLog const log(text);
  mStage.Click(Centre());
  mStage.Type(u"x");
  mStage.Key(KeyboardCode::kEscape);
  EXPECT_FALSE(text.IsEditing());
  EXPECT_EQ(text.GetText(), u"Untitled");
  EXPECT_EQ(log.changes, 0);
}

TEST_F(HotText, LeavingTheEditTakesAChangedText) {
  UI_HotText& text = PutText();
  ChangeLog const log(text);
  mStage.Click(Centre());
  mStage.Type(u"x");
  mStage.Click({300, 200});
  EXPECT_EQ(text.GetText(), u"x");
  EXPECT_EQ(log.changes, 1);
  EXPECT_FALSE(text.IsEditing());
  mStage.AdvanceTime(2000);
  mStage.Click(Centre());
  mStage.Deactivate();
  EXPECT_FALSE(text.IsEditing());
  EXPECT_EQ(log.changes, 1);
}

TEST_F(HotText, AnUnchangedEntryIsToldWhenAlwaysIsAskedFor) {
  UI_HotText& text = PutText();
  ChangeLog const log(text);
  mStage.Click(Centre());
  mStage.Key(KeyboardCode::kReturn);
  EXPECT_EQ(log.changes, 0);
  text.SetAlwaysNotify(true);
  mStage.AdvanceTime(2000);
  mStage.Click(Centre());
  mStage.Key(KeyboardCode::kReturn);
  EXPECT_EQ(log.changes, 1);
}

TEST_F(HotText, IsWorkedByTheKeyboardAlone) {
  UI_HotText& text = PutText();
  auto const next = MakeIntrusive<UI_TextButton>(u"B");
  next->UI_SetLocalRectF({10, 60, 80, 24});
  mStage.GetRootView().ChildPushBack(next);
  mStage.Tab();
  EXPECT_TRUE(text.UI_HasKeyboardFocus(true));
  mStage.Key(KeyboardCode::kReturn);
  EXPECT_TRUE(text.IsEditing());
  mStage.Type(u"Take 7");
  mStage.Key(KeyboardCode::kReturn);
  EXPECT_EQ(text.GetText(), u"Take 7");
  EXPECT_TRUE(text.UI_HasKeyboardFocus(true));  // and not lost, as it was opened by a key
  mStage.Key(KeyboardCode::kF2);
  mStage.Key(KeyboardCode::kEscape);
  EXPECT_TRUE(text.UI_HasKeyboardFocus(true));
  mStage.Tab();
  EXPECT_TRUE(next->UI_HasKeyboardFocus());
}

TEST_F(HotText, IsLeftAloneWhileDisabled) {
  UI_HotText& text = PutText();
  text.SetDisabled(true);
  mStage.Click(Centre());
  EXPECT_FALSE(text.IsEditing());
  EXPECT_FALSE(text.UI_DoAccessibleAction());
  text.OpenEdit();
  EXPECT_FALSE(text.IsEditing());
  mStage.Tab();
  EXPECT_FALSE(text.UI_HasKeyboardFocus());
}

TEST_F(HotText, DisablingItEndsTheEdit) {
  UI_HotText& text = PutText();
  mStage.Click(Centre());
  text.SetDisabled(true);
  EXPECT_FALSE(text.IsEditing());
}

TEST_F(HotText, TheEditGrowsWithIt) {
  UI_HotText& text = PutText();
  mStage.Click(Centre());
  text.UI_SetLocalRectF({10, 10, 230, 30});
  EXPECT_GT(text.GetTextEdit()->UI_GetLocalRectF(false).width, 200.0f);
  EXPECT_TRUE(text.IsEditing());
}

TEST_F(HotText, TheTextStandsWhereItIsEdited) {
  UI_HotText& text = PutText();
  RectT<float> const edit = text.GetTextEdit()->UI_GetLocalRectF(true);
  mStage.Click(Centre());
  EXPECT_EQ(text.GetTextEdit()->UI_GetLocalRectF(true), edit);
}

TEST_F(HotText, ShowsALabelThatIsNotEdited) {
  UI_HotText& text = PutText();
  float const width = text.UI_GetRecommendedSizeFromDefaultSupplier().width;
  text.SetTextLabel(u" (copy)");
  EXPECT_GT(text.UI_GetRecommendedSizeFromDefaultSupplier().width, width + 10.0f);
  EXPECT_EQ(text.UI_GetAccessibleValue(), "Untitled (copy)");
  mStage.Click(Centre());
  EXPECT_EQ(text.GetTextEdit()->GetValue(), u"Untitled");
}

TEST_F(HotText, AnUnknownTextIsEditedFromNothing) {
  UI_HotText& text = PutText();
  text.SetValueUnknown();
  EXPECT_EQ(text.UI_GetAccessibleValue(), "");
  mStage.Click(Centre());
  EXPECT_EQ(text.GetTextEdit()->GetValue(), u"");
  mStage.Key(KeyboardCode::kEscape);
  EXPECT_TRUE(text.IsValueUnknown());
  mStage.AdvanceTime(2000);
  mStage.Click(Centre());
  mStage.Type(u"a");
  mStage.Key(KeyboardCode::kReturn);
  EXPECT_FALSE(text.IsValueUnknown());
  EXPECT_EQ(text.GetText(), u"a");
}

TEST_F(HotText, AListenerMayLetGoOfIt) {
  UI_HotText& text = PutText();
  text.NotifyWhenChanged(ChangeLog::Listener([&](auto&) {
    mStage.GetRootView().ChildRemove(mControl.Get());
    mControl.Reset();
  }));
  mStage.Click(Centre());
  mStage.Type(u"x");
  mStage.Key(KeyboardCode::kReturn);
  EXPECT_FALSE(mControl);
}

TEST_F(HotText, TellsAssistiveSoftwareWhatItIs) {
  UI_HotText& text = PutText();
  text.SetAccessibleName("Name");
  EXPECT_EQ(text.UI_GetAccessibleRole(), ui::AccessibleRole::kTextField);
  EXPECT_TRUE(text.UI_DoAccessibleAction());
  EXPECT_EQ(text.GetTextEdit()->GetTextEdit()->UI_GetAccessibleName(), "Name");
}

}  // namespace
}  // namespace moxui::controls
