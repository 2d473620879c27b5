#include "audio/SampleFetcher.h"

#include <algorithm>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <optional>
#include <span>
#include <stdexcept>
#include <thread>
#include <utility>
#include <vector>

namespace playground {
namespace {

// Views read whole blocks of so many frames.
constexpr std::int64_t kBlock = 1024;
// Read at a time: how soon a newer wish is heard.
constexpr std::int64_t kPieceFloats = 1 << 15;

// Frames that have been read, at their places in a longer sound.
class FetchedSamples : public moxaudiotoolkit::SampleSource {
 public:
  FetchedSamples(moxaudiotoolkit::SampleSourceProperties const& properties, std::int64_t begin,
                 std::vector<float> samples)
      : SampleSource(properties), mBegin(begin), mSamples(std::move(samples)) {}

  void ReadInterleaved(std::int64_t firstFrame, std::span<float> destination) const override {
    std::int64_t const channels = GetProperties().channelCount;
    std::int64_t const first = (firstFrame - mBegin) * channels;
    auto const held = static_cast<std::int64_t>(mSamples.size());
    if (first < 0 || first + static_cast<std::int64_t>(destination.size()) > held) {
      throw std::out_of_range("These samples have not been read");
    }
    std::copy_n(mSamples.begin() + first, destination.size(), destination.begin());
  }

 private:
  std::int64_t mBegin;
  std::vector<float> mSamples;
};

struct Range {
  std::int64_t begin = 0;
  std::int64_t end = 0;

  bool Contains(Range const& other) const { return begin <= other.begin && other.end <= end; }
};

}  // namespace

class SampleFetcher::Worker {
 public:
  explicit Worker(std::function<void()> ring) : mRing(std::move(ring)) {}

  ~Worker() {
    {
      std::lock_guard const lock(mMutex);
      mEnds = true;
    }
    mNews.notify_all();
    if (mThread.joinable()) {
      mThread.join();
    }
  }

  Source Get(Source const& source, Range const& view) {
    std::int64_t const frames = source->GetProperties().frames;
    std::int64_t const length = view.end - view.begin;
    Range const wide = Widened(view, length, *source);
    std::lock_guard const lock(mMutex);
    bool const isHere = mHave.source == source && mHave.range.Contains(view);
    // Half a view ahead is near to the end, but for the sound's own.
    Range const ahead{std::max<std::int64_t>(view.begin - length / 2, 0),
                      std::min(view.end + length / 2, frames)};
    bool const isEnough =
        isHere && (mHave.samples == nullptr || mHave.range.Contains(ahead) || mHave.range.Contains(wide));
    bool const isOnItsWay = mBusy && mWish.source == source && mWish.range.Contains(view);
    if (!isEnough && !isOnItsWay) {
      mWish = {source, wide, nullptr};
      mBusy = true;
      ++mNewest;
      if (!mThread.joinable()) {
        mThread = std::thread([this] { Run(); });
      }
      mNews.notify_all();
    }
    return isHere ? mHave.samples : nullptr;
  }

  void Wait() {
    std::unique_lock lock(mMutex);
    mNews.wait(lock, [this] { return !mBusy; });
  }

 private:
  struct Samples {
    Source source;
    Range range;
    Source samples;  // null when they can't be read
  };

  // The view with as much on either side, as far as there is room.
  static Range Widened(Range const& view, std::int64_t length, moxaudiotoolkit::SampleSource const& source) {
    auto const& properties = source.GetProperties();
    std::int64_t const room = kMostFloats / properties.channelCount - length;
    std::int64_t const margin = std::clamp<std::int64_t>(room / 2, 0, length);
    return {std::max<std::int64_t>(view.begin - margin, 0) / kBlock * kBlock,
            std::min((view.end + margin + kBlock - 1) / kBlock * kBlock, properties.frames)};
  }

