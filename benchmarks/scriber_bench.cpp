// What drawing through the facade costs in terms of the better of raw QPainter and Cairo, which paint the
// same picture on the same thread beside it. Pictures are compared too, so that no figure is won by drawing
// less.
#include "Figure.h"

#include <moxui/scriber/FontInterface.h>
#include <moxui/scriber/ImageInterface.h>
#include <moxui/scriber/PathInterface.h>
#include <moxui/scriber/PenInterface.h>
#include <moxui/scriber/RasterSupplier.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/scriber/SurfaceInterface.h>

#include <cairo.h>

#include <QtGui/QFontMetricsF>
#include <QtGui/QGuiApplication>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <numbers>
#include <random>
#include <string>
#include <vector>

using namespace moxui;
using namespace moxui::scriber;

namespace {

constexpr int kWidth = 1920;
constexpr int kHeight = 1080;
constexpr std::uint32_t kGround = 0xff1b1b1d;
constexpr double kBar = 1.5;

// The same pixels as each of the three paints on.
struct Canvas {
  std::vector<std::uint32_t> pixels = std::vector<std::uint32_t>(std::size_t{kWidth} * kHeight, kGround);

  void Clear() { std::fill(pixels.begin(), pixels.end(), kGround); }
};

struct Ours {
  Canvas canvas;
  SurfaceP surface = NewRasterSurfaceOver(canvas.pixels.data(), kWidth, kHeight, kWidth * 4, 1.0f, true);
  SupplierInterface const* supplier = GetRasterSupplier();
};

struct Qt {
  Canvas canvas;
  QImage image{reinterpret_cast<uchar*>(canvas.pixels.data()), kWidth, kHeight, kWidth * 4,
               QImage::Format_RGB32};
  QPainter painter{&image};
  Qt() { painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing); }
};

struct Cairo {
  Canvas canvas;
  cairo_surface_t* surface =
      cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(canvas.pixels.data()),
                                          CAIRO_FORMAT_RGB24, kWidth, kHeight, kWidth * 4);
  cairo_t* cr = cairo_create(surface);
  Cairo() { cairo_set_miter_limit(cr, 4.0); }
  ~Cairo() {
    cairo_destroy(cr);
    cairo_surface_destroy(surface);
  }
  Cairo(Cairo const&) = delete;
  Cairo& operator=(Cairo const&) = delete;
};

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

constexpr ColorRGBA kInk{0.95f, 0.95f, 0.96f, 1.0f};
constexpr ColorRGBA kVeil{0.3f, 0.64f, 1.0f, 0.5f};

