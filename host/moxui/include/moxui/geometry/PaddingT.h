#pragma once

namespace moxui {

/// Distances from the four edges of a rectangle. Positive values lie outward where a rectangle is grown by
/// it.
template <typename T>
struct PaddingT {
  T left{};
  T top{};
  T right{};
  T bottom{};

  friend constexpr bool operator==(PaddingT const&, PaddingT const&) = default;
};

}  // namespace moxui
