#include "program/InParallel.h"

#include <moxcore/threads/Executor.h>

#include <algorithm>
#include <atomic>
#include <exception>

namespace playground {

void InParallel(int count, std::function<void(int index)> const& work) {
  std::atomic<int> next = 0;
  auto const takeOneAfterTheOther = [&](int) {
    for (int index = next++; index < count; index = next++) {
      work(index);
    }
  };
  auto const& executor = moxcore::threads::GetCPUBoundExecutor();
  // This thread has a processor, too: with a helper for each they would be one too many.
  int const helpers = std::min(executor->GetThreadCount(), count) - 1;
  if (helpers < 1) {
    takeOneAfterTheOther(0);
    return;
  }
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
