#pragma once

#include <moxui/geometry/FourEdgeTupleT.h>
#include <moxui/geometry/RectT.h>
#include <moxui/scriber/ScriberTypes.h>

namespace moxui::utils {

/// Which corners of a rectangle are rounded: each member names the corner that the edge of its name begins
/// with, going clockwise: left is bottom left, top is top left, right is top right, bottom is bottom right.
using RoundedCorners = FourEdgeTupleT<bool>;
inline constexpr RoundedCorners kAllCorners{true, true, true, true};

/// Appends a closed sub-path. The radius is at most half of the smaller extent; 0 or less gives a plain
/// rectangle. An empty rectangle adds nothing.
void FormRoundedRect(scriber::PathP& path, RectT<float> const& rect, float radius);
void FormRoundedRect(scriber::PathP& path, RectT<float> const& rect, float radius,
                     RoundedCorners const& corners);

/// The same into a path given.
void GetRoundedRectPath(scriber::PathInterface& path, RectT<float> const& rect, float radius);
void GetRoundedRectPath(scriber::PathP const& path, RectT<float> const& rect, float radius);

}  // namespace moxui::utils
