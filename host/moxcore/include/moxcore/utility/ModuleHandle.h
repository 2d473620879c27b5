#pragma once

#include <compare>
#include <cstddef>
#include <functional>

namespace moxcore::utility {

// Names a loaded module (the program or a shared library) without keeping it loaded. A null handle names
// none.
class ModuleHandle {
 public:
  constexpr ModuleHandle() noexcept = default;
  constexpr ModuleHandle(std::nullptr_t) noexcept {}

  // The module that the code or static data at `address` belongs to; null if it belongs to none.
  static ModuleHandle FromAddress(void const* address) noexcept;

  explicit operator bool() const noexcept { return mBase != nullptr; }
  friend bool operator==(ModuleHandle, ModuleHandle) noexcept = default;
  friend std::strong_ordering operator<=>(ModuleHandle a, ModuleHandle b) noexcept {
    return std::compare_three_way()(a.mBase, b.mBase);
  }

 private:
  explicit constexpr ModuleHandle(void const* base) noexcept : mBase(base) {}

  void const* mBase = nullptr;
};

}  // namespace moxcore::utility
