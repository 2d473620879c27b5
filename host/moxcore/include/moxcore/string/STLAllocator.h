#pragma once

#include <cstddef>
#include <limits>
#include <new>

namespace moxcore {

// The heap of the host: whatever one module allocates here another may free. Throws std::bad_alloc.
[[nodiscard]] void* AllocateOnHostHeap(std::size_t bytes);
void FreeOnHostHeap(void* pointer) noexcept;

// Allocator of the host's strings and containers; stateless, so that values move between modules freely.
template <class T>
class STLAllocator {
 public:
  using value_type = T;

  constexpr STLAllocator() noexcept = default;
  template <class U>
  constexpr STLAllocator(STLAllocator<U> const&) noexcept {}

  [[nodiscard]] T* allocate(std::size_t count) {
    static_assert(alignof(T) <= __STDCPP_DEFAULT_NEW_ALIGNMENT__, "over-aligned types need their own heap");
    if (count > std::numeric_limits<std::size_t>::max() / sizeof(T)) {
      throw std::bad_array_new_length();
    }
    return static_cast<T*>(AllocateOnHostHeap(count * sizeof(T)));
  }
  void deallocate(T* pointer, std::size_t) noexcept { FreeOnHostHeap(pointer); }

  template <class U>
  friend constexpr bool operator==(STLAllocator const&, STLAllocator<U> const&) noexcept {
    return true;
  }
};

}  // namespace moxcore
