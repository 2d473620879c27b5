// The states of a timecode field, row by row: what an event leads to and what is told of it.
#include "WorkedField.h"

namespace timecode_tests {
namespace {

enum class State { kIdle, kHeld, kEditing };

class StateField : public WorkedField {
 public:
  State Now() const {
    if (IsEditing()) {
      EXPECT_FALSE(field->IsScrubbing());
      EXPECT_TRUE(field->HasFocus());
      return State::kEditing;
    }
    EXPECT_FALSE(field->HasFocus());
    EXPECT_EQ(IsCursorShown(), !field->IsScrubbing());
    return field->IsScrubbing() ? State::kHeld : State::kIdle;
  }

  void Fix() { field->SetAsFixed(true); }
  void Scrub() {
    Press();
    MoveBy(3, 0);  // 2 frames on
  }
  void Edit() { Click(); }
  void MoveOnePixel() { MoveBy(1, 1); }
  void MoveFar() { MoveBy(3, 0); }
  void PressPen() {
    stage.SetPointerSubType(moxui::ui::PointerSubType::kPen);
    Press();
  }
  void MoveAPixelAside() { MoveBy(1, 0); }
  void FocusLost() { field->UI_FocusChanged(moxui::ui::FocusChangeReason::kLost); }
  void WindowDeactivated() { stage.Deactivate(); }
  void FocusGained() { field->UI_FocusChanged(moxui::ui::FocusChangeReason::kByCode); }
  void PressElsewhere() { stage.Press({300, 200}); }
  void Nothing() {}
  void ToTheUpperBound() { field->SetMaxTime(kMinute); }
};

using Act = void (StateField::*)();

struct StateRow {
  char const* name;
  std::vector<Act> before;
  Act event;
  State to;
  std::vector<Heard> told;
};

constexpr TickTime kFrame(1, k25);

class StateTable : public StateField, public ::testing::WithParamInterface<StateRow> {};

TEST_P(StateTable, LeadsOn) {
  for (Act const act : GetParam().before) {
    (this->*act)();
  }
  TakeHeard();
  (this->*GetParam().event)();
  EXPECT_EQ(Now(), GetParam().to);
  EXPECT_EQ(TakeHeard(), GetParam().told);
}

using F = StateField;

INSTANTIATE_TEST_SUITE_P(
    HotTimecodeControl, StateTable,
    ::testing::Values(
        StateRow{"IdlePressed", {}, &F::Press, State::kHeld, {}},
        StateRow{"FixedPressed", {&F::Fix}, &F::Press, State::kIdle, {}},
        StateRow{"FixedReleased", {&F::Fix, &F::Press}, &F::Release, State::kIdle, {}},
        StateRow{"PressedMovedALittle", {&F::Press}, &F::MoveOnePixel, State::kHeld, {}},
        StateRow{"PressedMovedFar",
                 {&F::Press},
                 &F::MoveFar,
                 State::kHeld,
                 {Changing(kMinute + TickTime(2, k25))}},
        StateRow{
            "PressedMovedFarAtTheBound", {&F::ToTheUpperBound, &F::Press}, &F::MoveFar, State::kHeld, {}},
        StateRow{"PressedMovedByAPen",
                 {&F::PressPen},
                 &F::MoveAPixelAside,
                 State::kHeld,
                 {Changing(kMinute + kFrame)}},
        StateRow{"PressedReleased", {&F::Press}, &F::Release, State::kEditing, {}},
        StateRow{
            "PressedMovedALittleReleased", {&F::Press, &F::MoveOnePixel}, &F::Release, State::kEditing, {}},
        StateRow{
            "ScrubbingMoved", {&F::Scrub}, &F::MoveFar, State::kHeld, {Changing(kMinute + TickTime(5, k25))}},
        StateRow{"ScrubbingReleased",
                 {&F::Scrub},
                 &F::Release,
                 State::kIdle,
                 {Changed(kMinute + TickTime(2, k25))}},
        StateRow{"ScrubbingAtTheBoundReleased",
                 {&F::ToTheUpperBound, &F::Scrub},
                 &F::Release,
                 State::kIdle,
                 {Changed(kMinute)}},
        StateRow{"PressedCaptureLost", {&F::Press}, &F::WindowDeactivated, State::kIdle, {Changed(kMinute)}},
        StateRow{"ScrubbingCaptureLost",
                 {&F::Scrub},
                 &F::WindowDeactivated,
                 State::kIdle,
                 {Changed(kMinute + TickTime(2, k25))}},
        StateRow{"ScrubbingFocusLost",
                 {&F::Scrub},
                 &F::FocusLost,
                 State::kIdle,
                 {Changed(kMinute + TickTime(2, k25))}},
        StateRow{"IdleFocusLost", {}, &F::FocusLost, State::kIdle, {Changed(kMinute)}},
        StateRow{"IdleFocusGained", {}, &F::FocusGained, State::kIdle, {}},
        StateRow{"EditingFocusGained", {&F::Edit}, &F::FocusGained, State::kEditing, {}},
        StateRow{"EditingPressElsewhere", {&F::Edit}, &F::PressElsewhere, State::kIdle, {Changed(kMinute)}},
        StateRow{"EditingDeactivated", {&F::Edit}, &F::WindowDeactivated, State::kIdle, {Changed(kMinute)}}),
    [](auto const& row) { return row.param.name; });

}  // namespace
}  // namespace timecode_tests
