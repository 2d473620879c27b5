#include "WaveformRegions.h"

#include "SaturatingConversion.h"

#include <algorithm>

namespace moxmediaui {

void WaveformRegions::Add(moxui::RectT<int> const& rect, bool isSelected, float gain) {
  rects.push_back(rect);
  selected.push_back(isSelected);
  gains.push_back(gain);
}

moxui::RectT<int> FindCommonArea(moxui::RectT<int> const& a, moxui::RectT<int> const& b) {
  int const left = std::max(a.left, b.left);
  int const top = std::max(a.top, b.top);
  std::int64_t const right = std::min(std::int64_t{a.left} + a.width, std::int64_t{b.left} + b.width);
  std::int64_t const bottom = std::min(std::int64_t{a.top} + a.height, std::int64_t{b.top} + b.height);
  if (right <= left || bottom <= top) {
    return {};
  }
  return {left, top, SaturateToInt(right - left), SaturateToInt(bottom - top)};
}

WaveformRegions SplitBySelection(moxui::RectT<int> const& rect, int selectionLeft, int selectionWidth,
                                 float gain, bool gainWholeRange) {
  std::int64_t const rectRight = std::int64_t{rect.left} + rect.width;
  std::int64_t const left = std::max(selectionLeft, rect.left);
  std::int64_t const right = std::min(std::int64_t{selectionLeft} + selectionWidth, rectRight);
  std::int64_t const top = std::max(0, rect.top);
  std::int64_t const bottom = std::min(std::int64_t{rect.top} + rect.height, std::int64_t{rect.height});

  WaveformRegions regions;
  if (right - left < 1 || bottom - top < 1) {
    regions.Add(rect, false, gain);
    return regions;
  }
  float const outsideGain = gainWholeRange ? gain : 1.0f;
  if (left > rect.left) {
    regions.Add({rect.left, 0, SaturateToInt(left - rect.left), rect.height}, false, outsideGain);
  }
  if (right < rectRight) {
    regions.Add({SaturateToInt(right), 0, SaturateToInt(rectRight - right), rect.height}, false, outsideGain);
  }
  regions.Add(
      {SaturateToInt(left), SaturateToInt(top), SaturateToInt(right - left), SaturateToInt(bottom - top)},
      true, gain);
  return regions;
}

}  // namespace moxmediaui
