#include "scriber/Painting.h"

#include <moxui/scriber/FontInterface.h>

#include <QtGui/QFontMetricsF>

namespace bench::scriber {

namespace {

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

}  // namespace

void MeasureTexts(Figures& figures) {
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
                            DoNotOptimize(font->GetWidth(text));
                          }
                        },
                    .qt =
                        [&](Qt&) {
                          QFontMetricsF const metrics(qtFont);
                          for (QString const& text : strings) {
                            DoNotOptimize(metrics.horizontalAdvance(text));
                          }
                        },
                    .cairo =
                        [&](Cairo& c) {
                          SelectCairoFont(c);
                          for (std::string const& text : labels) {
                            cairo_text_extents_t extents;
                            cairo_text_extents(c.cr, text.c_str(), &extents);
                            DoNotOptimize(extents.x_advance);
                          }
                        }});
}

}  // namespace bench::scriber
