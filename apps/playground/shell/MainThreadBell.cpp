#include "shell/MainThreadBell.h"

#include <moxcore/threads/MainThread.h>

#include <condition_variable>
#include <mutex>
#include <utility>

namespace playground {

struct MainThreadBell::State {
  std::mutex mutex;
  std::condition_variable ring;
  bool isRung = false;
  std::function<void()> answer;  // only of the main thread; empty once the bell has gone

  bool TakeRing() {
    std::lock_guard const lock(mutex);
    return std::exchange(isRung, false);
  }

  void Answer() {
    if (TakeRing() && answer) {
      auto const kept = answer;  // it may end the bell
      kept();
    }
  }
};

MainThreadBell::MainThreadBell(std::function<void()> answer) : mState(std::make_shared<State>()) {
  mState->answer = std::move(answer);
}

MainThreadBell::~MainThreadBell() {
  mState->answer = nullptr;
}

std::function<void()> MainThreadBell::Rope() const {
  return [state = mState] {
    {
      std::lock_guard const lock(state->mutex);
      if (std::exchange(state->isRung, true)) {
        return;
      }
    }
    state->ring.notify_all();
    moxcore::threads::PostToMainThread([state] { state->Answer(); });
  };
}

void MainThreadBell::WaitAndAnswer() {
  {
    std::unique_lock lock(mState->mutex);
    mState->ring.wait(lock, [this] { return mState->isRung; });
  }
  mState->Answer();
}

}  // namespace playground
