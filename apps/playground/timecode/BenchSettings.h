#pragma once

#include <moxmediaui/TimecodeModel.h>
#include <moxui/geometry/ColorRGBA.h>
#include <moxui/scriber/ScriberTypes.h>

#include <optional>

namespace playground {

enum class SymbolSide { kNone, kLeft, kRight };

// Between which times a field may be moved.
enum class FieldBounds { kHundredHours, kFirstMinute, kSecondMinute, kCrossed };

// What is added to every time of a field.
enum class FieldStart { kZero, kTenSeconds, kHour, kTenHours, kMinusHour };

// What a step of a field is.
enum class FieldSteps { kAsShown, kFramesOf24, kFeet35, kHalfSeconds, kMilliseconds };

// Whose formats the menu of a field of video offers.
enum class FormatSource { kRate, kOwner, kNobody };

// What the field of the bench has been told, and how its host shows times.
struct BenchSettings {
  // A rate of sound too, so that switching to it shows something.
  moxmediaui::TimecodeInfo host{moxmediaui::TimeDisplay(), moxmediaui::FrameRate::k2997,
                                moxmediaui::TimeDisplay(moxmediaui::TimeDisplay::kAudioSamples),
                                moxmediaui::FrameRate::PerSecond(48000)};
  moxmediaui::DisplayType displayType = moxmediaui::DisplayType::kVideo;
  bool followsHost = true;
  bool followerIsConnected = true;

  moxmediaui::TickTime time{};
  bool hasTime = true;
  moxmediaui::InvalidDisplay invalidDisplay = moxmediaui::InvalidDisplay::kTimeZero;
  FieldBounds bounds = FieldBounds::kHundredHours;
  FieldStart start = FieldStart::kZero;
  bool countsFromOne = false;
  FieldSteps steps = FieldSteps::kAsShown;

  bool isFixed = false;
  bool isDisabled = false;
  bool offersFormats = false;
  moxmediaui::TimecodeOptions menu = moxmediaui::TimecodeOptions::kSupportedFormats;
  FormatSource formats = FormatSource::kRate;

  SymbolSide symbol = SymbolSide::kNone;
  double symbolX = 0.0;
  double symbolY = 0.0;
  moxmediaui::TextSize textSize = moxmediaui::TextSize::kToolkit;
  moxui::scriber::TextAlignment alignment = moxui::scriber::TextAlignment::kLeft;
  std::optional<moxui::ColorRGBA> textColor{};
  std::optional<moxui::ColorRGBA> noTimeColor{};
  bool colorsFixed = false;

  bool operator==(BenchSettings const&) const = default;
};

class CountedField;

// Tells a field all that `now` has and `before` hasn't; a new field is as BenchSettings() are. Formats, rates
// and a refresh of the counting come from its host.
void TellField(CountedField& field, BenchSettings const& before, BenchSettings const& now);

}  // namespace playground
