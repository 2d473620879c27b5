#include "playback/BlocksAhead.h"

#include "playback/BlockStore.h"

#include <algorithm>

namespace playground {
namespace {

void Add(std::vector<std::int64_t>& blocks, std::int64_t first, std::int64_t last, std::size_t count) {
  std::int64_t const direction = first <= last ? 1 : -1;
  for (std::int64_t block = first; blocks.size() < count; block += direction) {
    if (std::find(blocks.begin(), blocks.end(), block) == blocks.end()) {
      blocks.push_back(block);
    }
    if (block == last) {
      return;
    }
  }
}

}  // namespace

std::vector<std::int64_t> BlocksAhead(SourceWalk const& walk, std::size_t count) {
  std::vector<std::int64_t> blocks;
  std::int64_t const frames = walk.Frames();
  if (frames < 1) {
    return blocks;
  }
  bool const forward = walk.Step() > 0.0;
  std::int64_t const last = BlockStore::BlockOf(frames - 1);
  std::int64_t const here = std::min(BlockStore::BlockOf(static_cast<std::int64_t>(walk.Position())), last);
  if (!walk.GoesRound()) {
    Add(blocks, here, forward ? last : 0, count);
    return blocks;
  }
  std::int64_t const begin = BlockStore::BlockOf(walk.Loop()->begin);
  std::int64_t const end = BlockStore::BlockOf(walk.Loop()->end - 1);
  Add(blocks, here, forward ? end : begin, count);
  Add(blocks, forward ? begin : end, here, count);
  return blocks;
}

}  // namespace playground
