#include <moxui/controls/UI_TextButton.h>
#include <moxui/controls/UI_TextEdit.h>
#include <moxui/dialogs/SimpleInputBox.h>
#include <moxui/platform/Application.h>
#include <moxui/testing/ModalAnswers.h>
#include <moxui/testing/Stage.h>
#include <moxui/ui/KeyboardEvent.h>
#include <moxui/ui/UI_NodeManager.h>

#include <gtest/gtest.h>

#include <functional>

namespace moxui::dialogs {
namespace {

using testing::ModalAnswers;
using testing::Stage;
using ui::KeyboardCode;

struct BoxBounds {
  std::size_t least = 0;
  std::size_t most = 0;
  bool selects = true;
  bool readOnly = false;
};

class InputBox : public ::testing::Test {
 protected:
  bool Ask(BoxBounds const& bounds = {}) {
    return SimpleInputBox(nullptr, u"Save Preset", u"Preset Name:", mText, bounds.selects, nullptr,
                          bounds.readOnly, bounds.least, bounds.most, 1, 2048);
  }
  bool AskDriven(std::function<void(Stage&)> drive, BoxBounds const& bounds = {}) {
    mAnswers.ExpectDriven(std::move(drive));
    return Ask(bounds);
  }
  static controls::UI_TextEdit& FieldOf(Stage& stage) {
    return dynamic_cast<controls::UI_TextEdit&>(*stage.GetRootView().ChildGet(1));
  }
  static controls::UI_TextButton& ButtonOf(Stage& stage, std::size_t index) {
    return dynamic_cast<controls::UI_TextButton&>(*stage.GetRootView().ChildGet(2 + index));
  }

  ModalAnswers mAnswers;
  moxcore::Utf16String mText = u"Foo";
};

TEST_F(InputBox, SaysWhatItAsks) {
  EXPECT_FALSE(Ask());
  ASSERT_EQ(mAnswers.GetRecords().size(), 1u);
  EXPECT_EQ(mAnswers.GetRecords()[0].kind, platform::ModalKind::kInputBox);
  EXPECT_EQ(mAnswers.GetRecords()[0].title, u"Save Preset");
  EXPECT_EQ(mAnswers.GetRecords()[0].text, u"Preset Name:");
  EXPECT_EQ(mText, u"Foo");
}

TEST_F(InputBox, TypingReplacesTheSelectedTextAndEnterAccepts) {
  EXPECT_TRUE(AskDriven([](Stage& stage) {
    EXPECT_EQ(FieldOf(stage).GetValue(), u"Foo");
    stage.Type(u"Bar");
    stage.Key(KeyboardCode::kReturn);
  }));
  EXPECT_EQ(mText, u"Bar");
}

TEST_F(InputBox, TypingGoesOnAtTheEndOfATextThatIsNotSelected) {
  EXPECT_TRUE(AskDriven(
      [](Stage& stage) {
        stage.Type(u"l");
        stage.Key(KeyboardCode::kReturn);
      },
      {.selects = false}));
  EXPECT_EQ(mText, u"Fool");
}

TEST_F(InputBox, EscapeAndTheCancelButtonLeaveTheText) {
  EXPECT_FALSE(AskDriven([](Stage& stage) {
    stage.Type(u"Bar");
    stage.Key(KeyboardCode::kEscape);
  }));
  EXPECT_FALSE(AskDriven([](Stage& stage) {
    stage.Type(u"Bar");
    stage.Click(stage.CenterOf(ButtonOf(stage, 1)));
  }));
  EXPECT_EQ(mText, u"Foo");
}

TEST_F(InputBox, TheAcceptButtonTakesTheText) {
  EXPECT_TRUE(AskDriven([](Stage& stage) {
    stage.Type(u"Bar");
    stage.Click(stage.CenterOf(ButtonOf(stage, 0)));
  }));
  EXPECT_EQ(mText, u"Bar");
}

TEST_F(InputBox, AButtonWithTheFocusTakesEnterForItself) {
  EXPECT_FALSE(AskDriven([](Stage& stage) {
    stage.Tab();
    stage.Tab();
    stage.Key(KeyboardCode::kReturn);
  }));
}

TEST_F(InputBox, ATextThatIsTooShortCantBeAccepted) {
  EXPECT_FALSE(AskDriven(
      [](Stage& stage) {
        stage.Type(u"x");
        EXPECT_TRUE(ButtonOf(stage, 0).IsDisabled());
        EXPECT_TRUE(stage.Key(KeyboardCode::kReturn));
        stage.Type(u"y");
        EXPECT_FALSE(ButtonOf(stage, 0).IsDisabled());
        stage.Key(KeyboardCode::kEscape);
      },
      {.least = 2}));
}

TEST_F(InputBox, ATextCantBecomeTooLong) {
  EXPECT_TRUE(AskDriven(
      [](Stage& stage) {
        stage.Type(u"abcdef");
        stage.Key(KeyboardCode::kReturn);
      },
      {.most = 4}));
  EXPECT_EQ(mText, u"abcd");
}

TEST_F(InputBox, ATextToBeReadOnlyStays) {
  EXPECT_TRUE(AskDriven(
      [](Stage& stage) {
        stage.Type(u"Bar");
        stage.Key(KeyboardCode::kReturn);
      },
      {.readOnly = true}));
  EXPECT_EQ(mText, u"Foo");
}

TEST_F(InputBox, ATestMayChangeTheTextItself) {
  mAnswers.Expect([](platform::ModalRequest& request) {
    *request.editedText = u"Baz";
    return 1;
  });
  EXPECT_TRUE(Ask());
  EXPECT_EQ(mText, u"Baz");
}

TEST_F(InputBox, IsADialogWithAFieldThatHasTheNameOfThePrompt) {
  AskDriven([](Stage& stage) {
    EXPECT_EQ(stage.GetRootView().UI_GetAccessibleRole(), ui::AccessibleRole::kDialog);
    EXPECT_EQ(stage.GetRootView().UI_GetAccessibleName(), "Save Preset");
    EXPECT_EQ(FieldOf(stage).UI_GetAccessibleName(), "Preset Name:");
  });
}

TEST(InputBoxWindow, IsModalAndHasTheFocusInItsField) {
  moxcore::Utf16String text = u"Foo";
  platform::Application::Get()->PostDelayed(0, [] {
    ui::NodeTree& tree = *ui::UI_NodeManager::Get(false)->GetTrees().back();
    EXPECT_EQ(ui::UI_NodeManager::Get(false)->GetModalTree(), &tree);
    tree.HandleKey(ui::KeyboardEvent(ui::KeyAction::kKeyDown, KeyboardCode::kA, {}, u"a"));
    tree.HandleKey(ui::KeyboardEvent(ui::KeyAction::kKeyDown, KeyboardCode::kReturn));
  });
  EXPECT_TRUE(SimpleInputBox(nullptr, u"", u"", text, true, nullptr, false, 0, 0));
  EXPECT_EQ(text, u"a");
}

}  // namespace
}  // namespace moxui::dialogs
