#include "audio/TransportBar.h"
#include "audio/WaveformView.h"
#include "playground/StagedProgram.h"

#include <moxui/ui/KeyboardEvent.h>

#include <gtest/gtest.h>

#include <cmath>
#include <optional>
#include <string>
#include <vector>

namespace playground {
namespace {

using moxui::ui::KeyAction;
using moxui::ui::KeyboardCode;
using moxui::ui::ModKeys;
namespace ModKey = moxui::ui::ModKey;
using State = Transport::State;

class PlaybackGestures : public ::testing::Test {
 protected:
  PlaybackGestures() { Focus(); }

  Transport& Playing() { return program.state.transport; }
  TransportBar& Bar() { return program.Audio().Playback(); }
  double Rate() { return program.Session().Current().SampleRate(); }
  std::int64_t Frames() { return program.Session().Current().Frames(); }
  Viewport const& View() { return program.Session().View(); }
  void Focus() { program.Audio().Waveform().UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kTraversal); }
  void Down(KeyboardCode code, bool isRepeat = false) {
    program.stage.GetTree().HandleKey({KeyAction::kKeyDown, code, {}, {}, isRepeat});
  }
  void Up(KeyboardCode code) { program.stage.GetTree().HandleKey({KeyAction::kKeyUp, code}); }
  void Place(std::int64_t sample) {
    program.Session().ChangeSelection([sample](SampleSelection& selection) { selection.PlaceAt(sample); });
  }
  void Select(std::int64_t begin, std::int64_t end) {
    program.Session().ChangeSelection([=](SampleSelection& selection) { selection.Select(begin, end); });
  }
  moxui::PointT<float> At(float x) { return StagedProgram::PointIn(program.Audio().Waveform(), x); }
  // Time passes, in steps of 10 ms for which the device asks.
  void Let(double seconds) {
    for (int step = 0; step < static_cast<int>(std::lround(seconds * 100.0)); ++step) {
      Playing().WaitUntilRead();
      program.device.Pull(static_cast<int>(Rate() / 100.0));
      program.stage.AdvanceTime(10.0);
    }
  }

