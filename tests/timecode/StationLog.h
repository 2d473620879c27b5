#pragma once

#include "OpenTimecodeControl.h"

#include <moxcore/utility/RefCountedObjectWithWeakPtr.h>

#include <functional>
#include <ostream>

namespace timecode_tests {

/// What a field told its station.
struct Heard {
  enum class Kind { kChanging, kChanged, kVideoDisplay, kAudioDisplay, kOther };
  Kind kind = Kind::kOther;
  TickTime time{};
  std::uint32_t identifier = 0;
  TimeDisplay display{};

  friend bool operator==(Heard const&, Heard const&) = default;
  friend void PrintTo(Heard const& heard, std::ostream* stream) {
    *stream << "kind " << static_cast<int>(heard.kind) << " " << heard.time.GetTicks() << " ticks of "
            << heard.identifier << ", format " << heard.display.GetType();
  }
};

inline Heard Changing(TickTime time, std::uint32_t identifier = 0) {
  return {.kind = Heard::Kind::kChanging, .time = time, .identifier = identifier};
}
inline Heard Changed(TickTime time, std::uint32_t identifier = 0) {
  return {.kind = Heard::Kind::kChanged, .time = time, .identifier = identifier};
}
inline Heard VideoDisplay(TimeDisplay display) {
  return {.kind = Heard::Kind::kVideoDisplay, .display = display};
}
inline Heard AudioDisplay(TimeDisplay display) {
  return {.kind = Heard::Kind::kAudioDisplay, .display = display};
}

/// Writes down what comes over a station.
class StationLog : public moxcore::utility::RefCountedObjectWithWeakPtr, public moxcore::messaging::Listener {
 public:
  static IntrusivePtr<StationLog> On(moxcore::ImmutableString station) {
    auto log = moxcore::utility::MakeIntrusive<StationLog>();
    moxcore::messaging::AddWeakPtrListener(station, log, log.Get());
    return log;
  }

  void ListenToMessage(moxcore::messaging::Message const& message) override {
    Heard one;
    if (auto const* const changing = moxmediaui::HotTimecodeValueChangingMessage::Find(message)) {
      one = Changing(changing->Get<0>(), changing->Get<1>());
    } else if (auto const* const changed = moxmediaui::HotTimecodeValueChangedMessage::Find(message)) {
      one = Changed(changed->Get<0>(), changed->Get<1>());
    } else if (auto const* const video =
                   moxmediaui::HotTimecodeVideoTimeDisplayChangedMessage::Find(message)) {
      one = VideoDisplay(video->Get<0>());
    } else if (auto const* const audio =
                   moxmediaui::HotTimecodeAudioTimeDisplayChangedMessage::Find(message)) {
      one = AudioDisplay(audio->Get<0>());
    }
    heard.push_back(one);
    if (whenHeard) {
      whenHeard(one);
    }
  }

  std::vector<Heard> heard;
  std::function<void(Heard const&)> whenHeard;
};

}  // namespace timecode_tests
