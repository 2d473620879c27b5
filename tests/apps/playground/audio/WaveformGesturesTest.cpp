#include "audio/ChannelGutter.h"
#include "audio/OverviewBar.h"
#include "audio/WaveformView.h"
#include "playground/StagedProgram.h"

#include <moxui/ui/KeyboardEvent.h>
#include <moxui/ui/MouseEvent.h>

#include <gtest/gtest.h>

namespace playground {
namespace {

using moxui::PointT;
using moxui::ui::KeyboardCode;
using moxui::ui::ModKeys;
using moxui::ui::MouseButton;
namespace ModKey = moxui::ui::ModKey;

class WaveformGestures : public testing::Test {
 protected:
  PointT<float> At(float share) { return StagedProgram::PointIn(program.Audio().Waveform(), share); }
  Viewport const& View() { return program.Session().View(); }
  SampleSelection const& Selection() { return program.Session().Selection(); }
  void ZoomIn() {
    program.Session().ChangeView([](Viewport& view) { view.ZoomAt(view.Width() / 2.0, 8.0); });
  }
  void Focus() { program.Audio().Waveform().UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kByCode); }

  StagedProgram program;
};

TEST_F(WaveformGestures, DragSelectsTheSamplesBetweenPressAndRelease) {
  program.stage.Drag(At(0.25f), At(0.5f));
  EXPECT_NEAR(static_cast<double>(Selection().Left()), program.SampleAt(At(0.25f)), View().SamplesPerPixel());
  EXPECT_NEAR(static_cast<double>(Selection().Left() + Selection().Width()), program.SampleAt(At(0.5f)),
              View().SamplesPerPixel());
}

TEST_F(WaveformGestures, DragToTheLeftSelectsAsWell) {
  program.stage.Drag(At(0.5f), At(0.25f));
  EXPECT_NEAR(static_cast<double>(Selection().Left()), program.SampleAt(At(0.25f)), View().SamplesPerPixel());
  EXPECT_GT(Selection().Width(), 0);
}

TEST_F(WaveformGestures, ClickOnlySetsTheCursor) {
  program.stage.Drag(At(0.25f), At(0.5f));
  program.stage.AdvanceTime(2000.0);
  program.stage.Click(At(0.75f));
  EXPECT_TRUE(Selection().IsEmpty());
  EXPECT_NEAR(static_cast<double>(Selection().Head()), program.SampleAt(At(0.75f)), View().SamplesPerPixel());
}

TEST_F(WaveformGestures, ShiftMovesTheNearerEnd) {
  program.stage.Drag(At(0.25f), At(0.5f));
  auto const right = Selection().Left() + Selection().Width();
  program.stage.AdvanceTime(2000.0);
  program.stage.SetModKeys(ModKeys(ModKey::kShift));
  program.stage.Click(At(0.3f));
  EXPECT_EQ(Selection().Left() + Selection().Width(), right);
  EXPECT_NEAR(static_cast<double>(Selection().Left()), program.SampleAt(At(0.3f)), View().SamplesPerPixel());
}

TEST_F(WaveformGestures, DoubleClickSelectsEverything) {
  program.stage.DoubleClick(At(0.4f));
  EXPECT_EQ(Selection().Left(), 0);
  EXPECT_EQ(Selection().Width(), View().Frames());
}

TEST_F(WaveformGestures, SelectionIsHeldAtTheEndsOfTheSound) {
  PointT<float> const outside{At(0.0f).x - 60.0f, At(0.0f).y};
  program.stage.Drag(At(0.5f), outside);
  EXPECT_EQ(Selection().Left(), 0);
}

TEST_F(WaveformGestures, SelectingBeyondTheEdgeScrollsWithTime) {
  ZoomIn();
  double const left = View().Left();
  program.stage.Press(At(0.5f));
  program.stage.Move({At(1.0f).x + 30.0f, At(1.0f).y});
  program.stage.AdvanceTime(1000.0);
  EXPECT_GT(View().Left(), left);
  auto const width = Selection().Width();
  program.stage.AdvanceTime(500.0);
  EXPECT_GT(Selection().Width(), width);
  program.stage.Release({At(1.0f).x + 30.0f, At(1.0f).y});
  double const stopped = View().Left();
  program.stage.AdvanceTime(1000.0);
  EXPECT_EQ(View().Left(), stopped);
}

TEST_F(WaveformGestures, WheelZoomsAndKeepsTheSampleUnderThePointer) {
  double const sample = program.SampleAt(At(0.3f));
  double const before = View().SamplesPerPixel();
  program.stage.Wheel(At(0.3f), {0.0f, 240.0f});
  EXPECT_NEAR(View().SamplesPerPixel(), before / 4.0, before * 1e-9);
  EXPECT_NEAR(program.SampleAt(At(0.3f)), sample, 1e-3);
  program.stage.Wheel(At(0.3f), {0.0f, -120.0f});
  EXPECT_NEAR(program.SampleAt(At(0.3f)), sample, 1e-3);
}

TEST_F(WaveformGestures, ShiftAndWheelScroll) {
  ZoomIn();
  double const left = View().Left();
  program.stage.SetModKeys(ModKeys(ModKey::kShift));
  program.stage.Wheel(At(0.5f), {0.0f, -50.0f});
  EXPECT_NEAR(View().Left(), left + 50.0 * View().SamplesPerPixel(), 1e-3);
}

TEST_F(WaveformGestures, CommandAndWheelZoomTheLevel) {
  program.stage.SetModKeys(ModKeys(ModKey::kCommand));
  program.stage.Wheel(At(0.5f), {0.0f, 120.0f});
  EXPECT_NEAR(program.Session().Settings().zoom, 2.0, 1e-6);
}

TEST_F(WaveformGestures, MiddleDragScrolls) {
  ZoomIn();
  double const left = View().Left();
  program.stage.Drag({At(0.5f).x, At(0.5f).y}, {At(0.5f).x - 40.0f, At(0.5f).y}, 4, MouseButton::kMiddle);
  EXPECT_NEAR(View().Left(), left + 40.0 * View().SamplesPerPixel(), 1e-3);
  EXPECT_TRUE(Selection().IsEmpty());
}

TEST_F(WaveformGestures, OptionAndDragScroll) {
  ZoomIn();
  double const left = View().Left();
  program.stage.SetModKeys(ModKeys(ModKey::kOption));
  program.stage.Drag({At(0.5f).x, At(0.5f).y}, {At(0.5f).x + 40.0f, At(0.5f).y});
  EXPECT_NEAR(View().Left(), left - 40.0 * View().SamplesPerPixel(), 1e-3);
  EXPECT_TRUE(Selection().IsEmpty());
}

TEST_F(WaveformGestures, HeldSpaceMakesADragScroll) {
  ZoomIn();
  Focus();
  double const left = View().Left();
  program.stage.GetTree().HandleKey({moxui::ui::KeyAction::kKeyDown, KeyboardCode::kSpace});
  program.stage.Drag({At(0.5f).x, At(0.5f).y}, {At(0.5f).x - 40.0f, At(0.5f).y});
  program.stage.GetTree().HandleKey({moxui::ui::KeyAction::kKeyUp, KeyboardCode::kSpace});
  EXPECT_NEAR(View().Left(), left + 40.0 * View().SamplesPerPixel(), 1e-3);
  program.stage.Drag(At(0.2f), At(0.4f));
  EXPECT_FALSE(Selection().IsEmpty());
}

TEST_F(WaveformGestures, KeysScrollAndZoom) {
  ZoomIn();
  Focus();
  double const left = View().Left();
  EXPECT_TRUE(program.stage.Key(KeyboardCode::kPageDown));
  EXPECT_GT(View().Left(), left);
  EXPECT_TRUE(program.stage.Key(KeyboardCode::kPageUp));
  EXPECT_NEAR(View().Left(), left, 1e-6);
  double const samplesPerPixel = View().SamplesPerPixel();
  EXPECT_TRUE(program.stage.Key(KeyboardCode::kPlus, ModKeys(ModKey::kShift)));
  EXPECT_NEAR(View().SamplesPerPixel(), samplesPerPixel / 2.0, 1e-9);
  EXPECT_TRUE(program.stage.Key(KeyboardCode::kMinus));
  EXPECT_NEAR(View().SamplesPerPixel(), samplesPerPixel, 1e-9);
  EXPECT_TRUE(program.stage.Key(KeyboardCode::kEnd));
  EXPECT_NEAR(View().Left() + View().VisibleSamples(), static_cast<double>(View().Frames()), 1e-3);
  EXPECT_TRUE(program.stage.Key(KeyboardCode::kHome));
  EXPECT_EQ(View().Left(), 0.0);
  EXPECT_TRUE(program.stage.Key(KeyboardCode::kF));
  EXPECT_TRUE(View().ShowsAll());
}

TEST_F(WaveformGestures, ArrowsMoveTheCursorByAColumnAndFartherWithCommand) {
  Focus();
  double const column = View().SamplesPerPixel();
  program.Session().ChangeSelection([](SampleSelection& selection) { selection.PlaceAt(48000); });
  EXPECT_TRUE(program.stage.Key(KeyboardCode::kRight));
  EXPECT_EQ(Selection().Head(), 48000 + std::llround(column));
  EXPECT_TRUE(program.stage.Key(KeyboardCode::kLeft));
  EXPECT_EQ(Selection().Head(), 48000);
  EXPECT_TRUE(program.stage.Key(KeyboardCode::kRight, ModKeys(ModKey::kCommand)));
  EXPECT_EQ(Selection().Head(), 48000 + std::llround(10.0 * column));
  EXPECT_TRUE(Selection().IsEmpty());
  EXPECT_TRUE(program.stage.Key(KeyboardCode::kLeft, ModKeys(ModKey::kCommand | ModKey::kShift)));
  EXPECT_EQ(Selection().Head(), 48000);
  EXPECT_EQ(Selection().Width(), std::llround(10.0 * column));
}

TEST_F(WaveformGestures, ArrowsLeaveASelectionAtItsEnds) {
  Focus();
  program.Session().ChangeSelection([](SampleSelection& selection) { selection.Select(100, 48000); });
  program.stage.Key(KeyboardCode::kRight);
  EXPECT_TRUE(Selection().IsEmpty());
  EXPECT_EQ(Selection().Head(), 48000);
  program.Session().ChangeSelection([](SampleSelection& selection) { selection.Select(100, 48000); });
  program.stage.Key(KeyboardCode::kLeft);
  EXPECT_EQ(Selection().Head(), 100);
}

TEST_F(WaveformGestures, ArrowsBringTheCursorIntoSight) {
  ZoomIn();
  Focus();
  auto const right = static_cast<std::int64_t>(View().Left() + View().VisibleSamples());
  program.Session().ChangeSelection([&](SampleSelection& selection) { selection.PlaceAt(right); });
  double const left = View().Left();
  program.stage.Key(KeyboardCode::kRight);
  EXPECT_GT(View().Left(), left);
}

TEST_F(WaveformGestures, HomeAndEndMoveTheCursor) {
  Focus();
  program.stage.Key(KeyboardCode::kEnd);
  EXPECT_EQ(Selection().Head(), View().Frames());
  program.stage.Key(KeyboardCode::kHome);
  EXPECT_EQ(Selection().Head(), 0);
  EXPECT_TRUE(Selection().IsEmpty());
}

TEST_F(WaveformGestures, KeysSelect) {
  Focus();
  program.stage.Click(At(0.5f));
  EXPECT_TRUE(program.stage.Key(KeyboardCode::kRight, ModKeys(ModKey::kShift)));
  EXPECT_GT(Selection().Width(), 0);
  EXPECT_TRUE(program.stage.Key(KeyboardCode::kEnd, ModKeys(ModKey::kShift)));
  EXPECT_EQ(Selection().Left() + Selection().Width(), View().Frames());
  EXPECT_TRUE(program.stage.Key(KeyboardCode::kEscape));
  EXPECT_TRUE(Selection().IsEmpty());
  EXPECT_TRUE(program.stage.Key(KeyboardCode::kA, ModKeys(ModKey::kCommand)));
  EXPECT_EQ(Selection().Width(), View().Frames());
}

TEST_F(WaveformGestures, ShiftAndArrowMoveOneSampleAtLeast) {
  Focus();
  program.Session().ChangeView([](Viewport& view) { view.ZoomAt(0.0, 1e9); });
  program.Session().ChangeSelection([](SampleSelection& selection) { selection.PlaceAt(3); });
  program.stage.Key(KeyboardCode::kRight, ModKeys(ModKey::kShift));
  EXPECT_EQ(Selection().Head(), 4);
}

TEST_F(WaveformGestures, KeyShowsTheSelection) {
  Focus();
  program.Session().ChangeSelection([](SampleSelection& selection) { selection.Select(48000, 96000); });
  program.stage.Key(KeyboardCode::kZ);
  EXPECT_NEAR(View().Left(), 48000.0, 1e-6);
  EXPECT_NEAR(View().VisibleSamples(), 48000.0, 1e-6);
}

TEST_F(WaveformGestures, DigitsSwitchChannels) {
  Focus();
  program.stage.Key(KeyboardCode::k2);
  EXPECT_FALSE(program.Session().IsChannelEnabled(1));
  program.stage.Key(KeyboardCode::k2);
  EXPECT_TRUE(program.Session().IsChannelEnabled(1));
  program.stage.Key(KeyboardCode::k9);
  for (std::size_t channel = 0; channel < 6; ++channel) {
    EXPECT_TRUE(program.Session().IsChannelEnabled(channel));
  }
}

TEST_F(WaveformGestures, ClickOnAChannelsNameSwitchesIt) {
  ChannelGutter& gutter = program.Audio().Gutter();
  auto const strip = gutter.UI_ConvertRectTo(nullptr, gutter.StripRect(2));
  program.stage.Click(strip.Center());
  EXPECT_FALSE(program.Session().IsChannelEnabled(2));
}

TEST_F(WaveformGestures, DraggingTheOverviewScrolls) {
  ZoomIn();
  OverviewBar& overview = program.Audio().Overview();
  auto const thumb = overview.UI_ConvertRectTo(nullptr, overview.ThumbRect());
  double const left = View().Left();
  program.stage.Drag(thumb.Center(), {thumb.Center().x + 50.0f, thumb.Center().y});
  float const width = overview.UI_GetLocalRectF(false).width;
  double const samples = 50.0 / static_cast<double>(width) * static_cast<double>(View().Frames());
  EXPECT_NEAR(View().Left(), left + samples, 2.0);
}

TEST_F(WaveformGestures, KeysScrollTheOverview) {
  ZoomIn();
  OverviewBar& overview = program.Audio().Overview();
  overview.UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kTraversal);
  ASSERT_TRUE(overview.UI_HasKeyboardFocus());
  double const left = View().Left();
  EXPECT_TRUE(program.stage.Key(KeyboardCode::kRight));
  EXPECT_NEAR(View().Left(), left + View().VisibleSamples() / 8.0, 1e-3);
  EXPECT_TRUE(program.stage.Key(KeyboardCode::kUp));
  EXPECT_NEAR(View().Left(), left, 1e-3);
  EXPECT_TRUE(program.stage.Key(KeyboardCode::kPageDown));
  EXPECT_NEAR(View().Left(), left + View().VisibleSamples() * 0.9, 1e-3);
  program.stage.Key(KeyboardCode::kPageUp);
  program.stage.Key(KeyboardCode::kHome);
  EXPECT_EQ(View().Left(), 0.0);
  program.stage.Key(KeyboardCode::kEnd);
  EXPECT_NEAR(View().Left() + View().VisibleSamples(), static_cast<double>(View().Frames()), 1e-3);
  EXPECT_FALSE(program.stage.Key(KeyboardCode::kA));
}

