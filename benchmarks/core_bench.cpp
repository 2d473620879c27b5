// The host's values and services: references, interned strings, texts, recycled memory.
#include "Figure.h"

#include <moxcore/config/Localizer.h>
#include <moxcore/messaging/BindMessageFunction.h>
#include <moxcore/messaging/MessageBase.h>
#include <moxcore/messaging/Station.h>
#include <moxcore/string/Encoding.h>
#include <moxcore/string/ImmutableString.h>
#include <moxcore/utility/MemoryRecycler.h>
#include <moxcore/utility/RecycledMemory.h>
#include <moxcore/utility/RefCountedWeakPtr.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace {

using namespace moxcore;
using bench::ClobberMemory;
using bench::DoNotOptimize;

constexpr int kRuns = 1000;

class Node : public utility::RefCountedObjectWithWeakPtr {
 public:
  void OnMessage(messaging::Message* message) { mLast = message; }

 private:
  messaging::Message* mLast = nullptr;
};
class PlainMessage : public messaging::Message {};

struct MessageNameForTick {};
using Tick = messaging::MessageBase<MessageNameForTick, std::int64_t>;

class Follower : public messaging::Listener, public utility::RefCountedObjectWithWeakPtr {
 public:
  void ListenToMessage(messaging::Message const& message) override {
    if (auto const* const tick = Tick::Find(message)) {
      mTime = tick->Get<0>();
    }
  }

 private:
  std::int64_t mTime = 0;
};

template <class Work>
auto Repeated(Work work) {
  return [work] {
    for (int i = 0; i < kRuns; ++i) {
      work();
    }
  };
}

void CompareReferences(bench::Figures& figures) {
  auto const node = utility::MakeIntrusive<Node>();
  utility::RefCountedWeakPtr<Node> const weak(node);
  auto const shared = std::make_shared<Node>();
  std::weak_ptr<Node> const standardWeak(shared);
  // Once a thread has run, the standard pointers count atomically, as in every program of this kind.
  std::thread([] {}).join();
  auto const function = messaging::BindMessageFunction(node, &Node::OnMessage);
  PlainMessage message;

  figures.Compare({.name = "strong_reference_against_shared_ptr",
                   .numerator = Repeated([&] {
                     auto const copy = node;
                     DoNotOptimize(copy.Get());
                   }),
                   .denominator = Repeated([&] {
                     auto const copy = shared;
                     DoNotOptimize(copy.get());
                   }),
                   .bar = 1.3,
                   .unit = "ns",
                   .numeratorRuns = kRuns,
                   .denominatorRuns = kRuns});
  figures.Compare({.name = "weak_lock_against_weak_ptr",
                   .numerator = Repeated([&] { DoNotOptimize(weak.Lock().Get()); }),
                   .denominator = Repeated([&] { DoNotOptimize(standardWeak.lock().get()); }),
                   .unit = "ns",
                   .numeratorRuns = kRuns,
                   .denominatorRuns = kRuns});
  figures.Time({.name = "bound_message_function",
                .work = Repeated([&] { (*function)(&message); }),
                .unit = "ns",
                .runs = kRuns});
}

void TimeStations(bench::Figures& figures) {
  auto const station = messaging::UniqueStationID();
  std::vector<utility::IntrusivePtr<Follower>> followers(1000);
  for (auto& follower : followers) {
    follower = utility::MakeIntrusive<Follower>();
  }
  messaging::AddWeakPtrListener(station, followers[0], followers[0].Get());
  figures.Time({.name = "broadcast_to_a_listener",
                .work = Repeated([&] { messaging::BroadcastMessageOnMainThread(station, Tick(1)); }),
                .unit = "ns",
                .runs = kRuns});
  for (auto const& follower : followers) {
    messaging::AddWeakPtrListener(station, follower, follower.Get());
  }
  figures.Time({.name = "broadcast_to_1000_listeners",
                .work = [&] { messaging::BroadcastMessageOnMainThread(station, Tick(1)); },
                .unit = "us"});
  messaging::DisposeStation(station);
}

void CompareMemory(bench::Figures& figures) {
  // Beyond the 32 MB that malloc keeps by itself.
  constexpr std::size_t kBytes = std::size_t{4096} * 2160 * 4;
  std::vector<std::uint8_t> warm(kBytes);
  auto const fill = [&] {
    std::memset(warm.data(), 1, kBytes);
    ClobberMemory();
  };
  figures.Compare({.name = "recycled_pixel_buffer_against_memset",
                   .numerator =
                       [] {
                         auto const memory = utility::RecycledMemory::Create(kBytes);
                         std::memset(memory->data(), 1, kBytes);
                         ClobberMemory();
                       },
                   .denominator = fill,
                   .bar = 1.2});
  auto const fillFresh = [] {
    auto const memory = std::make_unique_for_overwrite<std::uint8_t[]>(kBytes);
    std::memset(memory.get(), 1, kBytes);
    ClobberMemory();
  };
  figures.Compare({.name = "fresh_pixel_buffer_against_memset", .numerator = fillFresh, .denominator = fill});
  figures.Compare({.name = "first_recycled_buffer_against_fresh",
                   .numerator =
                       [] {
                         utility::MemoryRecycler::ReleaseRetained();
                         auto const memory = utility::RecycledMemory::Create(kBytes);
                         std::memset(memory->data(), 1, kBytes);
                         ClobberMemory();
                       },
                   .denominator = fillFresh});
}

void CompareTexts(bench::Figures& figures) {
  std::string_view const name = "moxmediaui.timecodeControl.timedisplay.changed.station.global";
  figures.Time({.name = "interned_string_found",
                .work = Repeated([&] { DoNotOptimize(ImmutableString::Create(name).data()); }),
                .unit = "ns",
                .runs = kRuns});
  figures.Time(
      {.name = "localized_text",
       .work = Repeated([] {
         auto const text = config::Localizer::Get().GetUTF16String(
             "$$$/mediaio/moxmediaui/ColorControlBase/MuteControl=Disable Control#{comment} a button");
         DoNotOptimize(text.data());
       }),
       .unit = "ns",
       .runs = kRuns});
  std::string const text(1000, 'x');
  figures.Time({.name = "utf8_to_16_of_1000_bytes",
                .work = [&] { DoNotOptimize(string::UTF8to16(text).data()); },
                .unit = "us"});
}

}  // namespace

int main(int argc, char** argv) {
  bench::Figures figures(argc, argv);
  CompareReferences(figures);
  TimeStations(figures);
  CompareMemory(figures);
  CompareTexts(figures);
  return figures.Result();
}
