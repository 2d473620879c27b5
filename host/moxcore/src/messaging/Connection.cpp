#include <moxcore/messaging/Connection.h>

namespace moxcore::messaging {

ConnectionLink::~ConnectionLink() = default;

void Connection::Disconnect() {
  if (auto const link = mLink.lock()) {
    link->Disconnect();
  }
  mLink.reset();
}

bool Connection::IsConnected() const {
  auto const link = mLink.lock();
  return link != nullptr && link->IsConnected();
}

bool Connection::Block() {
  auto const link = mLink.lock();
  return link != nullptr && link->Block();
}

bool Connection::Unblock() {
  auto const link = mLink.lock();
  return link != nullptr && link->Unblock();
}

bool Connection::IsBlocked() const {
  auto const link = mLink.lock();
  return link != nullptr && link->IsBlocked();
}

ScopedConnection& ScopedConnection::operator=(Connection connection) {
  // The new one is in place before the old one ends: what ending it destroys may look at this.
  std::exchange(mConnection, std::move(connection)).Disconnect();
  return *this;
}

ScopedConnection& ScopedConnection::operator=(ScopedConnection&& other) noexcept {
  if (this != &other) {
    *this = other.Release();
  }
  return *this;
}

}  // namespace moxcore::messaging
