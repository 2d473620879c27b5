#pragma once

#include <moxcore/messaging/Connection.h>
#include <moxcore/messaging/Listener.h>
#include <moxcore/messaging/Message.h>
#include <moxcore/string/ImmutableString.h>
#include <moxcore/utility/RefCountedWeakPtr.h>

#include <memory>

namespace moxcore::messaging {

// Stations: places, known by their names, on which messages go from senders to listeners that needn't know of
// each other. Messages arrive on the main thread; every operation may be called on any thread unless it says
// otherwise, and inside a listener too. The empty name is no station: operations on it do nothing.

// The owner of a listener: it is held weakly, and kept alive while its listener hears a message.
using ListenerOwner = utility::RefCountedWeakPtr<utility::RefCountedObjectWithWeakPtr>;

// A name that no other call gives and no station has. It isn't registered yet.
ImmutableString UniqueStationID();

// Opens a station; one that is open stays as it is.
void RegisterStation(ImmutableString station);
// Closes a station and ends its connections: what was sent to it and hasn't arrived, arrives nowhere.
void DisposeStation(ImmutableString station);
bool IsStationRegistered(ImmutableString station);

// Has `listener` hear the messages of a station, until it is removed or ends, `owner` ends, or the station is
// disposed of. Registers a station that isn't. A listener that is there already with the same owner keeps its
// place; with another owner it moves to the end. An owner that has ended adds nothing. The connection may be
// dropped, or be used to block and to end.
//
// A listener that isn't its owner, and ends on another thread than the main one, is to be removed before its
// owner lets go of it.
Connection AddWeakPtrListener(ImmutableString station, ListenerOwner const& owner, Listener* listener);
// Nothing if the listener or the station is unknown. A delivery that has begun on the main thread goes on.
void RemoveListener(ImmutableString station, Listener* listener);

// Delivers at once, to the listeners in order of registration. Listeners that are added meanwhile wait for
// the next message, those that are removed or end are skipped. What a listener throws goes to the caller, and
// the listeners behind it don't hear the message. On the main thread; elsewhere it throws an error.
void BroadcastMessageOnMainThread(ImmutableString station, Message const& message);

// Delivers later, on the main thread, to those who listen then. The messages of a thread arrive in the order
// in which it sent them. A null message throws the null-pointer exception.
void AsyncBroadcastMessagePtr(ImmutableString station, std::shared_ptr<Message const> message);

}  // namespace moxcore::messaging
