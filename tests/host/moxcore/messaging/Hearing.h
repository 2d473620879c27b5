#pragma once

#include <moxcore/messaging/MessageBase.h>
#include <moxcore/messaging/Station.h>
#include <moxcore/utility/IntrusivePtr.h>
#include <moxcore/utility/RefCountedObjectWithWeakPtr.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace moxcore::messaging {

struct MessageNameForNote {};
using Note = MessageBase<MessageNameForNote, std::string>;

using Log = std::vector<std::string>;

// Writes "name:note" for every note that it hears, and then does what the test says.
class Hearing : public Listener, public utility::RefCountedObjectWithWeakPtr {
 public:
  Hearing(Log& log, std::string name) : mLog(log), mName(std::move(name)) {}

  void ListenToMessage(Message const& message) override {
    auto const* const note = Note::Find(message);
    mLog.push_back(mName + ":" + (note != nullptr ? note->Get<0>() : "?"));
    if (onNote) {
      onNote();
    }
  }

  std::function<void()> onNote;

 private:
  Log& mLog;
  std::string mName;
};

using HearingPtr = utility::IntrusivePtr<Hearing>;

// A station of its own for a test, with listeners that own themselves.
class OpenStation {
 public:
  OpenStation() { RegisterStation(id); }
  ~OpenStation() { DisposeStation(id); }
  OpenStation(OpenStation const&) = delete;
  OpenStation& operator=(OpenStation const&) = delete;

  HearingPtr Add(std::string name) {
    auto hearing = utility::MakeIntrusive<Hearing>(log, std::move(name));
    AddWeakPtrListener(id, hearing, hearing.Get());
    return hearing;
  }
  void Send(std::string note) const { BroadcastMessageOnMainThread(id, Note(std::move(note))); }
  void SendLater(std::string note) const {
    AsyncBroadcastMessagePtr(id, std::make_shared<Note>(std::move(note)));
  }

  ImmutableString id = UniqueStationID();
  Log log;
};

}  // namespace moxcore::messaging
