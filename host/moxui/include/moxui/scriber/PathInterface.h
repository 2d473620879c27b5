#pragma once

#include <moxcore/utility/RefCountedObjectWithoutVirtualBase.h>
#include <moxui/geometry/PointT.h>
#include <moxui/geometry/RectT.h>

namespace moxui::scriber {

/// An outline of lines, arcs and curves in logical coordinates, y downward. After a close, or before any
/// MoveTo, the next segment begins a new sub-path at its own first point (for LineTo and CubicTo: at the
/// point of the closed sub-path's beginning, or at the origin if there was none).
class PathInterface : public moxcore::utility::RefCountedObjectWithoutVirtualBase {
 public:
  virtual void MoveTo(PointT<float> point) = 0;
  virtual void LineTo(PointT<float> point) = 0;
  /// An arc of a circle. Degrees, 0 along +x, growing clockwise on screen; the sweep may be negative, and 360
  /// is a full circle. Joins an open sub-path by a straight line to its start, else begins one there.
  virtual void AddArc(PointT<float> centre, float radius, float start, float sweep) = 0;
  virtual void CubicTo(PointT<float> handle1, PointT<float> handle2, PointT<float> point) = 0;
  /// A closed sub-path of its own.
  virtual void AddRect(RectT<float> const& rect) = 0;
  virtual void Close() = 0;
};

}  // namespace moxui::scriber
