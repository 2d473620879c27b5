#include <moxcore/messaging/Connection.h>

#include <gtest/gtest.h>

namespace moxcore::messaging {
namespace {

class Link : public ConnectionLink {
 public:
  void Disconnect() override { connected = false; }
  bool IsConnected() const override { return connected; }
  bool Block() override { return std::exchange(blocked, true); }
  bool Unblock() override { return std::exchange(blocked, false); }
  bool IsBlocked() const override { return blocked; }

  bool connected = true;
  bool blocked = false;
};

TEST(Connection, SpeaksForItsLink) {
  auto const link = std::make_shared<Link>();
  Connection connection(link);
  auto copy = connection;
  EXPECT_TRUE(copy.IsConnected());
  EXPECT_FALSE(connection.Block());
  EXPECT_TRUE(copy.Block());
  EXPECT_TRUE(copy.IsBlocked());
  EXPECT_TRUE(copy.Unblock());
  EXPECT_FALSE(link->blocked);
  connection.Disconnect();
  EXPECT_FALSE(link->connected);
  EXPECT_FALSE(copy.IsConnected());
}

TEST(Connection, DoesNothingWithoutALinkOrOnceItIsGone) {
  auto link = std::make_shared<Link>();
  Connection gone(link);
  link.reset();
  for (auto* connection : {&gone}) {
    EXPECT_FALSE(connection->IsConnected());
    EXPECT_FALSE(connection->Block());
    EXPECT_FALSE(connection->IsBlocked());
    EXPECT_FALSE(connection->Unblock());
    connection->Disconnect();
  }
  Connection none;
  EXPECT_FALSE(none.IsConnected());
  none.Disconnect();
}

TEST(ScopedConnection, DisconnectsAtItsEnd) {
  auto const link = std::make_shared<Link>();
  {
    ScopedConnection const scoped = Connection(link);
    EXPECT_TRUE(scoped.IsConnected());
  }
  EXPECT_FALSE(link->connected);
}

TEST(ScopedConnection, DisconnectsWhenAnotherIsAssigned) {
  auto const first = std::make_shared<Link>();
  auto const second = std::make_shared<Link>();
  ScopedConnection scoped = Connection(first);
  scoped = Connection(second);
  EXPECT_FALSE(first->connected);
  EXPECT_TRUE(second->connected);
  scoped = ScopedConnection();
  EXPECT_FALSE(second->connected);
}

TEST(ScopedConnection, MovesAndReleasesWithoutDisconnecting) {
  auto const link = std::make_shared<Link>();
  Connection released;
  {
    ScopedConnection first = Connection(link);
    ScopedConnection second(std::move(first));
    ScopedConnection third;
    third = std::move(second);
    EXPECT_TRUE(third.IsConnected());
    auto& same = third;
    third = std::move(same);
    EXPECT_TRUE(link->connected);
    released = third.Release();
  }
  EXPECT_TRUE(released.IsConnected());
}

}  // namespace
}  // namespace moxcore::messaging
