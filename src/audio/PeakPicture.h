#pragma once

#include <moxaccelerate/utility/Set.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace moxmediaui {

/// Some columns of the picture of a region while it is being made.
struct PeakPicture {
  std::uint32_t* pixels = nullptr;
  int width = 0;  // of these columns
  int height = 0;
  int pixelsPerRow = 0;  // of the whole picture

  std::uint32_t* Row(std::int64_t row) const { return pixels + row * pixelsPerRow; }

  /// Rows `first` to before `end`, as far as there are such rows.
  void FillRows(std::int64_t first, std::int64_t end, std::uint32_t pixel) const {
    first = std::max<std::int64_t>(first, 0);
    end = std::min<std::int64_t>(end, height);
    for (std::int64_t row = first; row < end; ++row) {
      moxaccelerate::utility::Set(static_cast<std::size_t>(width), Row(row), pixel);
    }
  }
};

}  // namespace moxmediaui
