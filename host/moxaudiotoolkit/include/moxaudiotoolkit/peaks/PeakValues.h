#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>
#include <vector>

namespace moxaudiotoolkit {

// For vectors of numbers that are read into place: what a resize adds is not set, so that large data is
// written but once. The memory begins at a line of the processor's cache, where the kernel copies files'
// contents to fastest.
template <typename T>
class UnsetAllocator {
 public:
  static_assert(std::is_trivial_v<T>);
  using value_type = T;

  UnsetAllocator() = default;
  template <typename U>
  UnsetAllocator(const UnsetAllocator<U>&) noexcept {}

  T* allocate(std::size_t count) {
    if (count > static_cast<std::size_t>(-1) / sizeof(T)) {
      throw std::bad_array_new_length();
    }
    return static_cast<T*>(::operator new(count * sizeof(T), kAlignment));
  }
  void deallocate(T* memory, std::size_t) noexcept { ::operator delete(memory, kAlignment); }

  template <typename U>
  void construct(U* place) noexcept {
    ::new (static_cast<void*>(place)) U;
  }
  template <typename U, typename... Arguments>
  void construct(U* place, Arguments&&... arguments) {
    ::new (static_cast<void*>(place)) U(std::forward<Arguments>(arguments)...);
  }

  bool operator==(const UnsetAllocator&) const = default;

 private:
  static constexpr std::align_val_t kAlignment{64};
};

// Smallest and largest values of peaks in turn.
using PeakValues = std::vector<std::int16_t, UnsetAllocator<std::int16_t>>;

}  // namespace moxaudiotoolkit
