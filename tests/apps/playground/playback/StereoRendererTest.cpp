#include "playback/BlockStore.h"
#include "playback/StereoRenderer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <thread>
#include <vector>

namespace playground {
namespace {

using ::testing::AnyOf;
using ::testing::Each;

constexpr std::int64_t kFrames = 3 * BlockStore::kFrames;

SourceWalk WalkFrom(double frame) {
  SourceWalk walk(kFrames);
  walk.SetStep(1.0);
  walk.MoveTo(frame);
  return walk;
}

// Blocks whose samples are all the number of the block, from one on.
void Fill(BlockStore& store) {
  for (std::int64_t block = 0; block < 3; ++block) {
    std::vector<float> const pairs(2 * BlockStore::kFrames, static_cast<float>(block + 1));
    ASSERT_TRUE(store.Put(block, pairs, {}));
  }
}

TEST(StereoRenderer, PlaysNothingBeforeItIsToldAnything) {
  BlockStore store;
  Fill(store);
  StereoRenderer renderer(store);
  std::array<float, 64> pairs{};
  renderer.Render(pairs);
  EXPECT_THAT(pairs, Each(0.0f));
}

// The reader looks at the walk in the very moment at which the output begins, or goes on elsewhere.
TEST(StereoRenderer, BeginsWithWhatItWasToldLastOrWithSilence) {
  for (int round = 0; round < 300; ++round) {
    BlockStore store;
    Fill(store);
    StereoRenderer renderer(store);
    std::atomic<bool> hasEnded = false;
    std::atomic<bool> looks = false;
    std::thread reader([&] {
      while (!hasEnded) {
        renderer.Whereabouts();
        looks = true;
      }
    });
    while (!looks) {
      std::this_thread::yield();
    }
    std::array<float, 64> pairs{};
    renderer.Move(WalkFrom(0.0));
    renderer.Render(pairs);
    EXPECT_THAT(pairs, AnyOf(Each(1.0f), Each(0.0f)));
    renderer.Move(WalkFrom(2.0 * BlockStore::kFrames));
    renderer.Rest();
    renderer.Render(pairs);
    EXPECT_THAT(pairs, AnyOf(Each(3.0f), Each(0.0f)));
    hasEnded = true;
    reader.join();
  }
}

}  // namespace
}  // namespace playground
