#pragma once

#include <functional>
#include <vector>

namespace faults {

// What happens to a system call.
enum class Fault {
  kNone,
  kKillBefore,   // the process ends instead of it
  kKillAfter,    // ... right behind it
  kIoError,      // it isn't made and fails with EIO
  kMediumFull,   // ... ENOSPC
  kInterrupted,  // ... EINTR
  kOutOfMemory,  // ... ENOMEM
  kHalf,         // a write takes half of the bytes; any other call is made as ever
};

struct TracedResult {
  // The numbers of the system calls that were begun, in order.
  std::vector<long> calls;
  // The process ended by the fault.
  bool wasKilled = false;
  // It ended in any other way than by the fault or by returning.
  bool crashed = false;
  // What the function gave.
  bool acknowledged = false;
};

// Calls `function` in a copy of this process, whose system call `index` (from 0) meets `fault`. Throws
// std::runtime_error if the copy can't be traced.
TracedResult CallTraced(const std::function<bool()>& function, std::size_t index, Fault fault);

}  // namespace faults
