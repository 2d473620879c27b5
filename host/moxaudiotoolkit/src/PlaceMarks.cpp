#include "PlaceMarks.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <utility>

namespace moxaudiotoolkit {

void PlaceMarks::Note(std::int64_t firstFrame, std::span<const float> samples) {
  const auto end = firstFrame + static_cast<std::int64_t>(samples.size() / mChannelCount);
  const std::lock_guard lock(mMutex);
  for (std::int64_t part = firstFrame / kDistance; part * kDistance < end; ++part) {
    const std::int64_t frame = std::max(firstFrame, part * kDistance);
    const auto next = mMarks.lower_bound(part * kDistance);
    const bool isThere = next != mMarks.end() && next->first < (part + 1) * kDistance;
    if (isThere || frame + kFrames > end) {
      continue;
    }
    std::vector<float> mark;
    for (std::int64_t i = frame - firstFrame; i < frame - firstFrame + kFrames; ++i) {
      mark.push_back(samples[static_cast<std::size_t>(i) * mChannelCount]);
    }
    // What stands still looks the same in many places.
    if (std::ranges::adjacent_find(mark, std::not_equal_to()) != mark.end()) {
      mMarks.emplace_hint(next, frame, std::move(mark));
    }
  }
}

std::optional<std::int64_t> PlaceMarks::FindMark(std::int64_t frame) const {
  const std::lock_guard lock(mMutex);
  const auto beyond = mMarks.upper_bound(frame - kSearchFrames);
  return beyond == mMarks.begin() ? std::nullopt : std::optional(std::prev(beyond)->first);
}

std::optional<std::int64_t> PlaceMarks::FindIn(std::span<const float> samples, std::int64_t markFrame) const {
  std::vector<float> first;
  for (std::size_t i = 0; i < samples.size(); i += mChannelCount) {
    first.push_back(samples[i]);
  }
  const std::lock_guard lock(mMutex);
  const auto mark = mMarks.find(markFrame);
  if (mark == mMarks.end()) {
    return std::nullopt;
  }
  const auto place = std::search(first.begin(), first.end(), mark->second.begin(), mark->second.end());
  const bool isOnlyOne = place != first.end() && std::search(place + 1, first.end(), mark->second.begin(),
                                                             mark->second.end()) == first.end();
  return isOnlyOne ? std::optional<std::int64_t>(place - first.begin()) : std::nullopt;
}

}  // namespace moxaudiotoolkit
