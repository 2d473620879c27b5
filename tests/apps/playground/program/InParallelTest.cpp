#include "program/InParallel.h"

#include <moxcore/threads/Executor.h>

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <semaphore>
#include <stdexcept>
#include <thread>
#include <vector>

namespace playground {
namespace {

// All threads for work that computes, as the reading of a long sound holds them.
class HeldExecutor {
 public:
  HeldExecutor() {
    for (int i = 0; i < mThreads; ++i) {
      mExecutor->Execute([state = mState] {
        state->begun.release();
        state->end.acquire();
      });
    }
    for (int i = 0; i < mThreads; ++i) {
      mState->begun.acquire();
    }
  }
  ~HeldExecutor() { mState->end.release(mThreads); }
  HeldExecutor(HeldExecutor const&) = delete;
  HeldExecutor& operator=(HeldExecutor const&) = delete;

 private:
  // Threads that were let go may still be waking when the test is over.
  struct State {
    std::counting_semaphore<> begun{0};
    std::counting_semaphore<> end{0};
  };

  std::shared_ptr<moxcore::threads::IExecutor> mExecutor = moxcore::threads::GetCPUBoundExecutor();
  int mThreads = mExecutor->GetThreadCount();
  std::shared_ptr<State> mState = std::make_shared<State>();
};

TEST(InParallel, AThreadHelpsWhileThoseForWorkThatComputesAreHeld) {
  HeldExecutor const held;
  std::atomic<bool> isHelped = false;
  std::counting_semaphore<> helped(0);
  auto const own = std::this_thread::get_id();
  InParallel(2, [&](int) {
    if (std::this_thread::get_id() != own) {
      isHelped = true;
      helped.release();
    } else if (!isHelped) {
      // Leaves the other call to a helper. Only where none comes does it wait so long, for the test to fail.
      (void)helped.try_acquire_for(std::chrono::seconds(20));
    }
  });
  EXPECT_TRUE(isHelped);
}

TEST(InParallel, CallsEachOnce) {
  for (int const count : {0, -1, 1, 2, 1000}) {
    std::vector<std::atomic<int>> calls(1000);
    InParallel(count, [&](int index) { ++calls.at(static_cast<std::size_t>(index)); });
    for (int i = 0; i < 1000; ++i) {
      EXPECT_EQ(calls[static_cast<std::size_t>(i)], i < count ? 1 : 0) << i << " of " << count;
    }
  }
}

TEST(InParallel, ThrowsWhatACallThrewWhenNoOtherCallRunsAnyMore) {
  for (int const thrower : {0, 1, 99}) {
    std::atomic<int> running = 0;
    auto const work = [&](int index) {
      ++running;
      std::this_thread::yield();
      --running;
      if (index == thrower) {
        throw std::runtime_error("no");
      }
    };
    EXPECT_THROW(InParallel(100, work), std::runtime_error) << thrower;
    EXPECT_EQ(running, 0);
  }
}

}  // namespace
}  // namespace playground
