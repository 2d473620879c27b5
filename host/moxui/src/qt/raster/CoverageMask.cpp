#include "qt/raster/CoverageMask.h"

#include <cstring>
#include <utility>

namespace moxui::qt {

void CoverageMask::Paste(CoverageMask const& piece) {
  for (int y = piece.bounds.top; y < piece.bounds.bottom; ++y) {
    std::memcpy(Row(y) + (piece.bounds.left - bounds.left), piece.Row(y),
                static_cast<std::size_t>(piece.bounds.Width()));
  }
}

void CoverageMask::IntersectWith(CoverageMask const& other) {
  CoverageMask common;
  common.Reset(bounds.Intersection(other.bounds));
  for (int y = common.bounds.top; y < common.bounds.bottom; ++y) {
    std::uint8_t const* a = Row(y) + (common.bounds.left - bounds.left);
    std::uint8_t const* b = other.Row(y) + (common.bounds.left - other.bounds.left);
    std::uint8_t* out = common.Row(y);
    for (int x = 0; x < common.bounds.Width(); ++x) {
      unsigned const product = a[x] * b[x] + 128u;
      out[x] = static_cast<std::uint8_t>((product + (product >> 8)) >> 8);
    }
  }
  *this = std::move(common);
}

}  // namespace moxui::qt