  StagedProgram program;
};

TEST_F(PlaybackGestures, SpacePlaysWhenItIsLetGoAndPauses) {
  Place(24000);
  Down(KeyboardCode::kSpace);
  EXPECT_FALSE(Playing().IsPlaying());
  Down(KeyboardCode::kSpace, true);
  Up(KeyboardCode::kSpace);
  EXPECT_TRUE(Playing().IsPlaying());
  EXPECT_TRUE(program.device.IsStarted());
  Let(0.5);
  EXPECT_NEAR(Playing().Position(), 24000.0 + Rate() / 2.0, 2.0);
  program.stage.Key(KeyboardCode::kSpace);
  EXPECT_EQ(Playing().CurrentState(), State::kPaused);
  double const paused = Playing().Position();
  program.stage.Key(KeyboardCode::kSpace);
  Let(0.1);
  EXPECT_NEAR(Playing().Position(), paused + Rate() / 10.0, 2.0) << "it goes on where it was left";
}

TEST_F(PlaybackGestures, SpaceThatWasHeldForADragDoesNotPlay) {
  program.Session().ChangeView([](Viewport& view) { view.ZoomAt(view.Width() / 2.0, 4.0); });
  Down(KeyboardCode::kSpace);
  program.stage.Drag(At(0.5f), At(0.4f));
  Up(KeyboardCode::kSpace);
  EXPECT_FALSE(Playing().IsPlaying());
  program.stage.Key(KeyboardCode::kSpace);
  EXPECT_TRUE(Playing().IsPlaying());
}

TEST_F(PlaybackGestures, SpaceLetGoElsewhereDoesNotPlay) {
  Down(KeyboardCode::kSpace);
  program.stage.GetTree().SetFocus(nullptr, moxui::ui::FocusChangeReason::kByCode);
  Focus();
  Up(KeyboardCode::kSpace);
  EXPECT_FALSE(Playing().IsPlaying());
}

TEST_F(PlaybackGestures, ASelectionIsPlayedFromItsBeginningToItsEnd) {
  auto const half = static_cast<std::int64_t>(Rate() / 2.0);
  Select(48000, 48000 + half);
  program.stage.Key(KeyboardCode::kSpace);
  Let(0.25);
  EXPECT_NEAR(Playing().Position(), 48000.0 + Rate() / 4.0, 2.0);
  Let(0.5);
  EXPECT_EQ(Playing().CurrentState(), State::kStopped);
  EXPECT_FALSE(program.device.IsStarted());
  EXPECT_FALSE(program.Session().Selection().IsEmpty());
}

TEST_F(PlaybackGestures, WithTheLoopOnItIsGoneRound) {
  auto const half = static_cast<std::int64_t>(Rate() / 2.0);
  Select(48000, 48000 + half);
  program.stage.Click(StagedProgram::PointIn(Bar().Loop(), 0.5f));
  EXPECT_TRUE(Playing().Loops());
  program.stage.Key(KeyboardCode::kSpace);
  Let(0.75);
  EXPECT_NEAR(Playing().Position(), 48000.0 + Rate() / 4.0, 2.0);
  Select(48000, 48000 + half * 2);
  Let(0.5);
  EXPECT_NEAR(Playing().Position(), 48000.0 + Rate() * 0.75, 2.0) << "changed while it plays";
  program.stage.Key(KeyboardCode::kR);
  EXPECT_FALSE(Playing().Loops());
  EXPECT_FALSE(Bar().Loop().GetValue());
}

TEST_F(PlaybackGestures, ShuttleDoublesItsSpeedAndTurns) {
  Place(Frames() / 2);
  for (double const speed : {1.0, 2.0, 4.0, 8.0, 8.0}) {
    program.stage.Key(KeyboardCode::kL);
    EXPECT_EQ(Playing().Speed(), speed);
  }
  Down(KeyboardCode::kL, true);
  EXPECT_NE(Bar().StatusText().find("8"), std::string::npos);
  for (double const speed : {-1.0, -2.0, -4.0, -8.0, -8.0}) {
    program.stage.Key(KeyboardCode::kJ);
    EXPECT_EQ(Playing().Speed(), speed);
  }
  program.stage.Key(KeyboardCode::kK);
  EXPECT_EQ(Playing().CurrentState(), State::kPaused);
  program.stage.Key(KeyboardCode::kL);
  EXPECT_EQ(Playing().Speed(), 1.0);
}

TEST_F(PlaybackGestures, HeldKMakesJAndLCreep) {
  Place(Frames() / 2);
  auto const begin = static_cast<double>(Frames() / 2);
  Down(KeyboardCode::kK);
  Down(KeyboardCode::kL);
  EXPECT_EQ(Playing().Speed(), 0.25);
  Let(0.4);
  Up(KeyboardCode::kL);
  EXPECT_EQ(Playing().CurrentState(), State::kPaused);
  EXPECT_NEAR(Playing().Position(), begin + Rate() / 10.0, 2.0);
  Down(KeyboardCode::kJ);
  EXPECT_EQ(Playing().Speed(), -0.25);
  Let(0.4);
  Up(KeyboardCode::kK);
  EXPECT_EQ(Playing().CurrentState(), State::kPaused);
  EXPECT_NEAR(Playing().Position(), begin, 2.0);
  Up(KeyboardCode::kJ);
  program.stage.Key(KeyboardCode::kL);
  EXPECT_EQ(Playing().Speed(), 1.0) << "K is up";
}

TEST_F(PlaybackGestures, ArrowsMoveThePlayheadWhileThereIsOne) {
  Place(48000);
  program.stage.Key(KeyboardCode::kSpace);
  program.stage.Key(KeyboardCode::kRight);
  EXPECT_EQ(Playing().Position(), 48000.0 + Rate()) << "by a second";
  EXPECT_EQ(program.Session().Selection().Head(), 48000) << "the cursor stays";
  program.stage.Key(KeyboardCode::kSpace);
  program.stage.Key(KeyboardCode::kLeft);
  EXPECT_NEAR(Playing().Position(), 48000.0 + Rate() - View().SamplesPerPixel(), 1.0)
      << "paused, by a column";
}

TEST_F(PlaybackGestures, EscapeStopsAndThenSelectsNothing) {
  Select(1000, 90000);
  program.stage.Key(KeyboardCode::kSpace);
  Let(0.1);
  EXPECT_TRUE(program.stage.Key(KeyboardCode::kEscape));
  EXPECT_EQ(Playing().CurrentState(), State::kStopped);
  EXPECT_FALSE(program.Session().Selection().IsEmpty());
  EXPECT_TRUE(program.stage.Key(KeyboardCode::kEscape));
  EXPECT_TRUE(program.Session().Selection().IsEmpty());
}

TEST_F(PlaybackGestures, ClickWhileItPlaysMovesPlaybackThere) {
  program.stage.Key(KeyboardCode::kSpace);
  Let(0.2);
  program.stage.Click(At(0.5f));
  EXPECT_TRUE(Playing().IsPlaying());
  double const there = Playing().Position();
  EXPECT_NEAR(there, program.SampleAt(At(0.5f)), View().SamplesPerPixel());
  Let(0.2);
  EXPECT_NEAR(Playing().Position(), there + Rate() / 5.0, 2.0);
}

TEST_F(PlaybackGestures, ClickWhileItIsPausedPutsTheCursorThere) {
  program.stage.Key(KeyboardCode::kSpace);
  program.stage.Key(KeyboardCode::kSpace);
  program.stage.Click(At(0.5f));
  EXPECT_EQ(Playing().CurrentState(), State::kStopped);
  EXPECT_EQ(Playing().Position(), static_cast<double>(program.Session().Selection().Head()));
}

TEST_F(PlaybackGestures, HomeAndEndMoveAPlaybackToo) {
  Place(48000);
  program.stage.Key(KeyboardCode::kSpace);
  Let(0.1);
  program.stage.Key(KeyboardCode::kHome);
  EXPECT_EQ(Playing().Position(), 0.0);
  EXPECT_TRUE(Playing().IsPlaying());
  program.stage.Key(KeyboardCode::kEnd);
  Let(0.1);
  EXPECT_EQ(Playing().CurrentState(), State::kStopped);
}

TEST_F(PlaybackGestures, ButtonsDoWhatTheySay) {
  auto const click = [&](moxui::ui::UI_Node const& button) {
    program.stage.Click(StagedProgram::PointIn(button, 0.5f));
  };
  EXPECT_TRUE(Bar().Stop().UI_IsDisabled());
  click(Bar().ToEnd());
  EXPECT_EQ(program.Session().Selection().Head(), Frames());
  click(Bar().ToStart());
  EXPECT_EQ(program.Session().Selection().Head(), 0);
  EXPECT_EQ(Bar().Play().UI_GetAccessibleName(), "Play");
  click(Bar().Play());
  EXPECT_TRUE(Playing().IsPlaying());
  EXPECT_EQ(Bar().Play().UI_GetAccessibleName(), "Pause");
  EXPECT_TRUE(program.Audio().Waveform().UI_HasKeyboardFocus()) << "the keys stay with the waveform";
  Let(1.5);
  click(Bar().Play());
  EXPECT_EQ(Playing().CurrentState(), State::kPaused);
  EXPECT_EQ(Bar().TimeText(), u"0:01.500");
  click(Bar().Stop());
  EXPECT_EQ(Playing().CurrentState(), State::kStopped);
  EXPECT_EQ(Bar().TimeText(), u"0:00.000");
}

TEST_F(PlaybackGestures, ButtonsHaveNamesAndTellTheirKeys) {
  for (moxui::ui::UI_Node const* const button : std::initializer_list<moxui::ui::UI_Node const*>{
           &Bar().ToStart(), &Bar().Play(), &Bar().Stop(), &Bar().ToEnd(), &Bar().Loop()}) {
    EXPECT_NE(button->UI_GetAccessibleName(), "");
    EXPECT_NE(button->UI_GetToolTip().find("("), std::string::npos);
    EXPECT_TRUE(button->UI_WantsKeyboardFocus());
  }
}

TEST_F(PlaybackGestures, KeysWorkOnTheBarToo) {
  Bar().Loop().UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kTraversal);
  program.stage.Key(KeyboardCode::kL);
  EXPECT_TRUE(Playing().IsPlaying());
  program.stage.Key(KeyboardCode::kEscape);
  EXPECT_EQ(Playing().CurrentState(), State::kStopped);
}

