// Messages that are delivered later, and from other threads.
#include "Hearing.h"

#include <moxcore/threads/MainThread.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <map>
#include <stdexcept>
#include <thread>

namespace moxcore::messaging {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using threads::DrainMainThreadQueue;

TEST(StationLater, DeliversInOrderOfSending) {
  OpenStation station;
  OpenStation other;
  auto const a = station.Add("a");
  auto const b = utility::MakeIntrusive<Hearing>(station.log, "b");
  AddWeakPtrListener(other.id, b, b.Get());
  station.SendLater("1");
  other.SendLater("2");
  station.SendLater("3");
  EXPECT_THAT(station.log, IsEmpty());
  DrainMainThreadQueue();
  EXPECT_THAT(station.log, ElementsAre("a:1", "b:2", "a:3"));
}

TEST(StationLater, DeliversOnTheMainThreadWhoeverSends) {
  OpenStation station;
  auto const a = station.Add("a");
  bool onMainThread = false;
  a->onNote = [&] { onMainThread = threads::CurrentThreadIsMainThread(); };
  std::thread([&] {
    station.SendLater("1");
    station.SendLater("2");
  }).join();
  EXPECT_THAT(station.log, IsEmpty());
  DrainMainThreadQueue();
  EXPECT_TRUE(onMainThread);
  EXPECT_THAT(station.log, ElementsAre("a:1", "a:2"));
}

TEST(StationLater, IsHeardByThoseWhoListenWhenItArrives) {
  OpenStation station;
  auto const a = station.Add("a");
  station.SendLater("1");
  RemoveListener(station.id, a.Get());
  auto const b = station.Add("b");
  DrainMainThreadQueue();
  EXPECT_THAT(station.log, ElementsAre("b:1"));
}

TEST(StationLater, ArrivesNowhereWhenItsListenerHasEnded) {
  OpenStation station;
  auto a = station.Add("a");
  station.SendLater("1");
  a.Reset();
  EXPECT_EQ(DrainMainThreadQueue(), 1);
  EXPECT_THAT(station.log, IsEmpty());
}

TEST(StationLater, ArrivesNowhereWhenItsStationWasDisposedOf) {
  OpenStation station;
  auto const a = station.Add("a");
  station.SendLater("1");
  DisposeStation(station.id);
  DrainMainThreadQueue();
  EXPECT_THAT(station.log, IsEmpty());

  AddWeakPtrListener(station.id, a, a.Get());
  station.SendLater("2");
  DisposeStation(station.id);
  AddWeakPtrListener(station.id, a, a.Get());
  DrainMainThreadQueue();
  EXPECT_THAT(station.log, IsEmpty());
}

TEST(StationLater, LeavesWhatAListenerSendsLaterForTheNextRound) {
  OpenStation station;
  auto const a = station.Add("a");
  a->onNote = [&] {
    if (station.log.size() < 3) {
      station.SendLater("again");
    }
  };
  station.SendLater("1");
  EXPECT_EQ(DrainMainThreadQueue(), 1);
  EXPECT_THAT(station.log, ElementsAre("a:1"));
  EXPECT_EQ(DrainMainThreadQueue(), 1);
  EXPECT_EQ(DrainMainThreadQueue(), 1);
  EXPECT_EQ(DrainMainThreadQueue(), 0);
  EXPECT_THAT(station.log, ElementsAre("a:1", "a:again", "a:again"));
}

TEST(StationLater, IsOvertakenByWhatIsSentAtOnce) {
  OpenStation station;
  auto const a = station.Add("a");
  station.SendLater("later");
  station.Send("at once");
  DrainMainThreadQueue();
  EXPECT_THAT(station.log, ElementsAre("a:at once", "a:later"));
}

TEST(StationLater, KeepsTheMessagesBehindOneWhoseListenerThrows) {
  OpenStation station;
  auto const a = station.Add("a");
  a->onNote = [&] {
    a->onNote = {};
    throw std::runtime_error("no");
  };
  station.SendLater("1");
  station.SendLater("2");
  EXPECT_THROW(DrainMainThreadQueue(), std::runtime_error);
  DrainMainThreadQueue();
  EXPECT_THAT(station.log, ElementsAre("a:1", "a:2"));
}

TEST(StationLater, LetsGoOfItsMessageOnceItHasArrived) {
  OpenStation station;
  auto const note = std::make_shared<Note>("1");
  AsyncBroadcastMessagePtr(station.id, note);
  EXPECT_EQ(note.use_count(), 2);
  DrainMainThreadQueue();
  EXPECT_EQ(note.use_count(), 1);
}

struct MessageNameForCount {};
using Count = MessageBase<MessageNameForCount, int, int>;

// Counts by sender; complains when one of a sender's messages is missing or out of order.
class Counting : public Listener, public utility::RefCountedObjectWithWeakPtr {
 public:
  void ListenToMessage(Message const& message) override {
    if (auto const* const count = Count::Find(message)) {
      auto& next = mNext[count->Get<0>()];
      inOrder = inOrder && count->Get<1>() == next;
      ++next;
      ++total;
    }
  }
  bool inOrder = true;
  int total = 0;

