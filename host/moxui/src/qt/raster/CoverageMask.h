#pragma once

#include "qt/raster/PixelRect.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

namespace moxui::qt {

/// How much of each pixel of a rectangle is covered: 0 to 255, row after row. Outside of it nothing is.
struct CoverageMask {
  PixelRect bounds;
  std::vector<std::uint8_t> coverage;

  void Reset(PixelRect const& newBounds) {
    bounds = newBounds.IsEmpty() ? PixelRect{} : newBounds;
    coverage.assign(static_cast<std::size_t>(bounds.Width()) * static_cast<std::size_t>(bounds.Height()), 0);
  }
  /// The same for who writes all of it: the coverage is whatever it is.
  void SetBounds(PixelRect const& newBounds) {
    bounds = newBounds.IsEmpty() ? PixelRect{} : newBounds;
    coverage.resize(static_cast<std::size_t>(bounds.Width()) * static_cast<std::size_t>(bounds.Height()));
  }
  std::uint8_t* Row(int y) {
    return coverage.data() +
           static_cast<std::size_t>(y - bounds.top) * static_cast<std::size_t>(bounds.Width());
  }
  std::uint8_t const* Row(int y) const { return const_cast<CoverageMask*>(this)->Row(y); }

  /// Copies a mask that lies inside.
  void Paste(CoverageMask const& piece);
  /// Multiplies by another mask and shrinks to the common rectangle.
  void IntersectWith(CoverageMask const& other);
};

/// Gets masks that it may change.
using CoverageConsumer = std::function<void(CoverageMask& piece)>;

}  // namespace moxui::qt
