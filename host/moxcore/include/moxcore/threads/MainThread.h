#pragma once

#include <functional>

namespace moxcore::threads {

// The main thread is the first thread of the process.
bool CurrentThreadIsMainThread() noexcept;

// Takes a function that is to run soon on the main thread. May be called on any thread.
using MainThreadPoster = std::function<void(std::function<void()>)>;

// Tells how to reach the event loop of the main thread; an empty poster takes that back. What was posted
// before there was a poster is handed over at once. Calls of the poster before have ended when this returns,
// unless it is called from within one: what the poster reaches may end then.
void SetMainThreadPoster(MainThreadPoster poster);

// Runs `function` on the main thread, later, in order of posting. Any thread may call; without a poster the
// functions wait for DrainMainThreadQueue.
void PostToMainThread(std::function<void()> function);

// Runs what was posted up to now and gives its number; for programs and tests without an event loop. Only
// on the main thread: on any other it runs nothing. An exception of a function goes to the caller and the
// functions behind it stay queued.
int DrainMainThreadQueue();

}  // namespace moxcore::threads
