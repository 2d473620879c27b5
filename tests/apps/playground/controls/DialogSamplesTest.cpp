#include "controls/DialogSamples.h"
#include "controls/StatePreview.h"
#include "playground/StagedProgram.h"
#include "program/Localized.h"

#include <moxui/controls/UI_TextButton.h>
#include <moxui/dialogs/DialogButton.h>
#include <moxui/platform/Application.h>
#include <moxui/testing/ModalAnswers.h>
#include <moxui/ui/KeyboardEvent.h>
#include <moxui/ui/NodeTree.h>
#include <moxui/ui/UI_NodeManager.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace playground {
namespace {

using moxui::testing::ModalAnswers;
using moxui::testing::Stage;
using moxui::ui::KeyboardCode;
using testing::Contains;
using testing::ElementsAre;

// The rows of the two pages.
constexpr std::size_t kQuestion = 1;
constexpr std::size_t kPlain = 3;
constexpr std::size_t kInput = 0;
constexpr std::size_t kMarker = 1;
constexpr std::size_t kFrameSize = 2;

using Drive = std::function<void(Stage&)>;

Drive ByKey(KeyboardCode code) {
  return [code](Stage& stage) { stage.Key(code); };
}

moxui::ui::UI_Node* ButtonCalled(moxui::ui::UI_Node& node, std::u16string_view label) {
  auto* const button = dynamic_cast<moxui::controls::UI_TextButton*>(&node);
  if (button != nullptr && button->GetTextLabel() == label) {
    return button;
  }
  moxui::ui::UI_Container const* const container = node.UI_GetContainer();
  for (std::size_t i = 0; container != nullptr && i < container->ChildSize(); ++i) {
    if (auto* const found = ButtonCalled(*container->ChildGet(i), label)) {
      return found;
    }
  }
  return nullptr;
}

Drive ByClickOn(std::u16string_view label) {
  return [label](Stage& stage) {
    auto const* const button = ButtonCalled(*stage.GetRoot(), label);
    ASSERT_NE(button, nullptr);
    stage.Click(stage.CenterOf(*button));
  };
}

void PressRow(StagedProgram& program, std::size_t row) {
  program.stage.Click(program.stage.CenterOf(program.Controls().LiveControl(row)));
}

std::vector<std::string> Heard(StagedProgram const& program) {
  std::vector<std::string> lines;
  for (EventLog::Line const& line : program.state.log.Lines()) {
    lines.push_back(To8(line.text));
  }
  return lines;
}

// What the log has heard once a row's box was opened and answered.
std::vector<std::string> LinesAfter(std::string_view page, std::size_t row, Drive drive) {
  StagedProgram program(page);
  ModalAnswers answers;
  answers.ExpectDriven(std::move(drive));
  PressRow(program, row);
  EXPECT_TRUE(answers.AllUsed());
  return Heard(program);
}

class PageOfBoxes : public testing::TestWithParam<std::string_view> {};

TEST_P(PageOfBoxes, OpensFromEachRowTheBoxThatItShows) {
  StagedProgram program(GetParam());
  std::set<std::string> names;
  for (std::size_t row = 0; row < program.Controls().SampleCount(); ++row) {
    ModalAnswers answers;
    answers.SetDefault(static_cast<int>(moxui::dialogs::DialogButton::kCancel));
    std::vector<moxui::RectT<float>> rects;
    answers.Expect([&](moxui::platform::ModalRequest& request) {
      auto const& shown = *program.Controls().Preview(row).GetView();
      EXPECT_EQ(std::string(request.content->UI_GetAccessibleName()),
                std::string(shown.UI_GetAccessibleName()));
      EXPECT_EQ(request.content->UI_GetLocalRectF(false), shown.UI_GetLocalRectF(false));
      return static_cast<int>(moxui::dialogs::DialogButton::kCancel);
    });
    PressRow(program, row);
    ASSERT_EQ(answers.GetRecords().size(), 1u) << "row " << row;
    EXPECT_FALSE(answers.GetRecords()[0].title.empty());
    EXPECT_TRUE(names.insert(std::string(program.Controls().LiveControl(row).UI_GetAccessibleName())).second)
        << "row " << row << " is called like another one";
  }
}

TEST_P(PageOfBoxes, OpensByKeyAsWell) {
  StagedProgram program(GetParam());
  ModalAnswers answers;
  program.Controls().LiveControl(0).UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kTraversal);
  program.stage.Key(KeyboardCode::kSpace);
  EXPECT_EQ(answers.GetRecords().size(), 1u);
}

