// What listeners may do while a message is being delivered.
#include "Hearing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace moxcore::messaging {
namespace {

using ::testing::ElementsAre;

TEST(StationWhileSending, LeavesANewListenerForTheNextMessage) {
  OpenStation station;
  auto const a = station.Add("a");
  HearingPtr added;
  a->onNote = [&] {
    if (!added) {
      added = station.Add("added");
    }
  };
  station.Send("1");
  station.Send("2");
  EXPECT_THAT(station.log, ElementsAre("a:1", "a:2", "added:2"));
}

TEST(StationWhileSending, LeavesAListenerThatIsRemovedAndAddedForTheNextMessage) {
  OpenStation station;
  auto const a = station.Add("a");
  auto const b = station.Add("b");
  a->onNote = [&] {
    RemoveListener(station.id, b.Get());
    AddWeakPtrListener(station.id, b, b.Get());
  };
  station.Send("1");
  a->onNote = {};
  station.Send("2");
  EXPECT_THAT(station.log, ElementsAre("a:1", "a:2", "b:2"));
}

TEST(StationWhileSending, SkipsAListenerThatIsRemoved) {
  OpenStation station;
  auto const a = station.Add("a");
  auto const b = station.Add("b");
  auto const c = station.Add("c");
  a->onNote = [&] { RemoveListener(station.id, b.Get()); };
  station.Send("1");
  EXPECT_THAT(station.log, ElementsAre("a:1", "c:1"));
}

TEST(StationWhileSending, SkipsAListenerThatIsBlocked) {
  OpenStation station;
  auto const a = station.Add("a");
  auto const b = utility::MakeIntrusive<Hearing>(station.log, "b");
  auto connection = AddWeakPtrListener(station.id, b, b.Get());
  a->onNote = [&] { connection.Block(); };
  station.Send("1");
  EXPECT_THAT(station.log, ElementsAre("a:1"));
}

TEST(StationWhileSending, SkipsListenersThatAreDestroyed) {
  OpenStation station;
  auto const a = station.Add("a");
  auto b = station.Add("b");
  auto const c = station.Add("c");
  auto d = station.Add("d");
  c->onNote = [&] {
    b.Reset();
    d.Reset();
  };
  station.Send("1");
  station.Send("2");
  EXPECT_THAT(station.log, ElementsAre("a:1", "b:1", "c:1", "a:2", "c:2"));
}

TEST(StationWhileSending, LetsAListenerDestroyItself) {
  OpenStation station;
  auto a = station.Add("a");
  utility::RefCountedWeakPtr<Hearing> const weak(a);
  auto const b = station.Add("b");
  bool livedOn = false;
  a->onNote = [&] {
    a.Reset();
    livedOn = !weak.IsExpired();
  };
  station.Send("1");
  EXPECT_TRUE(livedOn);
  EXPECT_TRUE(weak.IsExpired());
  station.Send("2");
  EXPECT_THAT(station.log, ElementsAre("a:1", "b:1", "b:2"));
}

TEST(StationWhileSending, LetsAListenerRemoveItself) {
  OpenStation station;
  auto const a = station.Add("a");
  auto const b = station.Add("b");
  a->onNote = [&] { RemoveListener(station.id, a.Get()); };
  station.Send("1");
  station.Send("2");
  EXPECT_THAT(station.log, ElementsAre("a:1", "b:1", "b:2"));
}

TEST(StationWhileSending, LetsAPlainListenerEndUnderItsOwnersHands) {
  OpenStation station;
  auto const owner = station.Add("owner");
  auto plain = std::make_unique<Hearing>(station.log, "plain");
  AddWeakPtrListener(station.id, owner, plain.get());
  owner->onNote = [&] { plain.reset(); };
  station.Send("1");
  station.Send("2");
  EXPECT_THAT(station.log, ElementsAre("owner:1", "owner:2"));
}

TEST(StationWhileSending, StopsWhenTheStationIsDisposedOf) {
  OpenStation station;
  auto const a = station.Add("a");
  auto const b = station.Add("b");
  a->onNote = [&] { DisposeStation(station.id); };
  station.Send("1");
  EXPECT_THAT(station.log, ElementsAre("a:1"));
  EXPECT_FALSE(IsStationRegistered(station.id));
}

TEST(StationWhileSending, StopsWhenTheStationIsDisposedOfAndOpenedAnew) {
  OpenStation station;
  auto const a = station.Add("a");
  auto const b = station.Add("b");
  a->onNote = [&] {
    DisposeStation(station.id);
    AddWeakPtrListener(station.id, b, b.Get());
  };
  station.Send("1");
  station.Send("2");
  EXPECT_THAT(station.log, ElementsAre("a:1", "b:2"));
}

TEST(StationWhileSending, DeliversAMessageWithinAMessageFirst) {
  OpenStation station;
  auto const a = station.Add("a");
  auto const b = station.Add("b");
  HearingPtr added;
  a->onNote = [&] {
    if (!added) {
      added = station.Add("added");
      station.Send("inner");
    }
  };
  station.Send("outer");
  EXPECT_THAT(station.log, ElementsAre("a:outer", "a:inner", "b:inner", "added:inner", "b:outer"));
}

TEST(StationWhileSending, FindsItsPlaceAgainAfterRemovalsInAMessageWithinAMessage) {
  OpenStation station;
  auto const a = station.Add("a");
  auto const b = station.Add("b");
  auto const c = station.Add("c");
  auto const d = station.Add("d");
  int depth = 0;
  c->onNote = [&] {
    if (++depth == 1) {
      station.Send("inner");
      RemoveListener(station.id, a.Get());
      RemoveListener(station.id, b.Get());
    }
  };
  station.Send("outer");
  EXPECT_THAT(station.log, ElementsAre("a:outer", "b:outer", "c:outer", "a:inner", "b:inner", "c:inner",
                                       "d:inner", "d:outer"));
}

TEST(StationWhileSending, MayBeUsedByTheDestructorOfAnOwner) {
  OpenStation station;
  class Closing : public Hearing {
   public:
    Closing(OpenStation& station) : Hearing(station.log, "closing"), mStation(station) {}
    ~Closing() override {
      RemoveListener(mStation.id, this);
      mStation.Send("farewell");
    }

   private:
    OpenStation& mStation;
  };
  HearingPtr closing = utility::MakeIntrusive<Closing>(station);
  AddWeakPtrListener(station.id, closing, closing.Get());
  auto const b = station.Add("b");
  closing->onNote = [&] { closing.Reset(); };
  station.Send("1");
  EXPECT_THAT(station.log, ElementsAre("closing:1", "b:farewell", "b:1"));
}

}  // namespace
}  // namespace moxcore::messaging
