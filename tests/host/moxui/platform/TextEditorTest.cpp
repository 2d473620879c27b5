#include <moxui/platform/Application.h>
#include <moxui/platform/Clipboard.h>
#include <moxui/platform/TextEditor.h>
#include <moxui/ui/KeyboardEvent.h>

#include <gmock/gmock.h>

namespace moxui {
namespace {

using platform::EditCommand;
using platform::TextSelection;
using ui::KeyboardCode;

class TextEditor : public ::testing::Test {
 protected:
  bool Key(KeyboardCode code, ui::ModKeys modKeys = {}, moxcore::Utf16String const& text = {}) {
    return editor->HandleKey({ui::KeyAction::kKeyDown, code, modKeys, text});
  }
  void Type(std::u16string_view text) {
    for (char16_t const unit : text) {
      Key(KeyboardCode::kNone, {}, moxcore::Utf16String(1, unit));
    }
  }

  std::unique_ptr<platform::TextEditor> editor = platform::Application::Get()->NewTextEditor(false);
};

TEST_F(TextEditor, TypesAtTheCaret) {
  editor->SetText(u"01:00");
  EXPECT_EQ(editor->GetSelection(), (TextSelection{5, 5}));

  Type(u":24");
  Key(KeyboardCode::kHome);
  Type(u"9");

  EXPECT_EQ(editor->GetText(), u"901:00:24");
}

TEST_F(TextEditor, ReplacesTheSelection) {
  editor->SetText(u"keyword");
  editor->Perform(EditCommand::kSelectAll);
  EXPECT_EQ(editor->GetSelection().Begin(), 0u);
  EXPECT_EQ(editor->GetSelection().End(), 7u);

  Type(u"k");

  EXPECT_EQ(editor->GetText(), u"k");
}

TEST_F(TextEditor, DeletesBothWays) {
  editor->SetText(u"abc");
  Key(KeyboardCode::kBackspace);
  editor->SetSelection({0, 0});
  Key(KeyboardCode::kDelete);

  EXPECT_EQ(editor->GetText(), u"b");
}

TEST_F(TextEditor, ExtendsTheSelectionWithShift) {
  editor->SetText(u"abc");

  Key(KeyboardCode::kLeft, ui::ModKey::kShift);

  EXPECT_EQ(editor->GetSelection(), (TextSelection{3, 2}));
}

TEST_F(TextEditor, LeavesReturnEscapeAndTabToItsOwner) {
  EXPECT_FALSE(Key(KeyboardCode::kReturn));
  EXPECT_FALSE(Key(KeyboardCode::kEscape));
  EXPECT_FALSE(Key(KeyboardCode::kTab));
  EXPECT_EQ(editor->GetText(), u"");
}

TEST_F(TextEditor, UndoesAndRedoes) {
  editor->SetText(u"a");
  Type(u"b");

  editor->Perform(EditCommand::kUndo);
  EXPECT_EQ(editor->GetText(), u"a");
  editor->Perform(EditCommand::kRedo);
  EXPECT_EQ(editor->GetText(), u"ab");
  editor->SetText(u"new");
  editor->Perform(EditCommand::kUndo);
  EXPECT_EQ(editor->GetText(), u"new");
}

TEST_F(TextEditor, CutsCopiesAndPastes) {
  editor->SetText(u"left right");
  editor->SetSelection({0, 4});
  editor->Perform(EditCommand::kCut);
  EXPECT_EQ(platform::Application::Get()->GetClipboard().GetData().text, u"left");
  editor->SetSelection({6, 6});

  Key(KeyboardCode::kV, ui::ModKey::kCommand);

  EXPECT_EQ(editor->GetText(), u" rightleft");
}

TEST_F(TextEditor, KeepsToOneLine) {
  platform::Application::Get()->GetClipboard().SetData({.text = u"one\ntwo"});

  editor->Perform(EditCommand::kPaste);

  EXPECT_EQ(editor->GetText(), u"one two");
}

TEST_F(TextEditor, OfSeveralLinesTakesReturn) {
  editor = platform::Application::Get()->NewTextEditor(true);
  editor->SetText(u"a");

  EXPECT_TRUE(Key(KeyboardCode::kReturn, {}, u"\r"));
  Type(u"b");

  EXPECT_EQ(editor->GetText(), u"a\nb");
}

TEST_F(TextEditor, HoldsToItsLongestLength) {
  editor->SetMaxLength(3);
  editor->SetText(u"abcdef");
  EXPECT_EQ(editor->GetText(), u"abc");

  Type(u"d");

  EXPECT_EQ(editor->GetText(), u"abc");
}

TEST_F(TextEditor, ChangesNothingWhenReadOnly) {
  editor->SetText(u"abc");
  editor->SetReadOnly(true);

  Type(u"d");
  Key(KeyboardCode::kBackspace);
  editor->Perform(EditCommand::kPaste);
  editor->Perform(EditCommand::kCut);

  EXPECT_EQ(editor->GetText(), u"abc");
}

TEST_F(TextEditor, TellsOfChangesByTheUserOnly) {
  int changes = 0;
  editor->SetChangedFunction([&] { ++changes; });

  editor->SetText(u"abc");
  EXPECT_EQ(changes, 0);
  Type(u"d");
  EXPECT_EQ(changes, 1);
  Key(KeyboardCode::kLeft);
  EXPECT_EQ(changes, 2);
}

TEST_F(TextEditor, MovesAndDeletesByWords) {
  editor->SetText(u"left right");
  Key(KeyboardCode::kLeft, ui::ModKey::kCommand);
  EXPECT_EQ(editor->GetSelection(), (TextSelection{5, 5}));
  Key(KeyboardCode::kLeft, ui::ModKeys(ui::ModKey::kCommand | ui::ModKey::kShift));
  EXPECT_EQ(editor->GetSelection(), (TextSelection{5, 0}));
  Key(KeyboardCode::kRight, ui::ModKey::kCommand);
  EXPECT_EQ(editor->GetSelection(), (TextSelection{5, 5}));

  Key(KeyboardCode::kBackspace, ui::ModKey::kCommand);
  EXPECT_EQ(editor->GetText(), u"right");
  Key(KeyboardCode::kDelete, ui::ModKey::kCommand);
  EXPECT_EQ(editor->GetText(), u"");
}

TEST_F(TextEditor, GoesToTheEnds) {
  editor->SetText(u"left right");
  Key(KeyboardCode::kHome, ui::ModKey::kShift);
  EXPECT_EQ(editor->GetSelection(), (TextSelection{10, 0}));
  Key(KeyboardCode::kEnd);
  EXPECT_EQ(editor->GetSelection(), (TextSelection{10, 10}));
  Key(KeyboardCode::kUp);
  EXPECT_EQ(editor->GetSelection(), (TextSelection{0, 0}));
  Key(KeyboardCode::kDown, ui::ModKey::kShift);
  EXPECT_EQ(editor->GetSelection(), (TextSelection{0, 10}));
}

TEST_F(TextEditor, KnowsWhatACommandWouldDo) {
  editor->SetText(u"abc");
  platform::Application::Get()->GetClipboard().SetData({.text = u"x"});
  EXPECT_FALSE(editor->CanPerform(EditCommand::kUndo));
  EXPECT_FALSE(editor->CanPerform(EditCommand::kRedo));
  EXPECT_FALSE(editor->CanPerform(EditCommand::kCut));
  EXPECT_FALSE(editor->CanPerform(EditCommand::kCopy));
  EXPECT_TRUE(editor->CanPerform(EditCommand::kPaste));
  EXPECT_TRUE(editor->CanPerform(EditCommand::kSelectAll));

  Type(u"d");
  editor->Perform(EditCommand::kSelectAll);
  EXPECT_TRUE(editor->CanPerform(EditCommand::kUndo));
  EXPECT_TRUE(editor->CanPerform(EditCommand::kCut));
  editor->Perform(EditCommand::kUndo);
  EXPECT_TRUE(editor->CanPerform(EditCommand::kRedo));

  editor->SetReadOnly(true);
  editor->Perform(EditCommand::kSelectAll);
  EXPECT_FALSE(editor->CanPerform(EditCommand::kRedo));
  EXPECT_FALSE(editor->CanPerform(EditCommand::kCut));
  EXPECT_FALSE(editor->CanPerform(EditCommand::kPaste));
  EXPECT_TRUE(editor->CanPerform(EditCommand::kCopy));
}

TEST_F(TextEditor, CopiesNothingOverTheClipboardWithoutASelection) {
  platform::Application::Get()->GetClipboard().SetData({.text = u"kept"});
  editor->SetText(u"abc");
  Key(KeyboardCode::kC, ui::ModKey::kCommand);
  Key(KeyboardCode::kX, ui::ModKey::kCommand);
  EXPECT_EQ(platform::Application::Get()->GetClipboard().GetData().text, u"kept");
  EXPECT_EQ(editor->GetText(), u"abc");
}

TEST_F(TextEditor, KeepsEveryCharacterAsItIs) {
  moxcore::Utf16String const text = u"a\u00A0b\u200Fc\u202Ed\xD800 e\xDC00 \uFEFF";
  editor->SetText(text);
  EXPECT_EQ(editor->GetText(), text);
  editor->Perform(EditCommand::kSelectAll);
  editor->Perform(EditCommand::kCopy);
  editor->SetText(u"");
  Type(u"\u200F");
  EXPECT_EQ(editor->GetText(), u"\u200F");
}

TEST_F(TextEditor, NeverSplitsACharacter) {
  // A family of three, joined out of seven code points' worth of units.
  moxcore::Utf16String const family = u"\U0001F468\u200D\U0001F469\u200D\U0001F467";
  editor->SetText(u"a" + family);
  editor->SetSelection({3, 3});
  EXPECT_EQ(editor->GetSelection(), (TextSelection{1, 1}));
  Key(KeyboardCode::kRight);
  EXPECT_EQ(editor->GetSelection().caret, 1 + family.size());
  Key(KeyboardCode::kBackspace);
  EXPECT_EQ(editor->GetText(), u"a");
  editor->Perform(EditCommand::kUndo);
  EXPECT_EQ(editor->GetText(), u"a" + family);

  editor->SetText(family);
  editor->SetMaxLength(4);
  EXPECT_EQ(editor->GetText(), u"");
  platform::Application::Get()->GetClipboard().SetData({.text = u"abc" + family});
  editor->Perform(EditCommand::kPaste);
  EXPECT_EQ(editor->GetText(), u"abc");
}

TEST_F(TextEditor, BackspaceTakesAMarkFromItsLetter) {
  editor->SetText(u"e\u0301");
  Key(KeyboardCode::kBackspace);
  EXPECT_EQ(editor->GetText(), u"e");
}

TEST_F(TextEditor, ArrowsFollowTheReadingOfALineFromTheRight) {
  editor->SetText(u"\u05D0\u05D1");
  Key(KeyboardCode::kRight);  // to the right is towards the begin
  EXPECT_EQ(editor->GetSelection().caret, 1u);
}

TEST(FitText, TurnsEveryLineEndIntoOne) {
  moxcore::Utf16String const text = u"a\r\nb\rc\u2028d\u2029e\u0085f\vg";
  EXPECT_EQ(platform::FitText(text, true, 0), u"a\nb\nc\nd\ne\nf\ng");
  EXPECT_EQ(platform::FitText(text, false, 0), u"a b c d e f g");
  EXPECT_EQ(platform::FitText(u"ab\U0001F3AC", false, 3), u"ab");
  EXPECT_EQ(platform::FitText(u"\uFDD0x", true, 0), u"\uFFFDx");
}

TEST_F(TextEditor, FindsTheWordAtAPlace) {
  editor->SetText(u"left right");

  EXPECT_EQ(editor->GetWordAt(7), (TextSelection{5, 10}));
}

}  // namespace
}  // namespace moxui
