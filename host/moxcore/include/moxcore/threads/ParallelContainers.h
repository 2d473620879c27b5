#pragma once

#include <moxcore/threads/Executor.h>

#include <cstddef>
#include <exception>
#include <memory>

namespace moxcore::threads {

// Elements that a thread takes at once, and the fewest elements for which threads are asked at all.
inline constexpr std::size_t kParallelChunk = 32;
inline constexpr std::size_t kFewestParallelElements = 128;

// The whole chunks of so many elements; what remains is the tail.
constexpr std::size_t ParallelChunkCount(std::size_t count) noexcept {
  return count < kFewestParallelElements ? 0 : count / kParallelChunk;
}

// Calls function(source.at(i), target.at(i)) once for each i below `count`: whole chunks on the threads of
// the CPU-bound executor, meanwhile the tail on the calling one. Returns when all of it is done. If calls
// throw, the rest of their chunk, or of the tail, is left out, all others are made, and one of the exceptions
// goes to the caller, that of the tail first. An index beyond either sequence throws std::out_of_range.
template <class Function, class Source, class Target>
void ExecuteFunctionOnContainersAllProcessorsHelperWithTail(Function const& function, std::size_t count,
                                                            Source const& source, Target& target) {
  auto const apply = [&](std::size_t begin, std::size_t end) {
    for (auto i = begin; i < end; ++i) {
      function(source.at(i), target.at(i));
    }
  };
  auto const chunks = ParallelChunkCount(count);
  std::shared_ptr<IMultithreadedTask> batch;
  if (chunks != 0) {
    batch = AsyncExecuteTaskOnAllThreads(
        [&](int chunk) {
          auto const begin = kParallelChunk * static_cast<std::size_t>(chunk);
          apply(begin, begin + kParallelChunk);
        },
        static_cast<int>(chunks), GetCPUBoundExecutor());
  }
  std::exception_ptr fault;
  try {
    apply(chunks * kParallelChunk, count);
  } catch (...) {
    // The batch still works on what belongs to the caller.
    fault = std::current_exception();
  }
  try {
    if (batch != nullptr) {
      batch->Wait();
    }
  } catch (...) {
    fault = fault == nullptr ? std::current_exception() : fault;
  }
  if (fault != nullptr) {
    std::rethrow_exception(fault);
  }
}

}  // namespace moxcore::threads
