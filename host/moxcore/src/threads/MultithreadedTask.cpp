#include <moxcore/threads/Executor.h>

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <utility>

namespace moxcore::threads {

namespace {

// Every thread that helps takes the next index until none is left.
class IndexedTask : public IMultithreadedTask {
 public:
  IndexedTask(std::function<void(int)> task, int count) : mTask(std::move(task)), mCount(count) {}

  void Help() {
    int done = 0;
    for (int index = Next(); index < mCount; index = Next(), ++done) {
      try {
        mTask(index);
      } catch (...) {
        std::lock_guard const lock(mMutex);
        if (mFirstException == nullptr) {
          mFirstException = std::current_exception();
        }
      }
    }
    if (done > 0) {
      Finish(done);
    }
  }

  void Wait() override {
    Help();
    std::unique_lock lock(mMutex);
    mAllDone.wait(lock, [this] { return mDone == mCount; });
    if (mFirstException != nullptr) {
      std::rethrow_exception(mFirstException);
    }
  }

  bool IsDone() const override {
    std::lock_guard const lock(mMutex);
    return mDone == mCount;
  }

 private:
  void Finish(int count) {
    // What the task captured ends with the work, not with the last holder of this.
    std::function<void(int)> ended;
    std::lock_guard const lock(mMutex);
    mDone += count;
    if (mDone == mCount) {
      ended.swap(mTask);
      mAllDone.notify_all();
    }
  }

  // Never beyond the count, however often waiters ask.
  int Next() noexcept {
    auto index = mNext.load(std::memory_order_relaxed);
    while (index < mCount && !mNext.compare_exchange_weak(index, index + 1, std::memory_order_relaxed)) {
    }
    return index;
  }

  std::function<void(int)> mTask;
  int const mCount;
  std::atomic<int> mNext{0};
  mutable std::mutex mMutex;
  std::condition_variable mAllDone;
  int mDone = 0;
  std::exception_ptr mFirstException;
};

}  // namespace

IMultithreadedTask::~IMultithreadedTask() = default;

std::shared_ptr<IMultithreadedTask> AsyncExecuteTaskOnAllThreads(std::function<void(int index)> task,
                                                                 int count,
                                                                 std::shared_ptr<IExecutor> const& executor) {
  auto const result = std::make_shared<IndexedTask>(std::move(task), std::max(count, 0));
  for (int i = std::min(count, executor->GetThreadCount()); i > 0; --i) {
    executor->Execute([result] { result->Help(); });
  }
  return result;
}

}  // namespace moxcore::threads
