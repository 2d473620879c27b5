#include "playback/StereoRenderer.h"

#include "playback/BlockStore.h"
#include "program/SteadyTime.h"

#include <algorithm>
#include <cmath>

namespace playground {

std::uint64_t StereoRenderer::Move(SourceWalk const& walk) {
  std::lock_guard const lock(mMutex);
  mShared.walk = walk;
  ++mShared.changes;
  return ++mShared.moves;
}

void StereoRenderer::Change(SourceWalk const& walk) {
  std::lock_guard const lock(mMutex);
  double const position = mShared.walk.Position();
  mShared.walk = walk;
  mShared.walk.MoveTo(position);
  ++mShared.changes;
}

SourceWalk StereoRenderer::Whereabouts() const {
  std::lock_guard const lock(mMutex);
  return mShared.walk;
}

void StereoRenderer::FetchMarks(std::vector<PlayMark>& marks) {
  std::lock_guard const lock(mMutex);
  for (; mShared.firstMark != mShared.endMark; ++mShared.firstMark) {
    marks.push_back(mShared.marks[mShared.firstMark % kMarks]);
  }
}

void StereoRenderer::Adopt(Shared const& shared) {
  if (shared.changes == mChanges) {
    return;
  }
  double const position = mWalk.Position();
  mWalk = shared.walk;
  if (shared.moves == mMoves) {
    mWalk.MoveTo(position);
  } else {
    mHasPlayed = false;
  }
  mChanges = shared.changes;
  mMoves = shared.moves;
}

void StereoRenderer::Hand(Shared& shared) {
  // What was changed meanwhile is about a place that playback only comes to with the next block.
  if (shared.changes == mChanges) {
    shared.walk = mWalk;
  } else if (shared.moves == mMoves) {
    shared.walk.MoveTo(mWalk.Position());
  }
  for (std::size_t i = 0; i < mNewMarkCount; ++i) {
    shared.marks[shared.endMark++ % kMarks] = mNewMarks[i];
    shared.firstMark =
        std::max(shared.firstMark, shared.endMark - std::min<std::uint64_t>(shared.endMark, kMarks));
  }
  mNewMarkCount = 0;
}

void StereoRenderer::Mark(std::int64_t count, bool stands) {
  if (mNewMarkCount < mNewMarks.size()) {
    mNewMarks[mNewMarkCount++] = {mOutputFrame, count, count > 0 ? SteadyTime() : 0, mWalk, stands, mMoves};
  }
}

void StereoRenderer::Render(std::span<float> pairs) {
  if (std::unique_lock const lock(mMutex, std::try_to_lock); lock.owns_lock()) {
    Adopt(mShared);
    mIsResting = mChanges == 0;
  }
  auto const count = static_cast<std::int64_t>(pairs.size() / 2);
  bool const isResting = mIsResting;
  Mark(count, isResting);
  std::int64_t done = 0;
  while (!isResting && done < count && !mWalk.HasEnded()) {
    std::int64_t const made = RenderRun(pairs.subspan(static_cast<std::size_t>(done) * 2));
    if (made == 0) {
      Mark(0, true);
      if (mHasPlayed) {
        mLateBlocks.fetch_add(1, std::memory_order_relaxed);
      }
      break;
    }
    mHasPlayed = true;
    mOutputFrame += made;
    done += made;
  }
  std::fill(pairs.begin() + done * 2, pairs.end(), 0.0f);
  mOutputFrame += count - done;
  if (std::unique_lock const lock(mMutex, std::try_to_lock); lock.owns_lock()) {
    Hand(mShared);
  }
}

// The frames up to the next turn or the next edge of a block; none when a block isn't there.
std::int64_t StereoRenderer::RenderRun(std::span<float> pairs) {
  double const position = mWalk.Position();
  double const step = mWalk.Step();
  std::int64_t const last = mWalk.Frames() - 1;
  std::int64_t const block = BlockStore::BlockOf(std::min(static_cast<std::int64_t>(position), last));
  std::int64_t const begin = block * BlockStore::kFrames;
  std::int64_t const end = std::min(begin + BlockStore::kFrames, last + 1);
  double const inBlock = step > 0.0 ? std::ceil((static_cast<double>(end) - position) / step)
                                    : std::floor((static_cast<double>(begin) - position) / step) + 1.0;
  std::int64_t const count = std::min({static_cast<std::int64_t>(pairs.size() / 2), mWalk.FramesToTurn(),
                                       std::max<std::int64_t>(static_cast<std::int64_t>(inBlock), 1)});

  // The pair behind the last one of the block, or of the loop, for positions between the two.
  bool const between = position != std::floor(position) || step != std::floor(step);
  std::int64_t const edge =
      mWalk.GoesRound() && mWalk.Loop()->end < end && position < static_cast<double>(mWalk.Loop()->end)
          ? mWalk.Loop()->end - 1
          : end - 1;
  std::array<float, 2> behind{};
  if (between) {
    std::int64_t const after = mWalk.FrameAfter(edge);
    float const* const other = mStore.Acquire(BlockStore::BlockOf(after));
    if (other == nullptr) {
      return 0;
    }
    std::int64_t const offset = after % BlockStore::kFrames;
    behind = {other[offset * 2], other[offset * 2 + 1]};
  }
  float const* const here = mStore.Acquire(block);
  if (here == nullptr) {
    return 0;
  }
  for (std::int64_t i = 0; i < count; ++i) {
    double const place = position + static_cast<double>(i) * step;
    std::int64_t const frame = std::clamp(static_cast<std::int64_t>(place), begin, end - 1);
    auto const share = static_cast<float>(place - std::floor(place));
    float const* const pair = here + (frame - begin) * 2;
    float const* const next = frame == edge ? behind.data() : pair + 2;
    for (std::int64_t side = 0; side < 2; ++side) {
      float const value = pair[side];
      pairs[static_cast<std::size_t>(i * 2 + side)] =
          share == 0.0f ? value : value + share * (next[side] - value);
    }
  }
  mStore.Release();
  mWalk.Skip(count);
  return count;
}

}  // namespace playground
