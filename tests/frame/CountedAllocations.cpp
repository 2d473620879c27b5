#include "CountedAllocations.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace frame_tests {
namespace {

constexpr int kAllOfThem = -1;

std::atomic<long> gLive{0};
thread_local int tLeft = kAllOfThem;

void* Allocate(std::size_t size) {
  if (tLeft == 0) {
    throw std::bad_alloc();
  }
  if (tLeft > 0) {
    --tLeft;
  }
  void* const block = std::malloc(size > 0 ? size : 1);
  if (block == nullptr) {
    throw std::bad_alloc();
  }
  ++gLive;
  return block;
}

void* TryToAllocate(std::size_t size) noexcept {
  try {
    return Allocate(size);
  } catch (std::bad_alloc const&) {
    return nullptr;
  }
}

void Free(void* block) {
  if (block != nullptr) {
    --gLive;
    std::free(block);
  }
}

}  // namespace

long GetLiveAllocations() {
  return gLive;
}

FailingAllocation::FailingAllocation(int blocks) : mBlocks(blocks) {
  tLeft = blocks;
}

FailingAllocation::~FailingAllocation() {
  tLeft = kAllOfThem;
}

int FailingAllocation::GetUsed() const {
  return mBlocks - tLeft;
}

}  // namespace frame_tests

// In place of those of the C++ library, for the libraries that the tests are linked with too.
void* operator new(std::size_t size) {
  return frame_tests::Allocate(size);
}
void* operator new[](std::size_t size) {
  return frame_tests::Allocate(size);
}
void* operator new(std::size_t size, std::nothrow_t const&) noexcept {
  return frame_tests::TryToAllocate(size);
}
void* operator new[](std::size_t size, std::nothrow_t const&) noexcept {
  return frame_tests::TryToAllocate(size);
}
void operator delete(void* block) noexcept {
  frame_tests::Free(block);
}
void operator delete[](void* block) noexcept {
  frame_tests::Free(block);
}
void operator delete(void* block, std::size_t) noexcept {
  frame_tests::Free(block);
}
void operator delete[](void* block, std::size_t) noexcept {
  frame_tests::Free(block);
}
