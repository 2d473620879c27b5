// One picture painted three ways: through the facade, with raw QPainter and with Cairo, on pixels of one
// kind.
#pragma once

#include "Figure.h"

#include <moxui/scriber/RasterSupplier.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/scriber/SurfaceInterface.h>

#include <cairo.h>

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace bench::scriber {

using moxui::ColorRGBA;
using moxui::PointT;
using moxui::scriber::BrushP;
using moxui::scriber::BufferImageP;
using moxui::scriber::FillRule;
using moxui::scriber::FontP;
using moxui::scriber::GetRasterSupplier;
using moxui::scriber::ImageP;
using moxui::scriber::NewRasterSurfaceOver;
using moxui::scriber::PathP;
using moxui::scriber::PenP;
using moxui::scriber::PixelFormat;
using moxui::scriber::SupplierInterface;
using moxui::scriber::SurfaceP;

inline constexpr int kWidth = 1920;
inline constexpr int kHeight = 1080;
inline constexpr std::uint32_t kGround = 0xff1b1b1d;
inline constexpr double kBar = 1.5;

// The same pixels as each of the three paints on.
struct Canvas {
  std::vector<std::uint32_t> pixels = std::vector<std::uint32_t>(std::size_t{kWidth} * kHeight, kGround);
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

void SetColour(Cairo& cairo, ColorRGBA const& c);
QColor ColourOf(ColorRGBA const& c);
QPen PenOf(ColorRGBA const& colour, double width);

inline constexpr ColorRGBA kInk{0.95f, 0.95f, 0.96f, 1.0f};
inline constexpr ColorRGBA kVeil{0.3f, 0.64f, 1.0f, 0.5f};

struct Painting {
  std::string name;
  std::function<void(Ours&)> ours;
  std::function<void(Qt&)> qt;
  std::function<void(Cairo&)> cairo;
  double pictureBar = 4.0;  // levels of 255 that pictures may differ by, on average; 0: printed only
  double bar = kBar;
  bool againstCairoOnly = false;
};

// Prints what painting through the facade costs in terms of the better of both peers, and how far the
// pictures lie apart.
void Measure(Figures& figures, Painting const& painting);

// Points of a curve over the whole width.
std::vector<PointT<float>> Curve(int count, float top, float height, bool noisy, unsigned seed);
PathP PathOf(SupplierInterface const* supplier, std::vector<PointT<float>> const& points);

void MeasureStrokes(Figures& figures);
void MeasureDials(Figures& figures);
void MeasureBlits(Figures& figures);
void MeasureLinesAndRectangles(Figures& figures);
void MeasureTexts(Figures& figures);

}  // namespace bench::scriber
