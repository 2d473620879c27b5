#include "scriber/Painting.h"

#include <moxui/scriber/PathInterface.h>
#include <moxui/scriber/PenInterface.h>

#include <QtGui/QPainterPath>

namespace bench::scriber {

namespace {

QPainterPath QtPathOf(std::vector<PointT<float>> const& points) {
  QPainterPath path(QPointF(points[0].x, points[0].y));
  for (std::size_t i = 1; i < points.size(); ++i) {
    path.lineTo(points[i].x, points[i].y);
  }
  return path;
}

void AddCairoLine(Cairo& cairo, std::vector<PointT<float>> const& points) {
  for (PointT<float> const point : points) {
    cairo_line_to(cairo.cr, point.x, point.y);
  }
}

}  // namespace

void MeasureStrokes(Figures& figures) {
  for (bool const noisy : {false, true}) {
    auto const points = Curve(2000, 100.0f, 800.0f, noisy, 1);
    Measure(figures, {.name = noisy ? "stroke_2000_points_noisy" : "stroke_2000_points_smooth",
                      .ours =
                          [&](Ours& o) {
                            PenP const pen = o.supplier->NewPen(kVeil, 2.0f);
                            o.surface->StrokePath(*PathOf(o.supplier, points), *pen);
                          },
                      .qt = [&](Qt& q) { q.painter.strokePath(QtPathOf(points), PenOf(kVeil, 2.0)); },
                      .cairo =
                          [&](Cairo& c) {
                            SetColour(c, kVeil);
                            cairo_set_line_width(c.cr, 2.0);
                            AddCairoLine(c, points);
                            cairo_stroke(c.cr);
                          },
                      .pictureBar = 4.0});
    std::vector<std::vector<PointT<float>>> channels;
    for (int channel = 0; channel < 8; ++channel) {
      channels.push_back(
          Curve(kWidth, static_cast<float>(channel) * 135.0f, 134.0f, noisy, static_cast<unsigned>(channel)));
    }
    ColorRGBA const ink = kInk.WithAlpha(0.8f);
    Measure(figures, {.name = noisy ? "waveform_8_channels_noise" : "waveform_8_channels_music",
                      .ours =
                          [&](Ours& o) {
                            PenP const pen = o.supplier->NewPen(ink, 2.0f);
                            for (auto const& channel : channels) {
                              o.surface->StrokePath(*PathOf(o.supplier, channel), *pen);
                            }
                          },
                      .qt = nullptr,
                      .cairo =
                          [&](Cairo& c) {
                            SetColour(c, ink);
                            cairo_set_line_width(c.cr, 2.0);
                            for (auto const& channel : channels) {
                              AddCairoLine(c, channel);
                              cairo_stroke(c.cr);
                            }
                          },
                      .bar = noisy ? 0.5 : 1.0,
                      .againstCairoOnly = true});
  }
}

}  // namespace bench::scriber
