#include "LoggingNode.h"

#include <moxui/dialogs/MessageBox.h>
#include <moxui/platform/Application.h>
#include <moxui/skins/LayoutDirection.h>
#include <moxui/testing/ModalAnswers.h>
#include <moxui/testing/Stage.h>
#include <moxui/ui/KeyboardEvent.h>
#include <moxui/ui/NodeTree.h>
#include <moxui/ui/UI_Container.h>
#include <moxui/ui/UI_NodeManager.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace moxui::dialogs {
namespace {

using messagebox::MessageIcon;
using testing::ModalAnswers;
using ui::KeyboardCode;

constexpr unsigned kYesNo = DialogButton::kYes | DialogButton::kNo;

unsigned Ask(unsigned buttons, unsigned defaultButton) {
  return messagebox::Messagebox(nullptr, u"Presets", u"Delete the preset 'Mine'?", buttons, defaultButton,
                                MessageIcon::kQuestion, {});
}

// Runs while a box is open, on the box's tree.
void OnceOpen(std::function<void(ui::NodeTree&)> act) {
  platform::Application::Get()->PostDelayed(
      0, [act = std::move(act)] { act(*ui::UI_NodeManager::Get(false)->GetTrees().back()); });
}

void PressKey(ui::NodeTree& tree, KeyboardCode code) {
  tree.HandleKey(ui::KeyboardEvent(ui::KeyAction::kKeyDown, code));
  tree.HandleKey(ui::KeyboardEvent(ui::KeyAction::kKeyUp, code));
}

TEST(MessageBox, IsAnsweredByATestWithWhatItAsks) {
  ModalAnswers answers;
  answers.Expect(static_cast<int>(DialogButton::kYes));
  EXPECT_EQ(Ask(80, 16), 16u);
  ASSERT_EQ(answers.GetRecords().size(), 1u);
  EXPECT_EQ(answers.GetRecords()[0].title, u"Presets");
  EXPECT_EQ(answers.GetRecords()[0].text, u"Delete the preset 'Mine'?");
}

TEST(MessageBox, TakesFocusAndCaptureAwayWhileATestAnswersToo) {
  Log log;
  testing::Stage stage;
  auto const node = AddNode(stage.GetRootView(), log, "node", {0, 0, 50, 50});
  auto const field = AddNode(stage.GetRootView(), log, "field", {50, 0, 50, 50});
  stage.Press({5, 5});
  node->UI_SetCapture();
  field->UI_GainKeyboardFocus(ui::FocusChangeReason::kByCode);
  log.clear();
  ModalAnswers answers;
  answers.Expect([&](platform::ModalRequest&) {
    EXPECT_THAT(log, ::testing::ElementsAre("node focus5", "field focus5"));
    EXPECT_EQ(stage.GetTree().GetCapture(), nullptr);
    EXPECT_FALSE(stage.GetTree().IsActive());
    log.clear();
    stage.ForgetButtons();
    return 16;
  });
  EXPECT_EQ(Ask(kYesNo, DialogButton::kYes), 16U);
  EXPECT_TRUE(stage.GetTree().IsActive());
  // The button was let go over the box.
  EXPECT_THAT(log, ::testing::ElementsAre("field focus3", "node release"));
}

TEST(MessageBox, IsOnTopOfAllWhileItIsOpen) {
  ui::NodeTree const* top = nullptr;
  ui::NodeTree const* box = nullptr;
  OnceOpen([&](ui::NodeTree& tree) {
    box = &tree;
    top = ui::UI_NodeManager::Get(false)->GetModalTree();
    PressKey(tree, KeyboardCode::kEscape);
  });
  Ask(kYesNo, DialogButton::kYes);
  EXPECT_NE(top, nullptr);
  EXPECT_EQ(top, box);
  EXPECT_EQ(ui::UI_NodeManager::Get(false)->GetModalTree(), nullptr);
}

TEST(MessageBox, EnterMeansTheDefaultButton) {
  OnceOpen([](ui::NodeTree& tree) { PressKey(tree, KeyboardCode::kReturn); });
  EXPECT_EQ(Ask(kYesNo, DialogButton::kYes), DialogButton::kYes);
  OnceOpen([](ui::NodeTree& tree) { PressKey(tree, KeyboardCode::kReturn); });
  EXPECT_EQ(Ask(kYesNo, DialogButton::kNo), DialogButton::kNo);
}

TEST(MessageBox, EscapeMeansNoWhereThereIsNoCancel) {
  OnceOpen([](ui::NodeTree& tree) { PressKey(tree, KeyboardCode::kEscape); });
  EXPECT_EQ(Ask(kYesNo, DialogButton::kYes), DialogButton::kNo);
  OnceOpen([](ui::NodeTree& tree) { PressKey(tree, KeyboardCode::kEscape); });
  EXPECT_EQ(Ask(kYesNo | DialogButton::kCancel, DialogButton::kYes), DialogButton::kCancel);
}

TEST(MessageBox, ButtonsAreReachedByTabAndPressedBySpace) {
  OnceOpen([](ui::NodeTree& tree) {
    PressKey(tree, KeyboardCode::kTab);
    PressKey(tree, KeyboardCode::kSpace);
  });
  EXPECT_EQ(Ask(kYesNo, DialogButton::kYes), DialogButton::kNo);
}

TEST(MessageBox, AStopBoxIsAnsweredByATest) {
  ModalAnswers answers;
  messagebox::ShowStop(nullptr, u"Presets", u"The preset 'Mine' did not load correctly.", {});
  ASSERT_EQ(answers.GetRecords().size(), 1u);
  EXPECT_EQ(answers.GetRecords()[0].text, u"The preset 'Mine' did not load correctly.");
}

TEST(MessageBox, AStopBoxHasATextAndOneButton) {
  std::size_t children = 0;
  OnceOpen([&](ui::NodeTree& tree) {
    children = tree.GetRoot()->UI_GetContainer()->ChildSize();
    PressKey(tree, KeyboardCode::kEscape);
  });
  messagebox::ShowStop(nullptr, u"Presets", u"The preset 'Mine' did not load correctly.", {});
  EXPECT_EQ(children, 2u);
}

// Where the children of a box lie: its text, then its buttons.
std::vector<RectT<float>> PlacesInABox() {
  std::vector<RectT<float>> places;
  OnceOpen([&](ui::NodeTree& tree) {
    ui::UI_Container const& box = *tree.GetRoot()->UI_GetContainer();
    for (auto child = box.ChildBegin(); child != box.ChildEnd(); ++child) {
      places.push_back((*child)->UI_GetLocalRectF(ui::RectSpace::kParent));
    }
    places.push_back(tree.GetRoot()->UI_GetLocalRectF(ui::RectSpace::kOwn));
    PressKey(tree, KeyboardCode::kEscape);
  });
  Ask(kYesNo, DialogButton::kYes);
  return places;
}

TEST(MessageBox, TellsTheAnswerToWhoeverListensBeforeItReturns) {
  std::vector<unsigned> heard;
  OnceOpen([&](ui::NodeTree& tree) {
    EXPECT_TRUE(heard.empty());
    PressKey(tree, KeyboardCode::kReturn);
  });
  unsigned const answer =
      messagebox::Messagebox(nullptr, u"Presets", u"Delete?", kYesNo, DialogButton::kYes,
                             MessageIcon::kQuestion, {}, [&](unsigned button) { heard.push_back(button); });
  EXPECT_EQ(heard, std::vector{answer});
  ModalAnswers answers;
  answers.Expect(static_cast<int>(DialogButton::kNo));
  messagebox::Messagebox(
      nullptr, u"Presets", u"Delete?", kYesNo, DialogButton::kYes, MessageIcon::kQuestion, {},
      [&](unsigned button) { heard.push_back(button); }, 0, 0);
  EXPECT_EQ(heard.back(), DialogButton::kNo);
}

TEST(MessageBox, EscapeMeansTheButtonThatItIsToldToMean) {
  OnceOpen([](ui::NodeTree& tree) { PressKey(tree, KeyboardCode::kEscape); });
  EXPECT_EQ(messagebox::Messagebox(nullptr, u"Presets", u"Keep it?", kYesNo, DialogButton::kNo,
                                   MessageIcon::kQuestion, {}, {}, DialogButton::kYes),
            DialogButton::kYes);
}

TEST(MessageBox, TextIsAsWideAsItIsToldToBe) {
  auto const boxWidth = [](float textWidth) {
    float width = 0.0f;
    OnceOpen([&](ui::NodeTree& tree) {
      width = tree.GetRoot()->UI_GetLocalRectF(ui::RectSpace::kOwn).width;
      PressKey(tree, KeyboardCode::kEscape);
    });
    messagebox::Messagebox(nullptr, u"Presets", u"Delete?", kYesNo, DialogButton::kYes,
                           MessageIcon::kQuestion, {}, {}, 0, textWidth);
    return width;
  };
  float const usual = boxWidth(0.0f);
  EXPECT_EQ(boxWidth(420.0f), usual + 100.0f);
}

TEST(MessageBox, IsMirroredWhereTheInterfaceRunsFromRightToLeft) {
  auto const plain = PlacesInABox();
  skins::SetRightToLeft(true);
  auto const mirrored = PlacesInABox();
  skins::SetRightToLeft(false);
  ASSERT_EQ(plain.size(), 4u);
  ASSERT_EQ(mirrored.size(), 4u);
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_FLOAT_EQ(mirrored[i].Right(), plain.back().width - plain[i].left);
    EXPECT_EQ(mirrored[i].Extent(), plain[i].Extent());
    EXPECT_FLOAT_EQ(mirrored[i].top, plain[i].top);
  }
}

}  // namespace
}  // namespace moxui::dialogs
