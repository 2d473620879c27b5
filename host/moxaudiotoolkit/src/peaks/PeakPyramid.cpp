#include "PeakGroup.h"
#include "PeakRunReader.h"

#include <moxaudiotoolkit/AudioFile.h>
#include <moxaudiotoolkit/peaks/PeakPyramid.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>
#include <utility>

namespace moxaudiotoolkit {
namespace {

constexpr std::int64_t kPointsPerGroup = PeakPyramid::kPointsPerPage * kPagesPerGroup;

void Check(const PeakPyramidFormat& format) {
  if (format.frames < 0 || format.frames > PeakPyramidFormat::kMostFrames || format.sampleRate < 1 ||
      format.sampleRate > kHighestSampleRate || format.channelCount < 1 ||
      format.channelCount > kMostChannels || format.samplesPerPoint < 1 ||
      format.samplesPerPoint > PeakPyramidFormat::kMostSamplesPerPoint || std::isnan(format.clipLevel)) {
    throw std::invalid_argument("A peak pyramid of such a format makes no sense");
  }
}

std::int64_t Blocks(std::int64_t count, std::int64_t blockSize) {
  return count / blockSize + (count % blockSize != 0 ? 1 : 0);
}

// The levels of one channel's page, from the finest, which is given, to that of one point.
class PageLevels {
 public:
  PageLevels() : mValues(3 * PeakPyramid::kPointsPerPage / 2) {}

  void Make(const PeakRun& finest, std::size_t pointCount, bool withSums) {
    mLevels[0] = {.minimum = finest.minimum,
                  .maximum = finest.maximum,
                  .sum = withSums ? finest.sumOfSquares : nullptr};
    float* next = mValues.data();
    for (std::size_t level = 1; level < mLevels.size(); ++level) {
      const std::size_t below = PointsAbove(pointCount, static_cast<int>(level) - 1);
      const std::size_t count = PointsAbove(below, 1);
      mLevels[level] = {
          .minimum = next, .maximum = next + count, .sum = withSums ? next + 2 * count : nullptr};
      next += 3 * count;
      ReducePoints(mLevels[level - 1], below, mLevels[level]);
    }
  }

  const PointColumns* GetLevels() const { return mLevels.data(); }

