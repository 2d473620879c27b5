#pragma once

#include <atomic>
#include <cstddef>

namespace moxaudiotoolkit {

// Memory that is taken piece by piece, by any thread, and given back as a whole. What isn't taken costs
// nothing but addresses; a large whole comes in large pages, which take a tenth of the time to get.
class PeakMemory {
 public:
  explicit PeakMemory(std::size_t capacity);
  ~PeakMemory();
  PeakMemory(const PeakMemory&) = delete;
  PeakMemory& operator=(const PeakMemory&) = delete;

  // Aligned for all numbers. Throws std::bad_alloc beyond the capacity.
  std::byte* Take(std::size_t size);

  // What `count` pieces of `size` bytes need.
  static std::size_t GetCapacityFor(std::size_t count, std::size_t size) { return count * Aligned(size); }

 private:
  static constexpr std::size_t kAlignment = 16;
  static std::size_t Aligned(std::size_t size) { return (size + kAlignment - 1) / kAlignment * kAlignment; }

  std::byte* mBegin = nullptr;
  std::size_t mCapacity;
  std::atomic<std::size_t> mTaken{0};
};

}  // namespace moxaudiotoolkit
