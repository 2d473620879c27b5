#include "audio/Playhead.h"
#include "audio/TransportBar.h"
#include "audio/WaveformView.h"
#include "playground/StagedProgram.h"

#include <moxui/ui/KeyboardEvent.h>

#include <gtest/gtest.h>

#include <cmath>

namespace playground {
namespace {

using moxui::ui::KeyboardCode;

class PlayheadTest : public ::testing::Test {
 protected:
  explicit PlayheadTest() { Focus(); }

  Transport& Playing() { return program.state.transport; }
  Playhead& Line() { return *program.Audio().Playback().Line(); }
  Viewport const& View() { return program.Session().View(); }
  double Rate() { return program.Session().Current().SampleRate(); }
  void Focus() { program.Audio().Waveform().UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kTraversal); }
  void Play() {
    Focus();
    program.stage.Key(KeyboardCode::kSpace);
  }
  void Let(double seconds) {
    for (int step = 0; step < static_cast<int>(std::lround(seconds * 100.0)); ++step) {
      Playing().WaitUntilRead();
      program.device.Pull(static_cast<int>(Rate() / 100.0));
      program.stage.AdvanceTime(10.0);
    }
  }
  moxui::RectT<float> WaveformRect() {
    return program.Audio().Waveform().UI_ConvertRectTo(nullptr,
                                                       program.Audio().Waveform().UI_GetLocalRectF(false));
  }

  StagedProgram program;
};

TEST_F(PlayheadTest, StandsAtTheColumnOfWhatIsHeard) {
  EXPECT_FALSE(Line().Column());
  Play();
  Let(1.0);
  program.stage.Key(KeyboardCode::kSpace);
  EXPECT_EQ(Line().Column(), static_cast<int>(std::floor(View().ColumnOf(Rate()))));
  program.stage.Key(KeyboardCode::kEscape);
  EXPECT_FALSE(Line().Column());
}

TEST_F(PlayheadTest, MovingRepaintsTwoNarrowStripsOfTheWaveform) {
  Play();
  Let(0.5);
  program.stage.PaintFrame();
  int const before = Line().Column().value();
  while (Line().Column() == before) {
    Let(0.01);
  }
  auto const waveform = WaveformRect();
  bool any = false;
  for (auto const& damage : program.stage.GetTree().GetDamage()) {
    auto const strip = damage.Intersection(waveform);
    any = any || !strip.IsEmpty();
    EXPECT_LT(strip.width, 32.0f);
  }
  EXPECT_TRUE(any);
}

TEST_F(PlayheadTest, StandingStillRepaintsNothingOfTheWaveform) {
  program.Session().ChangeView([](Viewport& view) { view.ShowAll(); });
  Play();
  Let(0.5);
  program.stage.PaintFrame();
  int const before = Line().Column().value();
  Line().SetColumn(before);
  for (auto const& damage : program.stage.GetTree().GetDamage()) {
    EXPECT_TRUE(damage.Intersection(WaveformRect()).IsEmpty());
  }
}

TEST_F(PlayheadTest, PartlyRepaintedPictureEqualsAWhollyPaintedOneAtEachScale) {
  for (float const scale : {1.0f, 1.25f, 1.5f, 2.0f}) {
    program.stage.SetScale(scale);
    program.stage.PaintFrame();
    Play();
    for (int i = 0; i < 12; ++i) {
      Let(0.07);
      program.stage.PaintFrame();
    }
    Play();
    program.stage.AdvanceTime(2000.0);
    program.stage.PaintFrame();
    EXPECT_EQ(program.stage.GetFramePixels(), program.stage.TakePicture(scale)) << scale;
    program.stage.Key(KeyboardCode::kEscape);
  }
}

TEST_F(PlayheadTest, TakesNothingFromTheWaveformBelow) {
  Play();
  Let(0.5);
  auto const waveform = WaveformRect();
  float const x = waveform.left + static_cast<float>(Line().Column().value());
  program.stage.Click({x, waveform.Center().y});
  EXPECT_GT(program.Session().Selection().Head(), 0);
}

TEST_F(PlayheadTest, ViewFollowsByPages) {
  program.Session().ChangeView([&](Viewport& view) { view.Show(0.0, Rate()); });
  program.stage.AdvanceTime(2000.0);
  Play();
  Let(0.9);
  EXPECT_EQ(View().Left(), 0.0);
  Let(0.2);
  EXPECT_NEAR(View().Left(), Rate(), Rate() / 50.0);
  EXPECT_NEAR(View().VisibleSamples(), Rate(), 1.0);
  ASSERT_TRUE(Line().Column());
}

TEST_F(PlayheadTest, ViewStaysWhereTheUserHasScrolled) {
  program.Session().ChangeView([&](Viewport& view) { view.Show(0.0, Rate()); });
  Play();
  Let(0.2);
  program.Session().ChangeView([&](Viewport& view) { view.ScrollTo(5.0 * Rate()); });
  Let(2.0);
  EXPECT_EQ(View().Left(), 5.0 * Rate());
  EXPECT_FALSE(Line().Column());
}

TEST_F(PlayheadTest, AnotherPageEndsPlayback) {
  Play();
  Let(0.1);
  program.shell.View().ShowPage(FindPage("audio") + 1);
  EXPECT_FALSE(Playing().IsActive());
  EXPECT_FALSE(program.device.IsOpen());
  program.shell.View().ShowPage(FindPage("audio"));
  Play();
  Let(0.1);
  EXPECT_TRUE(Playing().IsPlaying());
}

TEST_F(PlayheadTest, AnotherLookLeavesPlaybackGoingOn) {
  Play();
  Let(0.5);
  Appearance appearance = program.state.appearance;
  appearance.theme = ThemeChoice::kLight;
  appearance.rightToLeft = true;
  program.shell.SetAppearance(appearance);
  EXPECT_TRUE(Playing().IsPlaying());
  Let(0.5);
  EXPECT_NEAR(Playing().Position(), Rate(), 2.0);
  EXPECT_TRUE(Line().Column());
  Play();
  EXPECT_EQ(program.Audio().Playback().TimeText(), u"0:01.000");
}

TEST(PlayheadAtTheEnd, ProgramThatPlaysMayEnd) {
  for (int round = 0; round < 3; ++round) {
    StagedProgram program;
    program.state.transport.PlayOrPause();
    EXPECT_TRUE(program.state.transport.IsPlaying());
  }
}

}  // namespace
}  // namespace playground
