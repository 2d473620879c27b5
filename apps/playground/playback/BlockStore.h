#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace playground {

// The blocks of a sound, folded to stereo, that playback has at hand: kept by their numbers rather than in
// the order of playing, so that a turn of direction, a loop or a jump takes effect with the very next frame.
// One thread puts blocks in, one looks at them; neither waits for the other. Block n holds the frames from
// n * kFrames on.
class BlockStore {
 public:
  static constexpr std::int64_t kFrames = 4096;
  static constexpr std::size_t kSlots = 128;

  BlockStore();

  static std::int64_t BlockOf(std::int64_t frame) { return frame / kFrames; }

  // For the thread that looks: a block's interleaved pairs, null if it isn't there. They stay as they are
  // until the next call or Release.
  float const* Acquire(std::int64_t block);
  void Release();

  // For the thread that fills. Whether a block is there, made with the mix of the latest Outdate or without
  // it.
  bool Has(std::int64_t block) const;
  // What is there is to be replaced, but may be heard until then.
  void Outdate() { ++mMix; }
  // Puts a block in, in place of one that isn't in `wanted`, the oldest first. False when all are wanted.
  bool Put(std::int64_t block, std::span<float const> pairs, std::span<std::int64_t const> wanted);
  // Takes away outdated blocks that have been replaced. One that is being looked at stays for a later call.
  void DropOutdated();

 private:
  static constexpr std::int64_t kNoBlock = -1;
  static constexpr std::size_t kNoSlot = kSlots;

  struct Slot {
    std::atomic<std::int64_t> block{kNoBlock};
    // Of the filling thread alone.
    std::uint64_t age = 0;
    std::uint64_t mix = 0;
  };

  bool TakeAway(std::size_t slot);
  std::size_t ChooseSlot(std::int64_t block, std::span<std::int64_t const> wanted);
  std::span<float> PairsOf(std::size_t slot);

  std::vector<Slot> mSlots;
  std::vector<float> mPairs;
  // The slot that is being looked at: it isn't filled anew meanwhile.
  std::atomic<std::size_t> mInUse{kNoSlot};
  std::size_t mLatest = 0;  // where the looking thread found its last block
  std::uint64_t mAge = 0;
  std::uint64_t mMix = 0;
};

}  // namespace playground
