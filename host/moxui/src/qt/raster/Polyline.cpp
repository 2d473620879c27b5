#include "qt/raster/Polyline.h"

#include "qt/raster/RasterPath.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace moxui::qt {

namespace {

constexpr double kTolerance = 0.02;  // device pixels between a curve and its chords
constexpr double kEndChord = 0.125;  // the first and the last chord of an arc, as a part of the others
constexpr int kMostChords = 2048;

int ChordCount(double wanted) {
  return std::clamp(static_cast<int>(std::min(wanted, 1e4)) + 1, 1, kMostChords);
}

void FlattenArc(PointT<double> centre, double radius, double startDegrees, double sweepDegrees, double reach,
                std::vector<PointT<double>>& points) {
  constexpr double kRadians = std::numbers::pi / 180.0;
  double const start = startDegrees * kRadians;
  double const sweep = sweepDegrees * kRadians;
  double const step = 2.0 * std::acos(std::max(1.0 - kTolerance / std::max(radius + reach, 0.04), 0.5));
  int const chords = ChordCount(std::abs(sweep) / step);
  bool const full = std::abs(sweepDegrees) >= 360.0;
  double const turn = sweep / chords;
  // A little outside of the circle, so that the area within the chords is that within the arc.
  double const outside = radius * (1.0 + turn * turn / 12.0);
  auto const add = [&](double angle, double distance) {
    points.push_back({centre.x + distance * std::cos(angle), centre.y + distance * std::sin(angle)});
  };
  if (!full) {
    add(start, radius);
    // Caps stand across the first and the last chord: short ones, to turn them the right way.
    add(start + turn * kEndChord, radius);
  }
  double const turnCos = std::cos(turn);
  double const turnSin = std::sin(turn);
  double x = outside * std::cos(start);
  double y = outside * std::sin(start);
  for (int i = full ? 0 : 1; i < chords; ++i) {
    if (i > 0) {
      double const turned = x * turnCos - y * turnSin;
      y = x * turnSin + y * turnCos;
      x = turned;
    }
    points.push_back({centre.x + x, centre.y + y});
  }
  if (full) {
    add(start, outside);
  } else {
    add(start + sweep - turn * kEndChord, radius);
    add(start + sweep, radius);
  }
}

void FlattenCubic(PointT<double> a, PointT<double> b, PointT<double> c, PointT<double> d,
                  std::vector<PointT<double>>& points) {
  double const bend1 = std::hypot(a.x - 2 * b.x + c.x, a.y - 2 * b.y + c.y);
  double const bend2 = std::hypot(b.x - 2 * c.x + d.x, b.y - 2 * c.y + d.y);
  int const chords = ChordCount(std::sqrt(0.75 * std::max(bend1, bend2) / kTolerance));
  for (int i = 1; i < chords; ++i) {
    double const t = static_cast<double>(i) / chords;
    double const s = 1.0 - t;
    double const wa = s * s * s;
    double const wb = 3 * s * s * t;
    double const wc = 3 * s * t * t;
    double const wd = t * t * t;
    points.push_back({wa * a.x + wb * b.x + wc * c.x + wd * d.x, wa * a.y + wb * b.y + wc * c.y + wd * d.y});
  }
  points.push_back(d);
}

}  // namespace

void Flatten(RasterPath const& path, DeviceTransform const& transform, double reach, Polyline& polyline) {
  polyline.Clear();
  auto& out = polyline.points;
  out.reserve(path.GetPoints().size() + 16);
  auto const& in = path.GetPoints();
  std::size_t next = 0;
  std::size_t begin = 0;
  auto const finish = [&](bool closed) {
    if (out.size() > begin) {
      polyline.subPaths.push_back({begin, out.size(), closed});
    }
    begin = out.size();
  };
  auto const device = [&](std::size_t index) { return transform.Apply(PointT<double>(in[index])); };
  for (RasterPath::Verb const verb : path.GetVerbs()) {
    switch (verb) {
      case RasterPath::Verb::kMove:
        finish(false);
        out.push_back(device(next++));
        break;
      case RasterPath::Verb::kLine:
        out.push_back(device(next++));
        break;
      case RasterPath::Verb::kArc:
        FlattenArc(device(next), in[next + 1].x * transform.scale, in[next + 2].x, in[next + 2].y, reach,
                   out);
        next += 3;
        break;
      case RasterPath::Verb::kCubic:
        FlattenCubic(out.back(), device(next), device(next + 1), device(next + 2), out);
        next += 3;
        break;
      case RasterPath::Verb::kClose:
        finish(true);
        break;
    }
  }
  finish(false);
}

}  // namespace moxui::qt
