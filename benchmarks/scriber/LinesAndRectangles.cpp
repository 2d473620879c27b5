#include "scriber/Painting.h"

#include <moxui/scriber/PathInterface.h>
#include <moxui/scriber/PenInterface.h>

namespace bench::scriber {

void MeasureLinesAndRectangles(Figures& figures) {
  // Hairlines of a grid, one stroke each.
  Measure(figures, {.name = "grid_500_lines",
                    .ours =
                        [](Ours& o) {
                          PenP const pen = o.supplier->NewPen(kVeil, 1.0f);
                          for (int i = 0; i < 250; ++i) {
                            float const at = static_cast<float>(i * 4) + 0.5f;
                            PathP const path = o.supplier->NewPath();
                            path->MoveTo({at, 0});
                            path->LineTo({at, kHeight});
                            o.surface->StrokePath(*path, *pen);
                            PathP const other = o.supplier->NewPath();
                            other->MoveTo({0, at});
                            other->LineTo({kWidth, at});
                            o.surface->StrokePath(*other, *pen);
                          }
                        },
                    .qt =
                        [](Qt& q) {
                          q.painter.setPen(PenOf(kVeil, 1.0));
                          for (int i = 0; i < 250; ++i) {
                            double const at = i * 4 + 0.5;
                            q.painter.drawLine(QPointF(at, 0), QPointF(at, kHeight));
                            q.painter.drawLine(QPointF(0, at), QPointF(kWidth, at));
                          }
                        },
                    .cairo =
                        [](Cairo& c) {
                          SetColour(c, kVeil);
                          cairo_set_line_width(c.cr, 1.0);
                          for (int i = 0; i < 250; ++i) {
                            double const at = i * 4 + 0.5;
                            cairo_move_to(c.cr, at, 0);
                            cairo_line_to(c.cr, at, kHeight);
                            cairo_stroke(c.cr);
                            cairo_move_to(c.cr, 0, at);
                            cairo_line_to(c.cr, kWidth, at);
                            cairo_stroke(c.cr);
                          }
                        }});
  Measure(figures, {.name = "rectangles_1000",
                    .ours =
                        [](Ours& o) {
                          for (int i = 0; i < 1000; ++i) {
                            o.surface->FillRect(
                                {static_cast<float>(i % 40 * 47), static_cast<float>(i / 40 * 42), 40, 30},
                                i % 2 == 0 ? kInk : kVeil);
                          }
                        },
                    .qt =
                        [](Qt& q) {
                          for (int i = 0; i < 1000; ++i) {
                            q.painter.fillRect(QRect(i % 40 * 47, i / 40 * 42, 40, 30),
                                               ColourOf(i % 2 == 0 ? kInk : kVeil));
                          }
                        },
                    .cairo =
                        [](Cairo& c) {
                          for (int i = 0; i < 1000; ++i) {
                            SetColour(c, i % 2 == 0 ? kInk : kVeil);
                            cairo_rectangle(c.cr, i % 40 * 47, i / 40 * 42, 40, 30);
                            cairo_fill(c.cr);
                          }
                        }});
  Measure(figures, {.name = "rectangle_1080p_veil",
                    .ours =
                        [](Ours& o) {
                          o.surface->FillRect({0, 0, kWidth, kHeight}, kVeil);
                        },
                    .qt = [](Qt& q) { q.painter.fillRect(QRect(0, 0, kWidth, kHeight), ColourOf(kVeil)); },
                    .cairo =
                        [](Cairo& c) {
                          SetColour(c, kVeil);
                          cairo_paint(c.cr);
                        }});
  // What a tree of nodes asks for at each paint: a state, an origin, a clip, a ground and a mark.
  Measure(figures,
          {.name = "clipped_nodes_400",
           .ours =
               [](Ours& o) {
                 for (int i = 0; i < 400; ++i) {
                   o.surface->SaveState();
                   o.surface->Translate({static_cast<float>(i % 20 * 90), static_cast<float>(i / 20 * 50)});
                   o.surface->ClipToRect({0, 0, 80, 40});
                   o.surface->FillRect({0, 0, 80, 40}, kInk);
                   o.surface->FillRect({60, 10, 40, 40}, kVeil);
                   o.surface->RestoreState();
                 }
               },
           .qt =
               [](Qt& q) {
                 for (int i = 0; i < 400; ++i) {
                   q.painter.save();
                   q.painter.translate(i % 20 * 90, i / 20 * 50);
                   q.painter.setClipRect(QRect(0, 0, 80, 40), ::Qt::IntersectClip);
                   q.painter.fillRect(QRect(0, 0, 80, 40), ColourOf(kInk));
                   q.painter.fillRect(QRect(60, 10, 40, 40), ColourOf(kVeil));
                   q.painter.restore();
                 }
               },
           .cairo =
               [](Cairo& c) {
                 for (int i = 0; i < 400; ++i) {
                   cairo_save(c.cr);
                   cairo_translate(c.cr, i % 20 * 90, i / 20 * 50);
                   cairo_rectangle(c.cr, 0, 0, 80, 40);
                   cairo_clip(c.cr);
                   SetColour(c, kInk);
                   cairo_rectangle(c.cr, 0, 0, 80, 40);
                   cairo_fill(c.cr);
                   SetColour(c, kVeil);
                   cairo_rectangle(c.cr, 60, 10, 40, 40);
                   cairo_fill(c.cr);
                   cairo_restore(c.cr);
                 }
               }});
}

}  // namespace bench::scriber
