// The timecode field of the audio page: it shows and moves the playhead, and its scrub is heard.
#include "audio/PlayheadField.h"
#include "audio/TransportBar.h"
#include "audio/WaveformView.h"
#include "playback/StereoMix.h"
#include "playground/MadeUpSound.h"
#include "playground/StagedProgram.h"
#include "program/Localized.h"
#include "timecode/StationEar.h"
#include "timecode/StationMessages.h"

#include <moxaudiotoolkit/peaks/SampleSource.h>
#include <moxui/testing/ModalAnswers.h>
#include <moxui/ui/KeyboardEvent.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>
#include <vector>

namespace playground {
namespace {

using moxmediaui::FrameRate;
using moxmediaui::TickTime;
using moxui::ui::KeyboardCode;
using moxui::ui::ModKeys;
using State = Transport::State;
namespace ModKey = moxui::ui::ModKey;

class AudioPlayheadField : public ::testing::Test {
 protected:
  Transport& Playing() { return program.state.transport; }
  PlayheadField& Field() { return program.Audio().Playback().Position(); }
  moxcore::Utf16String Shown() { return Field().GetTextControl()->GetValue(); }
  SampleSelection const& Selection() { return program.Session().Selection(); }
  std::int64_t Cursor() { return Selection().Head(); }
  int Rate() { return program.Session().Current().SampleRate(); }
  std::int64_t Moment() { return static_cast<std::int64_t>(Transport::kScrubSeconds * Rate()); }
  void Place(std::int64_t sample) {
    program.Session().ChangeSelection([sample](SampleSelection& selection) { selection.PlaceAt(sample); });
  }
  void PressField() { program.stage.Press(program.stage.CenterOf(Field())); }
  // The next press is no double click, and the next step of undo no burst with the one before.
  void Rest() { program.stage.AdvanceTime(1000.0); }
  void DragBy(float x) {
    PressField();
    program.stage.MoveBy({x, 0.0f});
    program.stage.ReleaseHere();
    Rest();
  }
  bool PressUndo() { return program.stage.Key(KeyboardCode::kZ, ModKeys(ModKey::kCommand)); }
  void TypeTime(std::u16string_view text) {
    program.stage.Click(program.stage.CenterOf(Field()));
    program.stage.Key(KeyboardCode::kA, ModKeys(ModKey::kCommand));
    program.stage.Type(text);
    program.stage.Key(KeyboardCode::kEnter);
    Rest();
  }
  // What the device is given next.
  std::vector<float> Listen(std::int64_t frames) {
    Playing().WaitUntilRead();
    return program.device.Pull(static_cast<int>(frames));
  }
  // The sound itself, for two loudspeakers.
  std::vector<float> SoundAt(std::int64_t frame, std::int64_t frames) {
    auto const& source = *program.Session().Current().Source();
    auto const channels = static_cast<std::size_t>(source.GetProperties().channelCount);
    std::vector<float> interleaved(static_cast<std::size_t>(frames) * channels);
    source.ReadInterleaved(frame, interleaved);
    std::vector<float> pairs(static_cast<std::size_t>(frames) * 2);
    FoldToStereo(interleaved, StereoMix(channels), pairs);
    return pairs;
  }
  // Time passes in steps of 10 ms for which the device asks.
  void Let(double seconds) {
    for (int step = 0; step < static_cast<int>(std::lround(seconds * 100.0)); ++step) {
      Listen(Rate() / 100);
      program.stage.AdvanceTime(10.0);
    }
  }

