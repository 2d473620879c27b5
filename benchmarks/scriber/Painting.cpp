#include "scriber/Painting.h"

#include <moxui/scriber/PathInterface.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <random>

namespace bench::scriber {

namespace {

// Mean difference of a colour channel over the pixels that either has painted.
void ComparePictures(Figures& figures, std::string const& name, Canvas const& ours, Canvas const& peer,
                     double bar) {
  double sum = 0;
  double painted = 1;
  for (std::size_t i = 0; i < ours.pixels.size(); ++i) {
    std::uint32_t const a = ours.pixels[i];
    std::uint32_t const b = peer.pixels[i];
    if ((a | 0xff000000u) == kGround && (b | 0xff000000u) == kGround) {
      continue;
    }
    for (int shift = 0; shift < 24; shift += 8) {
      sum += std::abs(static_cast<int>((a >> shift) & 255u) - static_cast<int>((b >> shift) & 255u));
    }
    painted += 3;
  }
  figures.Count(name, sum, painted, bar, "levels over channels");
}

double QuickTime(std::function<void()> const& work) {
  auto const now = [] { return std::chrono::steady_clock::now(); };
  double best = 1e9;
  auto const begin = now();
  for (int i = 0; i < 50; ++i) {
    auto const before = now();
    work();
    best = std::min(best, std::chrono::duration<double>(now() - before).count());
    if (std::chrono::duration<double>(now() - begin).count() > 0.05) {
      break;
    }
  }
  return best;
}

}  // namespace

void SetColour(Cairo& cairo, ColorRGBA const& c) {
  cairo_set_source_rgba(cairo.cr, c.red, c.green, c.blue, c.alpha);
}

QColor ColourOf(ColorRGBA const& c) {
  return QColor::fromRgbF(c.red, c.green, c.blue, c.alpha);
}

QPen PenOf(ColorRGBA const& colour, double width) {
  QPen pen(ColourOf(colour), width, ::Qt::SolidLine, ::Qt::FlatCap, ::Qt::SvgMiterJoin);
  pen.setMiterLimit(4.0);
  return pen;
}

void Measure(Figures& figures, Painting const& painting) {
  if (!figures.Wants(painting.name)) {
    return;
  }
  Ours ours;
  Qt qt;
  Cairo cairo;
  // One painting each on a clean ground for the comparison.
  painting.ours(ours);
  if (!painting.againstCairoOnly) {
    painting.qt(qt);
    ComparePictures(figures, painting.name + "_difference_to_qpainter", ours.canvas, qt.canvas,
                    painting.pictureBar);
  }
  painting.cairo(cairo);
  ComparePictures(figures, painting.name + "_difference_to_cairo", ours.canvas, cairo.canvas, 0);
  auto const byQt = [&] { painting.qt(qt); };
  auto const byCairo = [&] { painting.cairo(cairo); };
  bool const cairoIsBetter = painting.againstCairoOnly || QuickTime(byCairo) < QuickTime(byQt);
  figures.Compare(
      {.name = painting.name + (cairoIsBetter ? "_against_cairo" : "_against_qpainter"),
       .numerator = [&] { painting.ours(ours); },
       .denominator = cairoIsBetter ? std::function<void()>(byCairo) : std::function<void()>(byQt),
       .bar = painting.bar});
}

std::vector<PointT<float>> Curve(int count, float top, float height, bool noisy, unsigned seed) {
  std::mt19937 random(seed);
  std::uniform_real_distribution<float> any(0.0f, 1.0f);
  std::vector<PointT<float>> points;
  for (int i = 0; i < count; ++i) {
    float const x = static_cast<float>(i) * (kWidth - 1.0f) / static_cast<float>(count - 1);
    // Two tones, one of them swelling: what a few cycles of music look like at this zoom.
    float const smooth = 0.5f + 0.3f * std::sin(x * 0.031f + static_cast<float>(seed)) +
                         0.19f * std::sin(x * 0.0047f) * std::sin(x * 0.17f);
    points.push_back({x, top + height * (noisy ? any(random) : smooth)});
  }
  return points;
}

PathP PathOf(SupplierInterface const* supplier, std::vector<PointT<float>> const& points) {
  PathP path = supplier->NewPath();
  path->MoveTo(points[0]);
  for (std::size_t i = 1; i < points.size(); ++i) {
    path->LineTo(points[i]);
  }
  return path;
}

}  // namespace bench::scriber
