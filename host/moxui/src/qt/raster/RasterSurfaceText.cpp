#include "qt/raster/FiniteValues.h"
#include "qt/raster/RasterFont.h"
#include "qt/raster/RasterSurface.h"

#include <QtCore/QString>
#include <QtGui/QTextLayout>
#include <algorithm>
#include <cmath>

namespace moxui::qt {

namespace {

QString StringOf(std::u16string_view text) {
  return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}

QColor ColourOf(ColorRGBA const& colour) {
  auto const component = [](float value) { return std::isnan(value) ? 0.0f : std::clamp(value, 0.0f, 1.0f); };
  return QColor::fromRgbF(component(colour.red), component(colour.green), component(colour.blue),
                          component(colour.alpha));
}

// A new pen costs more than a look at the old one.
void SetInk(QPainter& painter, ColorRGBA const& colour) {
  QColor const ink = ColourOf(colour);
  if (painter.pen().color() != ink) {
    painter.setPen(ink);
  }
}

int Whole(double value) {
  return static_cast<int>(std::clamp(value, -1e9, 1e9));
}

double ShareBefore(scriber::TextAlignment alignment) {
  switch (alignment) {
    case scriber::TextAlignment::kCenter:
      return 0.5;
    case scriber::TextAlignment::kRight:
      return 1.0;
    case scriber::TextAlignment::kLeft:
      break;
  }
  return 0.0;
}

// What lies this far outside isn't seen, and is more than QPainter's glyphs can be moved.
constexpr double kFarthestText = 30000.0;

}  // namespace

void RasterSurface::DrawText(std::u16string_view text, PointT<float> baseline,
                             scriber::FontInterface const& font, ColorRGBA const& colour,
                             scriber::TextAlignment alignment) {
  if (text.empty() || mState.clip.IsEmpty()) {
    return;
  }
  auto const& face = static_cast<RasterFont const&>(font);
  PointT<double> at = Transform().Apply(Finite(baseline));
  double const width = alignment == scriber::TextAlignment::kLeft ? 0.0 : font.GetWidth(text) * mScale;
  at.x -= width * ShareBefore(alignment);
  if (mState.mode == scriber::DrawingMode::kInterface) {
    at = {std::floor(at.x + 0.5), std::floor(at.y + 0.5)};
  }
  if (std::abs(at.x) > kFarthestText || std::abs(at.y) > kFarthestText) {
    return;
  }
  QList<QGlyphRun> const& glyphs = face.GetGlyphs(text, mScale);
  PaintWithin(mState.clip, [&](QPainter& painter) {
    SetInk(painter, colour);
    for (QGlyphRun const& run : glyphs) {
      painter.drawGlyphRun(QPointF(at.x, at.y), run);
    }
  });
}

void RasterSurface::DrawTextInBox(std::u16string_view text, RectT<float> const& box,
                                  scriber::FontInterface const& font, ColorRGBA const& colour,
                                  scriber::TextAlignment alignment) {
  RectT<double> const device = ToDevice(box);
  if (text.empty() || mState.clip.IsEmpty() || device.IsEmpty()) {
    return;
  }
  auto const& face = static_cast<RasterFont const&>(font);
  QString string = StringOf(text);
  string.remove(u'\r').replace(u'\n', QChar::LineSeparator);
  QTextLayout layout(string, face.ForScale(mScale));
  layout.beginLayout();
  std::vector<QPointF> places;
  bool const snaps = mState.mode == scriber::DrawingMode::kInterface;
  double y = 0;
  double const width = std::min(device.width, kFarthestText);
  while (y < device.height) {
    QTextLine line = layout.createLine();
    if (!line.isValid()) {
      break;
    }
    line.setLineWidth(width);
    double x = (width - line.naturalTextWidth()) * ShareBefore(alignment);
    double top = device.top + y;
    double left = device.left + x;
    if (snaps) {
      left = std::floor(left + 0.5);
      top = std::floor(top + line.ascent() + 0.5) - line.ascent();
    }
    places.emplace_back(left, top);
    y += line.height();
  }
  layout.endLayout();
  PixelRect const cut{Whole(std::floor(device.left)), Whole(std::floor(device.top)),
                      Whole(std::ceil(device.Right())), Whole(std::ceil(device.Bottom()))};
  PaintWithin(cut, [&](QPainter& painter) {
    SetInk(painter, colour);
    for (std::size_t i = 0; i < places.size(); ++i) {
      if (std::abs(places[i].x()) < kFarthestText && std::abs(places[i].y()) < kFarthestText) {
        layout.lineAt(static_cast<int>(i)).draw(&painter, places[i]);
      }
    }
  });
}

}  // namespace moxui::qt
