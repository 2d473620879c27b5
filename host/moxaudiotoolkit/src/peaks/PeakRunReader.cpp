#include "PeakRunReader.h"

#include "PeakGroup.h"

#include <algorithm>
#include <cmath>

namespace moxaudiotoolkit {
namespace {

template <class Value>
void WidenByPoints(const PeakStretch& stretch, std::int64_t begin, std::int64_t end, float scale,
                   PeakSum& sum) {
  const auto* minima = static_cast<const Value*>(stretch.minimum) + (begin - stretch.begin);
  const auto* maxima = static_cast<const Value*>(stretch.maximum) + (begin - stretch.begin);
  Value low = minima[0];
  Value high = maxima[0];
  for (std::int64_t i = 1; i < end - begin; ++i) {
    low = std::min(low, minima[i]);
    high = std::max(high, maxima[i]);
  }
  sum.AddPeaks(static_cast<float>(low) * scale, static_cast<float>(high) * scale);
}

void AddSquares(const PeakStretch& stretch, std::int64_t begin, std::int64_t end, std::int64_t pointFrames,
                std::int64_t allFrames, PeakSum& sum) {
  const std::int64_t frames = std::min(end * pointFrames, allFrames) - begin * pointFrames;
  sum.frames += frames;
  if (stretch.kind == PeakStretch::Kind::kConstant) {
    sum.squares += static_cast<double>(stretch.constant) * stretch.constant * static_cast<double>(frames);
    return;
  }
  const std::uint16_t* squares = stretch.squares + (begin - stretch.begin);
  float means = 0.0F;
  for (std::int64_t i = 0; i < end - begin - 1; ++i) {
    means += DecodeMeanSquare(squares[i]);
  }
  const std::int64_t lastFrames = frames - (end - begin - 1) * pointFrames;
  sum.squares +=
      static_cast<double>(means) * static_cast<double>(pointFrames) +
      static_cast<double>(DecodeMeanSquare(squares[end - begin - 1])) * static_cast<double>(lastFrames);
}

}  // namespace

PeakPoint PeakSum::GetPoint(float clipLevel) const {
  if (IsEmpty()) {
    return {.known = known};
  }
  return {.minimum = minimum,
          .maximum = maximum,
          .rms = frames > 0 ? static_cast<float>(std::sqrt(squares / static_cast<double>(frames))) : 0.0F,
          .clipped = maximum >= clipLevel || minimum <= -1.0F,
          .known = known};
}

void PeakRunReader::FindStretch(std::int64_t point) {
  const std::int64_t pointsPerPage = std::max<std::int64_t>(PeakPyramid::kPointsPerPage >> (2 * mLevel), 1);
  const std::int64_t pointsPerGroup = PeakPyramid::kPointsPerPage * kPagesPerGroup >> (2 * mLevel);
  const auto groupIndex = static_cast<std::size_t>(point / pointsPerGroup);
  const std::int64_t groupBegin = static_cast<std::int64_t>(groupIndex) * pointsPerGroup;
  const PeakPyramid::Group* group = mPyramid.mGroups[groupIndex].load(std::memory_order_acquire);
  if (group == nullptr) {
    mStretch = {.begin = groupBegin,
                .end = std::min(groupBegin + pointsPerGroup, mPyramid.GetPointCount(mLevel))};
    return;
  }
  if (mLevel >= kPageLevels && group->complete.load(std::memory_order_acquire)) {
    mStretch =
        group->GetStretch(mLevel, mChannel, 0, static_cast<std::int64_t>(group->GetPointCount(mLevel)));
    mStretch.begin += groupBegin;
    mStretch.end += groupBegin;
    return;
  }
  if (mLevel > kLastLevelOfPages) {
    mStretch = {.begin = point, .end = point + 1};
    return;
  }
  const std::int64_t pageInGroup = (point - groupBegin) / pointsPerPage;
  const std::int64_t begin = groupBegin + pageInGroup * pointsPerPage;
  const PeakPage* page = group->pages[static_cast<std::size_t>(pageInGroup)].load(std::memory_order_acquire);
  const std::int64_t end = std::min(begin + pointsPerPage, mPyramid.GetPointCount(mLevel));
  if (page == nullptr) {
    mStretch = {.begin = begin, .end = end};
    return;
  }
  mStretch = mLevel < kPageLevels ? (*page)[mChannel].GetStretch(mLevel)
                                  : group->GetStretch(mLevel, mChannel, begin - groupBegin, end - groupBegin);
  mStretch.begin = begin;
  mStretch.end = end;
}

void PeakRunReader::AddFromBelow(std::int64_t begin, std::int64_t end, bool withSquares, PeakSum& sum) const {
  const int below = kLastLevelOfPages;
  const std::int64_t share = std::int64_t{1} << (2 * (mLevel - below));
  PeakRunReader reader(mPyramid, mChannel, below);
  reader.Add(begin * share, std::min(end * share, mPyramid.GetPointCount(below)), withSquares, sum);
}

void PeakRunReader::Add(std::int64_t begin, std::int64_t end, bool withSquares, PeakSum& sum) {
  while (begin < end) {
    if (begin < mStretch.begin || begin >= mStretch.end) {
      FindStretch(begin);
    }
    const std::int64_t last = std::min(end, mStretch.end);
    switch (mStretch.kind) {
      case PeakStretch::Kind::kUnknown:
        if (mLevel > kLastLevelOfPages) {
          AddFromBelow(begin, last, withSquares, sum);
        } else {
          sum.known = false;
        }
        break;
      case PeakStretch::Kind::kConstant:
        sum.AddPeaks(mStretch.constant, mStretch.constant);
        break;
      case PeakStretch::Kind::kShorts:
        WidenByPoints<std::int16_t>(mStretch, begin, last, 1.0F / 32768.0F, sum);
        break;
      case PeakStretch::Kind::kFloats:
        WidenByPoints<float>(mStretch, begin, last, 1.0F, sum);
        break;
    }
    if (withSquares && mPyramid.GetFormat().hasRms && mStretch.kind != PeakStretch::Kind::kUnknown) {
      AddSquares(mStretch, begin, last, mPyramid.GetSamplesPerPoint(mLevel), mPyramid.GetFrameCount(), sum);
    }
    begin = last;
  }
}

}  // namespace moxaudiotoolkit