TEST_F(WaveformGestures, OverviewTellsWhereTheViewIs) {
  OverviewBar& overview = program.Audio().Overview();
  EXPECT_EQ(overview.UI_GetAccessibleValue(), "0:00.000 to 0:12.000");
  program.Session().ChangeView([](Viewport& view) { view.Show(48000.0, 96000.0); });
  EXPECT_EQ(overview.UI_GetAccessibleValue(), "0:01.000 to 0:02.000");
  program.Audio().ShowState(5);
  EXPECT_EQ(overview.UI_GetAccessibleValue(), "");
  EXPECT_FALSE(overview.UI_WantsKeyboardFocus());
}

TEST_F(WaveformGestures, PressBesideTheOverviewsFrameBringsItThere) {
  ZoomIn();
  program.stage.Click(StagedProgram::PointIn(program.Audio().Overview(), 0.9f));
  double const middle = View().Left() + View().VisibleSamples() / 2.0;
  EXPECT_NEAR(middle / static_cast<double>(View().Frames()), 0.9, 0.01);
}

TEST_F(WaveformGestures, ReadOutFollowsThePointer) {
  program.stage.Move(At(0.5f));
  moxcore::Utf16String const text = program.Audio().ReadOut();
  EXPECT_NE(text.find(u"dB"), moxcore::Utf16String::npos);
  program.stage.Leave();
  EXPECT_EQ(program.Audio().ReadOut().find(u"dB"), moxcore::Utf16String::npos);
}

