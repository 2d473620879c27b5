#include <moxaudiotoolkit/peaks/SampleSource.h>
#include <moxaudiotoolkit/waveform/QueryPyramid.h>

#include <algorithm>
#include <cstring>
#include <exception>
#include <utility>

namespace moxaudiotoolkit::waveform {
namespace {

// Read at least and in multiples of that many frames, so that a slow scrolling doesn't read at each step.
constexpr std::int64_t kStep = 1024;

}  // namespace

SampleWindow::SampleWindow(std::shared_ptr<const SampleSource> source) : mSource(std::move(source)) {}

std::size_t SampleWindow::FloatsOf(std::int64_t frames) const {
  return static_cast<std::size_t>(frames * mSource->GetProperties().channelCount);
}

// What is held once the frames from `begin` to `end` are: besides them as much of what is there as the buffer
// has room for, with a quarter left free where it had none.
std::pair<std::int64_t, std::int64_t> SampleWindow::GetHeldWith(std::int64_t begin, std::int64_t end) const {
  if (end < mBegin || begin > mEnd || mBegin == mEnd || FloatsOf(end - begin) > mCapacity) {
    return {begin, end};
  }
  std::int64_t heldBegin = std::min(begin, mBegin);
  std::int64_t heldEnd = std::max(end, mEnd);
  if (FloatsOf(heldEnd - heldBegin) > mCapacity) {
    const std::int64_t most =
        static_cast<std::int64_t>(mCapacity) * 3 / 4 / mSource->GetProperties().channelCount;
    if (begin < mBegin) {
      heldEnd = std::max(end, std::min(heldEnd, heldBegin + most));
    }
    if (end > mEnd) {
      heldBegin = std::min(begin, std::max(heldBegin, heldEnd - most));
    }
  }
  return {heldBegin, heldEnd};
}

// Moves what is kept of the frames from `begin` to `end` to where the others find room around it.
void SampleWindow::MakeRoom(std::int64_t begin, std::int64_t end) {
  const std::int64_t keptBegin = std::clamp(begin, mBegin, mEnd);
  const std::int64_t keptEnd = std::clamp(end, keptBegin, mEnd);
  const std::size_t needed = FloatsOf(end - begin);
  const std::size_t kept = FloatsOf(keptEnd - keptBegin);
  const std::size_t from = mOffset + FloatsOf(keptBegin - mBegin);
  const std::size_t before = kept > 0 ? FloatsOf(keptBegin - begin) : 0;
  const std::size_t after = kept > 0 ? needed - before - kept : needed;
  std::size_t to = from;
  if (needed > mCapacity) {
    const std::size_t capacity = needed + needed / 2;
    auto samples = std::make_unique_for_overwrite<float[]>(capacity);
    to = before + (capacity - needed) / 2;
    std::copy_n(mSamples.get() + from, kept, samples.get() + to);
    mSamples = std::move(samples);
    mCapacity = capacity;
  } else if (kept == 0) {
    to = (mCapacity - needed) / 2;
  } else if (from < before || from + kept + after > mCapacity) {
    // All the free room goes to the side where the view moves to.
    to = before > 0 ? mCapacity - kept - after : 0;
    std::memmove(mSamples.get() + to, mSamples.get() + from, kept * sizeof(float));
  }
  mOffset = to;
  mBegin = kept > 0 ? keptBegin : begin;
  mEnd = kept > 0 ? keptEnd : begin;
}

// The frames that are missing. Those that have been read stay when a reading fails.
void SampleWindow::ReadInto(std::int64_t begin, std::int64_t end) {
  if (begin < mBegin) {
    const std::size_t count = FloatsOf(mBegin - begin);
    mSource->ReadInterleaved(begin, {mSamples.get() + (mOffset - count), count});
    mOffset -= count;
    mBegin = begin;
  }
  if (mEnd < end) {
    mSource->ReadInterleaved(mEnd,
                             {mSamples.get() + mOffset + FloatsOf(mEnd - mBegin), FloatsOf(end - mEnd)});
    mEnd = end;
  }
}

std::optional<std::span<const float>> SampleWindow::Read(std::int64_t begin, std::int64_t end,
                                                         std::int64_t reach) {
  if (mSource == nullptr) {
    return std::nullopt;
  }
  const std::int64_t frames = mSource->GetProperties().frames;
  if (begin < 0 || begin > end || end > frames) {
    mProblem = "There are no such samples";
    return std::nullopt;
  }
  mProblem.clear();
  if (begin < mBegin || end > mEnd) {
    const std::int64_t newBegin = begin / kStep * kStep;
    const auto stepEnd = [frames](std::int64_t frame) {
      return std::min((frame + kStep - 1) / kStep * kStep, frames);
    };
    try {
      const auto [heldBegin, heldEnd] = GetHeldWith(newBegin, stepEnd(std::max(end, reach)));
      MakeRoom(heldBegin, heldEnd);
      ReadInto(newBegin, stepEnd(end));
    } catch (const std::exception& error) {
      mProblem = error.what();
      return std::nullopt;
    }
  }
  return std::span<const float>(mSamples.get() + mOffset + FloatsOf(begin - mBegin), FloatsOf(end - begin));
}

}  // namespace moxaudiotoolkit::waveform
