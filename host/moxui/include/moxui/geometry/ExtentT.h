#pragma once

namespace moxui {

/// A width and a height.
template <typename T>
struct ExtentT {
  T width{};
  T height{};

  constexpr ExtentT() = default;
  constexpr ExtentT(T widthValue, T heightValue) : width(widthValue), height(heightValue) {}

  constexpr bool IsEmpty() const { return !(width > T{}) || !(height > T{}); }
  friend constexpr bool operator==(ExtentT const&, ExtentT const&) = default;
};

}  // namespace moxui
