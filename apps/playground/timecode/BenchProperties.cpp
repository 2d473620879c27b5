#include "timecode/BenchProperties.h"

#include "program/Localized.h"
#include "program/NumberText.h"
#include "properties/PropertyMaker.h"
#include "timecode/RateNames.h"
#include "timecode/TimecodeBench.h"

#include <moxui/skins/ThemeColors.h>

#include <string>
#include <utility>

namespace playground {
namespace {

using moxmediaui::DisplayType;
using moxmediaui::FrameRate;
using moxmediaui::InvalidDisplay;
using moxmediaui::TextSize;
using moxmediaui::TimecodeInfo;
using moxmediaui::TimecodeOptions;
using moxmediaui::TimeDisplay;
using moxui::ColorRGBA;
using moxui::scriber::TextAlignment;
using Maker = PropertyMaker<BenchSettings>;

Maker MakerOf(TimecodeBench& bench) {
  return {[&bench]() -> BenchSettings const& { return bench.Settings(); },
          [&bench](std::function<void(BenchSettings&)> const& change) { bench.Change(change); }};
}

// A property over what the host tells.
template <class T>
Property OfHost(TimecodeBench& bench, std::string id, std::string label, T TimecodeInfo::*field,
                std::vector<T> const& values, std::vector<std::string> items) {
  return MakerOf(bench).Choice<T>(
      std::move(id), std::move(label), [&bench, field] { return bench.Settings().host.*field; },
      [&bench, field](T value) {
        bench.Change([field, value](BenchSettings& settings) { settings.host.*field = value; });
      },
      values, std::move(items));
}

std::vector<std::string> Names(std::vector<TimeDisplay> const& displays) {
  std::vector<std::string> names;
  for (TimeDisplay const display : displays) {
    names.push_back(To8(moxmediatypes::TimeDisplayDescription(display, true)));
  }
  return names;
}

std::vector<std::string> Names(std::vector<FrameRate> const& rates, std::string (*name)(FrameRate)) {
  std::vector<std::string> names;
  for (FrameRate const rate : rates) {
    names.push_back(name(rate));
  }
  return names;
}

Property Action(std::string id, std::string label, std::function<void()> run) {
  return {std::move(id), std::move(label), ActionProperty{std::move(run)}};
}

PropertyGroup Host(TimecodeBench& bench, BenchActions const& actions) {
  PropertyGroup group{Text("$$$/playground/timecode/host=Host"), {}};
  group.properties = {
      OfHost(bench, "videoDisplay", Text("$$$/playground/timecode/videoFormat=Video as"),
             &TimecodeInfo::videoDisplay, VideoDisplays(), Names(VideoDisplays())),
      OfHost(bench, "videoRate", Text("$$$/playground/timecode/framesASecond=Frames a second"),
             &TimecodeInfo::videoRate, VideoRates(), Names(VideoRates(), VideoRateText)),
      OfHost(bench, "audioDisplay", Text("$$$/playground/timecode/audioFormat=Sound as"),
             &TimecodeInfo::audioDisplay, AudioDisplays(), Names(AudioDisplays())),
      OfHost(bench, "audioRate", Text("$$$/playground/timecode/audioRate=Sound in kHz"),
             &TimecodeInfo::audioRate, AudioRates(), Names(AudioRates(), AudioRateText)),
      Action("syncToHost", Text("$$$/playground/timecode/syncToHost=Sync to the host once"),
             actions.syncToHost)};
  return group;
}

PropertyGroup Fields(TimecodeBench& bench, BenchActions const& actions) {
  Maker const maker = MakerOf(bench);
  PropertyGroup group{Text("$$$/playground/timecode/field=Field"), {}};
  group.properties = {
      maker.Choice<DisplayType>("displayType", Text("$$$/playground/timecode/shows=Shows"),
                                &BenchSettings::displayType, {DisplayType::kVideo, DisplayType::kAudio},
                                {Text("$$$/playground/timecode/videoFormats=Video"),
                                 Text("$$$/playground/timecode/audioFormats=Sound")}),
      maker.Toggle("followerIsConnected",
                   Text("$$$/playground/timecode/followerIsConnected=The second field is connected"),
                   &BenchSettings::followerIsConnected),
      maker.Toggle("isFixed", Text("$$$/playground/timecode/fixed=Fixed"), &BenchSettings::isFixed),
      maker.Toggle("isDisabled", Text("$$$/playground/timecode/disabled=Disabled"),
                   &BenchSettings::isDisabled),
      Action("keepOwnRate", Text("$$$/playground/timecode/keepOwnRate=Stay with 25 frames for good"),
             actions.keepOwnRate),
      Action("renewField", Text("$$$/playground/timecode/renewField=Another field"), actions.renewField),
      Action("reset", Text("$$$/playground/timecode/reset=All options as at first"),
             [&bench] { bench.Reset(); })};
  group.properties[4].isEnabled = [&bench] { return bench.Settings().followsHost; };
  return group;
}

PropertyGroup Menu(TimecodeBench& bench) {
  Maker const maker = MakerOf(bench);
  PropertyGroup group{Text("$$$/playground/timecode/menu=Formats to choose from"), {}};
  auto const offers = [&bench] { return bench.Settings().offersFormats; };
  group.properties = {
      maker.Toggle("offersFormats", Text("$$$/playground/timecode/offersFormats=Context menu and cycling"),
                   &BenchSettings::offersFormats),
      maker.Choice<TimecodeOptions>(
          "menu", Text("$$$/playground/timecode/menu/items=Menu"), &BenchSettings::menu,
          {TimecodeOptions::kSupportedFormats, TimecodeOptions::kFixedList,
           TimecodeOptions::kFixedListWithDropFrame},
          {Text("$$$/playground/timecode/menu/supported=The formats of the rate"),
           Text("$$$/playground/timecode/menu/fixed=A fixed list"),
           Text("$$$/playground/timecode/menu/dropFrame=A fixed list, drop-frame or not")}),
      maker.Choice<FormatSource>("formats", Text("$$$/playground/timecode/formats=Rate offers"),
                                 &BenchSettings::formats,
                                 {FormatSource::kRate, FormatSource::kOwner, FormatSource::kNobody},
                                 {Text("$$$/playground/timecode/formats/rate=The usual ones"),
                                  Text("$$$/playground/timecode/formats/owner=Two of the owner's choice"),
                                  Text("$$$/playground/timecode/formats/none=None")})};
  for (std::size_t i = 1; i < group.properties.size(); ++i) {
    group.properties[i].isEnabled = offers;
  }
  return group;
}

PropertyGroup Value(TimecodeBench& bench) {
  Maker const maker = MakerOf(bench);
  PropertyGroup group{Text("$$$/playground/timecode/value=Value"), {}};
  group.properties = {
      maker.Toggle("hasTime", Text("$$$/playground/timecode/hasTime=Has a time"), &BenchSettings::hasTime),
      maker.Choice<InvalidDisplay>(
          "invalidDisplay", Text("$$$/playground/timecode/noTime=No time"), &BenchSettings::invalidDisplay,
          {InvalidDisplay::kTimeZero, InvalidDisplay::kPlaceholder, InvalidDisplay::kNothing},
          {Text("$$$/playground/timecode/noTime/zero=As time zero"),
           Text("$$$/playground/timecode/noTime/placeholder=A placeholder"),
           Text("$$$/playground/timecode/noTime/nothing=Nothing")}),
      maker.Choice<FieldStart>("start", Text("$$$/playground/timecode/start=Offset"), &BenchSettings::start,
                               {FieldStart::kZero, FieldStart::kTenSeconds, FieldStart::kHour,
                                FieldStart::kTenHours, FieldStart::kMinusHour},
                               {Text("$$$/playground/timecode/start/none=None"),
                                Text("$$$/playground/timecode/start/tenSeconds=10 seconds"),
                                Text("$$$/playground/timecode/start/hour=1 hour"),
                                Text("$$$/playground/timecode/start/tenHours=10 hours"),
                                Text("$$$/playground/timecode/start/minusHour=1 hour back")}),
      maker.Toggle("countsFromOne", Text("$$$/playground/timecode/countsFromOne=Frames count from one"),
                   &BenchSettings::countsFromOne),
      maker.Choice<FieldBounds>("bounds", Text("$$$/playground/timecode/bounds=Bounds"),
                                &BenchSettings::bounds,
                                {FieldBounds::kHundredHours, FieldBounds::kFirstMinute,
                                 FieldBounds::kSecondMinute, FieldBounds::kCrossed},
                                {Text("$$$/playground/timecode/bounds/hundredHours=0 to 100 hours"),
                                 Text("$$$/playground/timecode/bounds/first=The first minute"),
                                 Text("$$$/playground/timecode/bounds/second=The second minute"),
                                 Text("$$$/playground/timecode/bounds/crossed=Crossed: 60 to 30 seconds")}),
      maker.Choice<FieldSteps>("steps", Text("$$$/playground/timecode/step=Step"), &BenchSettings::steps,
                               {FieldSteps::kAsShown, FieldSteps::kFramesOf24, FieldSteps::kFeet35,
                                FieldSteps::kHalfSeconds, FieldSteps::kMilliseconds},
                               {Text("$$$/playground/timecode/steps/shown=As it shows"),
                                Text("$$$/playground/timecode/steps/of24=Frames of 24"),
                                Text("$$$/playground/timecode/steps/feet=Frames and feet of film"),
                                Text("$$$/playground/timecode/steps/halves=Half a second"),
                                Text("$$$/playground/timecode/steps/milliseconds=A millisecond")})};
  return group;
}

NumberProperty Pixels(double most) {
  NumberProperty number;
  number.low = -most;
  number.high = most;
  number.step = 1.0;
  number.format = [](double value) { return TextFromNumber(value, 0); };
  number.parse = [](std::string const& text) { return NumberFromText(text); };
  return number;
}

Property Color(TimecodeBench& bench, std::string id, std::string label,
               std::optional<ColorRGBA> BenchSettings::*field, ColorRGBA const& ofTheme) {
  return {
      std::move(id), std::move(label),
      ColorProperty{.get = [&bench, field, ofTheme] { return (bench.Settings().*field).value_or(ofTheme); },
                    .followsTheme = [&bench, field] { return !(bench.Settings().*field); },
                    .set = MakerOf(bench).Setter(field)}};
}

PropertyGroup Look(TimecodeBench& bench) {
  namespace utilities = moxui::skins::utilities;
  Maker const maker = MakerOf(bench);
  PropertyGroup group{Text("$$$/playground/timecode/look=Look"), {}};
  group.properties = {
      maker.Choice<SymbolSide>("symbol", Text("$$$/playground/timecode/symbol=Symbol"),
                               &BenchSettings::symbol,
                               {SymbolSide::kNone, SymbolSide::kLeft, SymbolSide::kRight},
                               {Text("$$$/playground/timecode/symbol/none=No symbol"),
                                Text("$$$/playground/timecode/symbol/left=Symbol on the left"),
                                Text("$$$/playground/timecode/symbol/right=Symbol on the right")}),
      maker.Number("symbolX", Text("$$$/playground/timecode/symbolX=Symbol across"), &BenchSettings::symbolX,
                   Pixels(20.0)),
      maker.Number("symbolY", Text("$$$/playground/timecode/symbolY=Symbol down"), &BenchSettings::symbolY,
                   Pixels(8.0)),
      maker.Choice<TextSize>("textSize", Text("$$$/playground/timecode/size=Text of the edit"),
                             &BenchSettings::textSize,
                             {TextSize::kToolkit, TextSize::kLarge, TextSize::kLargeBold},
                             {Text("$$$/playground/timecode/size/toolkit=As other texts"),
                              Text("$$$/playground/timecode/size/large=15 points"),
                              Text("$$$/playground/timecode/size/bold=15 points, bold")}),
      maker.Choice<TextAlignment>("alignment", Text("$$$/playground/timecode/alignment=Edit aligned"),
                                  &BenchSettings::alignment,
                                  {TextAlignment::kLeft, TextAlignment::kCenter, TextAlignment::kRight},
                                  {Text("$$$/playground/timecode/alignment/left=Left"),
                                   Text("$$$/playground/timecode/alignment/center=In the middle"),
                                   Text("$$$/playground/timecode/alignment/right=Right")}),
      Color(bench, "textColor", Text("$$$/playground/timecode/textColor=Owner's text"),
            &BenchSettings::textColor, utilities::GetInteractiveControlColor()),
      Color(bench, "noTimeColor", Text("$$$/playground/timecode/noTimeColor=Without a time"),
            &BenchSettings::noTimeColor, utilities::GetDefaultTextDisabledColor()),
      maker.Toggle("colorsFixed", Text("$$$/playground/timecode/colorsFixed=Owner's text colour when fixed"),
                   &BenchSettings::colorsFixed)};
  for (std::size_t const offset : {1u, 2u}) {
    group.properties[offset].isEnabled = [&bench] { return bench.Settings().symbol != SymbolSide::kNone; };
  }
  return group;
}

}  // namespace

std::vector<PropertyGroup> BenchProperties(TimecodeBench& bench, BenchActions const& actions) {
  return {Fields(bench, actions), Menu(bench), Value(bench), Host(bench, actions), Look(bench)};
}

}  // namespace playground