TEST_P(PageOfBoxes, HoldsItsBoxesInAnyWindow) {
  for (bool const isRightToLeft : {false, true}) {
    for (float const width : {720.0f, 960.0f, 1600.0f}) {
      Appearance appearance;
      appearance.rightToLeft = isRightToLeft;
      StagedProgram program(GetParam(), appearance, {width, 700.0f});
      ControlPage& page = program.Controls();
      moxui::RectT<float> before;
      for (std::size_t row = 0; row < page.SampleCount(); ++row) {
        auto const& preview = page.Preview(row);
        moxui::RectT<float> const box = preview.UI_GetLocalRectF(true);
        moxui::RectT<float> const control = page.LiveControl(row).UI_GetLocalRectF(true);
        EXPECT_GE(box.left, 12.0f) << width;
        EXPECT_LE(box.Right(), preview.UI_GetParentNode()->UI_GetLocalRectF(false).width - 12.0f) << width;
        EXPECT_TRUE(box.Intersection(control).IsEmpty()) << width;
        EXPECT_TRUE(box.Intersection(before).IsEmpty()) << width;
        EXPECT_EQ(box.Extent(), preview.GetView()->UI_GetLocalRectF(false).Extent());
        before = box;
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Both, PageOfBoxes, testing::Values("message-box", "dialog"), [](auto const& page) {
  return page.param == "dialog" ? std::string("Dialogs") : std::string("Messages");
});

TEST(MessageBoxes, AnswersByKeyArriveInTheLog) {
  EXPECT_THAT(LinesAfter("message-box", kQuestion, ByKey(KeyboardCode::kReturn)),
              ElementsAre("Question: opened", "Question: Yes"));
  EXPECT_THAT(LinesAfter("message-box", kQuestion, ByKey(KeyboardCode::kEscape)),
              ElementsAre("Question: opened", "Question: Cancel"));
  EXPECT_THAT(LinesAfter("message-box", kPlain, ByKey(KeyboardCode::kReturn)),
              ElementsAre("Without an icon: opened", "Without an icon: OK"));
}

TEST(MessageBoxes, AnswersByPointerArriveInTheLog) {
  EXPECT_THAT(LinesAfter("message-box", kQuestion, ByClickOn(u"No")),
              ElementsAre("Question: opened", "Question: No"));
  for (auto const& [row, title] : {std::pair<std::size_t, std::string>(0, "Note"), {2, "Stop"}}) {
    EXPECT_THAT(LinesAfter("message-box", row, ByClickOn(u"OK")),
                ElementsAre(title + ": opened", title + ": OK"));
  }
}

TEST(MessageBoxes, OpenAsWindowsWhereNobodyAnswersForTheUser) {
  StagedProgram program("message-box");
  bool isModal = false;
  moxui::platform::Application::Get()->PostDelayed(0, [&isModal] {
    auto& manager = *moxui::ui::UI_NodeManager::Get(true);
    moxui::ui::NodeTree& box = *manager.GetTrees().back();
    isModal = manager.GetModalTree() == &box;
    box.HandleKey(moxui::ui::KeyboardEvent(moxui::ui::KeyAction::kKeyDown, KeyboardCode::kEscape));
  });
  PressRow(program, kQuestion);
  EXPECT_TRUE(isModal);
  EXPECT_THAT(Heard(program), ElementsAre("Question: opened", "Question: Cancel"));
}

TEST(MessageBoxes, PageMayEndWhileOneIsOpen) {
  StagedProgram program("message-box");
  ModalAnswers answers;
  answers.ExpectDriven([&](Stage& stage) {
    program.shell.View().ShowPage(FindPage("buttons"));
    stage.Key(KeyboardCode::kReturn);
  });
  PressRow(program, kQuestion);
  EXPECT_EQ(program.state.page, FindPage("buttons"));
  EXPECT_THAT(Heard(program), Contains("Question: Yes"));
}

TEST(Dialogs, WholeViewMayBeMadeAnewWhileOneIsOpen) {
  StagedProgram program("dialog");
  ModalAnswers answers;
  answers.ExpectDriven([&](Stage& stage) {
    Appearance appearance;
    appearance.theme = ThemeChoice::kLight;
    program.shell.SetAppearance(appearance);
    ByClickOn(u"OK")(stage);
  });
  PressRow(program, kFrameSize);
  EXPECT_THAT(Heard(program), Contains("From a view archive: 1920 by 1080 pixels"));
}

TEST(Dialogs, TextsThatWereTypedArriveInTheLog) {
  auto const typeAndAccept = [](Stage& stage) {
    stage.Key(KeyboardCode::kA, moxui::ui::ModKeys(moxui::ui::ModKey::kCommand));
    stage.Type(u"Take 12");
    stage.Key(KeyboardCode::kReturn);
    // In a dialog the field commits first.
    stage.Key(KeyboardCode::kReturn);
  };
  EXPECT_THAT(LinesAfter("dialog", kInput, typeAndAccept),
              ElementsAre("Input: opened", "Input: \u201CTake 12\u201D"));
  EXPECT_THAT(LinesAfter("dialog", kMarker, typeAndAccept),
              ElementsAre("Dialog: opened", "Dialog: \u201CTake 12\u201D"));
}

TEST(Dialogs, AreCancelledByKeyAndByPointer) {
  for (auto const& [row, title] : {std::pair<std::size_t, std::string>(kInput, "Input"),
                                   {kMarker, "Dialog"},
                                   {kFrameSize, "From a view archive"}}) {
    auto const cancelled = ElementsAre(title + ": opened", title + ": Cancel");
    EXPECT_THAT(LinesAfter("dialog", row, ByKey(KeyboardCode::kEscape)), cancelled);
    EXPECT_THAT(LinesAfter("dialog", row, ByClickOn(u"Cancel")), cancelled);
  }
}

}  // namespace
}  // namespace playground
