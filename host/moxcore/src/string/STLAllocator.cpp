#include <moxcore/string/STLAllocator.h>

#include <new>

namespace moxcore {

void* AllocateOnHostHeap(std::size_t bytes) {
  return ::operator new(bytes);
}

void FreeOnHostHeap(void* pointer) noexcept {
  ::operator delete(pointer);
}

}  // namespace moxcore
