#include "SliderLayout.h"

#include <algorithm>
#include <cmath>

namespace moxui::controls {
namespace {

constexpr float kTrackThickness = 2.0f;

float Place(float begin, float length, double fraction) {
  return begin + length * static_cast<float>(fraction);
}

}  // namespace

SliderLayout GetSliderLayout(SliderShape const& shape, double fraction) {
  RectT<float> const& rect = shape.rect;
  ExtentT<float> const thumb = shape.thumbSize;
  if (shape.isVertical) {
    float const inset = shape.usesFullWidth ? 0.0f : thumb.height / 2.0f;
    float const length = std::max(rect.height - 2.0f * inset, 0.0f);
    float const left = rect.left + (rect.width - kTrackThickness) / 2.0f;
    RectT<float> const track(left, rect.top + inset, kTrackThickness, length);
    float const centre = Place(track.Bottom(), -length, fraction);
    return {.track = track,
            .thumb = {rect.left + (rect.width - thumb.width) / 2.0f, centre - thumb.height / 2.0f,
                      thumb.width, thumb.height}};
  }
  float const inset = shape.usesFullWidth ? 0.0f : thumb.width / 2.0f;
  float const length = std::max(rect.width - 2.0f * inset, 0.0f);
  float const thumbTop = shape.thumbIsAtBottom ? rect.Bottom() - thumb.height - 1.0f
                                               : rect.top + std::floor((rect.height - thumb.height) / 2.0f);
  float const trackTop = thumbTop + (thumb.height - kTrackThickness) / 2.0f;
  RectT<float> const track(rect.left + inset, trackTop, length, kTrackThickness);
  float const centre = Place(track.left, length, fraction);
  return {.track = track, .thumb = {centre - thumb.width / 2.0f, thumbTop, thumb.width, thumb.height}};
}

RectT<float> GetPartOfTrack(RectT<float> const& track, bool isVertical, double from, double to) {
  if (isVertical) {
    float const bottom = Place(track.Bottom(), -track.height, from);
    float const top = Place(track.Bottom(), -track.height, to);
    return RectT<float>::FromEdges(track.left, top, track.Right(), bottom);
  }
  float const left = Place(track.left, track.width, from);
  return RectT<float>::FromEdges(left, track.top, Place(track.left, track.width, to), track.Bottom());
}

double GetFractionAt(RectT<float> const& track, bool isVertical, PointT<float> point, float grab) {
  float const length = isVertical ? track.height : track.width;
  if (!(length > 0.0f)) {
    return 0.0;
  }
  float const along = isVertical ? track.Bottom() - (point.y - grab) : point.x - grab - track.left;
  return static_cast<double>(along) / static_cast<double>(length);
}

}  // namespace moxui::controls
