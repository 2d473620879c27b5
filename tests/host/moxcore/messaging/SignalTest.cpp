#include <moxcore/messaging/Signal.h>

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace moxcore::messaging {
namespace {

using Changed = Signal<void(), 1>;

TEST(Signal, CallsItsFunctionsInOrderOfConnection) {
  Changed signal;
  std::vector<int> calls;
  signal.Connect([&] { calls.push_back(1); });
  signal.Connect([&] { calls.push_back(2); });
  signal.Fire();
  signal.Fire();
  EXPECT_EQ(calls, (std::vector<int>{1, 2, 1, 2}));
}

TEST(Signal, PassesItsArguments) {
  Signal<void(int, std::string const&), 1> signal;
  int sum = 0;
  signal.Connect([&](int number, std::string const& text) { sum += number + static_cast<int>(text.size()); });
  signal.Fire(40, "ab");
  EXPECT_EQ(sum, 42);
}

TEST(Signal, SkipsDisconnectedBlockedAndEmptyFunctions) {
  Changed signal;
  int calls = 0;
  auto connection = signal.Connect([&] { ++calls; });
  signal.Connect(nullptr);
  EXPECT_FALSE(connection.Block());
  signal.Fire();
  EXPECT_EQ(calls, 0);
  EXPECT_TRUE(connection.Unblock());
  signal.Fire();
  EXPECT_EQ(calls, 1);
  connection.Disconnect();
  signal.Fire();
  EXPECT_EQ(calls, 1);
}

TEST(Signal, LetsGoOfWhatADisconnectedFunctionHeld) {
  Changed signal;
  auto const held = std::make_shared<int>(1);
  auto connection = signal.Connect([held] {});
  EXPECT_EQ(held.use_count(), 2);
  connection.Disconnect();
  EXPECT_EQ(held.use_count(), 1);
}

TEST(Signal, LeavesAFunctionThatIsAddedWhileFiringForTheNextFiring) {
  Changed signal;
  int added = 0;
  signal.Connect([&] { signal.Connect([&] { ++added; }); });
  signal.Fire();
  EXPECT_EQ(added, 0);
  signal.Fire();
  EXPECT_EQ(added, 1);
}

TEST(Signal, SkipsAFunctionThatIsDisconnectedWhileFiring) {
  Changed signal;
  int calls = 0;
  Connection second;
  signal.Connect([&] { second.Disconnect(); });
  second = signal.Connect([&] { ++calls; });
  signal.Fire();
  EXPECT_EQ(calls, 0);
}

TEST(Signal, MayDisconnectTheFunctionThatRuns) {
  Changed signal;
  int calls = 0;
  Connection self;
  self = signal.Connect([&, held = std::make_shared<int>(5)] {
    self.Disconnect();
    calls += *held;
  });
  signal.Fire();
  signal.Fire();
  EXPECT_EQ(calls, 5);
}

TEST(Signal, MayFireWithinAFiring) {
  Changed signal;
  int depth = 0;
  signal.Connect([&] {
    if (++depth < 3) {
      signal.Fire();
    }
  });
  signal.Fire();
  EXPECT_EQ(depth, 3);
}

TEST(Signal, MayEndWhileItFires) {
  auto signal = std::make_unique<Changed>();
  int calls = 0;
  signal->Connect([&] { signal.reset(); });
  auto const second = signal->Connect([&] { ++calls; });
  signal->Fire();
  EXPECT_EQ(calls, 1);
  EXPECT_FALSE(second.IsConnected());
}

// Asks another thread for the lock of a signal when it ends, as what a function captured.
class Asking {
 public:
  Asking(Connection const& connection, bool* wasFree) : mConnection(connection), mWasFree(wasFree) {}
  ~Asking() {
    auto const answered = std::make_shared<std::promise<void>>();
    std::thread([asked = mConnection, answered] {
      asked.IsConnected();
      answered->set_value();
    }).detach();
    *mWasFree = answered->get_future().wait_for(std::chrono::seconds(10)) == std::future_status::ready;
  }
  Asking(Asking const&) = delete;
  Asking& operator=(Asking const&) = delete;

 private:
  Connection const& mConnection;
  bool* mWasFree;
};

TEST(Signal, HoldsNoLockWhileADisconnectedFunctionEnds) {
  Changed signal;
  bool wasFree = false;
  auto const other = signal.Connect([] {});
  auto connection = signal.Connect([held = std::make_shared<Asking>(other, &wasFree)] {});
  connection.Disconnect();
  EXPECT_TRUE(wasFree);
}

TEST(Signal, HoldsNoLockWhileAFunctionEndsThatDisconnectedItself) {
  Changed signal;
  bool wasFree = false;
  auto const other = signal.Connect([] {});
  Connection self;
  self = signal.Connect([&self, held = std::make_shared<Asking>(other, &wasFree)] { self.Disconnect(); });
  signal.Fire();
  EXPECT_TRUE(wasFree);
}

TEST(Signal, HoldsNoLockWhileItsFunctionsEndInTheFiringThatEndedIt) {
  auto signal = std::make_unique<Changed>();
  bool wasFree = false;
  Connection last;
  signal->Connect([held = std::make_shared<Asking>(last, &wasFree)] {});
  last = signal->Connect([&signal] { signal.reset(); });
  signal->Fire();
  EXPECT_TRUE(wasFree);
}

TEST(Signal, TakesConnectionsOfOtherThreadsWhileItFires) {
  Changed signal;
  std::atomic<int> calls{0};
  std::thread connecting([&] {
    for (int i = 0; i < 300; ++i) {
      auto connection = signal.Connect([&] { ++calls; });
      connection.Block();
      connection.Unblock();
      connection.Disconnect();
    }
  });
  for (int i = 0; i < 300; ++i) {
    signal.Fire();
  }
  connecting.join();
  calls = 0;
  signal.Fire();
  EXPECT_EQ(calls, 0);
}

}  // namespace
}  // namespace moxcore::messaging
