#include "playback/BlockReader.h"

#include "playback/BlockStore.h"
#include "playback/BlocksAhead.h"

#include <moxaudiotoolkit/peaks/SampleSource.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <exception>
#include <utility>

namespace playground {
namespace {

// How far ahead is read, in seconds of listening.
constexpr double kSecondsAhead = 0.75;
constexpr double kFewestBlocksAhead = 6.0;
// The rest of the slots keeps what was played last, for whoever turns back.
constexpr std::size_t kMostBlocksAhead = BlockStore::kSlots * 3 / 4;
// So often it looks how far playback has come; what is ahead lasts many times as long.
constexpr std::chrono::milliseconds kLookPeriod{10};
// A decoder that has to jump back reads as many blocks in one go, as long as they take no more floats than
// that.
constexpr std::int64_t kBlocksOfOneJump = 8;
constexpr std::int64_t kFloatsOfOneJump = std::int64_t{1} << 20;

}  // namespace

BlockReader::BlockReader(std::shared_ptr<moxaudiotoolkit::SampleSource const> source,
                         std::vector<StereoGain> mix, BlockStore& store,
                         std::function<SourceWalk()> whereabouts)
    : mSource(std::move(source)),
      mStore(store),
      mWhereabouts(std::move(whereabouts)),
      mMix(std::move(mix)),
      mThread([this] { Run(); }) {}

BlockReader::~BlockReader() {
  {
    std::lock_guard const lock(mMutex);
    mEnds = true;
  }
  mAsked.notify_all();
  mThread.join();
}

void BlockReader::SetRunning(bool running) {
  {
    std::lock_guard const lock(mMutex);
    mIsRunning = running;
    ++mRequest;
  }
  mAsked.notify_all();
}

void BlockReader::Wake() {
  {
    std::lock_guard const lock(mMutex);
    ++mRequest;
  }
  mAsked.notify_all();
}

void BlockReader::SetMix(std::vector<StereoGain> mix) {
  {
    std::lock_guard const lock(mMutex);
    mMix = std::move(mix);
    ++mRequest;
  }
  mAsked.notify_all();
}

bool BlockReader::WaitUntilRead() {
  std::unique_lock lock(mMutex);
  std::uint64_t const request = ++mRequest;
  mAsked.notify_all();
  mAnswered.wait(lock, [&] { return mServed >= request || mFailure; });
  return !mFailure;
}

std::optional<std::string> BlockReader::Failure() const {
  std::lock_guard const lock(mMutex);
  return mFailure;
}

bool BlockReader::IsEnding() const {
  std::lock_guard const lock(mMutex);
  return mEnds;
}

void BlockReader::Run() {
  std::uint64_t served = 0;
  for (;;) {
    std::vector<StereoGain> mix;
    {
      std::unique_lock lock(mMutex);
      mServed = served;
      mAnswered.notify_all();
      auto const isAsked = [&] { return mEnds || mRequest != served; };
      if (mIsRunning) {
        mAsked.wait_for(lock, kLookPeriod, isAsked);
      } else {
        mAsked.wait(lock, isAsked);
      }
      if (mEnds) {
        return;
      }
      served = mRequest;
      mix = mMix;
    }
    try {
      Serve(mix);
    } catch (std::exception const& error) {
      std::lock_guard const lock(mMutex);
      mFailure = error.what();
      mAnswered.notify_all();
      return;
    }
  }
}

std::vector<std::int64_t> BlockReader::Wanted() const {
  SourceWalk const walk = mWhereabouts();
  double const frames =
      kSecondsAhead * mSource->GetProperties().sampleRate * std::max(std::abs(walk.Step()), 1.0);
  double const blocks = std::ceil(frames / static_cast<double>(BlockStore::kFrames));
  return BlocksAhead(walk, static_cast<std::size_t>(std::clamp(blocks, kFewestBlocksAhead,
                                                               static_cast<double>(kMostBlocksAhead))));
}

void BlockReader::Serve(std::vector<StereoGain> const& mix) {
  if (mix != mCurrentMix) {
    mCurrentMix = mix;
    mStore.Outdate();
  }
  mStore.DropOutdated();
  while (!IsEnding()) {
    // Playback goes on, or jumps, while this reads: what comes next is asked anew for each block.
    std::vector<std::int64_t> const wanted = Wanted();
    auto const missing =
        std::find_if(wanted.begin(), wanted.end(), [this](std::int64_t block) { return !mStore.Has(block); });
    if (missing == wanted.end()) {
      return;
    }
    ReadAround(*missing, wanted);
  }
}

void BlockReader::ReadAround(std::int64_t block, std::vector<std::int64_t> const& wanted) {
  auto const& properties = mSource->GetProperties();
  std::int64_t const channelCount = properties.channelCount;
  std::int64_t first = block;
  if (!mSource->IsParallel()) {
    std::int64_t const most = std::clamp<std::int64_t>(
        kFloatsOfOneJump / (BlockStore::kFrames * channelCount), 1, kBlocksOfOneJump);
    auto const isWanted = [&](std::int64_t other) {
      return std::find(wanted.begin(), wanted.end(), other) != wanted.end() && !mStore.Has(other);
    };
    while (block - first + 1 < most && first > 0 && isWanted(first - 1)) {
      --first;
    }
  }
  std::int64_t const begin = first * BlockStore::kFrames;
  std::int64_t const end = std::min((block + 1) * BlockStore::kFrames, properties.frames);
  mFrames.resize(static_cast<std::size_t>((end - begin) * channelCount));
  mSource->ReadInterleaved(begin, mFrames);
  mPairs.resize(static_cast<std::size_t>(end - begin) * 2);
  FoldToStereo(mFrames, mCurrentMix, mPairs);
  std::span<float const> const pairs = mPairs;
  constexpr auto kPairsOfBlock = static_cast<std::size_t>(BlockStore::kFrames) * 2;
  // The one that is waited for most first.
  for (std::int64_t each = block; each >= first; --each) {
    std::size_t const offset = static_cast<std::size_t>(each - first) * kPairsOfBlock;
    mStore.Put(each, pairs.subspan(offset, std::min(kPairsOfBlock, pairs.size() - offset)), wanted);
  }
}

}  // namespace playground
