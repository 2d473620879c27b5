#include <moxui/controls/ScrubMotion.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>

namespace moxui::controls {

namespace {

constexpr std::int64_t kDragThreshold = 2;

std::int64_t SaturatedToInt(std::int64_t value) {
  return std::clamp<std::int64_t>(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
}

/// Toward zero; what doesn't fit becomes the nearest that does, not-a-number becomes 0.
std::int64_t WholePixels(float distance) {
  constexpr float kFarthest = 4e9f;
  return std::isnan(distance)
             ? 0
             : SaturatedToInt(static_cast<std::int64_t>(std::clamp(distance, -kFarthest, kFarthest)));
}

/// A distance less the one step that a drag loses at its start.
std::int64_t LessFirstStep(std::int64_t distance) {
  return distance < 1 ? distance + 1 : distance - 1;
}

}  // namespace

int ScrubMotion::MoveTo(PointT<float> position, bool isPen) {
  std::int64_t const dx = WholePixels(position.x - lastPosition.x);
  std::int64_t const dy = WholePixels(position.y - lastPosition.y);
  lastPosition = lastPosition + PointT<float>(static_cast<float>(dx), static_cast<float>(dy));
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
    return static_cast<int>(SaturatedToInt(isVertical ? -LessFirstStep(dy) : LessFirstStep(dx)));
  }
  return static_cast<int>(SaturatedToInt(axis == 1 ? -dy : dx));
}

}  // namespace moxui::controls
