#pragma once

#include <functional>
#include <memory>

namespace playground {

// Work on other threads rings, and `answer` is called on the main thread soon after, once for all rings that
// came meanwhile. A ring after the bell has gone is heard by nobody, so that its owner may go at any moment.
// Main thread only, apart from the rope.
class MainThreadBell {
 public:
  explicit MainThreadBell(std::function<void()> answer);
  ~MainThreadBell();
  MainThreadBell(MainThreadBell const&) = delete;
  MainThreadBell& operator=(MainThreadBell const&) = delete;

  // Rings. It may be called on any thread and outlive the bell.
  std::function<void()> Rope() const;
  // Waits for a ring that has not been answered, and answers it: for programs without an event loop.
  void WaitAndAnswer();

 private:
  struct State;
  std::shared_ptr<State> mState;
};

}  // namespace playground
