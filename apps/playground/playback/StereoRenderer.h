#pragma once

#include "playback/SourceWalk.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <span>
#include <vector>

namespace playground {

class BlockStore;

// Where a walk stood when a frame of the output was made.
struct PlayMark {
  std::int64_t outputFrame = 0;  // counted from the first one ever made
  std::int64_t count = 0;        // frames that were asked for from here on; 0 in the middle of a block
  std::int64_t time = 0;         // nanoseconds, when they were
  SourceWalk walk;
  bool stands = false;      // the block wasn't there: silence until the next mark
  std::uint64_t moves = 0;  // jumps up to here
};

// Makes the samples that are played, interleaved pairs, from the blocks in a store, frame by frame along a
// walk. Render runs on the output's thread: it neither waits nor allocates. What has to pass between the
// threads does so under a lock that is held for copying a few words; Render only tries it, and is a block
// late if it must.
class StereoRenderer {
 public:
  explicit StereoRenderer(BlockStore& store) : mStore(store) {}

  // Fills the span, with silence where there is nothing to be played.
  void Render(std::span<float> pairs);

  // For all other threads. Playback goes on at another place, in all else too as `walk` says; gives the
  // number of jumps so far, as marks have it.
  std::uint64_t Move(SourceWalk const& walk);
  // It goes on from where it is with the step, loop and end of `walk`.
  void Change(SourceWalk const& walk);
  // From where it is about to go on.
  SourceWalk Whereabouts() const;
  // While Render isn't called: its next call plays what was told last, or, if that is just being looked at,
  // silence; never what it played before.
  void Rest() { mIsResting = true; }
  // Marks since the last call are added; the oldest ones are lost if they aren't fetched for long.
  void FetchMarks(std::vector<PlayMark>& marks);
  // Blocks so far in which frames weren't there in time, but for those right after a jump.
  int LateBlocks() const { return mLateBlocks.load(std::memory_order_relaxed); }

 private:
  static constexpr std::size_t kMarks = 128;

  struct Shared {
    SourceWalk walk;
    std::uint64_t changes = 0;
    std::uint64_t moves = 0;
    std::uint64_t firstMark = 0;
    std::uint64_t endMark = 0;
    std::array<PlayMark, kMarks> marks;
  };

  void Adopt(Shared const& shared);
  void Hand(Shared& shared);
  void Mark(std::int64_t count, bool stands);
  std::int64_t RenderRun(std::span<float> pairs);

  BlockStore& mStore;

  mutable std::mutex mMutex;
  Shared mShared;

  // Of the output's thread alone.
  SourceWalk mWalk;
  std::uint64_t mChanges = 0;
  std::uint64_t mMoves = 0;
  std::int64_t mOutputFrame = 0;
  bool mHasPlayed = false;  // a frame since the last jump
  std::array<PlayMark, 16> mNewMarks;
  std::size_t mNewMarkCount = 0;

  std::atomic<int> mLateBlocks{0};
  std::atomic<bool> mIsResting{true};
};

}  // namespace playground
