#pragma once

#include <moxui/geometry/PointT.h>

#include <cstddef>
#include <vector>

namespace moxui::qt {

class RasterPath;

/// From logical to device coordinates.
struct DeviceTransform {
  double scale = 1;
  double moveX = 0;  // device pixels
  double moveY = 0;

  PointT<double> Apply(PointT<double> p) const { return {p.x * scale + moveX, p.y * scale + moveY}; }
  friend bool operator==(DeviceTransform const&, DeviceTransform const&) = default;
};

/// Straight lines in device pixels, as sub-paths one after the other.
struct Polyline {
  struct SubPath {
    std::size_t begin;
    std::size_t end;
    bool closed;
  };
  std::vector<PointT<double>> points;
  std::vector<SubPath> subPaths;

  void Clear() {
    points.clear();
    subPaths.clear();
  }
};

/// Flattens a path. Curves stay within a small part of a pixel of the true ones, also where they are followed
/// at a distance of `reach` device pixels (half the width of a pen).
void Flatten(RasterPath const& path, DeviceTransform const& transform, double reach, Polyline& polyline);

}  // namespace moxui::qt
