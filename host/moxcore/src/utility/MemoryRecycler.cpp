#include <moxcore/utility/MemoryRecycler.h>

#include <sys/mman.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <deque>
#include <mutex>
#include <new>
#include <optional>

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/asan_interface.h>
#endif

namespace moxcore::utility {

namespace {

constexpr std::size_t kAlignment = 64;
constexpr std::size_t kLargestBlock = std::size_t{1} << 40;
constexpr std::size_t kClasses = std::size_t{4} * 42;
// From this size on blocks begin on a huge page: one fault instead of 512.
constexpr std::size_t kHugePage = std::size_t{2} << 20;

// Multiples of the alignment, and beyond 256 bytes four classes to each doubling: 64, 128, 192, 256, 320,
// 384, 448, 512, 640, ... so that at most a fifth of a larger block lies idle.
struct SizeClass {
  std::size_t index;
  std::size_t bytes;
};

SizeClass ClassOf(std::size_t size) {
  if (size > kLargestBlock) {
    throw std::bad_alloc();
  }
  size = (std::max<std::size_t>(size, 1) + kAlignment - 1) / kAlignment * kAlignment;
  // At least 5, since the smallest size is 64.
  auto const exponent = std::max<std::size_t>(static_cast<std::size_t>(std::bit_width(size - 1)) - 1, 5);
  // NOLINTNEXTLINE(clang-analyzer-core.UndefinedBinaryOperatorResult): the exponent is at least 5
  auto const step = std::size_t{1} << (exponent - 2);
  auto const steps = (size - 1) / step + 1;
  return {exponent * 4 + steps, steps * step};
}

std::size_t AlignmentOf(std::size_t bytes) noexcept {
  return bytes >= kHugePage ? kHugePage : kAlignment;
}

void* NewBlock(std::size_t bytes) {
  auto* const block = ::operator new(bytes, std::align_val_t(AlignmentOf(bytes)));
  if (bytes >= kHugePage) {
    ::madvise(block, bytes, MADV_HUGEPAGE);
  }
  return block;
}

void DeleteBlock(void* block, std::size_t bytes) noexcept {
  ::operator delete(block, std::align_val_t(AlignmentOf(bytes)));
}

// Kept blocks mustn't be touched; a build with the address sanitizer sees to that.
void Forbid([[maybe_unused]] void* block, [[maybe_unused]] std::size_t bytes) noexcept {
#if defined(__SANITIZE_ADDRESS__)
  ASAN_POISON_MEMORY_REGION(block, bytes);
#endif
}

void Permit([[maybe_unused]] void* block, [[maybe_unused]] std::size_t bytes) noexcept {
#if defined(__SANITIZE_ADDRESS__)
  ASAN_UNPOISON_MEMORY_REGION(block, bytes);
#endif
}

struct KeptBlock {
  void* block;
  std::size_t bytes;
  std::uint64_t stamp;
};

class BlockPool {
 public:
  // Null when none is kept.
  void* Take(std::size_t index) {
    std::lock_guard const lock(mMutex);
    auto& blocks = mClasses[index];
    if (blocks.empty()) {
      return nullptr;
    }
    auto const kept = blocks.back();
    blocks.pop_back();
    mRetained -= kept.bytes;
    Permit(kept.block, kept.bytes);
    return kept.block;
  }

  void Keep(std::size_t index, void* block, std::size_t bytes) {
    std::lock_guard const lock(mMutex);
    mClasses[index].push_back({block, bytes, ++mStamp});
    mRetained += bytes;
    Forbid(block, bytes);
  }

  // Takes the block that waited longest out of the pool if more than `limit` bytes are kept.
  std::optional<KeptBlock> TakeOldestBeyond(std::size_t limit) {
    std::lock_guard const lock(mMutex);
    if (mRetained <= limit) {
      return std::nullopt;
    }
    auto const age = [](Blocks const& blocks) { return blocks.empty() ? UINT64_MAX : blocks.front().stamp; };
    auto& blocks = *std::ranges::min_element(mClasses, {}, age);
    auto const oldest = blocks.front();
    blocks.pop_front();
    mRetained -= oldest.bytes;
    Permit(oldest.block, oldest.bytes);
    return oldest;
  }

  std::size_t Retained() {
    std::lock_guard const lock(mMutex);
    return mRetained;
  }

 private:
  using Blocks = std::deque<KeptBlock>;

  std::mutex mMutex;
  std::array<Blocks, kClasses> mClasses;
  std::size_t mRetained = 0;
  std::uint64_t mStamp = 0;
};

// Never destroyed: blocks come back while statics end.
BlockPool& ThePool() {
  static auto* const pool = new BlockPool;
  return *pool;
}

void Shrink(std::size_t limit) noexcept {
  while (auto const oldest = ThePool().TakeOldestBeyond(limit)) {
    DeleteBlock(oldest->block, oldest->bytes);
  }
}

}  // namespace

void* MemoryRecycler::Allocate(std::size_t size, std::size_t& actualSize) {
  auto const sizeClass = ClassOf(size);
  auto* block = ThePool().Take(sizeClass.index);
  if (block == nullptr) {
    block = NewBlock(sizeClass.bytes);
  }
  actualSize = sizeClass.bytes;
  return block;
}

void MemoryRecycler::Recycle(void* pointer, std::size_t size) noexcept {
  if (pointer == nullptr) {
    return;
  }
  auto const sizeClass = ClassOf(size);
  try {
    ThePool().Keep(sizeClass.index, pointer, sizeClass.bytes);
  } catch (std::bad_alloc const&) {
    DeleteBlock(pointer, sizeClass.bytes);
  }
  Shrink(kMaximalRetainedBytes);
}

std::size_t MemoryRecycler::GetRetainedBytes() noexcept {
  return ThePool().Retained();
}

void MemoryRecycler::ReleaseRetained() noexcept {
  Shrink(0);
}

}  // namespace moxcore::utility
