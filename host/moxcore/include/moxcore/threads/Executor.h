#pragma once

#include <functional>
#include <memory>

namespace moxcore::threads {

// Runs functions on threads of its own, in no set order. May be called on any thread, its own included.
class IExecutor {
 public:
  virtual ~IExecutor();
  // Functions mustn't throw.
  virtual void Execute(std::function<void()> function) = 0;
  virtual int GetThreadCount() const noexcept = 0;
};

// The pool for work that computes: a thread for each processor. Painting and the toolkit have pools of their
// own, so that neither waits for the other.
std::shared_ptr<IExecutor> const& GetCPUBoundExecutor();

// A pool of so many threads, one at least, which start with the first function. When its last holder lets go
// of it, it does what it was given to do before its threads end. For work that mustn't wait for that of
// others.
std::shared_ptr<IExecutor> NewExecutor(int threadCount);

// Work that was spread over an executor's threads. It goes on to its end even if no one holds it.
class IMultithreadedTask {
 public:
  virtual ~IMultithreadedTask();
  // Returns when all of it is done, and throws the first exception that a part of it threw. The calling
  // thread takes its share of the work, so that waiting inside a task of the same executor is safe.
  virtual void Wait() = 0;
  virtual bool IsDone() const = 0;
};

// Calls task(0) ... task(count - 1), each once, on any thread and in no set order; an exception of one keeps
// none of the others from running. Nothing is called for a count of 0 or less.
std::shared_ptr<IMultithreadedTask> AsyncExecuteTaskOnAllThreads(std::function<void(int index)> task,
                                                                 int count,
                                                                 std::shared_ptr<IExecutor> const& executor);

}  // namespace moxcore::threads
