#pragma once

namespace moxui {

/// One value for each edge of a rectangle.
template <typename T>
struct FourEdgeTupleT {
  T left{};
  T top{};
  T right{};
  T bottom{};

  friend constexpr bool operator==(FourEdgeTupleT const&, FourEdgeTupleT const&) = default;
};

}  // namespace moxui