  void Run() {
    std::unique_lock lock(mMutex);
    while (true) {
      mNews.wait(lock, [this] { return mEnds || (mBusy && mServed != mNewest); });
      if (mEnds) {
        return;
      }
      Samples wish = mWish;
      std::uint64_t const number = mNewest;
      lock.unlock();
      bool const isWhole = Read(wish, number);
      lock.lock();
      if (isWhole && number == mNewest) {
        mHave = std::move(wish);
        mServed = number;
        mBusy = false;
        mNews.notify_all();
        lock.unlock();
        mRing();
        lock.lock();
      }
    }
  }

  bool IsStillWanted(std::uint64_t number) {
    std::lock_guard const lock(mMutex);
    return !mEnds && number == mNewest;
  }

  // False when another wish has come meanwhile.
  bool Read(Samples& wish, std::uint64_t number) {
    auto const& properties = wish.source->GetProperties();
    std::int64_t const piece = std::max<std::int64_t>(kPieceFloats / properties.channelCount, 1);
    auto const floats = [&](std::int64_t frames) {
      return static_cast<std::size_t>(frames * properties.channelCount);
    };
    try {
      if (!WindTo(wish, number, piece)) {
        return false;
      }
      std::vector<float> samples(floats(wish.range.end - wish.range.begin));
      for (std::int64_t frame = wish.range.begin; frame < wish.range.end; frame += piece) {
        if (!IsStillWanted(number)) {
          return false;
        }
        std::int64_t const count = std::min(piece, wish.range.end - frame);
        wish.source->ReadInterleaved(
            frame, std::span(samples).subspan(floats(frame - wish.range.begin), floats(count)));
        mPosition = frame + count;
      }
      wish.samples = std::make_shared<FetchedSamples>(properties, wish.range.begin, std::move(samples));
    } catch (std::exception const&) {
      mWound = nullptr;
    }
    return true;
  }

  // Where a jump is a decoding of all that lies before, it is done in steps, so that it can be left.
  bool WindTo(Samples const& wish, std::uint64_t number, std::int64_t piece) {
    std::int64_t const start = wish.source->FindStart(wish.range.begin);
    if (mWound != wish.source || mPosition > wish.range.begin || mPosition < start) {
      mWound = wish.source;
      mPosition = start;
    }
    auto const channels = static_cast<std::size_t>(wish.source->GetProperties().channelCount);
    std::vector<float> skipped(static_cast<std::size_t>(piece) * channels);
    while (mPosition < wish.range.begin) {
      if (!IsStillWanted(number)) {
        return false;
      }
      auto const count = std::min(piece, wish.range.begin - mPosition);
      wish.source->ReadInterleaved(mPosition,
                                   std::span(skipped).first(static_cast<std::size_t>(count) * channels));
      mPosition += count;
    }
    return true;
  }

  std::function<void()> const mRing;
  std::mutex mMutex;
  std::condition_variable mNews;
  bool mEnds = false;
  bool mBusy = false;
  std::uint64_t mNewest = 0;  // number of the wish
  std::uint64_t mServed = 0;
  Samples mWish;
  Samples mHave;
  std::thread mThread;
  // Of the thread alone: the source that is wound, and how far.
  Source mWound;
  std::int64_t mPosition = 0;
};

SampleFetcher::SampleFetcher(std::function<void()> arrived) : mBell(std::move(arrived)) {
  mWorker = std::make_unique<Worker>(mBell.Rope());
}

SampleFetcher::~SampleFetcher() = default;

SampleFetcher::Source SampleFetcher::Get(Source const& source, std::int64_t begin, std::int64_t end) {
  std::int64_t const frames = source ? source->GetProperties().frames : 0;
  begin = std::clamp<std::int64_t>(begin / kBlock * kBlock, 0, frames);
  end = std::clamp<std::int64_t>((end + kBlock - 1) / kBlock * kBlock, begin, frames);
  if (begin == end || end - begin > kMostFloats / source->GetProperties().channelCount) {
    return nullptr;
  }
  return mWorker->Get(source, {begin, end});
}

void SampleFetcher::Wait() {
  mWorker->Wait();
}

}  // namespace playground