// Mean difference of a colour channel over the pixels that either has painted.
void ComparePictures(bench::Figures& figures, std::string const& name, Canvas const& ours, Canvas const& peer,
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

struct Painting {
  std::string name;
  std::function<void(Ours&)> ours;
  std::function<void(Qt&)> qt;
  std::function<void(Cairo&)> cairo;
  double pictureBar = 4.0;  // levels of 255 that pictures may differ by, on average; 0: printed only
  double bar = kBar;
  bool againstCairoOnly = false;
};

void Measure(bench::Figures& figures, Painting const& painting) {
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

void MeasureStrokes(bench::Figures& figures) {
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

void MeasureDials(bench::Figures& figures) {
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

void MeasureBlits(bench::Figures& figures) {
  std::vector<std::uint32_t> picture(std::size_t{kWidth} * kHeight);
  for (std::size_t i = 0; i < picture.size(); ++i) {
    picture[i] = 0xff000000u | static_cast<std::uint32_t>(i * 2654435761u >> 8);
  }
  auto* const bytes = reinterpret_cast<unsigned char*>(picture.data());
  BufferImageP const opaque = GetRasterSupplier()->NewImage(kWidth, kHeight, kWidth * 4, PixelFormat::kBGRX32,
                                                            picture.data(), nullptr);
  QImage const qtOpaque(bytes, kWidth, kHeight, kWidth * 4, QImage::Format_RGB32);
  cairo_surface_t* const cairoOpaque =
      cairo_image_surface_create_for_data(bytes, CAIRO_FORMAT_RGB24, kWidth, kHeight, kWidth * 4);
  // A layer as the waveform painter makes them: transparent but for some curves.
  SurfaceP const layer = GetRasterSupplier()->NewOffscreenSurface(kWidth, kHeight, 1.0f);
  for (int i = 0; i < 8; ++i) {
    layer->StrokePath(*PathOf(GetRasterSupplier(), Curve(kWidth, static_cast<float>(i) * 135, 134, false, 2)),
                      *GetRasterSupplier()->NewPen(kVeil, 8.0f));
  }
  ImageP const layerImage = layer->GetImage();
  std::vector<std::uint32_t> straight(picture.size());
  layerImage->CopyPixels(reinterpret_cast<std::uint8_t*>(straight.data()), kWidth * 4);
  QImage qtLayer(reinterpret_cast<unsigned char*>(straight.data()), kWidth, kHeight, QImage::Format_ARGB32);
  qtLayer = qtLayer.convertToFormat(QImage::Format_ARGB32_Premultiplied);
  cairo_surface_t* const cairoLayer =
      cairo_image_surface_create_for_data(qtLayer.bits(), CAIRO_FORMAT_ARGB32, kWidth, kHeight, kWidth * 4);
  for (bool const faint : {false, true}) {
    float const opacity = faint ? 0.9f : 1.0f;
    auto const byQt = [opacity](Qt& q, QImage const& image) {
      q.painter.setOpacity(static_cast<double>(opacity));
      q.painter.drawImage(0, 0, image);
      q.painter.setOpacity(1.0);
    };
    auto const byCairo = [opacity](Cairo& c, cairo_surface_t* image) {
      cairo_set_source_surface(c.cr, image, 0, 0);
      cairo_paint_with_alpha(c.cr, static_cast<double>(opacity));
    };
    Measure(figures, {.name = faint ? "blit_1080p_at_0.9" : "blit_1080p",
                      .ours = [&](Ours& o) { o.surface->DrawImage(*opaque, PointT<float>{}, opacity); },
                      .qt = [&](Qt& q) { byQt(q, qtOpaque); },
                      .cairo = [&](Cairo& c) { byCairo(c, cairoOpaque); }});
    Measure(figures, {.name = faint ? "blit_1080p_layer_at_0.9" : "blit_1080p_layer",
                      .ours = [&](Ours& o) { o.surface->DrawImage(*layerImage, PointT<float>{}, opacity); },
                      .qt = [&](Qt& q) { byQt(q, qtLayer); },
                      .cairo = [&](Cairo& c) { byCairo(c, cairoLayer); }});
  }
  cairo_surface_destroy(cairoOpaque);
  cairo_surface_destroy(cairoLayer);
}

void MeasureLinesAndRectangles(bench::Figures& figures) {
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

QFont TextFont() {
  QFont font(QStringLiteral("Open Sans"));
  font.setPixelSize(12);
  font.setHintingPreference(QFont::PreferNoHinting);
  font.setStyleStrategy(QFont::NoSubpixelAntialias);
  return font;
}

void SelectCairoFont(Cairo& c) {
  cairo_select_font_face(c.cr, "Open Sans", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
  cairo_set_font_size(c.cr, 12.0);
}

void MeasureTexts(bench::Figures& figures) {
  std::vector<std::string> labels;
  for (int i = 0; i < 100; ++i) {
    labels.push_back("Channel " + std::to_string(i) + ": 00:01:" + std::to_string(10 + i % 50));
  }
  std::vector<std::u16string> wide;
  std::vector<QString> strings;
  for (std::string const& label : labels) {
    wide.emplace_back(label.begin(), label.end());
    strings.push_back(QString::fromStdString(label));
  }
  FontP const font = GetRasterSupplier()->NewFont("Open Sans", "", 12.0f);
  QFont const qtFont = TextFont();
  auto const x = [](std::size_t i) { return static_cast<int>(i % 10 * 180 + 5); };
  auto const y = [](std::size_t i) { return static_cast<int>(i / 10 * 40 + 20); };
  Measure(figures, {.name = "texts_100",
                    .ours =
                        [&](Ours& o) {
                          for (std::size_t i = 0; i < labels.size(); ++i) {
                            o.surface->DrawText(wide[i], {static_cast<float>(x(i)), static_cast<float>(y(i))},
                                                *font, kInk);
                          }
                        },
                    .qt =
                        [&](Qt& q) {
                          q.painter.setFont(qtFont);
                          q.painter.setPen(ColourOf(kInk));
                          for (std::size_t i = 0; i < labels.size(); ++i) {
                            q.painter.drawText(QPointF(x(i), y(i)), strings[i]);
                          }
                        },
                    .cairo =
                        [&](Cairo& c) {
                          SelectCairoFont(c);
                          SetColour(c, kInk);
                          for (std::size_t i = 0; i < labels.size(); ++i) {
                            cairo_move_to(c.cr, x(i), y(i));
                            cairo_show_text(c.cr, labels[i].c_str());
                          }
                        }});
  Measure(figures, {.name = "text_widths_100",
                    .ours =
                        [&](Ours&) {
                          for (std::u16string const& text : wide) {
                            bench::DoNotOptimize(font->GetWidth(text));
                          }
                        },
                    .qt =
                        [&](Qt&) {
                          QFontMetricsF const metrics(qtFont);
                          for (QString const& text : strings) {
                            bench::DoNotOptimize(metrics.horizontalAdvance(text));
                          }
                        },
                    .cairo =
                        [&](Cairo& c) {
                          SelectCairoFont(c);
                          for (std::string const& text : labels) {
                            cairo_text_extents_t extents;
                            cairo_text_extents(c.cr, text.c_str(), &extents);
                            bench::DoNotOptimize(extents.x_advance);
                          }
                        }});
}

}  // namespace

int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  int qtArguments = 1;
  QGuiApplication application(qtArguments, argv);
  bench::Figures figures(argc, argv);
  MeasureStrokes(figures);
  MeasureDials(figures);
  MeasureBlits(figures);
  MeasureLinesAndRectangles(figures);
  MeasureTexts(figures);
  return figures.Result();
}
