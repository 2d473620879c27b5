// The grids of the timecode page: every format at every rate, and what fields can be told.
#include "playground/StagedProgram.h"
#include "timecode/FieldGrid.h"
#include "timecode/GridPane.h"

#include <moxmediaui/HotTimecodeControl.h>
#include <moxui/ui/KeyboardEvent.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace playground {
namespace {

using moxmediaui::FrameRate;
using moxmediaui::TickTime;
using moxmediaui::UI_HotTimecodeControl;
using moxui::PointT;
using moxui::ui::KeyboardCode;
using ::testing::ElementsAre;

constexpr std::size_t kVideo = 0;
constexpr std::size_t kAudio = 1;
enum Column { kTimecode, kDropFrame, kFeet16, kFeet35, kFrames };
enum Row { k15, k23976, k24, k25, k2997, k30, k48, k50, k5994, k60 };

class TimecodeGrids : public ::testing::Test {
 protected:
  UI_HotTimecodeControl& Cell(std::size_t grid, std::size_t row, std::size_t column) {
    return *program.Timecode().Formats().Grid(grid).GetField(row, column);
  }
  UI_HotTimecodeControl& Option(std::size_t grid, std::size_t row, std::size_t column) {
    return *program.Timecode().Options().Grid(grid).GetField(row, column);
  }
  static moxcore::Utf16String TextOf(UI_HotTimecodeControl const& field) {
    return field.GetTextControl()->GetValue();
  }
  std::vector<moxcore::Utf16String> OptionTexts(std::size_t grid, std::size_t row) {
    std::vector<moxcore::Utf16String> texts;
    for (std::size_t column = 0; column < 3; ++column) {
      texts.push_back(TextOf(Option(grid, row, column)));
    }
    return texts;
  }
  void ShowOptions() {
    program.shell.View().GetPage()->ShowState(1);
    program.stage.PaintFrame();
  }
  // Drags so far in one move.
  void DragBy(UI_HotTimecodeControl const& field, PointT<float> distance) {
    program.stage.Press(program.stage.CenterOf(field));
    program.stage.MoveBy(distance);
    program.stage.ReleaseHere();
    program.stage.AdvanceTime(1000.0);
  }

