#include <moxcore/threads/Executor.h>

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace moxcore::threads {

namespace {

// Threads start with the first function. The pool finishes what it was given before it ends; what it is given
// after that runs at once on the calling thread.
class ThreadPool : public IExecutor {
 public:
  explicit ThreadPool(int threadCount) : mThreadCount(threadCount) {}

  ~ThreadPool() override {
    {
      std::lock_guard const lock(mMutex);
      mIsEnding = true;
    }
    mWake.notify_all();
    for (auto& thread : mThreads) {
      // A program may end on a thread of the pool.
      if (thread.get_id() == std::this_thread::get_id()) {
        thread.detach();
      } else {
        thread.join();
      }
    }
  }

  void Execute(std::function<void()> function) override {
    std::unique_lock lock(mMutex);
    if (mIsEnding) {
      lock.unlock();
      function();
      return;
    }
    mFunctions.push_back(std::move(function));
    if (mThreads.empty()) {
      for (int i = 0; i < mThreadCount; ++i) {
        mThreads.emplace_back([this] { Run(); });
      }
    }
    lock.unlock();
    mWake.notify_one();
  }

  int GetThreadCount() const noexcept override { return mThreadCount; }

 private:
  void Run() {
    std::unique_lock lock(mMutex);
    for (;;) {
      mWake.wait(lock, [this] { return mIsEnding || !mFunctions.empty(); });
      if (mFunctions.empty()) {
        return;
      }
      auto function = std::move(mFunctions.front());
      mFunctions.pop_front();
      lock.unlock();
      function();
      function = nullptr;
      lock.lock();
    }
  }

  int const mThreadCount;
  std::mutex mMutex;
  std::condition_variable mWake;
  std::deque<std::function<void()>> mFunctions;
  std::vector<std::thread> mThreads;
  bool mIsEnding = false;
};

}  // namespace

IExecutor::~IExecutor() = default;

std::shared_ptr<IExecutor> const& GetCPUBoundExecutor() {
  static std::shared_ptr<IExecutor> const executor =
      NewExecutor(static_cast<int>(std::thread::hardware_concurrency()));
  return executor;
}

std::shared_ptr<IExecutor> NewExecutor(int threadCount) {
  return std::make_shared<ThreadPool>(std::max(threadCount, 1));
}

}  // namespace moxcore::threads