  StagedProgram program;
};

TEST_F(AudioPlayheadField, ShowsTheCursorInSamples) {
  EXPECT_EQ(Shown(), u"0");
  Place(12345);
  EXPECT_EQ(Shown(), u"12345");
  program.stage.Click(StagedProgram::PointIn(program.Audio().Waveform(), 0.5f));
  EXPECT_EQ(Field().GetTime(), TickTime(Cursor(), FrameRate::PerSecond(Rate())));
  EXPECT_EQ(Field().UI_GetAccessibleName(), "Position of the playhead");
}

TEST_F(AudioPlayheadField, IsDraggedSampleBySample) {
  Place(48000);
  DragBy(101.0f);
  EXPECT_EQ(Cursor(), 48100);
  EXPECT_EQ(Shown(), u"48100");
  EXPECT_EQ(Playing().CurrentState(), State::kStopped);
}

TEST_F(AudioPlayheadField, IsHeardWhereItIsScrubbed) {
  Place(48000);
  PressField();
  EXPECT_TRUE(Listen(10).empty()) << "nothing was moved yet";
  std::vector<float> heard;
  std::vector<float> expected;
  std::int64_t at = 48000 - 1;  // the pixel that starts a drag
  for (int const pixels : {700, 333, 100}) {
    program.stage.MoveBy({static_cast<float>(pixels), 0.0f});
    at += pixels;
    EXPECT_EQ(Cursor(), at);
    auto const part = Listen(1000);
    auto const sound = SoundAt(at, 1000);
    heard.insert(heard.end(), part.begin(), part.end());
    expected.insert(expected.end(), sound.begin(), sound.end());
  }
  EXPECT_TRUE(heard == expected) << "each step is heard from where it leads to";
  auto const rest = Listen(Moment());
  auto const soundOfRest = SoundAt(at + 1000, Moment() - 1000);
  ASSERT_EQ(rest.size(), static_cast<std::size_t>(Moment()) * 2);
  EXPECT_TRUE(std::equal(soundOfRest.begin(), soundOfRest.end(), rest.begin()));
  EXPECT_TRUE(std::all_of(rest.begin() + static_cast<std::ptrdiff_t>(soundOfRest.size()), rest.end(),
                          [](float value) { return value == 0.0f; }))
      << "a moment, and no longer";
  program.stage.AdvanceTime(200.0);
  EXPECT_FALSE(program.device.IsStarted());
  program.stage.ReleaseHere();
  EXPECT_EQ(Cursor(), at);
  EXPECT_EQ(Playing().CurrentState(), State::kStopped);
}

TEST_F(AudioPlayheadField, HearsNothingBehindTheEnd) {
  std::int64_t const frames = program.Session().Current().Frames();
  Place(frames - 100);
  PressField();
  program.stage.MoveBy({51.0f, 0.0f});
  auto const last = Listen(80);
  auto const sound = SoundAt(frames - 50, 50);
  EXPECT_TRUE(std::equal(sound.begin(), sound.end(), last.begin()));
  EXPECT_TRUE(std::all_of(last.begin() + 100, last.end(), [](float value) { return value == 0.0f; }));
  program.stage.MoveBy({500.0f, 0.0f});
  EXPECT_EQ(Cursor(), frames);
  EXPECT_FALSE(program.device.IsStarted());
  program.stage.ReleaseHere();
}

TEST_F(AudioPlayheadField, ADragIsOneStepThatUndoTakesBack) {
  program.Session().ChangeSelection([](SampleSelection& selection) { selection.Select(9600, 19200); });
  Rest();
  PressField();
  for (int i = 0; i < 10; ++i) {
    program.stage.MoveBy({20.0f, 0.0f});
    program.stage.AdvanceTime(700.0);
  }
  EXPECT_FALSE(program.Session().CanUndo()) << "the drag goes on";
  program.stage.ReleaseHere();
  EXPECT_TRUE(Selection().IsEmpty());
  EXPECT_EQ(Cursor(), 9600 + 199);
  EXPECT_TRUE(PressUndo());
  EXPECT_EQ(Selection().Width(), 9600);
  EXPECT_EQ(Shown(), u"9600");
  program.Session().Redo();
  EXPECT_EQ(Shown(), u"9799");
}

TEST_F(AudioPlayheadField, ARunOfArrowKeysIsOneStepToo) {
  Place(1000);
  Rest();
  Field().UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kTraversal);
  for (int i = 0; i < 5; ++i) {
    program.stage.Key(KeyboardCode::kUp);
  }
  EXPECT_EQ(Cursor(), 1005);
  EXPECT_EQ(Listen(100), SoundAt(1005, 100));
  EXPECT_TRUE(PressUndo()) << "from the field, which has no use for the key";
  EXPECT_EQ(Cursor(), 1000);
  EXPECT_EQ(Shown(), u"1000");
}

TEST_F(AudioPlayheadField, TakesATypedTimeOnceAndInSilence) {
  TypeTime(u"96000");
  EXPECT_EQ(Cursor(), 96000);
  EXPECT_FALSE(program.device.IsStarted());
  TypeTime(u"+500");
  EXPECT_EQ(Cursor(), 96500);
  TypeTime(u"99999999999");
  EXPECT_EQ(Cursor(), program.Session().Current().Frames());
  TypeTime(u"later");
  EXPECT_EQ(Cursor(), program.Session().Current().Frames());
  program.Session().Undo();
  EXPECT_EQ(Cursor(), 96500);
  program.Session().Undo();
  EXPECT_EQ(Cursor(), 96000);
}

TEST_F(AudioPlayheadField, ASelectionOutlivesAnEditThatChangesNothing) {
  program.Session().ChangeSelection([](SampleSelection& selection) { selection.Select(100, 4000); });
  program.stage.Click(program.stage.CenterOf(Field()));
  ASSERT_TRUE(Field().HasFocus());
  program.stage.Key(KeyboardCode::kEnter);
  EXPECT_EQ(Selection().Width(), 3900);
}

TEST_F(AudioPlayheadField, FollowsPlaybackWithoutAWord) {
  std::vector<ToldTime> told;
  auto const ear =
      moxcore::utility::MakeIntrusive<StationEar>([&](moxcore::messaging::Message const& message) {
        if (auto const time = FindToldTime(message)) {
          told.push_back(*time);
        }
      });
  ear->Hear(Field().GetStationID());
  Place(48000);
  Playing().PlayOrPause();
  Let(0.5);
  EXPECT_NEAR(static_cast<double>(Field().GetTime().GetTicks()) /
                  static_cast<double>(FrameRate::PerSecond(Rate()).GetTicksPerFrame()),
              48000.0 + Rate() / 2.0, 2.0 + Rate() / 50.0);
  EXPECT_TRUE(told.empty());
  EXPECT_EQ(Cursor(), 48000);
}

TEST_F(AudioPlayheadField, HoldsPlaybackWhileItIsDraggedAndThenGoesOn) {
  Place(48000);
  Playing().PlayOrPause();
  Let(0.1);
  PressField();
  program.stage.MoveBy({1001.0f, 0.0f});
  EXPECT_EQ(Playing().CurrentState(), State::kPaused);
  auto const at = static_cast<std::int64_t>(Playing().Position());
  EXPECT_EQ(Listen(500), SoundAt(at, 500));
  Let(0.5);
  EXPECT_EQ(Playing().Position(), static_cast<double>(at)) << "the playhead is where the hand is";
  EXPECT_EQ(Shown(), To16(std::to_string(at)));
  program.stage.ReleaseHere();
  EXPECT_TRUE(Playing().IsPlaying());
  EXPECT_EQ(Listen(500), SoundAt(at, 500));
  EXPECT_EQ(Cursor(), 48000) << "the cursor is not the playhead";
}

TEST_F(AudioPlayheadField, MovesAPausedPlayheadAndGoesRoundNoLoop) {
  program.Session().ChangeSelection([](SampleSelection& selection) { selection.Select(48000, 48100); });
  Playing().SetLoops(true);
  Playing().PlayOrPause();
  Let(0.05);
  Playing().PlayOrPause();
  ASSERT_EQ(Playing().CurrentState(), State::kPaused);
  auto const before = static_cast<std::int64_t>(Playing().Position());
  PressField();
  program.stage.MoveBy({-2.0f, 0.0f});
  EXPECT_EQ(Playing().Position(), static_cast<double>(before - 1));
  EXPECT_EQ(Listen(400), SoundAt(before - 1, 400)) << "past the end of the loop";
  program.stage.ReleaseHere();
  Let(0.2);
  EXPECT_EQ(Playing().CurrentState(), State::kPaused);
  EXPECT_EQ(Playing().Position(), static_cast<double>(before - 1));
  Playing().PlayOrPause();
  Let(0.5);
  EXPECT_GE(Playing().Position(), 48000.0);
  EXPECT_LT(Playing().Position(), 48100.0) << "the loop is gone round again";
}

TEST_F(AudioPlayheadField, KeepsWhatIsBeingTypedWhilePlaybackGoesOn) {
  Playing().PlayOrPause();
  Let(0.1);
  program.stage.Click(program.stage.CenterOf(Field()));
  program.stage.Key(KeyboardCode::kA, ModKeys(ModKey::kCommand));
  program.stage.Type(u"72");
  Let(0.2);
  EXPECT_EQ(Shown(), u"72");
  program.stage.Type(u"000");
  program.stage.Key(KeyboardCode::kEnter);
  EXPECT_TRUE(Playing().IsPlaying());
  EXPECT_EQ(Listen(100), SoundAt(72000, 100));
}

TEST_F(AudioPlayheadField, ShowsMillisecondsByItsMenuAndKeepsThatInAnotherTheme) {
  Place(48000);
  moxui::testing::ModalAnswers answers;
  answers.ExpectItem(u"Milliseconds");
  program.stage.Click(program.stage.CenterOf(Field()), moxui::ui::MouseButton::kRight);
  EXPECT_EQ(Shown(), u"1000");
  DragBy(12.0f);
  EXPECT_EQ(Shown(), u"1011");
  EXPECT_EQ(Cursor(), 48528);
  Appearance appearance;
  appearance.theme = ThemeChoice::kLight;
  program.shell.SetAppearance(appearance);
  program.stage.PaintFrame();
  EXPECT_EQ(Shown(), u"1011");
}

TEST_F(AudioPlayheadField, StepsByMillisecondsThatLieBetweenSamples) {
  moxaudiotoolkit::SampleSourceProperties const properties{
      .frames = 88200, .sampleRate = 44100, .channelCount = 1};
  program.Session().AddDocument(
      {"made up", std::make_shared<MadeUpSound>(properties, MadeUpSound::Clicks()), nullptr});
  ASSERT_EQ(Rate(), 44100);
  program.Session().ChangeSettings(
      [](WaveformSettings& settings) { settings.playheadInMilliseconds = true; });
  Field().TakeDocument();
  Field().UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kTraversal);
  for (int i = 1; i <= 300; ++i) {
    program.stage.Key(KeyboardCode::kUp);
    ASSERT_EQ(Shown(), To16(std::to_string(i)));
  }
  EXPECT_EQ(Cursor(), 13230);
}