  StagedProgram program{"timecode"};
};

TEST_F(TimecodeGrids, ShowOneTimeInEachFormat) {
  EXPECT_EQ(TextOf(Cell(kVideo, k25, kTimecode)), u"01:02:03:00");
  EXPECT_EQ(TextOf(Cell(kVideo, k2997, kTimecode)), u"01:01:59:08");
  EXPECT_EQ(TextOf(Cell(kVideo, k2997, kDropFrame)), u"01;02;03;00");
  EXPECT_EQ(TextOf(Cell(kVideo, k5994, kDropFrame)), u"01;02;03;00");
  EXPECT_EQ(TextOf(Cell(kVideo, k24, kFeet16)), u"2233+32");
  EXPECT_EQ(TextOf(Cell(kVideo, k24, kFeet35)), u"5584+08");
  EXPECT_EQ(TextOf(Cell(kVideo, k60, kFrames)), u"223380");
  EXPECT_EQ(TextOf(Cell(kAudio, 1, 0)), u"178704000");
  EXPECT_EQ(TextOf(Cell(kAudio, 0, 1)), u"3723000");
}

TEST_F(TimecodeGrids, HaveAllFormatsOfVideoAndSound) {
  std::set<int> codes;
  for (auto const& field : program.Timecode().Formats().Fields()) {
    codes.insert(field->GetTimeDisplay().GetType());
  }
  EXPECT_THAT(codes,
              ElementsAre(100, 101, 102, 103, 104, 105, 106, 107, 108, 109, 110, 111, 112, 113, 200, 201));
  EXPECT_EQ(program.Timecode().Formats().Fields().size(), 50u);
  EXPECT_EQ(program.Timecode().Formats().Grid(kVideo).GetField(k25, kDropFrame), nullptr);
}

TEST_F(TimecodeGrids, GoWithTheFieldThatIsDragged) {
  DragBy(Cell(kVideo, k25, kTimecode), {11.0f, 0.0f});
  TickTime const time = TickTime(3723 * 25 + 10, FrameRate::k25);
  for (auto const& field : program.Timecode().Formats().Fields()) {
    EXPECT_EQ(field->GetTime(), time);
  }
  EXPECT_EQ(TextOf(Cell(kVideo, k50, kFrames)), u"186170");
  ASSERT_GE(program.state.log.Lines().size(), 2u);
  EXPECT_EQ(program.state.log.Lines().back().text, u"Field 13: changed, 01:02:03:10 (945803174400000 ticks)");
}

TEST_F(TimecodeGrids, AreWorkedByTheKeyboardAlone) {
  UI_HotTimecodeControl& field = Cell(kVideo, k2997, kDropFrame);
  field.UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kTraversal);
  program.stage.Key(KeyboardCode::kUp);
  EXPECT_EQ(TextOf(field), u"01;02;03;01");
  program.stage.Key(KeyboardCode::kEnter);
  EXPECT_TRUE(field.HasFocus());
  program.stage.Key(KeyboardCode::kA, moxui::ui::ModKey::kCommand);
  program.stage.Type(u"1000");
  program.stage.Key(KeyboardCode::kEnter);
  EXPECT_EQ(TextOf(field), u"00;00;10;00");
  EXPECT_TRUE(field.UI_HasKeyboardFocus(true)) << "the arrows go on from there";
  EXPECT_EQ(TextOf(Cell(kVideo, k25, kTimecode)), u"00:00:10:00");
  program.stage.Tab();
  EXPECT_FALSE(field.UI_HasKeyboardFocus());
}

TEST_F(TimecodeGrids, CopyFromOneFieldAndPasteIntoAnother) {
  moxui::ui::ModKeys const command(moxui::ui::ModKey::kCommand);
  UI_HotTimecodeControl& from = Cell(kVideo, k30, kTimecode);
  DragBy(from, {0.0f, -6.0f});
  ASSERT_EQ(TextOf(from), u"01:02:03:05");
  program.stage.Click(program.stage.CenterOf(from));
  program.stage.Key(KeyboardCode::kA, command);
  program.stage.Key(KeyboardCode::kC, command);
  program.stage.Key(KeyboardCode::kEscape);
  program.stage.AdvanceTime(1000.0);
  UI_HotTimecodeControl& to = Cell(kVideo, k60, kTimecode);
  program.stage.Click(program.stage.CenterOf(to));
  program.stage.Key(KeyboardCode::kA, command);
  program.stage.Key(KeyboardCode::kV, command);
  program.stage.Key(KeyboardCode::kEnter);
  EXPECT_EQ(to.GetTime(), TickTime(3723 * 60 + 5, FrameRate::k60));
}

TEST_F(TimecodeGrids, KeepTheTimeWhenTheTextCannotBeRead) {
  UI_HotTimecodeControl& field = Cell(kVideo, k25, kTimecode);
  TickTime const before = field.GetTime();
  program.stage.Click(program.stage.CenterOf(field));
  program.stage.Key(KeyboardCode::kA, moxui::ui::ModKey::kCommand);
  program.stage.Type(u"soon");
  program.stage.Key(KeyboardCode::kEnter);
  EXPECT_EQ(field.GetTime(), before);
  EXPECT_EQ(TextOf(field), u"01:02:03:00");
}

TEST_F(TimecodeGrids, NameTheirFieldsForAssistiveSoftware) {
  EXPECT_EQ(Cell(kVideo, k2997, kDropFrame).UI_GetAccessibleName(), "Drop-frame, 29.97");
  EXPECT_EQ(program.Timecode().Formats().Grid(kVideo).UI_GetAccessibleName(), "Video");
}

