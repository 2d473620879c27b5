#pragma once

#include <moxcore/messaging/Connection.h>
#include <moxcore/messaging/Message.h>

#include <mutex>
#include <vector>

namespace moxcore::messaging {

// What listeners of every kind have in common: their end ends their connections. A copy starts without any.
class CommonListener {
 public:
  virtual ~CommonListener();

  // Ends the connection no later than this listener. Any thread may call.
  void KeepConnection(Connection connection);

 protected:
  CommonListener() noexcept = default;
  CommonListener(CommonListener const&) noexcept {}
  CommonListener& operator=(CommonListener const&) noexcept { return *this; }

 private:
  std::mutex mMutex;
  std::vector<Connection> mConnections;
};

// Hears the messages of the stations that it was added to (AddWeakPtrListener).
class Listener : public virtual CommonListener {
 public:
  // On the main thread. A listener tells messages apart by their ids (MessageBase::Find) and leaves those
  // that it doesn't know.
  virtual void ListenToMessage(Message const& message) = 0;
};

}  // namespace moxcore::messaging
