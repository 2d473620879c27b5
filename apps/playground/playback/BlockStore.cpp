#include "playback/BlockStore.h"

#include <algorithm>

namespace playground {

BlockStore::BlockStore() : mSlots(kSlots), mPairs(kSlots * kFrames * 2) {}

std::span<float> BlockStore::PairsOf(std::size_t slot) {
  return std::span(mPairs).subspan(slot * kFrames * 2, kFrames * 2);
}

// The one who looks says where, and only then asks what is there; the one who fills takes the block away, and
// only then asks whether somebody looks. Whichever comes first, one of them sees the other.
float const* BlockStore::Acquire(std::int64_t block) {
  for (std::size_t i = 0; i < kSlots; ++i) {
    std::size_t const slot = (mLatest + i) % kSlots;
    if (mSlots[slot].block.load(std::memory_order_relaxed) != block) {
      continue;
    }
    mInUse.store(slot, std::memory_order_seq_cst);
    if (mSlots[slot].block.load(std::memory_order_seq_cst) == block) {
      mLatest = slot;
      return PairsOf(slot).data();
    }
  }
  Release();
  return nullptr;
}

void BlockStore::Release() {
  mInUse.store(kNoSlot, std::memory_order_release);
}

bool BlockStore::TakeAway(std::size_t slot) {
  std::int64_t const block = mSlots[slot].block.exchange(kNoBlock, std::memory_order_seq_cst);
  if (mInUse.load(std::memory_order_seq_cst) != slot) {
    return true;
  }
  mSlots[slot].block.store(block, std::memory_order_seq_cst);
  return false;
}

bool BlockStore::Has(std::int64_t block) const {
  return std::any_of(mSlots.begin(), mSlots.end(), [&](Slot const& slot) {
    return slot.block.load(std::memory_order_relaxed) == block && slot.mix == mMix;
  });
}

std::size_t BlockStore::ChooseSlot(std::int64_t block, std::span<std::int64_t const> wanted) {
  std::vector<std::size_t> candidates;
  for (std::size_t slot = 0; slot < kSlots; ++slot) {
    std::int64_t const there = mSlots[slot].block.load(std::memory_order_relaxed);
    // An outdated block is heard until the new one is in, which then stands beside it for a moment.
    if (there == kNoBlock ||
        (there != block && std::find(wanted.begin(), wanted.end(), there) == wanted.end())) {
      candidates.push_back(slot);
    }
  }
  std::sort(candidates.begin(), candidates.end(),
            [&](std::size_t a, std::size_t b) { return mSlots[a].age < mSlots[b].age; });
  for (std::size_t const slot : candidates) {
    if (TakeAway(slot)) {
      return slot;
    }
  }
  return kNoSlot;
}

bool BlockStore::Put(std::int64_t block, std::span<float const> pairs, std::span<std::int64_t const> wanted) {
  std::size_t const slot = ChooseSlot(block, wanted);
  if (slot == kNoSlot) {
    return false;
  }
  std::span<float> const destination = PairsOf(slot);
  std::fill(std::copy(pairs.begin(), pairs.end(), destination.begin()), destination.end(), 0.0f);
  mSlots[slot].age = ++mAge;
  mSlots[slot].mix = mMix;
  mSlots[slot].block.store(block, std::memory_order_seq_cst);
  DropOutdated();
  return true;
}

void BlockStore::DropOutdated() {
  for (std::size_t slot = 0; slot < kSlots; ++slot) {
    std::int64_t const block = mSlots[slot].block.load(std::memory_order_relaxed);
    if (block != kNoBlock && mSlots[slot].mix != mMix && Has(block)) {
      TakeAway(slot);
    }
  }
}

}  // namespace playground
