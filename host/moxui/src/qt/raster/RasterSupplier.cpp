#include "qt/raster/RasterBrush.h"
#include "qt/raster/RasterFont.h"
#include "qt/raster/RasterImage.h"
#include "qt/raster/RasterPath.h"
#include "qt/raster/RasterSurface.h"
#include "qt/raster/SurfaceSizes.h"
#include "qt/raster/VectorImage.h"

#include <moxui/scriber/RasterSupplier.h>
#include <moxui/scriber/SupplierInterface.h>

#include <cmath>
#include <cstdint>
#include <new>
#include <utility>

namespace moxui::qt {

namespace {

using moxcore::utility::MakeIntrusive;

constexpr double kMostPixels = 1 << 28;
constexpr double kLongestSide = 32767;

bool AreStops(std::span<ColorRGBA const> colours, std::span<float const> stops) {
  if (colours.empty() || colours.size() != stops.size()) {
    return false;
  }
  float before = 0.0f;
  for (float const stop : stops) {
    // Written so that what is no number is refused.
    if (!(stop >= before && stop <= 1.0f)) {
      return false;
    }
    before = stop;
  }
  return true;
}

class RasterSupplier final : public scriber::SupplierInterface {
 public:
  scriber::PenP NewPen(ColorRGBA const& colour, float width) const override {
    return MakeIntrusive<RasterPen>(colour, width);
  }
  scriber::PathP NewPath() const override { return MakeIntrusive<RasterPath>(); }
  scriber::BrushP NewBrush(ColorRGBA const& colour) const override {
    return MakeIntrusive<RasterBrush>(colour);
  }

  scriber::BrushP NewLinearShader(PointT<float> from, PointT<float> to, ColorRGBA const& first,
                                  ColorRGBA const& last) const override {
    return NewShader(RasterBrush::Kind::kLinear, from, to, first, last);
  }
  scriber::BrushP NewRadialShader(PointT<float> centre, PointT<float> rim, ColorRGBA const& first,
                                  ColorRGBA const& last) const override {
    return NewShader(RasterBrush::Kind::kRadial, centre, rim, first, last);
  }
  scriber::BrushP NewLinearShader(PointT<float> from, PointT<float> to, std::span<ColorRGBA const> colours,
                                  std::span<float const> stops) const override {
    return NewShader(RasterBrush::Kind::kLinear, from, to, colours, stops);
  }
  scriber::BrushP NewRadialShader(PointT<float> centre, PointT<float> rim, std::span<ColorRGBA const> colours,
                                  std::span<float const> stops) const override {
    return NewShader(RasterBrush::Kind::kRadial, centre, rim, colours, stops);
  }
  bool HasLinearShader() const override { return true; }
  bool HasRadialShader() const override { return true; }
  bool HasMultiStopLinearShader() const override { return true; }
  bool HasMultiStopRadialShader() const override { return true; }

  scriber::BufferImageP NewImage(int width, int height, int rowBytes, scriber::PixelFormat format, void* data,
                                 scriber::DataDeleter deleter) const override {
    bool const knownFormat =
        format == scriber::PixelFormat::kBGRA32Straight || format == scriber::PixelFormat::kBGRX32;
    bool const empty = width == 0 || height == 0;
    bool const fits = width >= 0 && height >= 0 &&
                      (empty || (data != nullptr && rowBytes / 4 >= width && width <= kLongestSide &&
                                 height <= kLongestSide));
    if (!knownFormat || !fits) {
      if (deleter) {
        deleter(data);
      }
      return nullptr;
    }
    return MakeIntrusive<RasterBufferImage>(width, height, rowBytes, format, data, std::move(deleter));
  }
  scriber::ImageP NewImageFromFileBytes(std::span<std::byte const> bytes, float scale) const override {
    return ReadPicture(bytes, SensibleScale(scale));
  }

  scriber::FontP NewFont(std::string_view name, std::string_view style, float size) const override {
    return FindFont(name, style, size);
  }

  scriber::SurfaceP NewOffscreenSurface(int width, int height, float scale) const override {
    return NewRasterSurface(width, height, scale);
  }

 private:
  static scriber::BrushP NewShader(RasterBrush::Kind kind, PointT<float> from, PointT<float> to,
                                   ColorRGBA const& first, ColorRGBA const& last) {
    ColorRGBA const colours[] = {first, last};
    float const stops[] = {0.0f, 1.0f};
    return NewShader(kind, from, to, colours, stops);
  }
  static scriber::BrushP NewShader(RasterBrush::Kind kind, PointT<float> from, PointT<float> to,
                                   std::span<ColorRGBA const> colours, std::span<float const> stops) {
    if (!AreStops(colours, stops)) {
      return nullptr;
    }
    return MakeIntrusive<RasterBrush>(kind, from, to, colours, stops);
  }
};

}  // namespace

float SensibleScale(float scale) {
  return scale > 0.01f && scale < 100.0f ? scale : 1.0f;
}

scriber::SurfaceP NewRasterSurface(int width, int height, float scale) {
  double const by = SensibleScale(scale);
  double const pixelWidth = std::round(width * by);
  double const pixelHeight = std::round(height * by);
  if (pixelWidth < 0 || pixelHeight < 0 || pixelWidth > kLongestSide || pixelHeight > kLongestSide ||
      pixelWidth * pixelHeight > kMostPixels) {
    return nullptr;
  }
  try {
    return MakeIntrusive<RasterSurface>(static_cast<int>(pixelWidth), static_cast<int>(pixelHeight), by);
  } catch (std::bad_alloc const&) {
    return nullptr;
  }
}

}  // namespace moxui::qt

namespace moxui::scriber {

SupplierInterface const* GetRasterSupplier() {
  static qt::RasterSupplier const supplier;
  return &supplier;
}

SurfaceP NewRasterSurfaceOver(void* pixels, int pixelWidth, int pixelHeight, int rowBytes, float scale,
                              bool opaque) {
  bool const empty = pixelWidth == 0 || pixelHeight == 0;
  bool const fits = pixelWidth >= 0 && pixelHeight >= 0 &&
                    (empty || (pixels != nullptr && reinterpret_cast<std::uintptr_t>(pixels) % 4 == 0 &&
                               rowBytes % 4 == 0 && rowBytes / 4 >= pixelWidth));
  if (!fits) {
    return nullptr;
  }
  return moxcore::utility::MakeIntrusive<qt::RasterSurface>(
      qt::Pixels{static_cast<std::uint32_t*>(pixels), rowBytes / 4, pixelWidth, pixelHeight, opaque},
      qt::SensibleScale(scale));
}

}  // namespace moxui::scriber
