// The bench's field under the hand: mouse, pen, radial controller, keyboard, clipboard, menu.
#include "playground/timecode/WorkedBench.h"
#include "timecode/StationEar.h"

#include <moxui/testing/ModalAnswers.h>

namespace playground {
namespace {

using moxmediaui::FrameRate;
using moxmediaui::TickTime;
using moxmediaui::TimeDisplay;
using moxui::ui::KeyboardCode;
using moxui::ui::MouseButton;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
namespace ModKey = moxui::ui::ModKey;

class BenchHand : public WorkedBench {
 protected:
  BenchHand() {
    // 25 frames a second without drop-frame labels, for plain numbers.
    Change([](BenchSettings& settings) {
      settings.host.videoDisplay = TimeDisplay(TimeDisplay::kTimecode25);
      settings.host.videoRate = FrameRate::k25;
    });
  }
  // Frames that the field lies after the time that it began with.
  std::int64_t Frames() {
    return (Field().GetTime() - TimecodeBench::kFirstTime).GetTicks() / FrameRate::k25.GetTicksPerFrame();
  }
};

TEST_F(BenchHand, DragsWithThePointerHiddenAndPutBack) {
  moxui::PointT<float> const place = At(Field());
  program.stage.Press(place);
  EXPECT_FALSE(IsCursorShown());
  program.stage.MoveBy({11.0f, 0.0f});
  program.stage.MoveBy({-3.0f, 40.0f});
  EXPECT_EQ(Frames(), 7);
  program.stage.ReleaseHere();
  EXPECT_TRUE(IsCursorShown());
  EXPECT_EQ(program.stage.GetPointerPosition(), place);
  EXPECT_EQ(TextOf(Field()), u"01:02:03:07");
  EXPECT_EQ(TextOf(Follower()), u"01:02:03:07");
  EXPECT_THAT(TakeMessages(), ElementsAre(u"Field 1: changing, 01:02:03:10 (945803174400000 ticks)",
                                          u"Field 1: changing, 01:02:03:07 (945772692480000 ticks)",
                                          u"Field 1: changed, 01:02:03:07 (945772692480000 ticks)"));
}

TEST_F(BenchHand, StepsAtOnceUnderAPenAndTurnsItsAxis) {
  program.stage.SetPointerSubType(moxui::ui::PointerSubType::kPen);
  program.stage.Press(At(Field()));
  program.stage.MoveBy({1.0f, 0.0f});
  EXPECT_EQ(Frames(), 1);
  program.stage.MoveBy({0.0f, -2.0f});
  EXPECT_EQ(Frames(), 3);
  program.stage.ReleaseHere();
  EXPECT_EQ(Frames(), 3) << "the pen was lifted before anything could have slipped";
}

TEST_F(BenchHand, TakesBackWhatAPenSlipsWhenItIsLifted) {
  program.stage.SetPointerSubType(moxui::ui::PointerSubType::kPen);
  program.stage.Press(At(Field()));
  program.stage.MoveBy({8.0f, 0.0f});
  program.stage.AdvanceTime(150.0);
  program.stage.MoveBy({2.0f, 0.0f});
  program.stage.AdvanceTime(20.0);
  program.stage.ReleaseHere();
  EXPECT_EQ(Frames(), 8);
  EXPECT_EQ(TakeMessages().back(), u"Field 1: changed, 01:02:03:08 (945782853120000 ticks)");
}

TEST_F(BenchHand, IsSteppedByTheWheelThroughTheController) {
  program.stage.Move(At(Field()));
  EXPECT_TRUE(program.stage.Wheel(At(Field()), {0.0f, 48.0f}));
  EXPECT_EQ(Frames(), 1);
  EXPECT_EQ(Bench().Dial().GetStep(), 1);
  EXPECT_FALSE(IsCursorShown());
  program.stage.AdvanceTime(801.0);
  EXPECT_TRUE(IsCursorShown());
  program.stage.Wheel(At(Field()), {0.0f, -48.0f});
  program.stage.Wheel(At(Field()), {0.0f, -48.0f});
  EXPECT_EQ(Frames(), -1);
  EXPECT_EQ(Bench().Dial().GetStep(), RadialDial::kStepsOfARound - 1);
  auto const messages = TakeMessages();
  EXPECT_EQ(std::count(messages.begin(), messages.end(), u"Radial controller: -1"), 2);
  EXPECT_EQ(
      std::count_if(messages.begin(), messages.end(),
                    [](moxcore::Utf16String const& text) { return text.find(u"changed") != text.npos; }),
      0)
      << "a turn never settles";
}

TEST_F(BenchHand, IsSteppedByTheControllersKeysWhileThePointerIsOnIt) {
  Bench().Dial().UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kTraversal);
  program.stage.Move({5.0f, 5.0f});
  program.stage.Key(KeyboardCode::kUp);
  EXPECT_EQ(Frames(), 0) << "the pointer is elsewhere";
  EXPECT_EQ(Bench().Dial().GetStep(), 1);
  program.stage.Move(At(Field()));
  program.stage.Key(KeyboardCode::kUp);
  EXPECT_EQ(Frames(), 1);
  program.stage.Key(KeyboardCode::kPageDown);
  EXPECT_EQ(Frames(), 0) << "one step, however far it was turned";
  EXPECT_EQ(Bench().Dial().GetStep(), RadialDial::kStepsOfARound - 8);
  program.stage.Move(At(Follower()));
  program.stage.Key(KeyboardCode::kRight);
  EXPECT_EQ(TextOf(Follower()), u"01:02:03:01");
  EXPECT_EQ(Frames(), 1) << "the fields go together";
}

TEST_F(BenchHand, TurnsTheControllerByHand) {
  moxui::PointT<float> const middle = At(Bench().Dial());
  program.stage.Press({middle.x, middle.y - 20.0f});
  program.stage.Move({middle.x + 20.0f, middle.y});
  EXPECT_EQ(Bench().Dial().GetStep(), RadialDial::kStepsOfARound / 4);
  program.stage.Move({middle.x, middle.y + 20.0f});
  program.stage.Move({middle.x - 20.0f, middle.y + 0.5f});
  program.stage.Move({middle.x, middle.y - 20.0f});
  EXPECT_EQ(Bench().Dial().GetStep(), 0) << "once round, past the bottom";
  program.stage.Release({middle.x, middle.y - 20.0f});
  program.stage.Move({middle.x + 20.0f, middle.y});
  EXPECT_EQ(Bench().Dial().GetStep(), 0);
  EXPECT_EQ(Frames(), 0);
}

TEST_F(BenchHand, IsWorkedByTheKeyboardAlone) {
  Field().UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kTraversal);
  program.stage.Key(KeyboardCode::kRight);
  program.stage.Key(KeyboardCode::kDown, moxui::ui::ModKeys(ModKey::kShift));
  EXPECT_EQ(Frames(), -24);
  program.stage.Key(KeyboardCode::kEnter);
  EXPECT_TRUE(Field().HasFocus());
  program.stage.Key(KeyboardCode::kA, ModKey::kCommand);
  program.stage.Type(u"+10");
  program.stage.Key(KeyboardCode::kEnter);
  EXPECT_EQ(Frames(), -14);
  program.stage.Key(KeyboardCode::kEnter);
  program.stage.Key(KeyboardCode::kA, ModKey::kCommand);
  program.stage.Type(u"0");
  program.stage.Key(KeyboardCode::kEscape);
  EXPECT_EQ(Frames(), -14) << "given up";
  moxui::testing::ModalAnswers answers;
  answers.ExpectItem(u"Frames");
  program.stage.Key(KeyboardCode::kContextMenu);
  EXPECT_TRUE(answers.AllUsed());
  EXPECT_EQ(TextOf(Field()), u"93061");
}