 private:
  std::array<PointColumns, kLastLevelOfPages + 1> mLevels;
  std::vector<float> mValues;  // 1365 points of three values for a whole page
};

}  // namespace

PeakPyramidFormat GetPeakPyramidFormat(const SampleSourceProperties& properties) {
  PeakPyramidFormat format{.frames = properties.frames,
                           .sampleRate = properties.sampleRate,
                           .channelCount = properties.channelCount};
  if (properties.integerBits >= 2 && properties.integerBits <= 24) {
    format.has16Bits = properties.integerBits <= 16;
    format.clipLevel = 1.0F - std::exp2(static_cast<float>(1 - properties.integerBits));
  }
  return format;
}

PeakPyramid::PeakPyramid(const PeakPyramidFormat& format) : mFormat(format) {
  Check(format);
  mPointCount = Blocks(format.frames, format.samplesPerPoint);
  mPageCount = Blocks(mPointCount, kPointsPerPage);
  mGroups = std::vector<std::atomic<Group*>>(static_cast<std::size_t>(Blocks(mPageCount, kPagesPerGroup)));
  mMemorySize = sizeof *this + mGroups.size() * sizeof(void*);
}

PeakPyramid::~PeakPyramid() {
  for (std::atomic<Group*>& group : mGroups) {
    delete group.load(std::memory_order_acquire);
  }
}

std::int64_t PeakPyramid::GetSamplesPerPoint(int level) const {
  return std::int64_t{mFormat.samplesPerPoint} << (2 * level);
}

std::int64_t PeakPyramid::GetPointCount(int level) const {
  return Blocks(mPointCount, std::int64_t{1} << (2 * level));
}

std::int64_t PeakPyramid::GetPointsOfPage(std::int64_t page) const {
  return std::min(kPointsPerPage, mPointCount - page * kPointsPerPage);
}

bool PeakPyramid::HasPage(std::int64_t page) const {
  const Group* group =
      mGroups.at(static_cast<std::size_t>(page / kPagesPerGroup)).load(std::memory_order_acquire);
  return group != nullptr &&
         group->pages.at(static_cast<std::size_t>(page % kPagesPerGroup)).load(std::memory_order_acquire) !=
             nullptr;
}

double PeakPyramid::GetProgress() const {
  return mPageCount == 0 ? 1.0 : static_cast<double>(GetPagesDone()) / static_cast<double>(mPageCount);
}

PeakPyramid::Group* PeakPyramid::GetGroup(std::int64_t page, bool create) {
  const std::int64_t index = page / kPagesPerGroup;
  std::atomic<Group*>& place = mGroups[static_cast<std::size_t>(index)];
  Group* group = place.load(std::memory_order_acquire);
  if (group != nullptr || !create) {
    return group;
  }
  const std::int64_t firstPoint = index * kPointsPerGroup;
  auto made = std::make_unique<Group>(
      mFormat, firstPoint, static_cast<std::size_t>(std::min(kPointsPerGroup, mPointCount - firstPoint)));
  if (place.compare_exchange_strong(group, made.get(), std::memory_order_acq_rel)) {
    group = made.release();
    mMemorySize += group->GetMemorySize();
  }
  return group;
}

void PeakPyramid::SetPage(std::int64_t page, std::span<const PeakRun> channels) {
  if (page < 0 || page >= mPageCount || channels.size() != GetChannelCount()) {
    throw std::invalid_argument("There is no such page of peaks");
  }
  Group& group = *GetGroup(page, true);
  const auto pageInGroup = static_cast<std::size_t>(page % kPagesPerGroup);
  if (group.claimed[pageInGroup].exchange(true)) {
    throw std::invalid_argument("A page of peaks is set but once");
  }
  const auto pointCount = static_cast<std::size_t>(GetPointsOfPage(page));
  const auto framesPerPoint = static_cast<float>(mFormat.samplesPerPoint);
  const float framesOfLast = pageInGroup + 1 == group.pageCount ? group.framesOfLast : framesPerPoint;
  auto made = std::make_unique<PeakPage>();
  made->reserve(channels.size());
  std::size_t memory = sizeof(PeakPage);
  PageLevels levels;
  for (std::size_t channel = 0; channel < channels.size(); ++channel) {
    levels.Make(channels[channel], pointCount, mFormat.hasRms);
    made->emplace_back(levels.GetLevels(), pointCount, mFormat.has16Bits, framesPerPoint, framesOfLast,
                       group.memory);
    memory += made->back().GetMemorySize();
    for (int level = kPageLevels; level <= kLastLevelOfPages; ++level) {
      const std::size_t firstPoint = pageInGroup * (static_cast<std::size_t>(kPointsPerPage) >> (2 * level));
      group.Put(level, channel, firstPoint, levels.GetLevels()[level], PointsAbove(pointCount, level),
                framesPerPoint * static_cast<float>(std::size_t{1} << (2 * level)),
                FramesOfLastPoint(pointCount, level, framesPerPoint, framesOfLast));
    }
  }
  mMemorySize += memory;
  group.pages[pageInGroup].store(made.release(), std::memory_order_release);
  if (group.pagesDone.fetch_add(1, std::memory_order_acq_rel) + 1 == group.pageCount) {
    group.Complete(mFormat);
  }
  mPagesDone.fetch_add(1, std::memory_order_acq_rel);
}

PeakPoint PeakPyramid::GetPoint(int level, std::size_t channel, std::int64_t index) const {
  if (level < 0 || level >= kLevelCount || channel >= GetChannelCount() || index < 0 ||
      index >= GetPointCount(level)) {
    throw std::out_of_range("There is no such point of a peak pyramid");
  }
  PeakSum sum;
  PeakRunReader(*this, channel, level).Add(index, index + 1, true, sum);
  return sum.GetPoint(mFormat.clipLevel);
}

PeakPoint PeakPyramid::GetRange(std::size_t channel, std::int64_t begin, std::int64_t end) const {
  if (channel >= GetChannelCount()) {
    throw std::out_of_range("There is no such channel in a peak pyramid");
  }
  const std::int64_t firstFrame = std::clamp<std::int64_t>(begin, 0, mFormat.frames);
  const std::int64_t lastFrame = std::clamp<std::int64_t>(end, firstFrame, mFormat.frames);
  if (firstFrame == lastFrame) {
    return {.known = true};
  }
  std::int64_t first = firstFrame / mFormat.samplesPerPoint;
  std::int64_t last = Blocks(lastFrame, mFormat.samplesPerPoint);
  PeakSum sum;
  for (int level = 0; first < last; ++level) {
    PeakRunReader reader(*this, channel, level);
    const std::int64_t inner = Blocks(first, kFactor);
    // The last point counts as whole when the level ends with it.
    const std::int64_t innerEnd = last == GetPointCount(level) ? Blocks(last, kFactor) : last / kFactor;
    if (level + 1 == kLevelCount || inner >= innerEnd) {
      reader.Add(first, last, true, sum);
      break;
    }
    reader.Add(first, inner * kFactor, true, sum);
    if (innerEnd * kFactor < last) {
      reader.Add(innerEnd * kFactor, last, true, sum);
    }
    first = inner;
    last = innerEnd;
  }
  return sum.GetPoint(mFormat.clipLevel);
}

}  // namespace moxaudiotoolkit
