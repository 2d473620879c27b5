#pragma once

#include <memory>
#include <utility>

namespace moxcore::messaging {

// One end of a connection between a sender and a function: what a sender implements. The operations stand in
// the order of their slots.
class ConnectionLink {
 public:
  virtual ~ConnectionLink();
  // The function is called no more; its hold on what it captured is let go.
  virtual void Disconnect() = 0;
  virtual bool IsConnected() const = 0;
  // While blocked the function isn't called. Both give whether it was blocked before.
  virtual bool Block() = 0;
  virtual bool Unblock() = 0;
  virtual bool IsBlocked() const = 0;

 protected:
  ConnectionLink() = default;
  ConnectionLink(ConnectionLink const&) = default;
  ConnectionLink& operator=(ConnectionLink const&) = default;
};

// The listener's end. It doesn't keep the link alive: the sender does. Copies speak of the same link. Without
// a link, or once the sender is gone, it is unconnected and its operations do nothing.
class Connection {
 public:
  Connection() noexcept = default;
  explicit Connection(std::weak_ptr<ConnectionLink> link) noexcept : mLink(std::move(link)) {}

  void Disconnect();
  bool IsConnected() const;
  bool Block();
  bool Unblock();
  bool IsBlocked() const;

 private:
  std::weak_ptr<ConnectionLink> mLink;
};

// A connection that ends with its holder, or when another one is assigned.
class ScopedConnection {
 public:
  ScopedConnection() noexcept = default;
  ScopedConnection(Connection connection) noexcept : mConnection(std::move(connection)) {}
  ScopedConnection(ScopedConnection&& other) noexcept : mConnection(other.Release()) {}
  ~ScopedConnection() { mConnection.Disconnect(); }

  ScopedConnection& operator=(Connection connection);
  // Ending the old connection destroys what its function held, which mustn't throw.
  ScopedConnection& operator=(ScopedConnection&& other) noexcept;
  ScopedConnection(ScopedConnection const&) = delete;
  ScopedConnection& operator=(ScopedConnection const&) = delete;

  void Disconnect() { mConnection.Disconnect(); }
  bool IsConnected() const { return mConnection.IsConnected(); }
  bool Block() { return mConnection.Block(); }
  bool Unblock() { return mConnection.Unblock(); }
  bool IsBlocked() const { return mConnection.IsBlocked(); }

  // Gives the connection away without ending it.
  Connection Release() noexcept { return std::exchange(mConnection, Connection()); }

 private:
  Connection mConnection;
};

}  // namespace moxcore::messaging
