#pragma once

#include <moxcore/messaging/Station.h>
#include <moxcore/threads/MainThread.h>

#include <memory>

namespace moxmediaui {

/// Sends a message to a station: at once on the main thread, from any other one by way of it. The empty
/// station gets nothing.
template <class ConcreteMessage>
void BroadcastOnStation(moxcore::ImmutableString station, ConcreteMessage const& message) {
  if (station.empty()) {
    return;
  }
  if (moxcore::threads::CurrentThreadIsMainThread()) {
    moxcore::messaging::BroadcastMessageOnMainThread(station, message);
  } else {
    moxcore::messaging::AsyncBroadcastMessagePtr(station, std::make_shared<ConcreteMessage const>(message));
  }
}

}  // namespace moxmediaui
