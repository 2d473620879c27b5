#include "timecode/OptionGrids.h"

#include "program/Localized.h"
#include "timecode/CountedField.h"
#include "timecode/FieldSymbol.h"

#include <array>
#include <functional>
#include <utility>

namespace playground {
namespace {

using moxcore::utility::IntrusivePtr;
using moxmediaui::DisplayType;
using moxmediaui::FrameRate;
using moxmediaui::InvalidDisplay;
using moxmediaui::TextSize;
using moxmediaui::TickTime;
using moxmediaui::TimeDisplay;

constexpr TickTime kHour{3600 * moxmediatypes::kTicksPerSecond};
constexpr float kSymbolFieldWidth = 100.0f;
// A symbol on the left begins half a field before it.
constexpr float kRoomBefore = 52.0f;
constexpr float kRoomBehind = 20.0f;
constexpr float kLargeTextWidth = 112.0f;

struct Column {
  moxcore::Utf16String title;
  TimeDisplay display;
  FrameRate rate;
};

// Formats of each kind that is written differently.
std::vector<Column> Kinds() {
  return {{Text16("$$$/playground/timecode/column/timecode=Timecode"), TimeDisplay(TimeDisplay::kTimecode25),
           FrameRate::k25},
          {Text16("$$$/playground/timecode/column/feet35=Feet + frames 35 mm"),
           TimeDisplay(TimeDisplay::kFeetFrames35mm), FrameRate::k24},
          {Text16("$$$/playground/timecode/column/frames=Frames"), TimeDisplay(TimeDisplay::kFrames),
           FrameRate::k25}};
}

IntrusivePtr<CountedField> MakeField(TimeDisplay display, FrameRate rate, TickTime time) {
  auto field = moxcore::utility::MakeIntrusive<CountedField>();
  field->ResetFrameRate(display, rate, DisplayType::kVideo);
  field->SetTime(time, false);
  return field;
}

IntrusivePtr<CountedField> MakeTimecode(TickTime time) {
  return MakeField(TimeDisplay(TimeDisplay::kTimecode25), FrameRate::k25, time);
}

FieldGridContent Hands(TickTime time) {
  FieldGridContent content{.title = Text16("$$$/playground/timecode/hands=Who works it"),
                           .rowHeading = {},
                           .columns = {Text16("$$$/playground/timecode/symbol/none=No symbol"),
                                       Text16("$$$/playground/timecode/symbol/left=Symbol on the left"),
                                       Text16("$$$/playground/timecode/symbol/right=Symbol on the right")},
                           .fieldWidth = kSymbolFieldWidth,
                           .fieldInset = kRoomBefore,
                           .fieldGap = kRoomBehind};
  auto const row = [time](bool isFixed, bool isDisabled) {
    std::vector<FieldGridContent::Field> fields;
    for (int side = 0; side < 3; ++side) {
      auto field = MakeTimecode(time);
      field->SetAsFixed(isFixed);
      field->UI_SetDisabled(isDisabled);
      if (side > 0) {
        field->SetSymbol(FieldSymbol(), side == 1);
      }
      fields.push_back(std::move(field));
    }
    return fields;
  };
  content.rows = {{Text16("$$$/playground/timecode/editable=Editable"), row(false, false)},
                  {Text16("$$$/playground/timecode/fixed=Fixed"), row(true, false)},
                  {Text16("$$$/playground/timecode/disabled=Disabled"), row(false, true)}};
  return content;
}

// A grid whose columns are the kinds of formats, with a row for each of `rows` that `prepare` makes.
template <std::size_t kCount>
FieldGridContent OfKinds(
    moxcore::Utf16String title,
    std::array<std::pair<moxcore::Utf16String, std::function<void(CountedField&)>>, kCount> const& rows,
    TickTime time) {
  FieldGridContent content{.title = std::move(title), .rowHeading = {}};
  for (Column const& kind : Kinds()) {
    content.columns.push_back(kind.title);
  }
  for (auto const& [name, prepare] : rows) {
    FieldGridContent::Row row{name, {}};
    for (Column const& kind : Kinds()) {
      auto field = MakeField(kind.display, kind.rate, time);
      prepare(*field);
      row.fields.push_back(std::move(field));
    }
    content.rows.push_back(std::move(row));
  }
  return content;
}

FieldGridContent NoTime() {
  auto const shows = [](InvalidDisplay display) -> std::function<void(CountedField&)> {
    return [display](CountedField& field) {
      field.SetInvalidDisplayType(display);
      field.SetTime(TickTime::kInvalid, false);
    };
  };
  return OfKinds<3>(
      Text16("$$$/playground/timecode/noTime=No time"),
      {{{Text16("$$$/playground/timecode/noTime/zero=As time zero"), shows(InvalidDisplay::kTimeZero)},
        {Text16("$$$/playground/timecode/noTime/placeholder=A placeholder"),
         shows(InvalidDisplay::kPlaceholder)},
        {Text16("$$$/playground/timecode/noTime/nothing=Nothing"), shows(InvalidDisplay::kNothing)}}},
      TickTime());
}

FieldGridContent Counting(TickTime time) {
  return OfKinds<3>(Text16("$$$/playground/timecode/counting=Where it counts from"),
                    {{{Text16("$$$/playground/timecode/counting/zero=From zero"), [](CountedField&) {}},
                      {Text16("$$$/playground/timecode/counting/one=Frames from one"),
                       [](CountedField& field) {
                         field.SetCountsFromOne(true);
                         field.OnRefreshFrameCountOffset();
                       }},
                      {Text16("$$$/playground/timecode/counting/hour=From one hour"),
                       [](CountedField& field) { field.SetOffsetTime(kHour); }}}},
                    time);
}

FieldGridContent Steps(TickTime time) {
  FieldGridContent content{.title = Text16("$$$/playground/timecode/steps=How far it steps"),
                           .rowHeading = {},
                           .columns = {Text16("$$$/playground/timecode/steps/shown=As it shows"),
                                       Text16("$$$/playground/timecode/steps/of24=Frames of 24"),
                                       Text16("$$$/playground/timecode/steps/halves=Half a second")}};
  FieldGridContent::Row row{Text16("$$$/playground/timecode/column/timecode=Timecode"), {}};
  for (FrameRate const rate :
       {FrameRate::kInvalid, FrameRate::k24, FrameRate(moxmediatypes::kTicksPerSecond / 2)}) {
    auto field = MakeTimecode(time);
    field->SetQuantizeFrameRate(TimeDisplay(TimeDisplay::kNone), rate);
    row.fields.push_back(std::move(field));
  }
  content.rows.push_back(std::move(row));
  return content;
}

FieldGridContent Sizes(TickTime time) {
  FieldGridContent content{.title = Text16("$$$/playground/timecode/sizes=Text while it is edited"),
                           .rowHeading = {},
                           .columns = {Text16("$$$/playground/timecode/size/toolkit=As other texts"),
                                       Text16("$$$/playground/timecode/size/large=15 points"),
                                       Text16("$$$/playground/timecode/size/bold=15 points, bold")},
                           .fieldWidth = kLargeTextWidth};
  FieldGridContent::Row row{Text16("$$$/playground/timecode/column/timecode=Timecode"), {}};
  for (TextSize const size : {TextSize::kToolkit, TextSize::kLarge, TextSize::kLargeBold}) {
    auto field = MakeTimecode(time);
    field->SetTextSize(size, 0.0f);
    row.fields.push_back(std::move(field));
  }
  content.rows.push_back(std::move(row));
  return content;
}

}  // namespace

std::vector<FieldGridContent> OptionGrids(TickTime time) {
  std::vector<FieldGridContent> grids;
  grids.push_back(Hands(time));
  grids.push_back(NoTime());
  grids.push_back(Counting(time));
  grids.push_back(Steps(time));
  grids.push_back(Sizes(time));
  return grids;
}

}  // namespace playground
