#include "audio/PlayheadField.h"

#include "audio/Transport.h"
#include "program/Localized.h"
#include "timecode/StationEar.h"
#include "timecode/StationMessages.h"

#include <moxui/skins/Look.h>

#include <cmath>
#include <utility>

namespace playground {
namespace {

using moxcore::messaging::Message;
using moxmediaui::DisplayType;
using moxmediaui::FrameRate;
using moxmediaui::TickTime;
using moxmediaui::TimeDisplay;

}  // namespace

PlayheadField::PlayheadField(AudioSession& session, Transport& transport)
    : mSession(session), mTransport(transport) {
  UI_SetToolTip(moxcore::Utf8String(Text("$$$/playground/transport/position=Position of the playhead")),
                moxui::skins::GetToolTipDelay());
  SetDisplayType(DisplayType::kAudio);
  SetAllowDisplayFormatOverride(true);
  // Held for the time of a message, since a listener may take the field away.
  mEar = moxcore::utility::MakeIntrusive<StationEar>(
      [weak = moxcore::utility::RefCountedWeakPtr<PlayheadField>(this)](Message const& message) {
        if (auto const field = weak.Lock()) {
          field->Hear(message);
        }
      });
  mEar->Hear(GetStationID());
  mEar->Hear(GetTimeDisplayChangedStationID());
  TakeDocument();
}

PlayheadField::~PlayheadField() = default;

FrameRate PlayheadField::SampleRate() const {
  return FrameRate::PerSecond(mSession.Current().SampleRate());
}

void PlayheadField::TakeDocument() {
  bool const inMilliseconds = mSession.Settings().playheadInMilliseconds;
  TimeDisplay const display(inMilliseconds ? TimeDisplay::kMilliseconds : TimeDisplay::kAudioSamples);
  ResetFrameRate(display, SampleRate(), DisplayType::kAudio);
  // What is being typed would be lost to an end that is set again.
  if (TickTime const end(mSession.Current().Frames(), SampleRate()); end != GetMaxTime()) {
    SetMaxTime(end);
  }
  ShowPosition();
}

// The nearest one: milliseconds lie between samples.
std::int64_t PlayheadField::SampleOf(TickTime time) const {
  FrameRate const rate = SampleRate();
  std::int64_t const ticks = rate.GetTicksPerFrame();
  return rate.IsValid() ? (time.GetTicks() + ticks / 2) / ticks : 0;
}

void PlayheadField::ShowPosition() {
  auto const sample = static_cast<std::int64_t>(std::floor(mTransport.Position()));
  // A time that is meant for the sample stays: steps would add up the distance between them otherwise.
  if (HasFocus() || IsScrubbing() || sample == SampleOf(GetTime())) {
    return;
  }
  SetTime(TickTime(sample, SampleRate()), true);
  mKnown = GetTime();
}

void PlayheadField::Hear(Message const& message) {
  if (auto const told = FindToldTime(message)) {
    HearTime(told->time, told->isSettled);
  } else if (auto const* const audio = moxmediaui::HotTimecodeAudioTimeDisplayChangedMessage::Find(message)) {
    bool const inMilliseconds = audio->Get<0>().GetType() == TimeDisplay::kMilliseconds;
    mSession.ChangeSettings(
        [&](WaveformSettings& settings) { settings.playheadInMilliseconds = inMilliseconds; });
  }
}

// The end of a drag, of a run of keys or of an edit is told in any case; what was typed, and where a pen was
// before it slipped, the transport doesn't know yet.
void PlayheadField::HearTime(TickTime time, bool isSettled) {
  bool const isNews = time != std::exchange(mKnown, time);
  auto const sample = static_cast<double>(SampleOf(time));
  if (isSettled) {
    if (isNews) {
      mTransport.GoTo(sample);
    }
    mDrag.reset();
    mTransport.EndScrub();
    return;
  }
  if (IsScrubbing() && !mDrag) {
    mDrag.emplace(mSession);
  }
  if (IsScrubbing() || !mTransport.IsPlaying()) {
    mTransport.ScrubTo(sample);
  } else {
    mTransport.GoTo(sample);
  }
}

}  // namespace playground
