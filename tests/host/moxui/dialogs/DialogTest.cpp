#include <moxcore/messaging/BindMessageFunction.h>
#include <moxui/controls/UI_TextButton.h>
#include <moxui/controls/UI_TextEdit.h>
#include <moxui/dialogs/MessageBox.h>
#include <moxui/dialogs/UI_Dialog.h>
#include <moxui/platform/Application.h>
#include <moxui/platform/Window.h>
#include <moxui/testing/ModalAnswers.h>
#include <moxui/testing/Stage.h>
#include <moxui/ui/KeyboardEvent.h>
#include <moxui/ui/UI_NodeManager.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace moxui::dialogs {
namespace {

using controls::UI_TextButton;
using controls::UI_TextEdit;
using moxcore::utility::IntrusivePtr;
using moxcore::utility::MakeIntrusive;
using ::testing::ElementsAre;
using testing::ModalAnswers;
using testing::Stage;
using ui::KeyboardCode;
using Response = UI_Dialog::Response;

// A dialog with a field, an OK and a cancel button.
class Dialog : public ::testing::Test {
 protected:
  Dialog() {
    mField->UI_SetLocalRectF({10, 10, 100, 24});
    mOk->UI_SetLocalRectF({10, 60, 80, 24});
    mCancel->UI_SetLocalRectF({100, 60, 80, 24});
    for (IntrusivePtr<ui::UI_Node> const& node :
         {IntrusivePtr<ui::UI_Node>(mField), IntrusivePtr<ui::UI_Node>(mOk),
          IntrusivePtr<ui::UI_Node>(mCancel)}) {
      mDialog->GetContentView()->ChildPushBack(node);
    }
    mDialog->SetOkButton(mOk);
    mDialog->SetCancelButton(mCancel);
  }

  Response RunDriven(std::function<void(Stage&)> drive) {
    mAnswers.ExpectDriven(std::move(drive));
    Response const response = mDialog->RunModal();
    EXPECT_EQ(mDialog->GetResponse(), response);
    return response;
  }

