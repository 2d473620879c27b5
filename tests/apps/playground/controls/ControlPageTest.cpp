#include "controls/ControlPage.h"
#include "controls/ControlPages.h"
#include "controls/KeyTable.h"
#include "controls/StatePreview.h"
#include "playground/StagedProgram.h"
#include "program/Localized.h"
#include "shell/Painting.h"

#include <moxui/controls/UI_Slider.h>
#include <moxui/controls/UI_SliderHotTextNumber.h>
#include <moxui/controls/UI_StaticImage.h>
#include <moxui/platform/PaintTarget.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/testing/ModalAnswers.h>
#include <moxui/ui/NodeTree.h>
#include <moxui/ui/UI_NodeManager.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace playground {
namespace {

using moxui::platform::Pixels;
using moxui::ui::KeyboardCode;
using testing::HasSubstr;

std::string LastLine(StagedProgram const& program) {
  return program.state.log.Lines().empty() ? std::string() : To8(program.state.log.Lines().back().text);
}

// The preview of a row alone, and what it draws outside of itself, wherever it is scrolled to.
Pixels FaceOf(StatePreview const& preview) {
  constexpr float kAround = 6.0f;
  auto const own = preview.UI_GetLocalRectF(false);
  moxui::RectT<float> const all{0.0f, 0.0f, own.width + 2.0f * kAround, own.height + 2.0f * kAround};
  auto const target =
      moxui::platform::NewPaintTarget(static_cast<int>(all.width), static_cast<int>(all.height), 1.0f);
  target->Clear(all, ThemeColor(moxui::ui::ThemeColorID::kPanelBackground));
  auto& scriber = target->BeginPaint();
  scriber.GetSurface()->Translate({kAround, kAround});
  moxui::ui::PaintNode(preview, scriber);
  target->EndPaint();
  return target->GetPixels();
}

// The faces of all rows in a state.
std::vector<Pixels> FacesIn(ControlPage& page, std::size_t state) {
  page.ShowState(state);
  std::vector<Pixels> faces;
  for (std::size_t row = 0; row < page.SampleCount(); ++row) {
    faces.push_back(FaceOf(page.Preview(row)));
  }
  return faces;
}

// A picture has no value that could be unknown.
bool CanTake(ControlPage& page, std::size_t row, PageState const& state) {
  bool const isPicture =
      dynamic_cast<moxui::controls::UI_StaticImage const*>(&page.LiveControl(row)) != nullptr;
  return !isPicture || state.name != "unknown";
}

TEST(ControlPage, EachStateOfEachPageHasAFaceOfItsOwn) {
  for (PageDescriptor const& page : ControlPages()) {
    StagedProgram program(page.name);
    std::vector<std::vector<Pixels>> faces;
    for (std::size_t state = 0; state < page.states.size(); ++state) {
      faces.push_back(FacesIn(program.Controls(), state));
      for (std::size_t earlier = 0; earlier < state; ++earlier) {
        for (std::size_t row = 0; row < faces[state].size(); ++row) {
          bool const looksAlike = faces[state][row] == faces[earlier][row];
          EXPECT_FALSE(looksAlike && CanTake(program.Controls(), row, page.states[state]))
              << page.name << " " << row << ": " << page.states[state].name << " looks like "
              << page.states[earlier].name;
        }
      }
    }
  }
}

TEST(ControlPage, PicturesAreShownAmongTexts) {
  StagedProgram program("static-text");
  std::size_t const last = program.Controls().SampleCount() - 1;
  auto const* const image =
      dynamic_cast<moxui::controls::UI_StaticImage const*>(&program.Controls().LiveControl(last));
  ASSERT_NE(image, nullptr);
  EXPECT_TRUE(image->GetImage());
}

bool HasState(std::string_view page, std::string_view state) {
  auto const& states = AllPages()[FindPage(page)].states;
  return std::ranges::any_of(states, [state](PageState const& one) { return one.name == state; });
}

TEST(ControlPage, HasTheStatesThatAControlCanTake) {
  EXPECT_TRUE(HasState("text-edit", "unknown"));
  EXPECT_TRUE(HasState("tree", "hover"));
  EXPECT_TRUE(HasState("tree", "pressed"));
  EXPECT_TRUE(HasState("scroll-view", "pressed"));
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