TEST_F(BenchHand, IsTypedIntoAfterAClickAndTellsOnce) {
  program.stage.Click(At(Field()));
  EXPECT_TRUE(Field().HasFocus());
  program.stage.Key(KeyboardCode::kA, ModKey::kCommand);
  program.stage.Type(u"1.");
  program.stage.Key(KeyboardCode::kEnter);
  EXPECT_EQ(TextOf(Field()), u"00:00:01:00");
  EXPECT_THAT(TakeMessages(), ElementsAre(u"Field 1: changed, 00:00:01:00 (254016000000 ticks)"));
  EXPECT_EQ(TextOf(Follower()), u"00:00:01:00");
}

TEST_F(BenchHand, CopiesAndPastes) {
  program.stage.Click(At(Follower()));
  program.stage.Key(KeyboardCode::kA, ModKey::kCommand);
  program.stage.Type(u"00:00:07:08");
  program.stage.Key(KeyboardCode::kA, ModKey::kCommand);
  program.stage.Key(KeyboardCode::kC, ModKey::kCommand);
  program.stage.Key(KeyboardCode::kEscape);
  EXPECT_EQ(Frames(), 0);
  Rest();
  program.stage.Click(At(Field()));
  program.stage.Key(KeyboardCode::kA, ModKey::kCommand);
  program.stage.Key(KeyboardCode::kV, ModKey::kCommand);
  program.stage.Key(KeyboardCode::kEnter);
  EXPECT_EQ(Field().GetTime(), TickTime(7 * 25 + 8, FrameRate::k25));
}