  ModalAnswers mAnswers;
  IntrusivePtr<UI_Dialog> mDialog =
      MakeIntrusive<UI_Dialog>(nullptr, u"A Dialog", WindowVariant(), ExtentT<float>(200, 100));
  IntrusivePtr<UI_TextEdit> mField = MakeIntrusive<UI_TextEdit>();
  IntrusivePtr<UI_TextButton> mOk = MakeIntrusive<UI_TextButton>(u"OK");
  IntrusivePtr<UI_TextButton> mCancel = MakeIntrusive<UI_TextButton>(u"Cancel");
};

TEST_F(Dialog, ItsButtonsEndIt) {
  EXPECT_EQ(mDialog->GetResponse(), Response::kNone);
  EXPECT_EQ(RunDriven([&](Stage& stage) { stage.Click(stage.CenterOf(*mOk)); }), Response::kOk);
  EXPECT_EQ(RunDriven([&](Stage& stage) { stage.Click(stage.CenterOf(*mCancel)); }), Response::kCancel);
  ASSERT_EQ(mAnswers.GetRecords().size(), 2u);
  EXPECT_EQ(mAnswers.GetRecords()[0].kind, platform::ModalKind::kDialog);
  EXPECT_EQ(mAnswers.GetRecords()[0].title, u"A Dialog");
}

TEST_F(Dialog, NumbersOfResponsesAreThoseOfBoxes) {
  EXPECT_EQ(static_cast<int>(Response::kOk), 1);
  EXPECT_EQ(static_cast<int>(Response::kCancel), 2048);
}

TEST_F(Dialog, TheFocusIsWithTheFirstControlThatWantsIt) {
  RunDriven([&](Stage& stage) {
    EXPECT_TRUE(mField->UI_TextEditControlHasFocus());
    stage.Type(u"typed");
  });
  EXPECT_EQ(mField->GetValue(), u"typed");
}

TEST_F(Dialog, EnterAndEscapeMeanItsButtons) {
  mField->UI_Hide();
  // No control has used the keys: the OK button hasn't the focus.
  EXPECT_EQ(RunDriven([&](Stage& stage) {
              stage.GetTree().SetFocus(nullptr, ui::FocusChangeReason::kNone);
              stage.Key(KeyboardCode::kReturn);
            }),
            Response::kOk);
  EXPECT_EQ(RunDriven([&](Stage& stage) {
              stage.GetTree().SetFocus(nullptr, ui::FocusChangeReason::kNone);
              stage.Key(KeyboardCode::kEnter);
            }),
            Response::kOk);
  EXPECT_EQ(RunDriven([&](Stage& stage) { stage.Key(KeyboardCode::kEscape); }), Response::kCancel);
}

TEST_F(Dialog, AFieldThatIsEditedHasTheKeysFirst) {
  EXPECT_EQ(RunDriven([&](Stage& stage) {
              stage.Type(u"one");
              stage.Key(KeyboardCode::kReturn);  // ends the edit
              EXPECT_EQ(mDialog->GetResponse(), Response::kNone);
              stage.Key(KeyboardCode::kReturn);
            }),
            Response::kOk);
  EXPECT_EQ(RunDriven([&](Stage& stage) {
              mField->UI_GainKeyboardFocus(ui::FocusChangeReason::kByCode);
              stage.Key(KeyboardCode::kEscape);
              EXPECT_EQ(mDialog->GetResponse(), Response::kNone);
              stage.Key(KeyboardCode::kEscape);
            }),
            Response::kCancel);
}

TEST_F(Dialog, EnterPressesTheButtonThatHasTheFocus) {
  EXPECT_EQ(RunDriven([&](Stage& stage) {
              mCancel->UI_GainKeyboardFocus(ui::FocusChangeReason::kTraversal);
              stage.Key(KeyboardCode::kReturn);
            }),
            Response::kCancel);
}

TEST_F(Dialog, ADisabledOkButtonLetsEnterDoNothing) {
  mOk->UI_SetDisabled();
  mField->UI_Hide();
  EXPECT_EQ(RunDriven([&](Stage& stage) {
              stage.GetTree().SetFocus(nullptr, ui::FocusChangeReason::kNone);
              stage.Key(KeyboardCode::kReturn);
            }),
            Response::kNone);
}

TEST_F(Dialog, WithoutButtonsEnterMeansTheDefaultOneAndEscapeEndsIt) {
  auto const dialog = MakeIntrusive<UI_Dialog>(nullptr, u"Bare", WindowVariant(), ExtentT<float>(200, 100));
  auto const apply = MakeIntrusive<UI_TextButton>(u"Apply");
  int pressed = 0;
  apply->SetDefaultAppearance(true);
  apply->SetWantsKeyboardFocus(false);
  apply->NotifyWhenChanged(std::make_shared<moxcore::messaging::MessageFunction>(
      [&](moxcore::messaging::Message*) { ++pressed; }));
  dialog->GetContentView()->ChildPushBack(apply);
  mAnswers.ExpectDriven([&](Stage& stage) {
    stage.Key(KeyboardCode::kReturn);
    EXPECT_EQ(pressed, 1);
    stage.Key(KeyboardCode::kEscape);
  });
  EXPECT_EQ(dialog->RunModal(), Response::kCancel);
}

TEST_F(Dialog, AClientMayAcceptIt) {
  EXPECT_EQ(RunDriven([&](Stage&) { mDialog->Accept(); }), Response::kOk);
  EXPECT_EQ(RunDriven([&](Stage&) {
              mDialog->Close(static_cast<Response>(7));
              mDialog->Accept();  // too late
            }),
            static_cast<Response>(7));
}

TEST_F(Dialog, ATestMayAnswerWithoutDriving) {
  mAnswers.Expect(1);
  EXPECT_EQ(mDialog->RunModal(), Response::kOk);
  EXPECT_EQ(mDialog->GetResponse(), Response::kOk);
}

TEST_F(Dialog, TheCallbackHearsTheResponseOnceAndMayOpenBoxes) {
  std::vector<Response> heard;
  mDialog->SetPostCloseCallback([&](Response response) {
    heard.push_back(response);
    messagebox::ShowStop(nullptr, u"", u"Over", mDialog->GetContentView().Get());
    return false;
  });
  RunDriven([&](Stage& stage) { stage.Click(stage.CenterOf(*mOk)); });
  EXPECT_THAT(heard, ElementsAre(Response::kOk));
  EXPECT_EQ(mAnswers.GetRecords().back().text, u"Over");
}

TEST_F(Dialog, TheCallbackMayRunItAgain) {
  int runs = 0;
  mDialog->SetPostCloseCallback([&](Response) { return ++runs < 2; });
  mAnswers.ExpectDriven([&](Stage& stage) { stage.Click(stage.CenterOf(*mCancel)); });
  EXPECT_EQ(RunDriven([&](Stage& stage) { stage.Click(stage.CenterOf(*mOk)); }), Response::kOk);
  EXPECT_TRUE(mAnswers.AllUsed());
  EXPECT_EQ(runs, 2);
}

TEST_F(Dialog, ItsContentFollowsItsSize) {
  auto const view = MakeIntrusive<ui::UI_SubView>();
  view->UI_SetLocalRectF({0, 0, 200, 100});
  view->UI_SetLayoutBinding(ui::LayoutBinding::kBindRight | ui::LayoutBinding::kBindBottom);
  mDialog->GetContentView()->ChildPushBack(view);
  EXPECT_EQ(mDialog->GetLocalRectF(), RectT<float>(0, 0, 200, 100));
  mDialog->SetSize({250, 130});
  EXPECT_EQ(mDialog->GetLocalRectF(), RectT<float>(0, 0, 250, 130));
  EXPECT_EQ(view->UI_GetLocalRectF(ui::RectSpace::kParent), RectT<float>(0, 0, 250, 130));
  EXPECT_EQ(mDialog->GetMinimumSize(), ExtentT<float>());
  mDialog->SetMinimumSize({200, 100});
  EXPECT_EQ(mDialog->GetMinimumSize(), ExtentT<float>(200, 100));
}

TEST_F(Dialog, IsADialogWithItsTitleToAssistiveSoftware) {
  EXPECT_EQ(mDialog->GetViewContainer()->UI_GetAccessibleRole(), ui::AccessibleRole::kDialog);
  EXPECT_EQ(mDialog->GetViewContainer()->UI_GetAccessibleName(), "A Dialog");
}

// On the desktop, with a window of its own.

void OnceOpen(std::function<void(ui::NodeTree&)> act) {
  platform::Application::Get()->PostDelayed(
      0, [act = std::move(act)] { act(*ui::UI_NodeManager::Get(false)->GetTrees().back()); });
}

platform::Window& WindowOf(ui::NodeTree& tree) {
  return dynamic_cast<platform::Window&>(tree.GetHost());
}

TEST(DialogWindow, ShowsTheContentAndIsModal) {
  auto const dialog = MakeIntrusive<UI_Dialog>(nullptr, u"", WindowVariant(), ExtentT<float>(200, 100));
  auto const ok = MakeIntrusive<UI_TextButton>(u"OK");
  dialog->GetContentView()->ChildPushBack(ok);
  dialog->SetOkButton(ok);
  OnceOpen([&](ui::NodeTree& tree) {
    EXPECT_EQ(tree.GetRoot(), dialog->GetViewContainer().Get());
    EXPECT_EQ(tree.GetSize(), ExtentT<float>(200, 100));
    EXPECT_EQ(ui::UI_NodeManager::Get(false)->GetModalTree(), &tree);
    EXPECT_EQ(tree.GetFocusLeaf(), ok.Get());
    tree.HandleKey(ui::KeyboardEvent(ui::KeyAction::kKeyDown, KeyboardCode::kReturn));
  });
  EXPECT_EQ(dialog->RunModal(), Response::kOk);
  EXPECT_EQ(ui::UI_NodeManager::Get(false)->GetModalTree(), nullptr);
  EXPECT_EQ(dialog->GetViewContainer()->UI_GetTree(), nullptr);
}

TEST(DialogWindow, CantBecomeSmallerThanItsMinimum) {
  auto const dialog = MakeIntrusive<UI_Dialog>(nullptr, u"", WindowVariant(), ExtentT<float>(300, 200));
  dialog->SetMinimumSize({250, 150});
  OnceOpen([&](ui::NodeTree& tree) {
    WindowOf(tree).SetSize({100, 100});
    EXPECT_EQ(dialog->GetLocalRectF().Extent(), ExtentT<float>(250, 150));
    dialog->SetMinimumSize({100, 80});
    dialog->SetSize({120, 90});
    EXPECT_EQ(dialog->GetLocalRectF().Extent(), ExtentT<float>(120, 90));
    dialog->Cancel();
  });
  EXPECT_EQ(dialog->RunModal(), Response::kCancel);
}

TEST(DialogWindow, ViewsAreStillInTheirWindowWhenTheCallbackHears) {
  auto const dialog = MakeIntrusive<UI_Dialog>(nullptr, u"", WindowVariant(), ExtentT<float>(200, 100));
  bool wasInATree = false;
  dialog->SetPostCloseCallback([&](Response) {
    wasInATree = dialog->GetViewContainer()->UI_GetTree() != nullptr;
    return false;
  });
  OnceOpen([&](ui::NodeTree&) { dialog->Accept(); });
  dialog->RunModal();
  EXPECT_TRUE(wasInATree);
}

// Hears the focus, as the first control of a dialog does while that opens.
class FocusTaker : public ui::UI_SubView {
 public:
  bool UI_WantsKeyboardFocus() const override { return true; }
  void UI_FocusChanged(ui::FocusChangeReason) override { onFocus(); }
  std::function<void()> onFocus = [] {};
};

TEST(DialogWindow, MayBeAnsweredWhileItOpens) {
  auto const dialog = MakeIntrusive<UI_Dialog>(nullptr, u"", WindowVariant(), ExtentT<float>(200, 100));
  auto const taker = MakeIntrusive<FocusTaker>();
  taker->UI_SetLocalRectF({0, 0, 20, 20});
  dialog->GetContentView()->ChildPushBack(taker);
  taker->onFocus = [&] { dialog->Accept(); };
  EXPECT_EQ(dialog->RunModal(), Response::kOk);
  EXPECT_EQ(dialog->GetViewContainer()->UI_GetTree(), nullptr);
}

TEST(DialogWindow, RefusesToRunWhileItIsRunning) {
  auto const dialog = MakeIntrusive<UI_Dialog>(nullptr, u"", WindowVariant(), ExtentT<float>(200, 100));
  Response second = Response::kOk;
  bool wasStillOpen = false;
  OnceOpen([&](ui::NodeTree&) {
    second = dialog->RunModal();
    wasStillOpen = dialog->GetViewContainer()->UI_GetTree() != nullptr;
    dialog->Accept();
  });
  EXPECT_EQ(dialog->RunModal(), Response::kOk);
  EXPECT_EQ(second, Response::kNone);
  EXPECT_TRUE(wasStillOpen);
}

TEST(DialogWindow, OpensOverNoneOnceItsParentHasEnded) {
  auto parent = platform::Application::Get()->CreateWindow({.size = {80, 60}});
  auto const dialog = MakeIntrusive<UI_Dialog>(nullptr, u"", parent.get(), ExtentT<float>(200, 100));
  parent.reset();
  OnceOpen([&](ui::NodeTree&) { dialog->Accept(); });
  EXPECT_EQ(dialog->RunModal(), Response::kOk);
}

TEST(DialogWindow, OutlivesItsParentWhileItRuns) {
  auto parent = platform::Application::Get()->CreateWindow({.size = {80, 60}});
  auto const dialog = MakeIntrusive<UI_Dialog>(nullptr, u"", parent.get(), ExtentT<float>(200, 100));
  OnceOpen([&](ui::NodeTree& tree) {
    parent.reset();
    EXPECT_TRUE(WindowOf(tree).IsShown());
    dialog->Accept();
  });
  EXPECT_EQ(dialog->RunModal(), Response::kOk);
}

}  // namespace
}  // namespace moxui::dialogs
