#include "controls/ControlPage.h"
#include "controls/ControlPages.h"
#include "controls/KeyTable.h"
#include "controls/StatePreview.h"
#include "playground/StagedProgram.h"
#include "program/Localized.h"
#include "shell/Painting.h"

#include <moxui/controls/UI_OwnerDrawButton.h>
#include <moxui/controls/UI_Slider.h>
#include <moxui/controls/UI_SliderHotTextNumber.h>
#include <moxui/controls/UI_StaticImage.h>
#include <moxui/testing/ModalAnswers.h>
#include <moxui/ui/UI_NodeManager.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

namespace playground {
namespace {

using moxui::ui::KeyboardCode;
using testing::HasSubstr;

std::string LastLine(StagedProgram const& program) {
  return program.state.log.Lines().empty() ? std::string() : To8(program.state.log.Lines().back().text);
}

// The preview of a row alone, and what it draws outside of itself: the heading of the column, say, would make
// a difference too.
std::vector<std::uint8_t> FaceOf(StagedProgram& program, std::size_t state, std::size_t row) {
  program.Controls().ShowState(state);
  auto const& preview = program.Controls().Preview(row);
  auto const rect =
      moxui::RectT<int>(preview.UI_ConvertRectTo(nullptr, preview.UI_GetLocalRectF(false).Inset(-6.0f)));
  auto const all = program.Picture();
  std::vector<std::uint8_t> face;
  for (int y = rect.top; y < rect.Bottom(); ++y) {
    auto const line = all.bytes.begin() + (static_cast<std::ptrdiff_t>(y) * all.width + rect.left) * 4;
    face.insert(face.end(), line, line + static_cast<std::ptrdiff_t>(rect.width) * 4);
  }
  return face;
}

void ExpectAFaceForEachState(PageDescriptor const& page, StagedProgram& program, std::size_t row) {
  std::set<std::vector<std::uint8_t>> faces;
  for (std::size_t state = 0; state < page.states.size(); ++state) {
    EXPECT_TRUE(faces.insert(FaceOf(program, state, row)).second)
        << page.name << " " << row << " " << page.states[state].name;
  }
}

TEST(ControlPage, EachStateOfEachPageHasAFaceOfItsOwn) {
  for (PageDescriptor const& page : ControlPages()) {
    StagedProgram program(page.name);
    ExpectAFaceForEachState(page, program, 0);
  }
}

template <class Control>
void ExpectOnAPageWithItsStates(std::string_view name) {
  PageDescriptor const& page = AllPages()[FindPage(name)];
  StagedProgram program(name);
  for (std::size_t row = 0; row < program.Controls().SampleCount(); ++row) {
    if (dynamic_cast<Control*>(&program.Controls().LiveControl(row)) != nullptr) {
      ExpectAFaceForEachState(page, program, row);
      return;
    }
  }
  ADD_FAILURE() << "not on the page " << name;
}

TEST(ControlPage, ControlsThatAreMadeOfOthersOrDrawnByOthersHaveTheirStatesToo) {
  ExpectOnAPageWithItsStates<moxui::controls::UI_SliderHotTextNumber>("slider");
  ExpectOnAPageWithItsStates<moxui::controls::UI_OwnerDrawButton>("buttons");
}

TEST(ControlPage, PicturesAreShownAmongTexts) {
  StagedProgram program("static-text");
  std::size_t const last = program.Controls().SampleCount() - 1;
  auto const* const image =
      dynamic_cast<moxui::controls::UI_StaticImage const*>(&program.Controls().LiveControl(last));
  ASSERT_NE(image, nullptr);
  EXPECT_TRUE(image->GetImage());
  EXPECT_NE(FaceOf(program, 0, last), FaceOf(program, 1, last)) << "disabled as well";
}

bool HasState(std::string_view page, std::string_view state) {
  auto const& states = AllPages()[FindPage(page)].states;
  return std::ranges::any_of(states, [state](PageState const& one) { return one.name == state; });
}

TEST(ControlPage, TextFieldsAreShownUnknownAndTreesUnderThePointer) {
  EXPECT_TRUE(HasState("text-edit", "unknown"));
  EXPECT_TRUE(HasState("tree", "hover"));
}

TEST(ControlPage, LogTellsTheValueOfASliderWithANumber) {
  StagedProgram program("slider");
  ControlPage& page = program.Controls();
  auto& control =
      dynamic_cast<moxui::controls::UI_SliderHotTextNumber&>(page.LiveControl(page.SampleCount() - 1));
  program.stage.Click(program.stage.CenterOf(*control.GetHotTextNumber()));
  program.stage.Type(u"72");
  program.stage.Key(KeyboardCode::kReturn);
  EXPECT_THAT(LastLine(program), HasSubstr("changed, 72"));
}

TEST(ControlPage, PreviewKeepsItsStateWhateverThePointerDoes) {
  StagedProgram program("buttons");
  program.Controls().ShowState(1);
  auto const before = program.Picture();
  auto const point = program.stage.CenterOf(program.Controls().Preview(0));
  program.stage.Click(point);
  program.stage.Leave();
  EXPECT_EQ(program.Picture(), before);
  EXPECT_TRUE(program.state.log.Lines().empty());
}

TEST(ControlPage, PreviewsLeaveTheWindowsTreeTheCurrentOne) {
  StagedProgram program("popup");
  program.Controls().ShowState(3);
  EXPECT_EQ(moxui::ui::UI_NodeManager::Get(true)->GetCurrentTree(), &program.stage.GetTree());
}

TEST(ControlPage, TellsTheKeysBelowTheRows) {
  for (PageDescriptor const& page : AllPages()) {
    StagedProgram program(page.name);
    auto const keys = KeysOfPage(page.name);
    if (keys.empty()) {
      continue;
    }
    KeyTable* const table = program.Controls().Keys();
    ASSERT_NE(table, nullptr) << page.name;
    // A heading, then two texts a line.
    EXPECT_EQ(table->ChildSize(), 1 + 2 * keys.size()) << page.name;
    std::size_t const last = program.Controls().SampleCount() - 1;
    EXPECT_GE(table->UI_GetLocalRectF(true).top,
              program.Controls().LiveControl(last).UI_GetLocalRectF(true).Bottom())
        << page.name;
  }
}

TEST(ControlPage, HasAKeyTableWhereverAControlTakesTheFocus) {
  for (PageDescriptor const& page : ControlPages()) {
    StagedProgram program(page.name);
    // Of a view and of a tree, what is within takes the focus.
    bool const isWorked = program.Controls().LiveControl(0).UI_WantsKeyboardFocus() ||
                          page.name == "scroll-view" || page.name == "tree";
    EXPECT_EQ(isWorked, !KeysOfPage(page.name).empty()) << page.name;
  }
}

// Whether all of it can be seen: in its page and all those around it.
bool IsSeen(moxui::ui::UI_Node const& node) {
  for (auto const* around = node.UI_GetParentNode(); around != nullptr; around = around->UI_GetParentNode()) {
    auto const rect = node.UI_ConvertRectTo(around, node.UI_GetLocalRectF(false));
    if (around->UI_GetLocalRectF(false).Intersection(rect) != rect) {
      return false;
    }
  }
  return true;
}

TEST(ControlPage, ScrollsToWhatHasNoRoom) {
  for (bool const isRightToLeft : {false, true}) {
    Appearance appearance;
    appearance.rightToLeft = isRightToLeft;
    StagedProgram program("buttons", appearance, {800.0f, 600.0f});
    ControlPage& page = program.Controls();
    ASSERT_NE(page.Keys(), nullptr);
    EXPECT_TRUE(IsSeen(page.LiveControl(0)));
    EXPECT_FALSE(IsSeen(*page.Keys()));
    program.stage.Wheel(program.stage.CenterOf(page), {0.0f, -2000.0f});
    EXPECT_FALSE(IsSeen(page.LiveControl(0)));
    EXPECT_TRUE(IsSeen(*page.Keys()));
    // What the focus goes to comes into sight.
    page.LiveControl(0).UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kTraversal);
    program.stage.Key(KeyboardCode::kTab);
    EXPECT_TRUE(page.LiveControl(1).UI_HasKeyboardFocus());
    EXPECT_TRUE(IsSeen(page.LiveControl(1)));
    EXPECT_FALSE(IsSeen(*page.Keys()));
  }
}

TEST(ControlPage, StandsWhereItWasScrolledToInAnotherLook) {
  StagedProgram program("buttons", {}, {960.0f, 600.0f});
  program.Controls().SetScrollOffset(60.0f);
  Appearance appearance;
  appearance.theme = ThemeChoice::kLight;
  program.shell.SetAppearance(appearance);
  EXPECT_EQ(program.Controls().GetScrollOffset(), 60.0f);
}

TEST(ControlPage, TakesItsWholeWidthWhereNothingScrolls) {
  StagedProgram tall("buttons", {}, {1200.0f, 1200.0f});
  EXPECT_TRUE(IsSeen(*tall.Controls().Keys()));
  float const width = tall.Controls().UI_GetLocalRectF(false).width;
  EXPECT_EQ(tall.Controls().Keys()->UI_GetLocalRectF(false).width, width - 2.0f * kPanelPadding);
}

TEST(ControlPage, LogHearsAClick) {
  StagedProgram program("buttons");
  program.stage.Click(program.stage.CenterOf(program.Controls().LiveControl(0)));
  bool heard = false;
  for (EventLog::Line const& line : program.state.log.Lines()) {
    heard = heard || To8(line.text).find("changed") != std::string::npos;
  }
  EXPECT_TRUE(heard);
}

TEST(ControlPage, LogHearsThePhasesOfADrag) {
  StagedProgram program("slider");
  auto const middle = program.stage.CenterOf(program.Controls().LiveControl(0));
  program.stage.Drag(middle, {middle.x + 30.0f, middle.y});
  std::string all;
  for (EventLog::Line const& line : program.state.log.Lines()) {
    all += To8(line.text) + "\n";
  }
  EXPECT_THAT(all, HasSubstr("begin"));
  EXPECT_THAT(all, HasSubstr("continue"));
  EXPECT_THAT(all, HasSubstr("finish"));
  EXPECT_THAT(all, HasSubstr("changed"));
}

TEST(ControlPage, LogHearsACancelledDrag) {
  StagedProgram program("slider");
  auto const middle = program.stage.CenterOf(program.Controls().LiveControl(0));
  program.stage.Press(middle);
  program.stage.Move({middle.x + 30.0f, middle.y});
  program.stage.Key(KeyboardCode::kEscape);
  program.stage.Release(middle);
  std::string all;
  for (EventLog::Line const& line : program.state.log.Lines()) {
    all += To8(line.text) + "\n";
  }
  EXPECT_THAT(all, HasSubstr("cancel"));
}

TEST(ControlPage, LogHearsWhatWasChosenAndTyped) {
  StagedProgram popup("popup");
  moxui::testing::ModalAnswers answers;
  answers.Expect(3);
  popup.stage.Click(popup.stage.CenterOf(popup.Controls().LiveControl(0)));
  EXPECT_THAT(LastLine(popup), HasSubstr("5.1 Surround"));

  StagedProgram edit("text-edit");
  edit.stage.Click(edit.stage.CenterOf(edit.Controls().LiveControl(1)));
  edit.stage.Type(u"Take 9");
  edit.stage.Key(KeyboardCode::kReturn);
  EXPECT_THAT(LastLine(edit), HasSubstr("Take 9"));
}

TEST(EventLog, CountsEqualLinesAndForgetsOldOnes) {
  EventLog log;
  log.Add("one");
  log.Add("one");
  EXPECT_EQ(log.Lines().size(), 1u);
  EXPECT_EQ(log.Lines().front().count, 2);
  for (std::size_t i = 0; i < EventLog::kMostLines + 10; ++i) {
    log.Add(std::to_string(i));
  }
  EXPECT_EQ(log.Lines().size(), EventLog::kMostLines);
}

}  // namespace
}  // namespace playground