TEST_F(WaveformGestures, GrowingASelectionRepaintsOnlyTheColumnsThatChanged) {
  program.stage.Press(At(0.25f));
  program.stage.Move(At(0.5f));
  program.stage.PaintFrame();
  program.stage.Move({At(0.5f).x + 10.0f, At(0.5f).y});
  auto const waveform = program.Audio().Waveform().UI_ConvertRectTo(
      nullptr, program.Audio().Waveform().UI_GetLocalRectF(false));
  for (auto const& damage : program.stage.GetTree().GetDamage()) {
    // Read-outs and the panel beside it may be painted anew; of the waveform only a narrow strip is.
    EXPECT_LT(damage.Intersection(waveform).width, 20.0f);
  }
  EXPECT_TRUE(program.stage.GetTree().NeedsFrame());
}

TEST_F(WaveformGestures, PartlyRepaintedPictureEqualsAWhollyPaintedOne) {
  program.stage.Press(At(0.25f));
  program.stage.PaintFrame();
  for (float const share : {0.3f, 0.45f, 0.4f, 0.2f, 0.1f, 0.26f}) {
    program.stage.Move(At(share));
    program.stage.PaintFrame();
  }
  EXPECT_EQ(program.stage.GetFramePixels(), program.Picture());
}

TEST_F(WaveformGestures, PartlyRepaintedPictureEqualsAWhollyPaintedOneAtOtherScales) {
  for (float const scale : {1.25f, 1.5f, 2.0f}) {
    program.stage.SetScale(scale);
    program.stage.PaintFrame();
    program.stage.Press(At(0.25f));
    for (float const share : {0.3f, 0.45f, 0.2f, 0.26f}) {
      program.stage.Move(At(share));
      program.stage.PaintFrame();
    }
    program.stage.Release(At(0.26f));
    program.stage.AdvanceTime(2000.0);
    program.stage.PaintFrame();
    EXPECT_EQ(program.stage.GetFramePixels(), program.stage.TakePicture(scale)) << scale;
  }
}

TEST_F(WaveformGestures, NothingHappensWithoutASound) {
  program.Audio().ShowState(5);
  Focus();
  program.stage.Drag(At(0.2f), At(0.6f));
  program.stage.Wheel(At(0.5f), {0.0f, 100.0f});
  program.stage.Key(KeyboardCode::kRight, ModKeys(ModKey::kShift));
  program.stage.Key(KeyboardCode::k1);
  program.stage.Click(StagedProgram::PointIn(program.Audio().Overview(), 0.5f));
  EXPECT_TRUE(Selection().IsEmpty());
  EXPECT_EQ(Selection().Head(), 0);
}

}  // namespace
}  // namespace playground
