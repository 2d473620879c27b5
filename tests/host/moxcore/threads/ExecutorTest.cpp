#include <moxcore/threads/Executor.h>
#include <moxcore/threads/MainThread.h>

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <semaphore>
#include <stdexcept>
#include <thread>
#include <utility>
#include <vector>

namespace moxcore::threads {
namespace {

TEST(AsyncExecuteTaskOnAllThreads, CallsEachIndexOnce) {
  for (int const count : {1, 2, 17, 1000}) {
    std::vector<std::atomic<int>> calls(static_cast<std::size_t>(count));
    auto const task = AsyncExecuteTaskOnAllThreads(
        [&](int index) { ++calls.at(static_cast<std::size_t>(index)); }, count, GetCPUBoundExecutor());
    task->Wait();
    EXPECT_TRUE(task->IsDone());
    for (auto const& n : calls) {
      EXPECT_EQ(n, 1);
    }
  }
}

TEST(AsyncExecuteTaskOnAllThreads, IsDoneAtOnceWithoutWork) {
  for (int const count : {0, -3}) {
    auto const task = AsyncExecuteTaskOnAllThreads([](int) { FAIL(); }, count, GetCPUBoundExecutor());
    EXPECT_TRUE(task->IsDone());
    task->Wait();
  }
}

TEST(AsyncExecuteTaskOnAllThreads, MakesPlainResultsVisibleToTheWaiter) {
  std::vector<int> squares(2000);
  AsyncExecuteTaskOnAllThreads([&](int index) { squares[static_cast<std::size_t>(index)] = index * index; },
                               2000, GetCPUBoundExecutor())
      ->Wait();
  EXPECT_EQ(squares[1999], 1999 * 1999);
}

TEST(AsyncExecuteTaskOnAllThreads, ThrowsAnExceptionOfATaskAtEachWaitAndCallsTheOthers) {
  std::atomic<int> calls{0};
  auto const task = AsyncExecuteTaskOnAllThreads(
      [&](int index) {
        ++calls;
        if (index == 3) {
          throw std::runtime_error("three");
        }
      },
      10, GetCPUBoundExecutor());
  EXPECT_THROW(task->Wait(), std::runtime_error);
  EXPECT_EQ(calls, 10);
  EXPECT_THROW(task->Wait(), std::runtime_error);
}

TEST(AsyncExecuteTaskOnAllThreads, MayBeWaitedForInsideATaskOfTheSameExecutor) {
  std::atomic<int> calls{0};
  AsyncExecuteTaskOnAllThreads(
      [&](int) { AsyncExecuteTaskOnAllThreads([&](int) { ++calls; }, 20, GetCPUBoundExecutor())->Wait(); },
      20, GetCPUBoundExecutor())
      ->Wait();
  EXPECT_EQ(calls, 400);
}

TEST(AsyncExecuteTaskOnAllThreads, MayBeWaitedForByManyThreads) {
  std::atomic<int> calls{0};
  auto const task = AsyncExecuteTaskOnAllThreads([&](int) { ++calls; }, 500, GetCPUBoundExecutor());
  std::vector<std::thread> waiters;
  for (int i = 0; i < 3; ++i) {
    waiters.emplace_back([&] {
      task->Wait();
      EXPECT_EQ(calls, 500);
    });
  }
  for (auto& waiter : waiters) {
    waiter.join();
  }
}

TEST(AsyncExecuteTaskOnAllThreads, GoesOnWhenNoOneHoldsItAndLetsGoOfItsFunction) {
  auto const calls = std::make_shared<std::atomic<int>>(0);
  (void)AsyncExecuteTaskOnAllThreads([calls](int) { ++*calls; }, 50, GetCPUBoundExecutor());
  while (calls.use_count() > 1) {
    std::this_thread::yield();
  }
  EXPECT_EQ(*calls, 50);
}

TEST(CPUBoundExecutor, RunsFunctionsOnThreadsOfItsOwn) {
  std::atomic<bool> done{false};
  std::atomic<bool> onMainThread{true};
  EXPECT_GE(GetCPUBoundExecutor()->GetThreadCount(), 1);
  GetCPUBoundExecutor()->Execute([&] {
    onMainThread = CurrentThreadIsMainThread();
    done = true;
  });
  while (!done) {
    std::this_thread::yield();
  }
  EXPECT_FALSE(onMainThread);
}

TEST(NewExecutor, HasSoManyThreadsButOneAtLeast) {
  for (auto const& [wanted, threads] :
       {std::pair{3, 3}, std::pair{1, 1}, std::pair{0, 1}, std::pair{-7, 1}}) {
    EXPECT_EQ(NewExecutor(wanted)->GetThreadCount(), threads);
  }
}

TEST(NewExecutor, DoesWhatItWasGivenBeforeItEnds) {
  std::atomic<int> calls{0};
  {
    auto const executor = NewExecutor(2);
    for (int i = 0; i < 100; ++i) {
      executor->Execute([&] { ++calls; });
    }
  }
  EXPECT_EQ(calls, 100);
}

TEST(NewExecutor, WaitsForNoOther) {
  auto const held = NewExecutor(1);
  auto const end = std::make_shared<std::binary_semaphore>(0);
  held->Execute([end] { end->acquire(); });
  std::binary_semaphore isDone{0};
  auto const other = NewExecutor(1);
  other->Execute([&] { isDone.release(); });
  EXPECT_TRUE(isDone.try_acquire_for(std::chrono::seconds(20)));
  end->release();
}

}  // namespace
}  // namespace moxcore::threads
