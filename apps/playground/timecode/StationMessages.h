#pragma once

#include <moxcore/messaging/Message.h>
#include <moxmediatypes/TickTime.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace playground {

// A time that a timecode field told its station.
struct ToldTime {
  moxmediatypes::TickTime time;  // without the field's offset
  std::uint32_t field = 0;       // its identifier
  bool isSettled = false;        // a drag or an edit has ended with it
};
std::optional<ToldTime> FindToldTime(moxcore::messaging::Message const& message);

// What goes over the stations of timecode fields, in one line; empty for other messages. `shown` is the text
// of the field that told a time.
std::string StationMessageText(moxcore::messaging::Message const& message, std::string_view shown);

}  // namespace playground
