// Dragging of a timecode field, by mouse and by pen.
#include "WorkedField.h"

#include <moxui/dialogs/MessageBox.h>
#include <moxui/testing/ModalAnswers.h>
#include <moxui/ui/UI_NodeManager.h>

namespace timecode_tests {
namespace {

using Scrub = WorkedField;

TEST_F(Scrub, LosesThePixelThatStartsItAndNoOther) {
  Press();
  MoveBy(2, 0);
  EXPECT_EQ(Frames(), 1);
  MoveBy(2, 0);
  EXPECT_EQ(Frames(), 3);
  MoveBy(-1, 0);
  EXPECT_EQ(Frames(), 2);
}

struct MoveCase {
  char const* name;
  std::vector<PointT<float>> moves;
  std::int64_t frames;
};

class ScrubMoves : public WorkedField, public ::testing::WithParamInterface<MoveCase> {};

TEST_P(ScrubMoves, StepByPixels) {
  Press();
  for (PointT<float> const move : GetParam().moves) {
    MoveBy(move.x, move.y);
  }
  EXPECT_EQ(Frames(), GetParam().frames);
  EXPECT_EQ(field->ShownText(), field->GetTimecodeString());
}

INSTANTIATE_TEST_SUITE_P(
    Mouse, ScrubMoves,
    ::testing::Values(MoveCase{"Left", {{-5, 0}}, -4}, MoveCase{"Up", {{0, -2}}, 1},
                      MoveCase{"Down", {{0, 2}}, -1}, MoveCase{"FarUp", {{0, -10}, {0, -3}}, 12},
                      MoveCase{"ADiagonalIsVertical", {{3, -3}, {50, -1}}, 3},
                      MoveCase{"ADiagonalDownIsVertical", {{3, 3}, {0, 1}}, -3},
                      MoveCase{"TheAxisStays", {{4, 1}, {0, 30}, {1, -30}}, 4},
                      MoveCase{"TheVerticalAxisStays", {{1, -4}, {30, 0}}, 3},
                      MoveCase{"OnePixelEachTimeStartsNothing", {{1, 0}, {1, 0}, {1, 1}, {1, -1}, {1, 0}}, 0},
                      MoveCase{"FractionsAddUp", {{1.5f, 0}, {0.5f, 0}, {1.5f, 0}, {0.5f, 0}}, 0},
                      MoveCase{"FractionsAreKept", {{2.75f, 0}, {0.5f, 0}, {0.75f, 0}}, 3},
                      MoveCase{"ThereAndBack", {{10, 0}, {-10, 0}}, -1}),
    [](auto const& test) { return test.param.name; });

TEST_F(Scrub, ChoosesItsAxisAnew) {
  Press();
  MoveBy(5, 0);
  Release();
  EXPECT_EQ(Frames(), 4);
  EXPECT_EQ(ShownCursor(), 18);
  stage.AdvanceTime(1000);
  Press();
  MoveBy(0, -5);
  EXPECT_EQ(Frames(), 8);
}

TEST_F(Scrub, TellsEachStepAndTheEnd) {
  field->SetIdentifier(42);
  Press();
  MoveBy(2, 0);
  MoveBy(3, 0);
  MoveBy(0, 5);
  Release();
  EXPECT_THAT(TakeHeard(),
              ElementsAre(Changing(kMinute + kFrame, 42), Changing(kMinute + TickTime(4, k25), 42),
                          Changed(kMinute + TickTime(4, k25), 42)));
}

TEST_F(Scrub, TellsTimesWithoutTheOffset) {
  field->SetOffsetTime(kHour);
  Press();
  MoveBy(2, 0);
  Release();
  EXPECT_THAT(TakeHeard(), ElementsAre(Changing(kMinute + kFrame), Changed(kMinute + kFrame)));
}

TEST_F(Scrub, IsPaintedAsItGoes) {
  Press();
  EXPECT_TRUE(Invalidates([&] { MoveBy(2, 0); }));
  EXPECT_FALSE(Invalidates([&] { MoveBy(0, 3); }));
}

struct LargeCase {
  int format;
  std::int64_t rate;
  TickTime step;
};

class LargeSteps : public WorkedField, public ::testing::WithParamInterface<LargeCase> {};

TEST_P(LargeSteps, AreTakenWithShift) {
  field->SetFormat(TimeDisplay(GetParam().format), FrameRate(GetParam().rate));
  stage.SetModKeys(ModKey::kShift);
  Press();
  MoveBy(4, 0);
  EXPECT_EQ(field->GetTime() - kMinute, GetParam().step + GetParam().step + GetParam().step);
}

INSTANTIATE_TEST_SUITE_P(Formats, LargeSteps,
                         ::testing::Values(LargeCase{101, 10160640000, Seconds(1)},
                                           LargeCase{109, 10160640000, TickTime(100, k25)},
                                           LargeCase{111, 10584000000, TickTime(40, FrameRate(10584000000))},
                                           LargeCase{112, 10584000000,
                                                     TickTime(16, FrameRate(10584000000))}));

TEST_F(Scrub, GoesOnBeyondTheField) {
  Press();
  MoveBy(200, 0);
  EXPECT_EQ(Frames(), 199);
  Release();
  EXPECT_EQ(TakeHeard().back(), Changed(kMinute + TickTime(199, k25)));
}

TEST_F(Scrub, HidesThePointerAndPutsItBackWhereItWas) {
  stage.SetOrigin({1000, 500});
  stage.Move({60.5f, 52.75f});
  stage.Press({60.5f, 52.75f});
  EXPECT_FALSE(IsCursorShown());
  MoveBy(30, 0);
  Release();
  EXPECT_TRUE(IsCursorShown());
  EXPECT_EQ(stage.GetPointerPosition(), PointT<float>(1060, 552));
  EXPECT_EQ(Frames(), 29);
}

TEST_F(Scrub, IsOverWhenTheWindowIsDeactivated) {
  Press();
  MoveBy(3, 0);
  stage.Deactivate();
  EXPECT_FALSE(field->IsScrubbing());
  EXPECT_TRUE(IsCursorShown());
  stage.Activate();
  TakeHeard();
  MoveBy(10, 0);
  Release();
  EXPECT_EQ(Frames(), 2);
  EXPECT_THAT(TakeHeard(), IsEmpty());
}

TEST_F(Scrub, OfAFieldThatCodeTakesAwayEnds) {
  Press();
  MoveBy(3, 0);
  stage.GetRootView().ChildRemove(field);
  EXPECT_FALSE(field->IsScrubbing());
  EXPECT_TRUE(IsCursorShown());
}

TEST_F(Scrub, OfAFieldThatEndsShowsThePointerAgain) {
  Press();
  MoveBy(3, 0);
  ASSERT_FALSE(IsCursorShown());
  moxcore::utility::RefCountedWeakPtr<OpenTimecodeControl> const weak(field.Get());
  stage.GetRootView().DeleteChildren();
  field.Reset();
  EXPECT_TRUE(weak.IsExpired());
  EXPECT_TRUE(IsCursorShown());
}

unsigned AskAQuestion() {
  namespace messagebox = moxui::dialogs::messagebox;
  using namespace moxui::dialogs::DialogButton;
  return messagebox::Messagebox(nullptr, u"Timecode", u"Stop here?", kYes + kNo, kYes,
                                messagebox::MessageIcon::kQuestion, {});
}

TEST_F(Scrub, EndsWhenABoxOpens) {
  moxui::testing::ModalAnswers answers;
  bool wasShown = false;
  bool wasScrubbing = true;
  std::vector<Heard> before;
  answers.Expect([&](auto&) {
    wasShown = IsCursorShown();
    wasScrubbing = field->IsScrubbing();
    before = TakeHeard();
    return 16;
  });
  Press();
  MoveBy(3, 0);
  EXPECT_EQ(AskAQuestion(), 16u);
  EXPECT_TRUE(wasShown);
  EXPECT_FALSE(wasScrubbing);
  EXPECT_THAT(before, ElementsAre(Changing(kMinute + TickTime(2, k25)), Changed(kMinute + TickTime(2, k25))));
  MoveBy(10, 0);
  Release();
  EXPECT_EQ(Frames(), 2);
  EXPECT_FALSE(IsEditing());
  EXPECT_THAT(TakeHeard(), IsEmpty());
}

TEST_F(Scrub, AListenerMayOpenABox) {
  moxui::testing::ModalAnswers answers;
  std::vector<bool> shown;
  answers.Expect([&](auto&) {
    shown.push_back(IsCursorShown());
    return 64;
  });
  log->whenHeard = [](Heard const& heard) {
    if (heard.kind == Heard::Kind::kChanging) {
      AskAQuestion();
    }
  };
  Press();
  MoveBy(3, 0);
  EXPECT_EQ(shown, std::vector{true});
  EXPECT_FALSE(field->IsScrubbing());
  EXPECT_EQ(Frames(), 2);
  EXPECT_EQ(field->ShownText(), field->GetTimecodeString());
  Release();
  EXPECT_FALSE(IsEditing());
}

TEST_F(Scrub, AListenerMayLetGoOfTheField) {
  log->whenHeard = [this](Heard const& heard) {
    if (heard.kind == Heard::Kind::kChanging && field) {
      auto const gone = std::exchange(field, nullptr);
      stage.GetRootView().ChildRemove(gone);
    }
  };
  Press();
  MoveBy(3, 0);
  MoveBy(3, 0);
  Release();
  EXPECT_TRUE(IsCursorShown());
  EXPECT_THAT(TakeHeard(),
              ElementsAre(Changing(kMinute + TickTime(2, k25)), Changed(kMinute + TickTime(2, k25))));
}

TEST_F(Scrub, KeepsThePointerWhileTheButtonIsDownOnAFixedFieldToo) {
  auto const captor = [] {
    auto const* const capture = moxui::ui::UI_NodeManager::Get(false)->GetInputCapture();
    return capture != nullptr ? capture->GetNode() : nullptr;
  };
  for (bool const fixed : {false, true}) {
    field->SetAsFixed(fixed);
    stage.AdvanceTime(1000);
    Press();
    EXPECT_EQ(captor(), field);
    MoveBy(50, 0);
    Release();
    EXPECT_EQ(captor(), nullptr);
  }
}

TEST_F(Scrub, IsNotForAFixedOrDisabledField) {
  field->SetAsFixed(true);
  Press();
  MoveBy(10, 0);
  Release();
  field->SetAsFixed(false);
  field->UI_SetDisabled();
  stage.AdvanceTime(1000);
  Press();
  MoveBy(10, 0);
  Release();
  EXPECT_EQ(Frames(), 0);
  EXPECT_FALSE(IsEditing());
  EXPECT_THAT(TakeHeard(), IsEmpty());
}

TEST_F(Scrub, IsNotStartedWithTheCommandKeyOrADoubleClick) {
  stage.SetModKeys(ModKey::kCommand);
  EXPECT_FALSE(stage.Press(kPlace));
  EXPECT_FALSE(field->IsScrubbing());
  stage.ReleaseHere();
  stage.SetModKeys({});
  field->SetAsFixed(true);
  stage.AdvanceTime(1000);
  stage.Click(kPlace);
  field->SetAsFixed(false);
  stage.Press(kPlace);
  EXPECT_FALSE(field->IsScrubbing());
}

// Pen

class PenScrub : public WorkedField {
 protected:
  PenScrub() { stage.SetPointerSubType(moxui::ui::PointerSubType::kPen); }
  void Wait(double milliseconds) { stage.AdvanceTime(milliseconds); }
};

TEST_F(PenScrub, StepsAtThePixelAndChoosesTheAxisEachTime) {
  Press();
  MoveBy(1, 0);
  EXPECT_EQ(Frames(), 1);
  MoveBy(0, -2);
  EXPECT_EQ(Frames(), 3);
  MoveBy(3, 1);
  EXPECT_EQ(Frames(), 6);
  MoveBy(1, 1);
  EXPECT_EQ(Frames(), 5);
  MoveBy(0.5f, 0);
  EXPECT_EQ(Frames(), 5);
}

TEST_F(PenScrub, WithoutAPixelIsAClick) {
  Press();
  MoveBy(0.5f, 0.5f);
  Release();
  EXPECT_TRUE(IsEditing());
}

// What the pen did in its last 100 milliseconds is taken back.
TEST_F(PenScrub, TakesBackWhatTheLiftedPenSlid) {
  Press();
  MoveBy(5, 0);
  Wait(10);
  MoveBy(5, 0);
  Wait(100);
  MoveBy(1, 0);
  Wait(50);
  MoveBy(1, 0);
  ASSERT_EQ(Frames(), 12);
  TakeHeard();
  Release();
  EXPECT_EQ(Frames(), 10);
  EXPECT_EQ(field->ShownText(), u"00:01:00:10");
  EXPECT_THAT(TakeHeard(), ElementsAre(Changed(kMinute + TickTime(10, k25))));
}

TEST_F(PenScrub, TakesAHundredMillisecondsExactly) {
  Press();
  MoveBy(5, 0);
  Wait(60);
  MoveBy(1, 0);
  Wait(40);
  Release();
  EXPECT_EQ(Frames(), 5);
}

TEST_F(PenScrub, KeepsAllOfAShortDrag) {
  Press();
  MoveBy(5, 0);
  Wait(50);
  MoveBy(5, 0);
  Wait(49);
  Release();
  EXPECT_EQ(Frames(), 10);
}

TEST_F(PenScrub, KeepsAllOfADragThatStoppedBefore) {
  Press();
  MoveBy(5, 0);
  Wait(10);
  MoveBy(5, 0);
  Wait(150);
  Release();
  EXPECT_EQ(Frames(), 10);
}

TEST_F(PenScrub, KeepsAllOfADragThatStoppedBeforeWithAnOffsetToo) {
  field->SetOffsetTime(kHour);
  Press();
  MoveBy(5, 0);
  stage.AdvanceTime(150);
  Release();
  EXPECT_EQ(Frames(), 5);
}

// Twenty moves are remembered: what lay before them can't be taken up again.
TEST_F(PenScrub, RemembersTwentyMoves) {
  Press();
  MoveBy(100, 0);
  Wait(200);
  for (int i = 0; i < 19; ++i) {
    MoveBy(1, 0);
  }
  Release();
  EXPECT_EQ(Frames(), 100);

  stage.AdvanceTime(1000);
  field->SetTime(kMinute, false);
  Press();
  MoveBy(100, 0);
  Wait(200);
  for (int i = 0; i < 20; ++i) {
    MoveBy(1, 0);
  }
  Release();
  EXPECT_EQ(Frames(), 120);
}

TEST_F(PenScrub, ForgetsADragThatWasCutOff) {
  Press();
  MoveBy(5, 0);
  stage.Deactivate();
  Release();
  stage.Activate();
  stage.AdvanceTime(1000);
  Press();
  MoveBy(5, 0);
  Release();
  EXPECT_EQ(Frames(), 10);
}

TEST_F(PenScrub, ForgetsEarlierDrags) {
  Press();
  MoveBy(5, 0);
  Release();
  Wait(1000);
  Press();
  MoveBy(5, 0);
  Release();
  EXPECT_EQ(Frames(), 10);
}

// Clients know that the offset is added once more to a value that is taken up again.
TEST_F(PenScrub, AddsTheOffsetOnceMore) {
  field->SetOffsetTime(kHour);
  Press();
  MoveBy(5, 0);
  Wait(110);
  MoveBy(1, 0);
  Release();
  EXPECT_EQ(field->GetTime(), kHour + kMinute + TickTime(5, k25));
}

}  // namespace
}  // namespace timecode_tests
