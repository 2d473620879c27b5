#include "timecode/FormatGrids.h"

#include "program/Localized.h"
#include "timecode/RateNames.h"

#include <moxmediaui/HotTimecodeControl.h>

namespace playground {
namespace {

using moxmediaui::DisplayType;
using moxmediaui::FrameRate;
using moxmediaui::TickTime;
using moxmediaui::TimeDisplay;
using moxmediaui::UI_HotTimecodeControl;
using Field = FieldGridContent::Field;

Field MakeField(DisplayType type, TimeDisplay display, FrameRate rate, TickTime time) {
  auto field = moxcore::utility::MakeIntrusive<UI_HotTimecodeControl>();
  field->SetDisplayType(type);
  field->ResetFrameRate(display, rate, type);
  field->SetTime(time, false);
  return field;
}

TimeDisplay TimecodeOf(FrameRate rate, bool dropFrame) {
  return moxmediatypes::GetTimeDisplayForFrameRate(rate, dropFrame, true, TimeDisplay(), false);
}

std::vector<Field> VideoFields(FrameRate rate, TickTime time) {
  auto const field = [&](TimeDisplay display) { return MakeField(DisplayType::kVideo, display, rate, time); };
  return {field(TimecodeOf(rate, false)), rate.AllowsDropFrame() ? field(TimecodeOf(rate, true)) : Field(),
          field(TimeDisplay(TimeDisplay::kFeetFrames16mm)), field(TimeDisplay(TimeDisplay::kFeetFrames35mm)),
          field(TimeDisplay(TimeDisplay::kFrames))};
}

}  // namespace

FieldGridContent VideoFormatGrid(TickTime time) {
  FieldGridContent content{.title = Text16("$$$/playground/timecode/videoFormats=Video"),
                           .rowHeading = Text16("$$$/playground/timecode/framesASecond=Frames a second"),
                           .columns = {Text16("$$$/playground/timecode/column/timecode=Timecode"),
                                       Text16("$$$/playground/timecode/column/dropFrame=Drop-frame"),
                                       Text16("$$$/playground/timecode/column/feet16=Feet + frames 16 mm"),
                                       Text16("$$$/playground/timecode/column/feet35=Feet + frames 35 mm"),
                                       Text16("$$$/playground/timecode/column/frames=Frames")}};
  for (FrameRate const rate : VideoRates()) {
    content.rows.push_back({To16(VideoRateText(rate)), VideoFields(rate, time)});
  }
  return content;
}

FieldGridContent AudioFormatGrid(TickTime time) {
  FieldGridContent content{.title = Text16("$$$/playground/timecode/audioFormats=Sound"),
                           .rowHeading = Text16("$$$/playground/timecode/kilohertz=kHz"),
                           .columns = {Text16("$$$/playground/timecode/column/samples=Samples"),
                                       Text16("$$$/playground/timecode/column/milliseconds=Milliseconds")}};
  for (FrameRate const rate : AudioRates()) {
    FieldGridContent::Row row{To16(AudioRateText(rate)), {}};
    for (TimeDisplay const display : AudioDisplays()) {
      row.fields.push_back(MakeField(DisplayType::kAudio, display, rate, time));
    }
    content.rows.push_back(std::move(row));
  }
  return content;
}

}  // namespace playground
