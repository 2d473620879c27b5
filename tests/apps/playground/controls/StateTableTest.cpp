#include "controls/StateTable.h"
#include "playground/StagedProgram.h"
#include "presets/PresetsPage.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <utility>
#include <vector>

namespace playground {
namespace {

using Face = std::vector<std::uint8_t>;

// What a preview shows, with what it draws outside of itself.
Face FaceOf(StagedProgram& program, StatePreview const& preview) {
  auto const rect =
      moxui::RectT<int>(preview.UI_ConvertRectTo(nullptr, preview.UI_GetLocalRectF(false).Inset(-4.0f)));
  auto const all = program.Picture();
  Face face;
  for (int y = rect.top; y < rect.Bottom(); ++y) {
    auto const line = all.bytes.begin() + (static_cast<std::ptrdiff_t>(y) * all.width + rect.left) * 4;
    face.insert(face.end(), line, line + static_cast<std::ptrdiff_t>(rect.width) * 4);
  }
  return face;
}

std::map<SampleState, Face> FacesOf(StagedProgram& program, StateTable const& table, std::size_t column) {
  std::map<SampleState, Face> faces;
  for (std::size_t row = 0; row < table.RowCount(); ++row) {
    faces[static_cast<SampleState>(row)] = FaceOf(program, table.Preview(row, column));
  }
  return faces;
}

void ShowTab(StagedProgram& program, std::size_t tab) {
  program.shell.View().GetPage()->ShowState(tab);
  program.stage.PaintFrame();
}

bool HasStatesTab(std::string_view page, std::size_t tab) {
  auto const& states = AllPages()[FindPage(page)].states;
  return tab < states.size() && states[tab].name == "states";
}

TEST(StateTable, ShowsTimecodeFieldsInEachStateThatTheyShow) {
  ASSERT_TRUE(HasStatesTab("timecode", 3));
  StagedProgram program("timecode");
  StateTable const& table = program.Timecode().States();
  EXPECT_FALSE(table.UI_IsShown());
  ShowTab(program, 3);
  EXPECT_TRUE(table.UI_IsShown());
  ASSERT_EQ(table.RowCount(), 6u);
  for (std::size_t column = 0; column < table.ColumnCount(); ++column) {
    auto faces = FacesOf(program, table, column);
    Face const& normal = faces[SampleState::kNormal];
    for (SampleState const state : {SampleState::kFocused, SampleState::kDisabled, SampleState::kUnknown}) {
      EXPECT_NE(faces[state], normal) << column << " " << static_cast<int>(state);
    }
    EXPECT_NE(faces[SampleState::kDisabled], faces[SampleState::kUnknown]) << column;
    // As the remark below them says.
    EXPECT_EQ(faces[SampleState::kHover], normal) << column;
    EXPECT_EQ(faces[SampleState::kPressed], normal) << column;
  }
  ShowTab(program, 0);
  EXPECT_FALSE(table.UI_IsShown());
}

TEST(StateTable, KeepsItsColumnsInASmallWindow) {
  for (auto const& [page, tab] : {std::pair("timecode", 3), std::pair("presets", 2)}) {
    for (bool const isRightToLeft : {false, true}) {
      Appearance appearance;
      appearance.rightToLeft = isRightToLeft;
      StagedProgram program(page, appearance, {800.0f, 600.0f});
      ShowTab(program, static_cast<std::size_t>(tab));
      auto* const presets = dynamic_cast<PresetsPage*>(program.shell.View().GetPage());
      StateTable const& table = presets != nullptr ? presets->States() : program.Timecode().States();
      auto const room = table.UI_GetLocalRectF(false);
      for (std::size_t row = 0; row < table.RowCount(); ++row) {
        for (std::size_t column = 0; column < table.ColumnCount(); ++column) {
          auto const rect = table.Preview(row, column).UI_GetLocalRectF(true);
          EXPECT_EQ(room.Intersection(rect), rect) << page << " " << row << " " << column;
          EXPECT_GT(rect.width, 72.0f) << page;
        }
      }
    }
  }
}

class PickerStates : public ::testing::Test {
 protected:
  PresetsPage& Page() { return dynamic_cast<PresetsPage&>(*mProgram.shell.View().GetPage()); }

  StagedProgram mProgram{"presets"};
};

TEST_F(PickerStates, HaveAFaceOfTheirOwnForEachPartOfThePicker) {
  ASSERT_TRUE(HasStatesTab("presets", 2));
  ShowTab(mProgram, 2);
  StateTable const& table = Page().States();
  ASSERT_EQ(table.ColumnCount(), 3u);
  for (std::size_t column = 0; column < table.ColumnCount(); ++column) {
    auto const faces = FacesOf(mProgram, table, column);
    for (auto const& [state, face] : faces) {
      for (auto const& [other, otherFace] : faces) {
        EXPECT_EQ(face == otherFace, state == other)
            << column << " " << static_cast<int>(state) << " " << static_cast<int>(other);
      }
    }
  }
  // What differs between the columns is the part that is meant.
  for (SampleState const state : {SampleState::kHover, SampleState::kPressed, SampleState::kFocused}) {
    auto const row = static_cast<std::size_t>(state);
    EXPECT_NE(FaceOf(mProgram, table.Preview(row, 0)), FaceOf(mProgram, table.Preview(row, 1)));
    EXPECT_NE(FaceOf(mProgram, table.Preview(row, 1)), FaceOf(mProgram, table.Preview(row, 2)));
  }
}

TEST_F(PickerStates, AreShownInPlaceOfThePageAndWithoutTheHandTouchingThem) {
  EXPECT_FALSE(Page().States().UI_IsShown());
  EXPECT_TRUE(Page().Picker().UI_IsShown());
  ShowTab(mProgram, 2);
  EXPECT_TRUE(Page().States().UI_IsShown());
  EXPECT_FALSE(Page().Picker().UI_IsShown());
  auto const before = mProgram.Picture();
  auto const settings = mProgram.Session().Settings();
  mProgram.stage.Click(mProgram.stage.CenterOf(Page().States().Preview(0, 1)));
  mProgram.stage.Leave();
  EXPECT_EQ(mProgram.Picture(), before);
  EXPECT_EQ(mProgram.Session().Settings(), settings);
  ShowTab(mProgram, 0);
  EXPECT_TRUE(Page().Picker().UI_IsShown());
}

}  // namespace
}  // namespace playground
