#pragma once

#include "qt/raster/CoverageAccumulator.h"
#include "qt/raster/Polyline.h"

#include <span>
#include <vector>

namespace moxui::qt {

/// Adds the outlines of a stroke: flat caps, miter joins, which become bevels where they would reach farther
/// than four half widths. All parts of the outline turn the same way, so that overlaps stay covered.
class StrokeOutline {
 public:
  /// No part of a stroke lies farther from its line than this many widths.
  static constexpr double kFarthestReach = 2.0;

  StrokeOutline(CoverageAccumulator& accumulator, double width)
      : mAccumulator(accumulator), mHalf(0.5 * width) {}

  void Add(Polyline const& polyline);
  /// A single line, from its first point to the last.
  void AddLine(std::span<PointT<double> const> points) { AddSubPath(points.data(), points.size(), false); }
  /// Points that lie no farther apart than this are one.
  static constexpr double kTooClose = 1.0 / 64.0;  // device pixels

 private:
  struct Segment {
    PointT<double> direction;  // of length 1
    double length;
  };
  // Where the two sides of the line are around a point.
  struct Sides {
    PointT<double> left;
    PointT<double> right;
  };
  void AddSubPath(PointT<double> const* points, std::size_t count, bool closed);
  /// True if both sides meet in one point each, which they mostly do where a line bends gently.
  bool MeetsInTips(Segment const& before, Segment const& after, PointT<double> point, Sides& tips) const;
  void AddSegment(Sides const& from, Sides const& to);
  void AddJoin(PointT<double> point, Segment const& before, Segment const& after);
  Sides SidesAt(PointT<double> point, Segment const& segment) const {
    PointT<double> const side = Side(segment);
    return {point + side, point - side};
  }
  PointT<double> Side(Segment const& segment) const {
    return {-segment.direction.y * mHalf, segment.direction.x * mHalf};
  }

  CoverageAccumulator& mAccumulator;
  double mHalf;
  std::vector<PointT<double>> mPoints;  // the sub-path without points that lie too close
  std::vector<Segment> mSegments;
};

}  // namespace moxui::qt
