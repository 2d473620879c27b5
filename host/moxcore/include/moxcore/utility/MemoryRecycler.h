#pragma once

#include <cstddef>

namespace moxcore::utility {

// A bounded pool of memory blocks by size class. Made for buffers that come and go at the pace of painting:
// the system hands out fresh memory page by page, which costs more than filling it. Blocks are aligned to 64
// bytes and hold whatever their last user left. All operations may be called on any thread.
class MemoryRecycler {
 public:
  // A block of at least `size` bytes, of which `actualSize` may be used. Throws std::bad_alloc.
  [[nodiscard]] static void* Allocate(std::size_t size, std::size_t& actualSize);

  // Takes a block back; `size` is the size that was asked for or the actual one. Null is ignored.
  static void Recycle(void* pointer, std::size_t size) noexcept;

  // What the pool keeps for reuse is at most this; beyond it the blocks that waited longest go first.
  static constexpr std::size_t kMaximalRetainedBytes = std::size_t{256} << 20;
  static std::size_t GetRetainedBytes() noexcept;

  // Gives all kept blocks back to the system.
  static void ReleaseRetained() noexcept;
};

}  // namespace moxcore::utility
