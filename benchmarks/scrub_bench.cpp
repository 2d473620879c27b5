// What a step of a drag over a timecode field costs, in terms of painting that field.
#include "Figure.h"

#include <moxcore/messaging/Station.h>
#include <moxmediaui/HotTimecodeControl.h>
#include <moxui/platform/Application.h>
#include <moxui/testing/Stage.h>

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

std::atomic<long long> liveAllocations{0};

void* Allocate(std::size_t bytes) {
  void* const block = std::malloc(bytes);
  if (block == nullptr) {
    throw std::bad_alloc();
  }
  ++liveAllocations;
  return block;
}

void Free(void* block) noexcept {
  if (block != nullptr) {
    --liveAllocations;
    std::free(block);
  }
}

}  // namespace

void* operator new(std::size_t bytes) {
  return Allocate(bytes);
}
void* operator new[](std::size_t bytes) {
  return Allocate(bytes);
}
void operator delete(void* block) noexcept {
  Free(block);
}
void operator delete[](void* block) noexcept {
  Free(block);
}
void operator delete(void* block, std::size_t) noexcept {
  Free(block);
}
void operator delete[](void* block, std::size_t) noexcept {
  Free(block);
}

namespace {

using moxcore::utility::IntrusivePtr;
using moxui::PointT;

constexpr int kRuns = 64;
constexpr PointT<float> kPlace{60, 20};

class Listener : public moxcore::utility::RefCountedObjectWithWeakPtr, public moxcore::messaging::Listener {
 public:
  void ListenToMessage(moxcore::messaging::Message const& message) override {
    if (auto const* const changing = moxmediaui::HotTimecodeValueChangingMessage::Find(message)) {
      sum += changing->Get<0>().GetTicks();
    }
  }
  std::int64_t sum = 0;
};

// A field of 25 frames a second under a pressed button, with one listener.
class Drag {
 public:
  Drag() {
    mField->UI_SetLocalRectF({10, 8, 100, 24});
    mStage.GetRootView().ChildPushBack(mField);
    mField->SetFormat(moxmediaui::TimeDisplay(101), moxmediaui::FrameRate::k25);
    mField->SetTime(moxmediaui::TickTime(100000, moxmediaui::FrameRate::k25), false);
    moxcore::messaging::AddWeakPtrListener(mField->GetStationID(), mListener, mListener.Get());
    mStage.Press(kPlace);
    Step();
  }

  void Step() {
    mOffset = mOffset < 200 ? mOffset + 3 : 3;
    mStage.Move({kPlace.x + static_cast<float>(mOffset), kPlace.y});
    mStage.PaintFrame();
  }
  void Steps(int count) {
    for (int run = 0; run < count; ++run) {
      Step();
    }
  }
  void Repaint() {
    for (int run = 0; run < kRuns; ++run) {
      mField->UI_Invalidate();
      mStage.PaintFrame();
    }
  }
  std::int64_t GetHeard() const { return mListener->sum; }

 private:
  moxui::testing::Stage mStage{{120, 40}};
  IntrusivePtr<moxmediaui::UI_HotTimecodeControl> mField =
      moxcore::utility::MakeIntrusive<moxmediaui::UI_HotTimecodeControl>();
  IntrusivePtr<Listener> mListener = moxcore::utility::MakeIntrusive<Listener>();
  int mOffset = 0;
};

}  // namespace

int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  bench::Figures figures(argc, argv);
  int platformArguments = 1;  // the rest are not the platform's
  // Fonts need one.
  auto const application = moxui::platform::Application::Create(platformArguments, argv);
  Drag drag;
  if (figures.Wants("scrub_step")) {
    figures.Compare({.name = "scrub_step",
                     .numerator = [&] { drag.Steps(kRuns); },
                     .denominator = [&] { drag.Repaint(); },
                     .bar = 3,
                     .numeratorRuns = kRuns,
                     .denominatorRuns = kRuns});
  }
  if (figures.Wants("scrub_live_allocations")) {
    drag.Steps(100);
    auto const afterFew = static_cast<double>(liveAllocations.load());
    drag.Steps(10'000);
    figures.Count("scrub_live_allocations", static_cast<double>(liveAllocations.load()), afterFew, 1,
                  "blocks");
  }
  bench::DoNotOptimize(drag.GetHeard());
  return figures.Result();
}