TEST_F(TimecodeGrids, AFixedFieldAndADisabledOneStay) {
  ShowOptions();
  for (std::size_t const row : {1u, 2u}) {
    UI_HotTimecodeControl& field = Option(0, row, 0);
    TickTime const before = field.GetTime();
    DragBy(field, {20.0f, 0.0f});
    EXPECT_EQ(field.GetTime(), before);
    program.stage.Click(program.stage.CenterOf(field));
    EXPECT_FALSE(field.HasFocus());
  }
  UI_HotTimecodeControl& editable = Option(0, 0, 1);
  DragBy(editable, {20.0f, 0.0f});
  EXPECT_EQ(TextOf(editable), u"01:02:03:19");
}

TEST_F(TimecodeGrids, ShowNoTimeInThreeWays) {
  ShowOptions();
  EXPECT_THAT(OptionTexts(1, 0), ElementsAre(u"00:00:00:00", u"0+00", u"0"));
  EXPECT_THAT(OptionTexts(1, 1), ElementsAre(u"--:--:--:--", u"-+--", u"--"));
  EXPECT_THAT(OptionTexts(1, 2), ElementsAre(u"", u"", u""));
}

TEST_F(TimecodeGrids, CountFromZeroFromOneAndFromAnHour) {
  ShowOptions();
  EXPECT_THAT(OptionTexts(2, 0), ElementsAre(u"01:02:03:00", u"5584+08", u"93075"));
  EXPECT_THAT(OptionTexts(2, 1), ElementsAre(u"01:02:03:00", u"5584+09", u"93076"));
  EXPECT_THAT(OptionTexts(2, 2), ElementsAre(u"02:02:03:00", u"10984+08", u"183075"));
  for (std::size_t row = 0; row < 3; ++row) {
    EXPECT_EQ(Option(2, row, 2).GetTime(), TickTime(93075, FrameRate::k25)) << "what is counted is the same";
  }
}

TEST_F(TimecodeGrids, StepAsTheyWereTold) {
  ShowOptions();
  for (std::size_t column = 0; column < 3; ++column) {
    DragBy(Option(3, 0, column), {3.0f, 0.0f});
  }
  TickTime const before(93075, FrameRate::k25);
  EXPECT_EQ(Option(3, 0, 0).GetTime(), before + TickTime(2, FrameRate::k25));
  EXPECT_EQ(Option(3, 0, 1).GetTime(), before + TickTime(2, FrameRate::k24));
  EXPECT_EQ(Option(3, 0, 2).GetTime(), before + TickTime(moxmediatypes::kTicksPerSecond));
}

TEST_F(TimecodeGrids, LieOneBelowTheOtherInASmallWindow) {
  program.stage.GetTree().SetSize({960.0f, 600.0f});
  program.stage.PaintFrame();
  GridPane& pane = program.Timecode().Formats();
  EXPECT_EQ(pane.Grid(kVideo).UI_GetLocalRectF(true).left, pane.Grid(kAudio).UI_GetLocalRectF(true).left);
  pane.SetScrollOffset(1000.0f);
  EXPECT_GT(pane.GetScrollOffset(), 0.0f);
  EXPECT_EQ(program.Timecode().GetScrollOffset(), pane.GetScrollOffset());
  program.stage.GetTree().SetSize({1600.0f, 1000.0f});
  program.stage.PaintFrame();
  EXPECT_EQ(pane.Grid(kVideo).UI_GetLocalRectF(true).top, pane.Grid(kAudio).UI_GetLocalRectF(true).top);
}

TEST_F(TimecodeGrids, ALostPageInTheMiddleOfAStepIsNoHarm) {
  program.stage.Press(program.stage.CenterOf(Cell(kVideo, k25, kTimecode)));
  program.stage.MoveBy({5.0f, 0.0f});
  program.shell.View().ShowPage(FindPage("slider"));
  program.stage.MoveBy({5.0f, 0.0f});
  program.stage.ReleaseHere();
  program.Picture();
}

}  // namespace
}  // namespace playground