 private:
  std::map<int, int> mNext;
};

TEST(StationThreads, EveryMessageOfManyThreadsArrivesInItsThreadsOrder) {
  constexpr int kThreads = 8;
  constexpr int kMessages = 500;
  OpenStation station;
  auto const counting = utility::MakeIntrusive<Counting>();
  AddWeakPtrListener(station.id, counting, counting.Get());
  std::atomic<int> running{kThreads};
  std::vector<std::thread> threads;
  for (int thread = 0; thread < kThreads; ++thread) {
    threads.emplace_back([&, thread] {
      for (int i = 0; i < kMessages; ++i) {
        AsyncBroadcastMessagePtr(station.id, std::make_shared<Count>(thread, i));
      }
      --running;
    });
  }
  while (running > 0) {
    DrainMainThreadQueue();
  }
  for (auto& thread : threads) {
    thread.join();
  }
  DrainMainThreadQueue();
  EXPECT_TRUE(counting->inOrder);
  EXPECT_EQ(counting->total, kThreads * kMessages);
}

TEST(StationThreads, TakeListenersAndStationsOfOtherThreadsWhileMessagesArrive) {
  constexpr int kThreads = 4;
  OpenStation station;
  std::atomic<int> running{kThreads};
  std::vector<std::thread> threads;
  for (int thread = 0; thread < kThreads; ++thread) {
    threads.emplace_back([&] {
      auto const own = UniqueStationID();
      for (int i = 0; i < 300; ++i) {
        auto const counting = utility::MakeIntrusive<Counting>();
        auto connection = AddWeakPtrListener(station.id, counting, counting.Get());
        AddWeakPtrListener(own, counting, counting.Get());
        AsyncBroadcastMessagePtr(own, std::make_shared<Count>(0, 0));
        AsyncBroadcastMessagePtr(station.id, std::make_shared<Count>(0, i));
        connection.Block();
        connection.Unblock();
        if (i % 3 == 0) {
          RemoveListener(station.id, counting.Get());
        } else if (i % 3 == 1) {
          connection.Disconnect();
        }
        DisposeStation(own);
      }
      --running;
    });
  }
  int sent = 0;
  while (running > 0) {
    BroadcastMessageOnMainThread(station.id, Count(-1, sent++));
    DrainMainThreadQueue();
  }
  for (auto& thread : threads) {
    thread.join();
  }
  DrainMainThreadQueue();

  auto const counting = utility::MakeIntrusive<Counting>();
  AddWeakPtrListener(station.id, counting, counting.Get());
  BroadcastMessageOnMainThread(station.id, Count(0, 0));
  EXPECT_EQ(counting->total, 1);
}

}  // namespace
}  // namespace moxcore::messaging
