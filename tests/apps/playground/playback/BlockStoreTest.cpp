#include "playback/BlockStore.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace playground {
namespace {

std::vector<float> Pairs(float value) {
  return std::vector<float>(static_cast<std::size_t>(BlockStore::kFrames) * 2, value);
}

TEST(BlockStore, GivesWhatWasPutInAndNothingElse) {
  BlockStore store;
  EXPECT_EQ(store.Acquire(0), nullptr);
  EXPECT_TRUE(store.Put(7, Pairs(0.5f), {}));
  ASSERT_NE(store.Acquire(7), nullptr);
  EXPECT_EQ(store.Acquire(7)[100], 0.5f);
  EXPECT_EQ(store.Acquire(6), nullptr);
}

TEST(BlockStore, LastBlockOfASoundEndsInSilence) {
  BlockStore store;
  std::vector<float> const few(10, 1.0f);
  store.Put(3, few, {});
  float const* const pairs = store.Acquire(3);
  EXPECT_EQ(pairs[9], 1.0f);
  EXPECT_EQ(pairs[10], 0.0f);
  EXPECT_EQ(pairs[BlockStore::kFrames * 2 - 1], 0.0f);
}

TEST(BlockStore, OldestBlockThatNobodyWantsLeaves) {
  BlockStore store;
  std::vector<std::int64_t> const wanted{0};
  for (std::int64_t block = 0; block < static_cast<std::int64_t>(BlockStore::kSlots); ++block) {
    store.Put(block, Pairs(1.0f), wanted);
  }
  EXPECT_TRUE(store.Put(1000, Pairs(2.0f), wanted));
  EXPECT_TRUE(store.Has(0));
  EXPECT_FALSE(store.Has(1));
  EXPECT_TRUE(store.Has(2));
  EXPECT_TRUE(store.Has(1000));
}

TEST(BlockStore, BlockThatIsLookedAtStays) {
  BlockStore store;
  store.Put(0, Pairs(1.0f), {});
  float const* const pairs = store.Acquire(0);
  for (std::int64_t block = 1; block <= 2 * static_cast<std::int64_t>(BlockStore::kSlots); ++block) {
    EXPECT_TRUE(store.Put(block, Pairs(2.0f), {}));
  }
  EXPECT_EQ(pairs[0], 1.0f);
  EXPECT_TRUE(store.Has(0));
}

TEST(BlockStore, IsFullWhenAllIsWanted) {
  BlockStore store;
  std::vector<std::int64_t> wanted;
  for (std::int64_t block = 0; block < static_cast<std::int64_t>(BlockStore::kSlots); ++block) {
    wanted.push_back(block);
    EXPECT_TRUE(store.Put(block, Pairs(1.0f), wanted));
  }
  EXPECT_FALSE(store.Put(1000, Pairs(1.0f), wanted));
}

TEST(BlockStore, OutdatedBlocksAreHeardUntilTheyAreReplaced) {
  BlockStore store;
  store.Put(5, Pairs(1.0f), {});
  store.Outdate();
  EXPECT_FALSE(store.Has(5));
  ASSERT_NE(store.Acquire(5), nullptr);
  EXPECT_EQ(store.Acquire(5)[0], 1.0f);
  store.Put(5, Pairs(2.0f), {});
  store.Release();
  store.DropOutdated();
  EXPECT_EQ(store.Acquire(5)[0], 2.0f);
}

}  // namespace
}  // namespace playground
