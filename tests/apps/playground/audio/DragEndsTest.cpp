#include "audio/OverviewBar.h"
#include "audio/TimeRulerView.h"
#include "audio/WaveformView.h"
#include "playground/StagedProgram.h"

#include <moxui/ui/KeyboardEvent.h>

#include <gtest/gtest.h>

#include <string>

namespace playground {
namespace {

using moxui::ui::KeyboardCode;
using moxui::ui::MouseButton;

// A view that is dragged, and the button that drags it.
struct Dragged {
  char const* name;
  moxui::ui::UI_Node& (*find)(StagedProgram&);
  MouseButton button;
};

class DragEnds : public testing::TestWithParam<Dragged> {
 protected:
  DragEnds() {
    // In the middle of the sound, so that there is somewhere to go on either side.
    program.Session().ChangeView([](Viewport& view) {
      auto const frames = static_cast<double>(view.Frames());
      view.Show(frames * 0.4, frames * 0.6);
    });
    program.Session().ChangeSelection([](SampleSelection& selection) { selection.Select(1'000, 2'000); });
  }

  ViewPlace Place() { return {program.Session().View(), program.Session().Selection()}; }
  moxui::PointT<float> At(float x) { return StagedProgram::PointIn(GetParam().find(program), x); }
  void Begin() {
    program.stage.Press(At(0.5f), GetParam().button);
    program.stage.Move(At(0.53f));
  }
  // Whether the view or the selection goes with the pointer.
  bool Goes(float to) {
    ViewPlace const before = Place();
    program.stage.Move(At(to));
    return !(Place() == before);
  }

  StagedProgram program;
};

TEST_P(DragEnds, WithTheReleaseOfItsOwnButton) {
  MouseButton const other =
      GetParam().button == MouseButton::kLeft ? MouseButton::kRight : MouseButton::kLeft;
  Begin();
  program.stage.Press(At(0.54f), other);
  program.stage.Release(At(0.55f), other);
  EXPECT_TRUE(Goes(0.58f));
  program.stage.Release(At(0.58f), GetParam().button);
  EXPECT_FALSE(Goes(0.6f));
}

TEST_P(DragEnds, WhereItBeganWithTheEscapeKey) {
  ViewPlace const before = Place();
  bool const couldUndo = program.Session().CanUndo();
  Begin();
  EXPECT_FALSE(Place() == before);
  EXPECT_TRUE(program.stage.Key(KeyboardCode::kEscape));
  EXPECT_EQ(Place(), before);
  EXPECT_EQ(program.Session().CanUndo(), couldUndo);
  EXPECT_FALSE(Goes(0.6f));
  program.stage.Release(At(0.6f), GetParam().button);
  EXPECT_EQ(Place(), before);
  // Undo takes back what was before the drag.
  ASSERT_TRUE(program.Session().Undo());
  EXPECT_FALSE(Place() == before);
  // The next drag is a drag again.
  Begin();
  EXPECT_TRUE(Goes(0.6f));
}

TEST_P(DragEnds, WithTheEscapeKeyWhereverTheFocusIs) {
  ViewPlace const before = Place();
  Begin();
  program.Audio().Sounds().UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kByCode);
  EXPECT_TRUE(program.stage.Key(KeyboardCode::kEscape));
  EXPECT_EQ(Place(), before);
}

TEST_P(DragEnds, WhenTheWindowIsLeft) {
  Begin();
  ViewPlace const there = Place();
  program.stage.Deactivate();
  program.stage.Activate();
  EXPECT_FALSE(Goes(0.6f));
  EXPECT_EQ(Place(), there);
  EXPECT_TRUE(program.Session().CanUndo());
}

INSTANTIATE_TEST_SUITE_P(
    Views, DragEnds,
    testing::Values(
        Dragged{"Selection",
                [](StagedProgram& program) -> moxui::ui::UI_Node& { return program.Audio().Waveform(); },
                MouseButton::kLeft},
        Dragged{"Waveform",
                [](StagedProgram& program) -> moxui::ui::UI_Node& { return program.Audio().Waveform(); },
                MouseButton::kMiddle},
        Dragged{"Overview",
                [](StagedProgram& program) -> moxui::ui::UI_Node& { return program.Audio().Overview(); },
                MouseButton::kLeft},
        Dragged{"Ruler",
                [](StagedProgram& program) -> moxui::ui::UI_Node& { return program.Audio().Ruler(); },
                MouseButton::kLeft},
        Dragged{"RulerByTheMiddle",
                [](StagedProgram& program) -> moxui::ui::UI_Node& { return program.Audio().Ruler(); },
                MouseButton::kMiddle}),
    [](auto const& view) { return std::string(view.param.name); });

TEST(DragDuringPlayback, EscapeTakesTheDragBackBeforeItStopsPlayback) {
  StagedProgram program;
  program.state.transport.PlayOrPause();
  ASSERT_TRUE(program.state.transport.IsPlaying());
  program.stage.Press(StagedProgram::PointIn(program.Audio().Waveform(), 0.3f));
  program.stage.Move(StagedProgram::PointIn(program.Audio().Waveform(), 0.4f));
  program.stage.Key(KeyboardCode::kEscape);
  EXPECT_TRUE(program.Session().Selection().IsEmpty());
  EXPECT_TRUE(program.state.transport.IsPlaying());
  program.stage.Key(KeyboardCode::kEscape);
  EXPECT_FALSE(program.state.transport.IsPlaying());
}

}  // namespace
}  // namespace playground
