#include "timecode/StationMessages.h"

#include "program/Localized.h"

#include <moxmediaui/HotTimecodeControl.h>

namespace playground {
namespace {

using moxcore::messaging::Message;

std::string NameOf(moxmediatypes::TimeDisplay display) {
  return To8(moxmediatypes::TimeDisplayDescription(display, true));
}

}  // namespace

std::optional<ToldTime> FindToldTime(Message const& message) {
  if (auto const* const changing = moxmediaui::HotTimecodeValueChangingMessage::Find(message)) {
    return ToldTime{changing->Get<0>(), changing->Get<1>(), false};
  }
  if (auto const* const changed = moxmediaui::HotTimecodeValueChangedMessage::Find(message)) {
    return ToldTime{changed->Get<0>(), changed->Get<1>(), true};
  }
  return std::nullopt;
}

std::string StationMessageText(Message const& message, std::string_view shown) {
  if (auto const told = FindToldTime(message)) {
    std::string const field = std::to_string(told->field);
    std::string const ticks = std::to_string(told->time.GetTicks());
    return told->isSettled
               ? Text("$$$/playground/timecode/message/changed=Field @0: changed, @1 (@2 ticks)",
                      {field, shown, ticks})
               : Text("$$$/playground/timecode/message/changing=Field @0: changing, @1 (@2 ticks)",
                      {field, shown, ticks});
  }
  if (auto const* const video = moxmediaui::HotTimecodeVideoTimeDisplayChangedMessage::Find(message)) {
    return Text("$$$/playground/timecode/message/video=Format of video: @0", {NameOf(video->Get<0>())});
  }
  if (auto const* const audio = moxmediaui::HotTimecodeAudioTimeDisplayChangedMessage::Find(message)) {
    return Text("$$$/playground/timecode/message/audio=Format of sound: @0", {NameOf(audio->Get<0>())});
  }
  if (auto const* const turn = moxmediaui::RadialControllerChangeMessage::Find(message)) {
    return Text("$$$/playground/timecode/message/turn=Radial controller: @0",
                {std::to_string(turn->Get<0>())});
  }
  return {};
}

}  // namespace playground
