#include "PeakMemory.h"

#include <sys/mman.h>

#include <new>

namespace moxaudiotoolkit {
namespace {

constexpr std::size_t kLargePage = std::size_t{2} << 20;
constexpr std::size_t kWorthLargePages = 4 * kLargePage;

}  // namespace

PeakMemory::PeakMemory(std::size_t capacity) : mCapacity(capacity) {
  if (capacity == 0) {
    return;
  }
  void* memory =
      mmap(nullptr, capacity, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  if (memory == MAP_FAILED) {
    throw std::bad_alloc();
  }
  mBegin = static_cast<std::byte*>(memory);
  if (capacity >= kWorthLargePages) {
    // A wish; without it all is the same, only slower.
    madvise(memory, capacity, MADV_HUGEPAGE);
  }
}

PeakMemory::~PeakMemory() {
  if (mBegin != nullptr) {
    munmap(mBegin, mCapacity);
  }
}

std::byte* PeakMemory::Take(std::size_t size) {
  const std::size_t place = mTaken.fetch_add(Aligned(size), std::memory_order_relaxed);
  if (place + size > mCapacity) {
    throw std::bad_alloc();
  }
  return mBegin + place;
}

}  // namespace moxaudiotoolkit