TEST_F(AudioPlayheadField, IsDisabledWithoutASound) {
  program.Session().ShowDocument(program.Session().Documents().size());
  program.stage.PaintFrame();
  EXPECT_FALSE(Field().UI_IsEnabled());
  program.Session().ShowDocument(0);
  EXPECT_TRUE(Field().UI_IsEnabled());
  EXPECT_EQ(Field().GetMaxTime(),
            TickTime(program.Session().Current().Frames(), FrameRate::PerSecond(Rate())));
}

TEST_F(AudioPlayheadField, OutlivesAListenerThatTakesThePageAwayInTheMiddleOfADrag) {
  Place(48000);
  auto const ear = moxcore::utility::MakeIntrusive<StationEar>(
      [this](moxcore::messaging::Message const&) { program.shell.View().ShowPage(FindPage("slider")); });
  ear->Hear(Field().GetStationID());
  PressField();
  program.stage.MoveBy({30.0f, 0.0f});
  program.stage.MoveBy({30.0f, 0.0f});
  program.stage.ReleaseHere();
  Rest();
  EXPECT_FALSE(program.device.IsStarted());
  EXPECT_TRUE(program.Session().Undo()) << "the drag has ended, and is a step";
  EXPECT_EQ(Cursor(), 48000);
}

}  // namespace
}  // namespace playground
