#pragma once

#include <functional>

namespace playground {

// Calls work(0) ... work(count - 1), each once: on this thread, which takes one after the other, and at the
// same time on threads for the other processors that do nothing else, as far as they come to it. Returns when
// all is done. Nothing that this thread waits for is longer than a single call. Throws one of the exceptions
// that calls throw; calls that hadn't begun by then may be left out.
void InParallel(int count, std::function<void(int index)> const& work);

}  // namespace playground
