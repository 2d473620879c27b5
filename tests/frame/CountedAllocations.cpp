#include "CountedAllocations.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace frame_tests {
namespace {

constexpr int kAllOfThem = -1;

std::atomic<long> gLive{0};
thread_local int tLeft = kAllOfThem;
thread_local std::size_t tSmallest = 0;

void* Allocate(std::size_t size, std::align_val_t alignment = std::align_val_t(1)) {
  if (size >= tSmallest) {
    if (tLeft == 0) {
      throw std::bad_alloc();
    }
    if (tLeft > 0) {
      --tLeft;
    }
  }
  auto const multiple = static_cast<std::size_t>(alignment);
  std::size_t const steps = size > 0 ? (size - 1) / multiple + 1 : 1;
  void* const block = multiple > __STDCPP_DEFAULT_NEW_ALIGNMENT__
                          ? std::aligned_alloc(multiple, steps * multiple)
                          : std::malloc(steps * multiple);
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

FailingAllocation::FailingAllocation(int blocks, std::size_t smallest) : mBlocks(blocks) {
  tLeft = blocks;
  tSmallest = smallest;
}

FailingAllocation::~FailingAllocation() {
  tLeft = kAllOfThem;
  tSmallest = 0;
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
void* operator new(std::size_t size, std::align_val_t alignment) {
  return frame_tests::Allocate(size, alignment);
}
void* operator new[](std::size_t size, std::align_val_t alignment) {
  return frame_tests::Allocate(size, alignment);
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
void operator delete(void* block, std::align_val_t) noexcept {
  frame_tests::Free(block);
}
void operator delete[](void* block, std::align_val_t) noexcept {
  frame_tests::Free(block);
}
void operator delete(void* block, std::size_t, std::align_val_t) noexcept {
  frame_tests::Free(block);
}
void operator delete[](void* block, std::size_t, std::align_val_t) noexcept {
  frame_tests::Free(block);
}
