#include "ScrubMotion.h"

#include "audio/SaturatingConversion.h"

#include <cstdlib>

namespace moxmediaui {

namespace {

constexpr std::int64_t kDragThreshold = 2;

/// A distance less the one step that a drag loses at its start.
std::int64_t LessFirstStep(std::int64_t distance) {
  return distance < 1 ? distance + 1 : distance - 1;
}

}  // namespace

int ScrubMotion::MoveTo(moxui::PointT<float> position, bool isPen) {
  std::int64_t const dx = TruncateToInt(position.x - lastPosition.x);
  std::int64_t const dy = TruncateToInt(position.y - lastPosition.y);
  lastPosition = lastPosition + moxui::PointT<float>(static_cast<float>(dx), static_cast<float>(dy));
  bool const isVertical = std::abs(dx) <= std::abs(dy);
  bool const wasFixed = axis != -1;
  if (isPen) {
    if (dx == 0 && dy == 0) {
      return 0;
    }
    hasStarted = true;
    axis = isVertical ? 1 : 0;
  } else if (!wasFixed) {
    if (std::abs(dx) < kDragThreshold && std::abs(dy) < kDragThreshold) {
      return 0;
    }
    hasStarted = true;
    axis = isVertical ? 1 : 0;
    return SaturateToInt(isVertical ? -LessFirstStep(dy) : LessFirstStep(dx));
  }
  return SaturateToInt(axis == 1 ? -dy : dx);
}

}  // namespace moxmediaui