TEST_F(PlaybackGestures, SwitchedOffChannelsAreNotHeard) {
  Place(static_cast<std::int64_t>(Rate()));
  program.stage.Key(KeyboardCode::kSpace);
  ASSERT_TRUE(Playing().WaitUntilRead());
  auto const loudest = [&] {
    float most = 0.0f;
    for (float const sample : program.device.Pull(4800)) {
      most = std::max(most, std::abs(sample));
    }
    return most;
  };
  EXPECT_GT(loudest(), 0.0f);
  for (std::size_t channel = 0; channel < program.Session().Current().ChannelCount(); ++channel) {
    program.Session().ToggleChannel(channel);
  }
  ASSERT_TRUE(Playing().WaitUntilRead());
  EXPECT_EQ(loudest(), 0.0f);
}

TEST_F(PlaybackGestures, NothingIsPlayedWithoutASound) {
  program.Session().ShowDocument(program.Session().Documents().size());
  Focus();
  for (KeyboardCode const code :
       {KeyboardCode::kSpace, KeyboardCode::kL, KeyboardCode::kJ, KeyboardCode::kR, KeyboardCode::kEnd}) {
    program.stage.Key(code);
  }
  EXPECT_FALSE(Playing().IsActive());
  EXPECT_FALSE(program.device.IsOpen());
  EXPECT_FALSE(Bar().UI_IsShown());
}

