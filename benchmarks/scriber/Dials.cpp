#include "scriber/Painting.h"

#include <moxui/scriber/PathInterface.h>
#include <moxui/scriber/PenInterface.h>

#include <QtGui/QPainterPath>
#include <array>
#include <numbers>

namespace bench::scriber {

void MeasureDials(Figures& figures) {
  struct Arc {
    double radius, start, sweep;
    ColorRGBA colour;
  };
  static constexpr std::array<Arc, 4> kArcs{{{24, 0, 180, {0.36f, 0.36f, 0.38f, 1}},
                                             {24, 200, 110, kInk},
                                             {24, 85, 10, kVeil},
                                             {14, 0, 360, {0.5f, 0.5f, 0.5f, 1}}}};
  constexpr double kRadians = std::numbers::pi / 180.0;
  Measure(figures, {.name = "dial_arcs",
                    .ours =
                        [](Ours& o) {
                          for (Arc const& arc : kArcs) {
                            PathP const path = o.supplier->NewPath();
                            path->AddArc({126, 126}, static_cast<float>(arc.radius),
                                         static_cast<float>(arc.start), static_cast<float>(arc.sweep));
                            o.surface->StrokePath(*path, *o.supplier->NewPen(arc.colour, 4.0f));
                          }
                        },
                    .qt =
                        [](Qt& q) {
                          for (Arc const& arc : kArcs) {
                            QRectF const box(126 - arc.radius, 126 - arc.radius, 2 * arc.radius,
                                             2 * arc.radius);
                            QPainterPath path;
                            path.arcMoveTo(box, -arc.start);
                            path.arcTo(box, -arc.start, -arc.sweep);
                            q.painter.strokePath(path, PenOf(arc.colour, 4.0));
                          }
                        },
                    .cairo =
                        [](Cairo& c) {
                          cairo_set_line_width(c.cr, 4.0);
                          for (Arc const& arc : kArcs) {
                            SetColour(c, arc.colour);
                            cairo_new_sub_path(c.cr);
                            cairo_arc(c.cr, 126, 126, arc.radius, arc.start * kRadians,
                                      (arc.start + arc.sweep) * kRadians);
                            cairo_stroke(c.cr);
                          }
                        }});
  static constexpr std::array<ColorRGBA, 3> kColours{{{1, 1, 1, 1}, {1, 1, 1, 0.8f}, {1, 1, 1, 0}}};
  static constexpr std::array<float, 3> kStops{0.0f, 0.5f, 1.0f};
  Measure(figures,
          {.name = "dial_ring_gradient",
           .ours =
               [](Ours& o) {
                 PathP const path = o.supplier->NewPath();
                 path->AddArc({126, 126}, 26, 0, 360);
                 path->Close();
                 path->AddArc({126, 126}, 22, 0, 360);
                 path->Close();
                 o.surface->SaveState();
                 o.surface->ClipToPath(*path, FillRule::kEvenOdd);
                 BrushP const shader = o.supplier->NewRadialShader({126, 126}, {126, 100}, kColours, kStops);
                 o.surface->FillPath(*path, *shader, FillRule::kWinding);
                 o.surface->RestoreState();
               },
           .qt =
               [](Qt& q) {
                 QPainterPath path;
                 path.addEllipse(QPointF(126, 126), 26, 26);
                 path.addEllipse(QPointF(126, 126), 22, 22);
                 path.setFillRule(::Qt::OddEvenFill);
                 QRadialGradient shader(QPointF(126, 126), 26);
                 for (std::size_t i = 0; i < 3; ++i) {
                   shader.setColorAt(kStops[i], ColourOf(kColours[i]));
                 }
                 // Clipping to the ring and filling it comes to filling it, which is what a
                 // painter by hand would do.
                 q.painter.fillPath(path, shader);
               },
           .cairo =
               [](Cairo& c) {
                 cairo_save(c.cr);
                 cairo_set_fill_rule(c.cr, CAIRO_FILL_RULE_EVEN_ODD);
                 cairo_new_sub_path(c.cr);
                 cairo_arc(c.cr, 126, 126, 26, 0, 2 * std::numbers::pi);
                 cairo_new_sub_path(c.cr);
                 cairo_arc(c.cr, 126, 126, 22, 0, 2 * std::numbers::pi);
                 cairo_pattern_t* shader = cairo_pattern_create_radial(126, 126, 0, 126, 126, 26);
                 for (std::size_t i = 0; i < 3; ++i) {
                   cairo_pattern_add_color_stop_rgba(shader, kStops[i], kColours[i].red, kColours[i].green,
                                                     kColours[i].blue, kColours[i].alpha);
                 }
                 cairo_set_source(c.cr, shader);
                 cairo_fill(c.cr);
                 cairo_pattern_destroy(shader);
                 cairo_restore(c.cr);
               }});
}

}  // namespace bench::scriber
