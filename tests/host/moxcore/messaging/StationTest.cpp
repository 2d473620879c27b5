#include "Hearing.h"

#include <moxcore/config/Errors.h>
#include <moxcore/threads/MainThread.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <thread>

namespace moxcore::messaging {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// An owner that only owns.
class Panel : public utility::RefCountedObjectWithWeakPtr {};

TEST(Station, DeliversInOrderOfRegistration) {
  OpenStation station;
  auto const a = station.Add("a");
  auto const b = station.Add("b");
  auto const c = station.Add("c");
  station.Send("1");
  station.Send("2");
  EXPECT_THAT(station.log, ElementsAre("a:1", "b:1", "c:1", "a:2", "b:2", "c:2"));
}

TEST(Station, LeavesOthersAlone) {
  OpenStation station;
  OpenStation other;
  auto const a = station.Add("a");
  other.Send("1");
  EXPECT_THAT(station.log, IsEmpty());
}

TEST(Station, GivesNamesThatNoStationHas) {
  auto const first = UniqueStationID();
  auto const second = UniqueStationID();
  EXPECT_NE(first, second);
  EXPECT_FALSE(first.empty());
  EXPECT_FALSE(IsStationRegistered(first));
  // The next name is taken: it is passed over.
  auto const text = second.ToUTF8String();
  auto const number = std::stoi(std::string(text.substr(text.rfind('.') + 1)));
  auto const taken = ImmutableString::Create("moxcore.messaging.station." + std::to_string(number + 1));
  RegisterStation(taken);
  EXPECT_NE(UniqueStationID(), taken);
  DisposeStation(taken);
}

TEST(Station, IsOpenFromItsRegistrationToItsDisposal) {
  auto const id = UniqueStationID();
  RegisterStation(id);
  EXPECT_TRUE(IsStationRegistered(id));
  DisposeStation(id);
  EXPECT_FALSE(IsStationRegistered(id));
  DisposeStation(id);
}

TEST(Station, IsRegisteredByItsFirstListenerToo) {
  Log log;
  auto const id = UniqueStationID();
  auto const a = utility::MakeIntrusive<Hearing>(log, "a");
  AddWeakPtrListener(id, a, a.Get());
  EXPECT_TRUE(IsStationRegistered(id));
  RegisterStation(id);
  BroadcastMessageOnMainThread(id, Note("1"));
  EXPECT_THAT(log, ElementsAre("a:1"));
  DisposeStation(id);
}

TEST(Station, EndsItsConnectionsWhenItIsDisposedOf) {
  OpenStation station;
  auto const a = utility::MakeIntrusive<Hearing>(station.log, "a");
  auto const connection = AddWeakPtrListener(station.id, a, a.Get());
  DisposeStation(station.id);
  EXPECT_FALSE(connection.IsConnected());
  RegisterStation(station.id);
  station.Send("1");
  EXPECT_THAT(station.log, IsEmpty());
}

TEST(Station, UnknownOnesDoNothing) {
  Log log;
  auto const a = utility::MakeIntrusive<Hearing>(log, "a");
  auto const unknown = UniqueStationID();
  RemoveListener(unknown, a.Get());
  BroadcastMessageOnMainThread(unknown, Note("1"));
  AsyncBroadcastMessagePtr(unknown, std::make_shared<Note>("1"));
  EXPECT_EQ(threads::DrainMainThreadQueue(), 0);
  EXPECT_FALSE(IsStationRegistered(unknown));
}

TEST(Station, TheEmptyNameIsNone) {
  Log log;
  auto const a = utility::MakeIntrusive<Hearing>(log, "a");
  RegisterStation({});
  EXPECT_FALSE(IsStationRegistered({}));
  EXPECT_FALSE(AddWeakPtrListener({}, a, a.Get()).IsConnected());
  BroadcastMessageOnMainThread({}, Note("1"));
  EXPECT_THAT(log, IsEmpty());
}

TEST(Station, HearsTheSameListenerOnce) {
  OpenStation station;
  auto const a = station.Add("a");
  auto const b = station.Add("b");
  AddWeakPtrListener(station.id, a, a.Get());
  station.Send("1");
  EXPECT_THAT(station.log, ElementsAre("a:1", "b:1"));
  RemoveListener(station.id, a.Get());
  station.Send("2");
  EXPECT_THAT(station.log, ElementsAre("a:1", "b:1", "b:2"));
}

TEST(Station, TakesAnotherOwnerForTheSameListener) {
  OpenStation station;
  auto const a = station.Add("a");
  auto const b = station.Add("b");
  auto panel = utility::MakeIntrusive<Panel>();
  AddWeakPtrListener(station.id, panel, a.Get());
  station.Send("1");
  EXPECT_THAT(station.log, ElementsAre("b:1", "a:1"));
  panel.Reset();
  station.Send("2");
  EXPECT_THAT(station.log, ElementsAre("b:1", "a:1", "b:2"));
}

TEST(Station, RemovesAListener) {
  OpenStation station;
  auto const a = station.Add("a");
  auto const b = station.Add("b");
  RemoveListener(station.id, a.Get());
  RemoveListener(station.id, a.Get());
  RemoveListener(station.id, nullptr);
  station.Send("1");
  EXPECT_THAT(station.log, ElementsAre("b:1"));
}

TEST(Station, AListenerEndsWithItsOwner) {
  OpenStation station;
  Hearing listener(station.log, "a");
  auto owner = utility::MakeIntrusive<Panel>();
  auto const connection = AddWeakPtrListener(station.id, owner, &listener);
  owner.Reset();
  station.Send("1");
  EXPECT_THAT(station.log, IsEmpty());
  EXPECT_FALSE(connection.IsConnected());
}

TEST(Station, AListenerMayEndBeforeItsOwner) {
  OpenStation station;
  auto const owner = utility::MakeIntrusive<Panel>();
  {
    Hearing listener(station.log, "a");
    AddWeakPtrListener(station.id, owner, &listener);
  }
  station.Send("1");
  EXPECT_THAT(station.log, IsEmpty());
}

TEST(Station, ACopiedListenerStartsUnconnected) {
  OpenStation station;
  auto const a = station.Add("a");
  { Hearing const copy(*a); }
  station.Send("1");
  EXPECT_THAT(station.log, ElementsAre("a:1"));
}

class ListeningFromTheStart : public Hearing {
 public:
  ListeningFromTheStart(Log& log, ImmutableString station) : Hearing(log, "a") {
    AddWeakPtrListener(station, this, this);
  }
};

TEST(Station, TakesAListenerThatIsBeingMade) {
  OpenStation station;
  auto const a = utility::MakeIntrusive<ListeningFromTheStart>(station.log, station.id);
  station.Send("1");
  EXPECT_THAT(station.log, ElementsAre("a:1"));
  EXPECT_EQ(a->GetRefCount(), 1);
}

TEST(Station, TakesNoOwnerThatHasEnded) {
  OpenStation station;
  Hearing listener(station.log, "a");
  ListenerOwner const none;
  EXPECT_FALSE(AddWeakPtrListener(station.id, none, &listener).IsConnected());
  station.Send("1");
  EXPECT_THAT(station.log, IsEmpty());
}

TEST(Station, ThrowsOnANullListenerOrMessage) {
  OpenStation station;
  auto const a = station.Add("a");
  EXPECT_THROW(AddWeakPtrListener(station.id, a, nullptr), config::mox_exception);
  EXPECT_THROW(AsyncBroadcastMessagePtr(station.id, nullptr), config::mox_exception);
}

TEST(Station, BlocksAndEndsAListenerByItsConnection) {
  OpenStation station;
  auto const a = utility::MakeIntrusive<Hearing>(station.log, "a");
  auto connection = AddWeakPtrListener(station.id, a, a.Get());
  EXPECT_FALSE(connection.Block());
  station.Send("1");
  EXPECT_TRUE(connection.Unblock());
  station.Send("2");
  connection.Disconnect();
  station.Send("3");
  EXPECT_THAT(station.log, ElementsAre("a:2"));
}

TEST(Station, AnEndedConnectionDoesNotEndTheNextOfItsListener) {
  OpenStation station;
  auto const a = utility::MakeIntrusive<Hearing>(station.log, "a");
  auto old = AddWeakPtrListener(station.id, a, a.Get());
  RemoveListener(station.id, a.Get());
  AddWeakPtrListener(station.id, a, a.Get());
  old.Disconnect();
  station.Send("1");
  EXPECT_THAT(station.log, ElementsAre("a:1"));
}

TEST(Station, RefusesToSendAtOnceFromAnotherThread) {
  OpenStation station;
  auto const a = station.Add("a");
  std::thread([&] { EXPECT_THROW(station.Send("1"), config::mox_exception); }).join();
  EXPECT_THAT(station.log, IsEmpty());
}

TEST(Station, HandsTheExceptionOfAListenerToTheSender) {
  OpenStation station;
  auto const a = station.Add("a");
  auto const b = station.Add("b");
  auto const c = station.Add("c");
  b->onNote = [] { throw std::runtime_error("no"); };
  EXPECT_THROW(station.Send("1"), std::runtime_error);
  b->onNote = {};
  RemoveListener(station.id, a.Get());
  station.Send("2");
  EXPECT_THAT(station.log, ElementsAre("a:1", "b:1", "b:2", "c:2"));
}

TEST(Station, KeepsItsOrderWhileManyComeAndGo) {
  OpenStation station;
  std::vector<HearingPtr> listeners;
  for (int i = 0; i < 1000; ++i) {
    listeners.push_back(station.Add(std::to_string(i)));
  }
  Log expected;
  for (int i = 0; i < 1000; ++i) {
    if (i % 7 == 3) {
      expected.push_back(std::to_string(i) + ":1");
    } else if (i % 2 == 0) {
      listeners[static_cast<std::size_t>(i)].Reset();
    } else {
      RemoveListener(station.id, listeners[static_cast<std::size_t>(i)].Get());
    }
  }
  auto const late = station.Add("late");
  expected.emplace_back("late:1");
  station.Send("1");
  EXPECT_EQ(station.log, expected);
}

}  // namespace
}  // namespace moxcore::messaging
