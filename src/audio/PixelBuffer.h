#pragma once

#include <moxcore/utility/MemoryRecycler.h>

#include <cstddef>
#include <cstdint>
#include <utility>

namespace moxmediaui {

/// Rows of 32-bit pixels out of the host's memory pool. Its pixels are what the last user left.
class PixelBuffer {
 public:
  PixelBuffer(int width, int height)
      : mSize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * sizeof(std::uint32_t)),
        mPixels(static_cast<std::uint32_t*>(moxcore::utility::MemoryRecycler::Allocate(mSize, mActualSize))) {
  }
  ~PixelBuffer() { moxcore::utility::MemoryRecycler::Recycle(mPixels, mActualSize); }
  PixelBuffer(PixelBuffer const&) = delete;
  PixelBuffer& operator=(PixelBuffer const&) = delete;

  std::uint32_t* Pixels() { return mPixels; }

  /// Gives the pixels to whoever calls the function that is returned, which recycles them.
  auto Release() {
    mPixels = nullptr;
    return [size = mActualSize](void* pixels) { moxcore::utility::MemoryRecycler::Recycle(pixels, size); };
  }

 private:
  std::size_t mSize;
  std::size_t mActualSize = 0;
  std::uint32_t* mPixels;
};

}  // namespace moxmediaui
