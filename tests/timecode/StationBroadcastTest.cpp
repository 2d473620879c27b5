#include "../../src/timecode/StationBroadcast.h"
#include "StationLog.h"

#include <moxui/platform/Application.h>

#include <gmock/gmock.h>

#include <thread>

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

TEST(StationBroadcast, OnNoStationGoesNowhere) {
  EXPECT_NO_THROW(BroadcastOnStation({}, HotTimecodeValueChangedMessage(kMinute, 3)));
}

}  // namespace
}  // namespace timecode_tests
