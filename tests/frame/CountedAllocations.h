#pragma once

#include <cstddef>

namespace frame_tests {

// Blocks that operator new has given out and nobody has given back.
long GetLiveAllocations();

// While it lives, operator new gives out so many blocks on this thread and then throws std::bad_alloc.
// Smaller blocks than it is told are given out as ever, and aren't counted.
class FailingAllocation {
 public:
  explicit FailingAllocation(int blocks, std::size_t smallest = 0);
  ~FailingAllocation();
  // How many it has given out.
  int GetUsed() const;
  FailingAllocation(FailingAllocation const&) = delete;
  FailingAllocation& operator=(FailingAllocation const&) = delete;

 private:
  int mBlocks;
};

}  // namespace frame_tests
