#include "ControlFixture.h"

#include <moxui/controls/UI_ScrollBar.h>
#include <moxui/controls/UI_TextEdit.h>
#include <moxui/platform/Application.h>
#include <moxui/platform/Clipboard.h>
#include <moxui/skins/LayoutDirection.h>
#include <moxui/ui/KeyboardEvent.h>

namespace moxui::controls {
namespace {

using platform::TextSelection;
using testing::ChangeLog;
using ui::KeyboardCode;

constexpr RectT<float> kBox(10, 10, 160, 80);

class MultiLineEdit : public testing::ControlTest<UI_TextEdit> {
 protected:
  UI_TextEdit& PutFocused(moxcore::Utf16String const& text = {}) {
    UI_TextEdit& edit = Put(kBox);
    edit.SetMultiLine(true);
    edit.SetValue(text, false);
    edit.UI_GainKeyboardFocus(ui::FocusChangeReason::kByCode);
    return edit;
  }
  OS_EditText& Inner() { return *mControl->GetTextEdit(); }
  void CaretTo(std::size_t place) { Inner().SetSelection({.anchor = place, .caret = place}); }
  std::size_t Caret() { return Inner().GetSelection().caret; }
  float LineHeight() { return Inner().GetCaretRect().height; }
  void Return(ui::ModKeys modKeys = {}) {
    mStage.GetTree().HandleKey({ui::KeyAction::kKeyDown, KeyboardCode::kReturn, modKeys, u"\r"});
  }
};

TEST_F(MultiLineEdit, ReturnMakesALine) {
  UI_TextEdit& edit = PutFocused();
  ChangeLog const log(edit);
  mStage.Type(u"a");
  Return();
  mStage.Type(u"b");
  EXPECT_EQ(edit.GetValue(), u"a\nb");
  EXPECT_EQ(log.changes, 0);
  EXPECT_TRUE(edit.UI_TextEditControlHasFocus());
}

TEST_F(MultiLineEdit, TheNumberPadsEnterAndCommandReturnCommit) {
  UI_TextEdit& edit = PutFocused();
  ChangeLog const log(edit);
  mStage.Type(u"a");
  mStage.Key(KeyboardCode::kEnter);
  EXPECT_EQ(log.changes, 1);
  EXPECT_FALSE(edit.UI_TextEditControlHasFocus());
  edit.UI_GainKeyboardFocus(ui::FocusChangeReason::kByCode);
  mStage.Type(u"b");
  Return(ui::ModKey::kCommand);
  EXPECT_EQ(log.changes, 2);
  EXPECT_EQ(edit.GetValue(), u"ab");  // the focus that comes back selects no lines
}

TEST_F(MultiLineEdit, EscapeBringsAllLinesBack) {
  UI_TextEdit& edit = PutFocused(u"one\ntwo");
  mStage.Type(u"x");
  Return();
  mStage.Key(KeyboardCode::kEscape);
  EXPECT_EQ(edit.GetValue(), u"one\ntwo");
}

TEST_F(MultiLineEdit, KeepsPastedLines) {
  UI_TextEdit& edit = PutFocused();
  platform::Application::Get()->GetClipboard().SetData({.text = u"one\r\ntwo"});
  mStage.Key(KeyboardCode::kV, ui::ModKey::kCommand);
  EXPECT_EQ(edit.GetValue(), u"one\ntwo");
  mStage.Key(KeyboardCode::kZ, ui::ModKey::kCommand);
  EXPECT_EQ(edit.GetValue(), u"");
}

TEST_F(MultiLineEdit, BecomingOneLineJoinsThem) {
  UI_TextEdit& edit = PutFocused(u"one\ntwo");
  edit.SetMultiLine(false);
  EXPECT_EQ(edit.GetValue(), u"one two");
  EXPECT_EQ(edit.GetScrollBar(), nullptr);
}

TEST_F(MultiLineEdit, UpAndDownKeepTheirColumn) {
  PutFocused(u"a longer line\nab\nanother long line");
  CaretTo(8);
  mStage.Key(KeyboardCode::kDown);
  EXPECT_EQ(Caret(), 16u);  // the short line's end
  mStage.Key(KeyboardCode::kDown);
  float const x = Inner().GetCaretRect().left;
  CaretTo(8);
  EXPECT_NEAR(x, Inner().GetCaretRect().left, 6.0f);
  mStage.Key(KeyboardCode::kUp);
  EXPECT_EQ(Caret(), 0u);  // above the first line lies the begin
  CaretTo(20);
  mStage.Key(KeyboardCode::kDown);
  EXPECT_EQ(Caret(), mControl->GetValue().size());
}

TEST_F(MultiLineEdit, ShiftExtendsOverLines) {
  PutFocused(u"one\ntwo\nthree");
  CaretTo(1);
  mStage.Key(KeyboardCode::kDown, ui::ModKey::kShift);
  EXPECT_EQ(Inner().GetSelection().anchor, 1u);
  EXPECT_NEAR(static_cast<double>(Caret()), 5.0, 1.0);
  mStage.Key(KeyboardCode::kEnd, ui::ModKey::kShift);
  EXPECT_EQ(Inner().GetSelection(), (TextSelection{.anchor = 1, .caret = 7}));
}

TEST_F(MultiLineEdit, HomeAndEndGoToTheEndsOfTheWrappedLine) {
  PutFocused(u"words that are wrapped within the width of the box");
  CaretTo(0);
  mStage.Key(KeyboardCode::kDown);
  mStage.Key(KeyboardCode::kEnd);
  std::size_t const end = Caret();
  float const top = Inner().GetCaretRect().top;
  mStage.Key(KeyboardCode::kHome);
  std::size_t const begin = Caret();
  EXPECT_GT(begin, 0u);
  EXPECT_LT(begin, end);
  EXPECT_LT(end, mControl->GetValue().size());
  EXPECT_FLOAT_EQ(Inner().GetCaretRect().top, top);  // the end is seen in its own line
  mStage.Key(KeyboardCode::kHome, ui::ModKey::kCommand);
  EXPECT_EQ(Caret(), 0u);
  mStage.Key(KeyboardCode::kEnd, ui::ModKey::kCommand);
  EXPECT_EQ(Caret(), mControl->GetValue().size());
}

TEST_F(MultiLineEdit, PagesAreWhatIsSeenLessALine) {
  moxcore::Utf16String lines;
  for (int i = 0; i < 20; ++i) {
    lines += u"x\n";
  }
  PutFocused(lines);
  CaretTo(0);
  auto const seen = static_cast<std::size_t>(Inner().UI_GetLocalRectF(false).height / LineHeight());
  mStage.Key(KeyboardCode::kPageDown);
  EXPECT_EQ(Caret() / 2, seen - 1);
  mStage.Key(KeyboardCode::kPageUp);
  EXPECT_EQ(Caret(), 0u);
}

TEST_F(MultiLineEdit, KeepsTheCaretInSightAndShowsABarWhenNeeded) {
  UI_TextEdit& edit = PutFocused();
  ASSERT_NE(edit.GetScrollBar(), nullptr);
  EXPECT_FALSE(edit.GetScrollBar()->UI_IsShown());
  float const width = Inner().UI_GetLocalRectF(false).width;
  for (int i = 0; i < 9; ++i) {
    mStage.Type(u"x");
    Return();
  }
  EXPECT_TRUE(edit.GetScrollBar()->UI_IsShown());
  EXPECT_LT(Inner().UI_GetLocalRectF(false).width, width);
  EXPECT_LE(Inner().GetCaretRect().Bottom(), Inner().UI_GetLocalRectF(false).height + 1.0f);
  EXPECT_GT(Inner().GetScrollOffset(), 0.0f);
  EXPECT_FLOAT_EQ(edit.GetScrollBar()->GetOffset(), Inner().GetScrollOffset());
  edit.SetValue(u"", false);
  EXPECT_FALSE(edit.GetScrollBar()->UI_IsShown());
  EXPECT_FLOAT_EQ(Inner().UI_GetLocalRectF(false).width, width);
}

TEST_F(MultiLineEdit, WheelAndBarScrollTo) {
  UI_TextEdit& edit = PutFocused(u"1\n2\n3\n4\n5\n6\n7\n8\n9\n10\n11\n12");
  CaretTo(0);
  EXPECT_FLOAT_EQ(Inner().GetScrollOffset(), 0.0f);
  EXPECT_TRUE(mStage.Wheel(Centre(), {0, -48}));
  EXPECT_FLOAT_EQ(Inner().GetScrollOffset(), 48.0f);
  EXPECT_FLOAT_EQ(edit.GetScrollBar()->GetOffset(), 48.0f);
  PointT<float> const thumb =
      edit.GetScrollBar()->UI_ConvertRectTo(nullptr, edit.GetScrollBar()->GetThumbRect()).Center();
  mStage.Drag(thumb, {thumb.x, thumb.y + 200});
  EXPECT_NEAR(Inner().GetScrollOffset(), edit.GetScrollBar()->GetMaximumOffset(), 1.0f);
  mStage.Wheel(Centre(), {0, 5000});
  EXPECT_FLOAT_EQ(Inner().GetScrollOffset(), 0.0f);
}

TEST_F(MultiLineEdit, APressPlacesTheCaretInItsLine) {
  PutFocused(u"one\ntwo\nthree");
  RectT<float> const inner = Inner().UI_ConvertRectTo(nullptr, Inner().UI_GetLocalRectF(false));
  float const line = Inner().GetContentHeight() / 3.0f;
  mStage.Click({inner.left + 1.0f, inner.top + 1.5f * line});
  EXPECT_EQ(Caret(), 4u);
  mStage.AdvanceTime(2000);
  mStage.Click({inner.Right() - 1.0f, inner.top + 0.5f * line});
  EXPECT_EQ(Caret(), 3u);
  mStage.AdvanceTime(2000);
  mStage.Drag({inner.left + 1.0f, inner.top + 0.5f * line}, {inner.left + 1.0f, inner.top + 2.5f * line});
  EXPECT_EQ(Inner().GetSelection(), (TextSelection{.anchor = 0, .caret = 8}));
}

TEST_F(MultiLineEdit, ThreeClicksTakeAParagraph) {
  PutFocused(u"one two\nthree four\nfive");
  RectT<float> const inner = Inner().UI_ConvertRectTo(nullptr, Inner().UI_GetLocalRectF(false));
  float const line = Inner().GetContentHeight() / 3.0f;
  PointT<float> const point(inner.left + 3.0f, inner.top + 1.5f * line);
  mStage.DoubleClick(point);
  EXPECT_EQ(Inner().GetSelection(), (TextSelection{.anchor = 8, .caret = 13}));
  mStage.Click(point);
  EXPECT_EQ(Inner().GetSelection(), (TextSelection{.anchor = 8, .caret = 18}));
}

TEST_F(MultiLineEdit, ADragThatRestsBelowGoesOnSelecting) {
  UI_TextEdit& edit = PutFocused(u"1\n2\n3\n4\n5\n6\n7\n8\n9\n10\n11\n12");
  CaretTo(0);
  RectT<float> const inner = Inner().UI_ConvertRectTo(nullptr, Inner().UI_GetLocalRectF(false));
  mStage.Press({inner.left + 1.0f, inner.top + 3.0f});
  mStage.Move({inner.left + 30.0f, inner.Bottom() + 4.0f});
  std::size_t const first = Caret();
  mStage.AdvanceTime(300);
  EXPECT_GT(Caret(), first);
  mStage.AdvanceTime(3000);
  EXPECT_EQ(Inner().GetSelection(), (TextSelection{.anchor = 0, .caret = edit.GetValue().size()}));
  mStage.ReleaseHere();
  CaretTo(0);
  mStage.AdvanceTime(500);
  EXPECT_EQ(Caret(), 0u);
}

TEST_F(MultiLineEdit, ACompositionIsWrappedWithTheText) {
  PutFocused(u"a line that is nearly full");
  CaretTo(26);
  float const top = Inner().GetCaretRect().top;
  Inner().UI_DoComposition(u"\u306B\u307B\u3093\u3054\u306B\u307B\u3093\u3054\u306B\u307B\u3093\u3054", 12);
  EXPECT_GT(Inner().GetCaretRect().top, top);
  EXPECT_EQ(mControl->GetValue(), u"a line that is nearly full");
}

TEST_F(MultiLineEdit, HasItsBarAtTheLeftWhereLinesBeginAtTheRight) {
  skins::SetRightToLeft(true);
  UI_TextEdit& edit = PutFocused(u"1\n2\n3\n4\n5\n6\n7\n8\n9\n10");
  EXPECT_FLOAT_EQ(edit.GetScrollBar()->UI_GetLocalRectF(true).left, 1.0f);
  EXPECT_GT(Inner().UI_GetLocalRectF(true).left, UI_ScrollBar::GetThickness());
  CaretTo(0);
  EXPECT_GT(Inner().GetCaretRect().left, Inner().UI_GetLocalRectF(false).width / 2.0f);
  skins::SetRightToLeft(false);
}

TEST_F(MultiLineEdit, TellsAssistiveSoftwareItsLines) {
  PutFocused(u"one\ntwo");
  EXPECT_TRUE(Inner().UI_GetAccessibleState().isMultiLine);
  ui::AccessibleText& text = *Inner().UI_GetAccessibleText();
  EXPECT_GT(text.GetCharacterRect(5).top, text.GetCharacterRect(1).top);
  EXPECT_GT(text.GetCharacterRect(5).width, 0.0f);
}

TEST_F(MultiLineEdit, LivesThroughAnyText) {
  UI_TextEdit& edit = PutFocused();
  for (moxcore::Utf16String const& text :
       {moxcore::Utf16String(u"\xD800\n\xDC00"), moxcore::Utf16String(u"\u202E\u05D0 abc \u0627\n\u200F"),
        moxcore::Utf16String(20000, u'x'), moxcore::Utf16String(2000, u'\n'),
        moxcore::Utf16String(u"\U0001F468\u200D\U0001F469\u200D\U0001F467\u0301\u0301\0z", 12)}) {
    edit.SetValue(text, false);
    mStage.PaintFrame();
    for (auto const key : {KeyboardCode::kUp, KeyboardCode::kLeft, KeyboardCode::kEnd,
                           KeyboardCode::kBackspace, KeyboardCode::kDown, KeyboardCode::kDelete}) {
      mStage.Key(key);
      mStage.Key(key, ui::ModKey::kShift);
      mStage.Key(key, ui::ModKey::kCommand);
    }
    mStage.Drag({15, 15}, {165, 85});
    mStage.Type(u"\U0001F3AC");
    mStage.Key(KeyboardCode::kZ, ui::ModKey::kCommand);
    mStage.PaintFrame();
  }
}

}  // namespace
}  // namespace moxui::controls
