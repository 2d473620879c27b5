#include "timecode/BenchSettings.h"

#include "timecode/CountedField.h"
#include "timecode/FieldSymbol.h"

#include <memory>
#include <utility>
#include <vector>

namespace playground {
namespace {

using moxmediaui::FrameRate;
using moxmediaui::TickTime;
using moxmediaui::TimeDisplay;
using moxmediaui::UI_HotTimecodeControl;

constexpr TickTime Seconds(std::int64_t seconds) {
  return TickTime(seconds * moxmediatypes::kTicksPerSecond);
}

std::pair<TickTime, TickTime> TimesOf(FieldBounds bounds) {
  switch (bounds) {
    case FieldBounds::kHundredHours:
      break;
    case FieldBounds::kFirstMinute:
      return {Seconds(0), Seconds(60)};
    case FieldBounds::kSecondMinute:
      return {Seconds(60), Seconds(120)};
    case FieldBounds::kCrossed:
      return {Seconds(60), Seconds(30)};
  }
  return {Seconds(0), Seconds(360'000)};
}

TickTime TimeOf(FieldStart start) {
  switch (start) {
    case FieldStart::kZero:
      break;
    case FieldStart::kTenSeconds:
      return Seconds(10);
    case FieldStart::kHour:
      return Seconds(3600);
    case FieldStart::kTenHours:
      return Seconds(36'000);
    case FieldStart::kMinusHour:
      return Seconds(-3600);
  }
  return {};
}

std::pair<TimeDisplay, FrameRate> StepOf(FieldSteps steps) {
  TimeDisplay const asShown(TimeDisplay::kNone);
  switch (steps) {
    case FieldSteps::kAsShown:
      break;
    case FieldSteps::kFramesOf24:
      return {asShown, FrameRate::k24};
    case FieldSteps::kFeet35:
      return {TimeDisplay(TimeDisplay::kFeetFrames35mm), FrameRate::k24};
    case FieldSteps::kHalfSeconds:
      return {asShown, FrameRate(moxmediatypes::kTicksPerSecond / 2)};
    case FieldSteps::kMilliseconds:
      return {asShown, FrameRate(moxmediatypes::kTicksPerSecond / 1000)};
  }
  return {asShown, FrameRate::kInvalid};
}

std::shared_ptr<UI_HotTimecodeControl::SupportedVideoFormatCallback> ListOf(FormatSource source) {
  using Callback = UI_HotTimecodeControl::SupportedVideoFormatCallback;
  if (source == FormatSource::kRate) {
    return nullptr;
  }
  return std::make_shared<Callback>([source](FrameRate, std::vector<TimeDisplay>& formats) {
    if (source == FormatSource::kOwner) {
      formats = {TimeDisplay(TimeDisplay::kTimecode25), TimeDisplay(TimeDisplay::kFrames)};
    }
  });
}

void TellValue(CountedField& field, BenchSettings const& before, BenchSettings const& now) {
  field.SetInvalidDisplayType(now.invalidDisplay);
  field.SetCountsFromOne(now.countsFromOne);
  if (before.start != now.start) {
    // The part that stems from counting from one stays.
    field.SetOffsetTime(field.GetOffsetTime() - TimeOf(before.start) + TimeOf(now.start));
  }
  if (before.bounds != now.bounds) {
    auto const [least, most] = TimesOf(now.bounds);
    field.SetMinTime(least);
    field.SetMaxTime(most);
  }
  if (before.time != now.time || before.hasTime != now.hasTime) {
    field.SetTime(now.hasTime ? now.time : TickTime::kInvalid, false);
  }
  auto const [display, rate] = StepOf(now.steps);
  field.SetQuantizeFrameRate(display, rate);
  field.SetInlineText();
}

void TellLook(CountedField& field, BenchSettings const& before, BenchSettings const& now) {
  if (before.symbolX != now.symbolX) {
    field.SetHorizontalSymbolOffset(static_cast<int>(now.symbolX));
  }
  field.SetVerticalSymbolOffset(static_cast<int>(now.symbolY));
  if (before.symbol != now.symbol) {
    field.SetSymbol(now.symbol == SymbolSide::kNone ? nullptr : FieldSymbol(),
                    now.symbol == SymbolSide::kLeft);
  }
  if (before.textSize != now.textSize) {
    field.SetTextSize(now.textSize, 0.0f);
  }
  field.SetTextAlignment(now.alignment, false);
  field.UseCustomTextColor(now.textColor.has_value());
  if (now.textColor) {
    field.SetCustomTextColor(*now.textColor, false);
  }
  field.SetUseInvalidColor(now.noTimeColor.has_value(), now.noTimeColor.value_or(field.GetInvalidColor()),
                           false);
  field.SetUseTextColorForFixed(now.colorsFixed, false);
}

}  // namespace

void TellField(CountedField& field, BenchSettings const& before, BenchSettings const& now) {
  field.SetDisplayType(now.displayType);
  field.SetAsFixed(now.isFixed);
  field.UI_SetDisabled(now.isDisabled);
  field.SetAllowDisplayFormatOverride(now.offersFormats);
  field.SetTimecodeOptions(now.menu);
  field.SetSupportedVideoFormatCallback(ListOf(now.formats));
  TellValue(field, before, now);
  TellLook(field, before, now);
  field.UI_Invalidate();  // most of it is stored without
}

}  // namespace playground
