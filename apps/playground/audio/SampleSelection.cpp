#include "audio/SampleSelection.h"

#include <algorithm>
#include <utility>

namespace playground {

std::int64_t SampleSelection::Within(std::int64_t sample) const {
  return std::clamp<std::int64_t>(sample, 0, mFrames);
}

void SampleSelection::SetFrames(std::int64_t frames) {
  mFrames = std::max<std::int64_t>(frames, 0);
  PlaceAt(0);
}

void SampleSelection::PlaceAt(std::int64_t sample) {
  mAnchor = mHead = Within(sample);
}

void SampleSelection::ExtendTo(std::int64_t sample) {
  mHead = Within(sample);
}

void SampleSelection::Select(std::int64_t anchor, std::int64_t head) {
  mAnchor = Within(anchor);
  mHead = Within(head);
}

void SampleSelection::TakeNearerEnd(std::int64_t sample) {
  std::int64_t const place = Within(sample);
  bool const anchorIsNearer =
      std::max(place, mAnchor) - std::min(place, mAnchor) < std::max(place, mHead) - std::min(place, mHead);
  if (anchorIsNearer) {
    std::swap(mAnchor, mHead);
  }
}

}  // namespace playground
