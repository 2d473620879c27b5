#include "program/InParallel.h"

#include <moxcore/threads/Executor.h>

#include <algorithm>
#include <atomic>
#include <exception>
#include <memory>
#include <thread>

namespace playground {
namespace {

// Apart from the executor for work that computes, whose threads are held for seconds while a long sound is
// read. A thread for each processor but that of the thread that paints.
std::shared_ptr<moxcore::threads::IExecutor> const& PaintingExecutor() {
  static std::shared_ptr<moxcore::threads::IExecutor> const executor =
      moxcore::threads::NewExecutor(static_cast<int>(std::thread::hardware_concurrency()) - 1);
  return executor;
}

}  // namespace

void InParallel(int count, std::function<void(int index)> const& work) {
  std::atomic<int> next = 0;
  auto const takeOneAfterTheOther = [&](int) {
    for (int index = next++; index < count; index = next++) {
      work(index);
    }
  };
  if (count < 2) {
    takeOneAfterTheOther(0);
    return;
  }
  auto const& executor = PaintingExecutor();
  int const helpers = std::min(executor->GetThreadCount(), count - 1);
  auto const task = moxcore::threads::AsyncExecuteTaskOnAllThreads(takeOneAfterTheOther, helpers, executor);
  std::exception_ptr thrown;
  try {
    takeOneAfterTheOther(0);
  } catch (...) {
    thrown = std::current_exception();
    next = count;
  }
  // Before anything that helpers refer to ends.
  task->Wait();
  if (thrown) {
    std::rethrow_exception(thrown);
  }
}

}  // namespace playground
