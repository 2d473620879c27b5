#pragma once

#include <algorithm>

namespace moxui::qt {

/// Whole device pixels: right and bottom don't belong to it.
struct PixelRect {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;

  int Width() const { return right - left; }
  int Height() const { return bottom - top; }
  bool IsEmpty() const { return right <= left || bottom <= top; }
  bool Contains(PixelRect const& other) const {
    return other.left >= left && other.top >= top && other.right <= right && other.bottom <= bottom;
  }
  PixelRect Intersection(PixelRect const& other) const {
    PixelRect const common{std::max(left, other.left), std::max(top, other.top), std::min(right, other.right),
                           std::min(bottom, other.bottom)};
    return common.IsEmpty() ? PixelRect{} : common;
  }
  friend bool operator==(PixelRect const&, PixelRect const&) = default;
};

}  // namespace moxui::qt
