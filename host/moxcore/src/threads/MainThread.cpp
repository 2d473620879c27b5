#include <moxcore/threads/MainThread.h>

#include <sys/syscall.h>
#include <unistd.h>

#include <deque>
#include <mutex>
#include <utility>

namespace moxcore::threads {

namespace {

struct MainThreadQueue {
  std::mutex mutex;
  std::deque<std::function<void()>> functions;
  MainThreadPoster poster;
};

// Never destroyed: objects may still be dropped while statics end.
MainThreadQueue& Queue() {
  static auto* const queue = new MainThreadQueue;
  return *queue;
}

}  // namespace

bool CurrentThreadIsMainThread() noexcept {
  thread_local bool const isMainThread = ::syscall(SYS_gettid) == ::getpid();
  return isMainThread;
}

void SetMainThreadPoster(MainThreadPoster poster) {
  auto& queue = Queue();
  MainThreadPoster wake;
  {
    std::lock_guard const lock(queue.mutex);
    queue.poster.swap(poster);
    if (!queue.functions.empty()) {
      wake = queue.poster;
    }
  }
  if (wake) {
    wake([] { DrainMainThreadQueue(); });
  }
}

void PostToMainThread(std::function<void()> function) {
  auto& queue = Queue();
  MainThreadPoster wake;
  {
    std::lock_guard const lock(queue.mutex);
    queue.functions.push_back(std::move(function));
    wake = queue.poster;
  }
  // Not under the mutex: a poster may take locks of its own.
  if (wake) {
    wake([] { DrainMainThreadQueue(); });
  }
}

int DrainMainThreadQueue() {
  if (!CurrentThreadIsMainThread()) {
    return 0;
  }
  auto& queue = Queue();
  int count = 0;
  std::unique_lock lock(queue.mutex);
  for (auto left = queue.functions.size(); left > 0 && !queue.functions.empty(); --left) {
    auto const function = std::move(queue.functions.front());
    queue.functions.pop_front();
    lock.unlock();
    function();
    ++count;
    lock.lock();
  }
  return count;
}

}  // namespace moxcore::threads
