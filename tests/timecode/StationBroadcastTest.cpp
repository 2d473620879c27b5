#include "../../src/timecode/StationBroadcast.h"
#include "StationLog.h"

#include <moxui/platform/Application.h>

#include <gmock/gmock.h>

#include <atomic>
#include <thread>
#include <vector>

namespace timecode_tests {
namespace {

using moxmediaui::BroadcastOnStation;
using moxmediaui::HotTimecodeValueChangedMessage;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(StationBroadcast, ArrivesAtOnceOnTheMainThread) {
  auto const station = moxcore::messaging::UniqueStationID();
  auto const log = StationLog::On(station);
  BroadcastOnStation(station, HotTimecodeValueChangedMessage(kMinute, 3));
  EXPECT_THAT(log->heard, ElementsAre(Changed(kMinute, 3)));
}

TEST(StationBroadcast, OfAnotherThreadArrivesLaterOnTheMainOne) {
  auto const station = moxcore::messaging::UniqueStationID();
  auto const log = StationLog::On(station);
  std::thread::id heardOn;
  log->whenHeard = [&](Heard const&) { heardOn = std::this_thread::get_id(); };
  std::thread([&] {
    BroadcastOnStation(station, HotTimecodeValueChangedMessage(kMinute, 3));
    BroadcastOnStation(station, HotTimecodeValueChangedMessage(kHour, 4));
  }).join();
  EXPECT_THAT(log->heard, IsEmpty());
  moxui::platform::Application::Get()->ProcessEvents();
  EXPECT_THAT(log->heard, ElementsAre(Changed(kMinute, 3), Changed(kHour, 4)));
  EXPECT_EQ(heardOn, std::this_thread::get_id());
}

// The main thread hears, comes and goes meanwhile.
TEST(StationBroadcast, OfManyThreadsArrivesWholeAndInTheOrderOfEach) {
  constexpr std::uint32_t kThreads = 4;
  constexpr std::int64_t kMessages = 200;
  auto const station = moxcore::messaging::UniqueStationID();
  auto const log = StationLog::On(station);
  std::atomic<std::uint32_t> ended = 0;
  std::vector<std::thread> threads;
  for (std::uint32_t thread = 0; thread < kThreads; ++thread) {
    threads.emplace_back([&, thread] {
      for (std::int64_t i = 0; i < kMessages; ++i) {
        BroadcastOnStation(station, HotTimecodeValueChangedMessage(TickTime(i, k25), thread));
      }
      ++ended;
    });
  }
  while (ended < kThreads) {
    auto const passing = StationLog::On(station);
    moxui::platform::Application::Get()->ProcessEvents();
    moxcore::messaging::RemoveListener(station, passing.Get());
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  moxui::platform::Application::Get()->ProcessEvents();
  std::vector<std::int64_t> next(kThreads, 0);
  for (Heard const& heard : log->heard) {
    EXPECT_EQ(heard, Changed(TickTime(next.at(heard.identifier)++, k25), heard.identifier));
  }
  EXPECT_EQ(next, std::vector<std::int64_t>(kThreads, kMessages));
}

TEST(StationBroadcast, OnNoStationGoesNowhere) {
  EXPECT_NO_THROW(BroadcastOnStation({}, HotTimecodeValueChangedMessage(kMinute, 3)));
}

}  // namespace
}  // namespace timecode_tests
