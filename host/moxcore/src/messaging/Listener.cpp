#include <moxcore/messaging/Listener.h>

#include <utility>

namespace moxcore::messaging {

CommonListener::~CommonListener() {
  for (auto& connection : mConnections) {
    connection.Disconnect();
  }
}

void CommonListener::KeepConnection(Connection connection) {
  std::lock_guard const lock(mMutex);
  if (mConnections.size() == mConnections.capacity()) {
    std::erase_if(mConnections, [](Connection const& one) { return !one.IsConnected(); });
  }
  mConnections.push_back(std::move(connection));
}

}  // namespace moxcore::messaging
