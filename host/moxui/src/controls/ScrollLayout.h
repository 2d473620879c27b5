#pragma once

#include <moxui/geometry/ExtentT.h>
#include <moxui/geometry/PointT.h>
#include <moxui/geometry/RectT.h>

#include <functional>

namespace moxui::controls {

/// Where the parts of a scroll view lie. A bar's rectangle is empty where it isn't needed.
struct ScrollLayout {
  RectT<float> viewed;
  RectT<float> barX;
  RectT<float> barY;
  ExtentT<float> content;

  PointT<float> MaximumOffset() const;
};

/// `contentExtent` gives the content's extent for a width that is seen. A bar takes room, which may make the
/// other one needed. The vertical bar is at the right; mirrored, at the left.
ScrollLayout GetScrollLayout(ExtentT<float> extent, float thickness, bool allowsBarX, bool allowsBarY,
                             bool isMirrored,
                             std::function<ExtentT<float>(float width)> const& contentExtent);

/// An offset held to 0 and its maximum; 0 for what is not a number.
float HoldOffset(float offset, float maximum);

/// The offset nearest to `offset` at which a stretch is seen; its beginning, if it is longer than what is
/// seen.
float GetOffsetThatShows(float offset, float viewed, float begin, float length);

}  // namespace moxui::controls
