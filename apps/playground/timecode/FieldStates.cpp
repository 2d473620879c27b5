#include "timecode/FieldStates.h"

#include "timecode/CountedField.h"
#include "timecode/FieldHeight.h"
#include "timecode/FieldSymbol.h"

#include <string_view>

namespace playground {
namespace {

using moxmediaui::FrameRate;
using moxmediaui::TickTime;
using moxmediaui::TimeDisplay;

constexpr float kWidth = 112.0f;
// A symbol on the left begins half a field before it.
constexpr float kSymbolRoom = kWidth / 2.0f + 4.0f;

StateColumn Column(std::string_view title, TimeDisplay display, bool hasSymbol, TickTime time) {
  auto const make = [display, hasSymbol, time]() -> StateColumn::Made {
    auto field = moxcore::utility::MakeIntrusive<CountedField>();
    field->ResetFrameRate(display, FrameRate::k25, moxmediaui::DisplayType::kVideo);
    field->SetTime(time, false);
    if (hasSymbol) {
      field->SetSymbol(FieldSymbol(), true);
    }
    PreviewAim aim;
    aim.makeUnknown = [shown = field.Get()] {
      shown->SetInvalidDisplayType(moxmediaui::InvalidDisplay::kPlaceholder);
      shown->SetTime(TickTime::kInvalid, false);
    };
    return {std::move(field), std::move(aim)};
  };
  return {.title = title,
          .make = make,
          .size = {kWidth, kTimecodeFieldHeight},
          .inset = hasSymbol ? kSymbolRoom : 0.0f};
}

}  // namespace

std::vector<StateColumn> FieldStateColumns(TickTime time) {
  return {
      Column("$$$/playground/timecode/column/timecode=Timecode", TimeDisplay(TimeDisplay::kTimecode25), false,
             time),
      Column("$$$/playground/timecode/column/frames=Frames", TimeDisplay(TimeDisplay::kFrames), false, time),
      Column("$$$/playground/timecode/symbol/left=Symbol on the left", TimeDisplay(TimeDisplay::kTimecode25),
             true, time)};
}

}  // namespace playground
