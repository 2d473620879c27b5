#include <moxcore/utility/MemoryRecycler.h>
#include <moxcore/utility/RecycledMemory.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <new>
#include <thread>
#include <vector>

namespace moxcore::utility {
namespace {

class MemoryRecyclerTest : public testing::Test {
 protected:
  void SetUp() override { MemoryRecycler::ReleaseRetained(); }
  void TearDown() override { MemoryRecycler::ReleaseRetained(); }
};

TEST_F(MemoryRecyclerTest, GivesAlignedBlocksOfAtLeastTheSizeAskedFor) {
  for (std::size_t size :
       {0u, 1u, 63u, 64u, 65u, 100u, 1000u, 4096u, 4097u, 1u << 20, (1u << 21) + 1, 33177600u}) {
    std::size_t actual = 0;
    auto* const block = MemoryRecycler::Allocate(size, actual);
    ASSERT_NE(block, nullptr);
    EXPECT_GE(actual, size);
    EXPECT_LE(actual, size + size / 4 + 64);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block) % 64, 0u);
    std::memset(block, 0x5a, actual);
    MemoryRecycler::Recycle(block, actual);
  }
}

TEST_F(MemoryRecyclerTest, GivesABlockAgainWhicheverSizeItWasRecycledWith) {
  for (std::size_t size : {100u, 5000u, 8000000u}) {
    std::size_t actual = 0;
    auto* const first = MemoryRecycler::Allocate(size, actual);
    MemoryRecycler::Recycle(first, size);
    auto* const second = MemoryRecycler::Allocate(actual, actual);
    EXPECT_EQ(second, first);
    MemoryRecycler::Recycle(second, actual);
    auto* const third = MemoryRecycler::Allocate(size, actual);
    EXPECT_EQ(third, first);
    MemoryRecycler::Recycle(third, size);
  }
}

TEST_F(MemoryRecyclerTest, HasSizeClassesThatContainThemselves) {
  for (std::size_t size = 1; size < 5000; ++size) {
    std::size_t actual = 0;
    auto* const block = MemoryRecycler::Allocate(size, actual);
    std::size_t again = 0;
    MemoryRecycler::Recycle(block, size);
    auto* const other = MemoryRecycler::Allocate(actual, again);
    EXPECT_EQ(again, actual);
    EXPECT_EQ(other, block);
    MemoryRecycler::Recycle(other, actual);
  }
}

TEST_F(MemoryRecyclerTest, KeepsNoMoreThanItsBoundAndLetsTheOldestGoFirst) {
  constexpr std::size_t kSize = std::size_t{48} << 20;
  std::vector<void*> blocks;
  std::size_t actual = 0;
  for (int i = 0; i < 6; ++i) {
    blocks.push_back(MemoryRecycler::Allocate(kSize, actual));
  }
  for (auto* const block : blocks) {
    MemoryRecycler::Recycle(block, kSize);
    EXPECT_LE(MemoryRecycler::GetRetainedBytes(), MemoryRecycler::kMaximalRetainedBytes);
  }
  EXPECT_EQ(MemoryRecycler::GetRetainedBytes(), 5 * actual);
  auto* const newest = MemoryRecycler::Allocate(kSize, actual);
  EXPECT_EQ(newest, blocks.back());
  MemoryRecycler::Recycle(newest, kSize);
  MemoryRecycler::ReleaseRetained();
  EXPECT_EQ(MemoryRecycler::GetRetainedBytes(), 0u);
}

TEST_F(MemoryRecyclerTest, GivesABlockBeyondTheBoundStraightBack) {
  constexpr std::size_t kSize = MemoryRecycler::kMaximalRetainedBytes + 1;
  std::size_t actual = 0;
  auto* const block = MemoryRecycler::Allocate(kSize, actual);
  MemoryRecycler::Recycle(block, kSize);
  EXPECT_EQ(MemoryRecycler::GetRetainedBytes(), 0u);
}

TEST_F(MemoryRecyclerTest, ThrowsOnASizeThatNoMachineHasAndIgnoresNull) {
  std::size_t actual = 0;
  EXPECT_THROW((void)MemoryRecycler::Allocate(SIZE_MAX, actual), std::bad_alloc);
  EXPECT_THROW((void)RecycledMemory::Create(SIZE_MAX / 2), std::bad_alloc);
  MemoryRecycler::Recycle(nullptr, 100);
}

TEST_F(MemoryRecyclerTest, NeverGivesABlockToTwoThreads) {
  std::vector<std::thread> threads;
  for (unsigned char id = 1; id <= 4; ++id) {
    threads.emplace_back([id] {
      for (int i = 0; i < 500; ++i) {
        std::size_t actual = 0;
        auto* const block = static_cast<unsigned char*>(MemoryRecycler::Allocate(64 + i % 7 * 100u, actual));
        std::memset(block, id, actual);
        std::this_thread::yield();
        EXPECT_EQ(block[0], id);
        EXPECT_EQ(block[actual - 1], id);
        MemoryRecycler::Recycle(block, actual);
      }
    });
  }
  for (auto& thread : threads) {
    thread.join();
  }
}

TEST_F(MemoryRecyclerTest, TakesRecycledMemoryBackWithItsLastReference) {
  auto memory = RecycledMemory::Create(1000);
  EXPECT_EQ(memory->size(), 1000u);
  memory->data()[999] = 1;
  auto const* const data = memory->data();
  auto const second = memory;
  memory.reset();
  EXPECT_EQ(MemoryRecycler::GetRetainedBytes(), 0u);
  EXPECT_EQ(second->data(), data);
}

TEST_F(MemoryRecyclerTest, ReusesTheBlockOfRecycledMemory) {
  auto const* const data = RecycledMemory::Create(std::size_t{52} * 52 * 4)->data();
  EXPECT_EQ(RecycledMemory::Create(std::size_t{52} * 52 * 4)->data(), data);
}

}  // namespace
}  // namespace moxcore::utility
