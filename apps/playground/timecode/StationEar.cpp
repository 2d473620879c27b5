#include "timecode/StationEar.h"

#include <moxcore/messaging/Station.h>

#include <utility>

namespace playground {

StationEar::StationEar(Function function) : mFunction(std::move(function)) {}

StationEar::~StationEar() = default;

void StationEar::Hear(moxcore::ImmutableString station) {
  moxcore::messaging::AddWeakPtrListener(station, moxcore::messaging::ListenerOwner(this), this);
}

void StationEar::ListenToMessage(moxcore::messaging::Message const& message) {
  mFunction(message);
}

}  // namespace playground
