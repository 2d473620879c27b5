#pragma once

#include <moxui/geometry/ExtentT.h>
#include <moxui/geometry/PointT.h>
#include <moxui/geometry/RectT.h>

namespace moxui::controls {

struct SliderShape {
  RectT<float> rect;
  ExtentT<float> thumbSize;
  bool isVertical = false;
  /// Values run from edge to edge, rather than half a thumb inside.
  bool usesFullWidth = false;
  /// A thumb of a client's own lies 1 above the bottom edge, rather than in the middle.
  bool thumbIsAtBottom = false;
};

/// Along the axis the track runs between the thumb's centres at both ends; vertical sliders have their
/// beginning at the bottom.
struct SliderLayout {
  RectT<float> track;
  RectT<float> thumb;
};

SliderLayout GetSliderLayout(SliderShape const& shape, double fraction);

/// The part of a track between two fractions.
RectT<float> GetPartOfTrack(RectT<float> const& track, bool isVertical, double from, double to);

/// The fraction, not clamped, at which the thumb's centre is `grab` before a point along the axis. 0 on a
/// track without length.
double GetFractionAt(RectT<float> const& track, bool isVertical, PointT<float> point, float grab);

}  // namespace moxui::controls
