#pragma once

#include <moxui/geometry/PointT.h>

namespace moxui::controls {

/// Where a drag over a value stands that is moved by the pointer, a step for each pixel.
struct ScrubMotion {
  bool hasStarted = false;     ///< has gone far enough to be a drag
  int axis = -1;               ///< -1 none yet, 0 horizontal, 1 vertical
  PointT<float> lastPosition;  ///< moved by whole pixels only, so that fractions aren't lost

  /// Follows the pointer and gives the number of steps that it went, up and right counting positive.
  ///
  /// A mouse starts a drag by two pixels or more at once, and the first of them is lost; that fixes the axis.
  /// A pen starts at the first pixel and chooses the axis anew each time.
  int MoveTo(PointT<float> position, bool isPen);
};

}  // namespace moxui::controls