TEST_F(PlaybackGestures, AnotherSoundStopsTheOldOne) {
  program.stage.Key(KeyboardCode::kSpace);
  program.Session().ShowDocument(program.Session().Documents().size());
  EXPECT_FALSE(Playing().IsActive());
  EXPECT_FALSE(program.device.IsOpen());
}

TEST_F(PlaybackGestures, WithoutADeviceThePlayheadMovesAndTheReasonIsTold) {
  program.device.refusal = "No such device";
  program.stage.Key(KeyboardCode::kSpace);
  program.stage.AdvanceTime(1000.0);
  EXPECT_NEAR(Playing().Position(), Rate(), 2.0);
  EXPECT_NE(Bar().StatusText().find("No such device"), std::string::npos);
  program.stage.Key(KeyboardCode::kSpace);
  program.device.refusal.clear();
  program.stage.Key(KeyboardCode::kSpace);
  EXPECT_EQ(Bar().StatusText(), "");
  EXPECT_TRUE(program.device.IsStarted());
}

TEST_F(PlaybackGestures, LossOfTheDeviceIsTold) {
  program.stage.Key(KeyboardCode::kSpace);
  Let(0.5);
  program.device.Lose();
  program.stage.AdvanceTime(500.0);
  EXPECT_TRUE(Playing().IsPlaying());
  EXPECT_NE(Bar().StatusText(), "");
  EXPECT_NEAR(Playing().Position(), Rate(), Rate() / 40.0);
}

}  // namespace
}  // namespace playground
