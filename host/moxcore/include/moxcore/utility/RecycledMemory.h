#pragma once

#include <moxcore/utility/Noncopyable.h>

#include <cstddef>
#include <cstdint>
#include <memory>

namespace moxcore::utility {

// A block of the host's memory pool, which takes it back with the last reference. Its bytes are what the
// block's last user left; it is aligned to 64 bytes.
class RecycledMemory : noncopyable {
 public:
  // Throws std::bad_alloc.
  static std::shared_ptr<RecycledMemory> Create(std::size_t bytes);
  ~RecycledMemory();

  std::uint8_t* data() noexcept { return mData; }
  std::uint8_t const* data() const noexcept { return mData; }
  // The number of bytes asked for.
  std::size_t size() const noexcept { return mSize; }

 private:
  explicit RecycledMemory(std::size_t bytes);

  std::size_t mSize;
  std::uint8_t* mData;
};

}  // namespace moxcore::utility