TEST_F(BenchHand, ChoosesAFormatThatTheSecondFieldAndTheHostTakeOver) {
  moxui::testing::ModalAnswers answers;
  answers.ExpectItem(u"Feet + Frames, 35 mm");
  program.stage.Click(At(Field()), MouseButton::kRight);
  EXPECT_TRUE(answers.AllUsed());
  EXPECT_EQ(TextOf(Field()), u"5817+03");
  EXPECT_EQ(TextOf(Follower()), u"5817+03");
  EXPECT_EQ(Told().Settings().host.videoDisplay.GetType(), TimeDisplay::kFeetFrames35mm);
  EXPECT_THAT(TakeMessages(), ElementsAre(u"Format of video: Feet + Frames, 35 mm"));
}

TEST_F(BenchHand, CyclesThroughItsFormatsByTheSecondRightReleaseWithTheModifier) {
  program.stage.SetModKeys(ModKey::kCommand);
  program.stage.DoubleClick(At(Field()), MouseButton::kRight);
  EXPECT_EQ(TextOf(Field()), u"2326+35") << "from timecode to 16 mm";
  EXPECT_EQ(TextOf(Follower()), u"2326+35");
  Rest();
  program.stage.Click(At(Field()), MouseButton::kRight);
  EXPECT_EQ(TextOf(Field()), u"2326+35") << "the first release does nothing";
  Rest();
  program.stage.Press(At(Field()));
  program.stage.MoveBy({20.0f, 0.0f});
  program.stage.ReleaseHere();
  EXPECT_EQ(Frames(), 0) << "nor does the left button";
  EXPECT_FALSE(Field().HasFocus());
}

TEST_F(BenchHand, EndsADragWhenItsWindowRests) {
  program.stage.Press(At(Field()));
  program.stage.MoveBy({6.0f, 0.0f});
  program.stage.Deactivate();
  EXPECT_TRUE(IsCursorShown());
  EXPECT_FALSE(Field().IsScrubbing());
  EXPECT_EQ(TakeMessages().back(), u"Field 1: changed, 01:02:03:05 (945752371200000 ticks)");
  program.stage.Activate();
  program.stage.MoveBy({6.0f, 0.0f});
  EXPECT_EQ(Frames(), 5);
}

TEST_F(BenchHand, OutlivesAListenerThatPutsAnotherFieldInItsPlace) {
  auto const before = moxcore::utility::RefCountedWeakPtr<CountedField>(&Field());
  auto const ear = moxcore::utility::MakeIntrusive<StationEar>(
      [this](moxcore::messaging::Message const&) { Bench().RenewField(); });
  ear->Hear(Field().GetStationID());
  program.stage.Press(At(Field()));
  program.stage.MoveBy({6.0f, 0.0f});
  program.stage.MoveBy({6.0f, 0.0f});
  program.stage.ReleaseHere();
  EXPECT_EQ(before.Lock(), nullptr);
  EXPECT_TRUE(IsCursorShown());
  EXPECT_EQ(Frames(), 5) << "the step that was told of was the last one";
  program.stage.PaintFrame();
  Rest();
  program.stage.Press(At(Field()));
  EXPECT_TRUE(Field().IsScrubbing());
  program.stage.MoveBy({3.0f, 0.0f});
  program.stage.ReleaseHere();
  EXPECT_EQ(Frames(), 7);
}

TEST_F(BenchHand, OutlivesAListenerThatTakesThePageAway) {
  auto const ear = moxcore::utility::MakeIntrusive<StationEar>(
      [this](moxcore::messaging::Message const&) { program.shell.View().ShowPage(FindPage("slider")); });
  ear->Hear(Field().GetStationID());
  program.stage.Press(At(Field()));
  program.stage.MoveBy({6.0f, 0.0f});
  program.stage.MoveBy({6.0f, 0.0f});
  program.stage.ReleaseHere();
  EXPECT_EQ(program.state.page, FindPage("slider"));
  EXPECT_TRUE(IsCursorShown());
  program.Picture();
}

TEST_F(BenchHand, KeepsABoundedNumberOfMessages) {
  Field().UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kTraversal);
  for (std::size_t i = 0; i < EventLog::kMostLines + 100; ++i) {
    program.stage.Key(KeyboardCode::kUp);
  }
  EXPECT_EQ(Told().Messages().Lines().size(), EventLog::kMostLines);
  EXPECT_EQ(Frames(), static_cast<std::int64_t>(EventLog::kMostLines) + 100);
}

}  // namespace
}  // namespace playground
