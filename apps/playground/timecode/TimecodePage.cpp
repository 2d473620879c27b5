#include "timecode/TimecodePage.h"

#include "controls/StateTable.h"
#include "program/Localized.h"
#include "properties/PropertyPanel.h"
#include "shell/EventLog.h"
#include "timecode/BenchPane.h"
#include "timecode/FieldStates.h"
#include "timecode/FormatGrids.h"
#include "timecode/GridPane.h"
#include "timecode/OptionGrids.h"
#include "timecode/StationMessages.h"
#include "timecode/TimecodeBench.h"

#include <moxmediaui/HotTimecodeControl.h>

#include <utility>

namespace playground {
namespace {

using moxcore::messaging::Message;
using moxcore::utility::MakeIntrusive;
using moxmediaui::TickTime;

// Panes in the order of the page's states.
enum class Pane { kFormats, kOptions, kBench, kStates };

constexpr TickTime kTime = TimecodeBench::kFirstTime;

moxcore::Utf8String Name(std::string_view literal) {
  return moxcore::Utf8String(Text(literal));
}

std::vector<FieldGridContent> FormatGrids() {
  std::vector<FieldGridContent> grids;
  grids.push_back(VideoFormatGrid(kTime));
  grids.push_back(AudioFormatGrid(kTime));
  return grids;
}

void AddToLog(EventLog& log, GridPane::Field const& field, Message const& message) {
  log.Add(StationMessageText(message, To8(field->GetTimecodeString())));
}

}  // namespace

TimecodePage::TimecodePage(PageContext const& context) : mLog(context.log) {
  mFormats = MakeIntrusive<GridPane>(Name("$$$/playground/state/formats=Formats"), FormatGrids());
  mOptions = MakeIntrusive<GridPane>(Name("$$$/playground/state/options=Options"), OptionGrids(kTime));
  mBench = MakeIntrusive<BenchPane>(context.timecode, mLog);
  mStates = MakeIntrusive<StateTable>(FieldStateColumns(kTime),
                                      Text16("$$$/playground/timecode/statesRemark=Under the pointer, and "
                                             "while it is dragged, a field looks as it "
                                             "always does: the pointer's shape tells of it."));
  ChildPushBack(mFormats);
  ChildPushBack(mOptions);
  ChildPushBack(mBench);
  ChildPushBack(mStates);
  mFormats->SetHearFunction([this](GridPane::Field const& field, Message const& message) {
    AddToLog(mLog, field, message);
    // All fields show the time that one of them was brought to.
    auto const told = FindToldTime(message);
    for (GridPane::Field const& other : mFormats->Fields()) {
      if (other != field && told) {
        other->SetTime(told->time, true);
      }
    }
  });
  mOptions->SetHearFunction(
      [&log = mLog](GridPane::Field const& field, Message const& message) { AddToLog(log, field, message); });
  ShowState(0);
}

TimecodePage::~TimecodePage() = default;

GridPane& TimecodePage::Formats() const {
  return *mFormats;
}
GridPane& TimecodePage::Options() const {
  return *mOptions;
}
BenchPane& TimecodePage::Bench() const {
  return *mBench;
}

StateTable& TimecodePage::States() const {
  return *mStates;
}

void TimecodePage::ShowState(std::size_t state) {
  auto const pane = static_cast<Pane>(state);
  mFormats->UI_Show(pane == Pane::kFormats);
  mOptions->UI_Show(pane == Pane::kOptions);
  mBench->UI_Show(pane == Pane::kBench);
  mStates->UI_Show(pane == Pane::kStates);
  if (pane == Pane::kOptions) {
    ShowTextSizes();
  }
}

// The size is that of the edit, which is shown as long as nobody has worked it.
void TimecodePage::ShowTextSizes() {
  FieldGrid const& sizes = mOptions->Grid(mOptions->GridCount() - 1);
  for (std::size_t column = 0; column < sizes.ColumnCount(); ++column) {
    FieldGrid::Field const& field = sizes.GetField(0, column);
    field->GetTextControl()->UI_SetLocalRectF(field->UI_GetLocalRectF(false));
    field->GetTextControl()->UI_Show(true);
  }
}

float TimecodePage::GetScrollOffset() const {
  return mBench->UI_IsShown()     ? mBench->Panel().GetScrollOffset()
         : mOptions->UI_IsShown() ? mOptions->GetScrollOffset()
         : mFormats->UI_IsShown() ? mFormats->GetScrollOffset()
                                  : 0.0f;
}

void TimecodePage::SetScrollOffset(float offset) {
  if (mBench->UI_IsShown()) {
    mBench->Panel().SetScrollOffset(offset);
  } else if (mOptions->UI_IsShown()) {
    mOptions->SetScrollOffset(offset);
  } else if (mFormats->UI_IsShown()) {
    mFormats->SetScrollOffset(offset);
  }
}

void TimecodePage::UI_SizeChanged(moxui::RectT<float> const& rect) {
  Page::UI_SizeChanged(rect);
  mFormats->UI_SetLocalRectF(rect);
  mOptions->UI_SetLocalRectF(rect);
  mBench->UI_SetLocalRectF(rect);
  mStates->UI_SetLocalRectF(rect);
  if (mOptions->UI_IsShown()) {
    ShowTextSizes();
  }
}

PageDescriptor TimecodePageDescriptor() {
  return {.name = "timecode",
          .title = "$$$/playground/page/timecode=Timecode",
          .group = "$$$/playground/group/media=Media",
          .description =
              "$$$/playground/page/timecode/text=Times in every common format. Drag to scrub, click to type, "
              "arrow keys step.",
          .states = {{"formats", "$$$/playground/state/formats=Formats"},
                     {"options", "$$$/playground/state/options=Options"},
                     {"bench", "$$$/playground/state/bench=Bench"},
                     {"states", "$$$/playground/state/states=States"}},
          .make = [](PageContext const& context) -> moxcore::utility::IntrusivePtr<Page> {
            return MakeIntrusive<TimecodePage>(context);
          }};
}

}  // namespace playground
