#include <moxcore/threads/MainThread.h>

#include <sys/syscall.h>
#include <unistd.h>

#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <utility>

namespace moxcore::threads {

namespace {

struct SharedPoster {
  explicit SharedPoster(MainThreadPoster function) : post(std::move(function)) {}

  MainThreadPoster post;
  int calls = 0;  // under way, on any thread; guarded by the queue's mutex
};

struct MainThreadQueue {
  std::mutex mutex;
  std::condition_variable callEnded;
  std::deque<std::function<void()>> functions;
  std::shared_ptr<SharedPoster> poster;
};

thread_local int tPosterCalls = 0;

// Never destroyed: objects may still be dropped while statics end.
MainThreadQueue& Queue() {
  static auto* const queue = new MainThreadQueue;
  return *queue;
}

// Lets the queue's mutex go: a poster may take locks of its own, at its end too.
void WakeMainThread(MainThreadQueue& queue, std::unique_lock<std::mutex>& lock) {
  auto const poster = queue.poster;
  if (poster) {
    ++poster->calls;
    ++tPosterCalls;
  }
  lock.unlock();
  if (!poster) {
    return;
  }
  auto const callHasEnded = [&] {
    --tPosterCalls;
    lock.lock();
    --poster->calls;
    lock.unlock();
    queue.callEnded.notify_all();
  };
  try {
    poster->post([] { DrainMainThreadQueue(); });
  } catch (...) {
    callHasEnded();
    throw;
  }
  callHasEnded();
}

}  // namespace

bool CurrentThreadIsMainThread() noexcept {
  thread_local bool const isMainThread = ::syscall(SYS_gettid) == ::getpid();
  return isMainThread;
}

void SetMainThreadPoster(MainThreadPoster poster) {
  auto& queue = Queue();
  auto const next = poster ? std::make_shared<SharedPoster>(std::move(poster)) : nullptr;
  std::unique_lock lock(queue.mutex);
  auto const previous = std::exchange(queue.poster, next);
  if (!queue.functions.empty()) {
    WakeMainThread(queue, lock);
    lock.lock();
  }
  // From within a call the wait would be for itself.
  if (previous && tPosterCalls == 0) {
    queue.callEnded.wait(lock, [&] { return previous->calls == 0; });
  }
  lock.unlock();  // before the previous poster ends
}

void PostToMainThread(std::function<void()> function) {
  auto& queue = Queue();
  std::unique_lock lock(queue.mutex);
  queue.functions.push_back(std::move(function));
  WakeMainThread(queue, lock);
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
