#include "ScrollLayout.h"

#include <algorithm>

namespace moxui::controls {

PointT<float> ScrollLayout::MaximumOffset() const {
  return {std::max(content.width - viewed.width, 0.0f), std::max(content.height - viewed.height, 0.0f)};
}

ScrollLayout GetScrollLayout(ExtentT<float> extent, float thickness, bool allowsBarX, bool allowsBarY,
                             bool isMirrored,
                             std::function<ExtentT<float>(float width)> const& contentExtent) {
  bool needsX = false;
  bool needsY = false;
  ScrollLayout layout;
  // Bars only ever come in, so that two rounds settle it.
  for (int round = 0; round < 3; ++round) {
    float const width = std::max(extent.width - (needsY ? thickness : 0.0f), 0.0f);
    float const height = std::max(extent.height - (needsX ? thickness : 0.0f), 0.0f);
    layout.viewed = {0.0f, 0.0f, width, height};
    layout.content = contentExtent(width);
    bool const wantsX = needsX || (allowsBarX && layout.content.width > width);
    bool const wantsY = needsY || (allowsBarY && layout.content.height > height);
    if (wantsX == needsX && wantsY == needsY) {
      break;
    }
    needsX = wantsX;
    needsY = wantsY;
  }
  if (needsY && isMirrored) {
    layout.viewed.left = thickness;
  }
  if (needsX) {
    layout.barX = {layout.viewed.left, layout.viewed.height, layout.viewed.width, thickness};
  }
  if (needsY) {
    layout.barY = {isMirrored ? 0.0f : layout.viewed.width, 0.0f, thickness, layout.viewed.height};
  }
  return layout;
}

float HoldOffset(float offset, float maximum) {
  // Written so that what isn't a number is 0.
  return offset > 0.0f && maximum > 0.0f ? std::min(offset, maximum) : 0.0f;
}

float GetOffsetThatShows(float offset, float viewed, float begin, float length) {
  if (begin < offset || length > viewed) {
    return begin;
  }
  return std::max(offset, begin + length - viewed);
}

}  // namespace moxui::controls
