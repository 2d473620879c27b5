#pragma once

#include "qt/raster/Polyline.h"

#include <moxui/geometry/ColorRGBA.h>
#include <moxui/geometry/PointT.h>
#include <moxui/scriber/PenInterface.h>

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace moxui::qt {

class RasterPen final : public scriber::PenInterface {
 public:
  RasterPen(ColorRGBA const& colour, float width) : mColour(colour), mWidth(width) {}
  ColorRGBA GetColor() const override { return mColour; }
  float GetWidth() const override { return mWidth; }

 private:
  ColorRGBA mColour;
  float mWidth;
};

/// A colour, or the colours along a line or around a centre.
class RasterBrush final : public scriber::BrushInterface {
 public:
  enum class Kind { kSolid, kLinear, kRadial };

  explicit RasterBrush(ColorRGBA const& colour);
  /// Stops ascend from 0 to 1, at least one, as many as colours.
  RasterBrush(Kind kind, PointT<float> from, PointT<float> to, std::span<ColorRGBA const> colours,
              std::span<float const> stops);

  /// A shader whose two points are equal is solid too: its last colour.
  bool IsSolid() const { return mKind == Kind::kSolid; }
  std::uint32_t GetPixel() const { return mPixel; }

  /// `count` premultiplied pixels of the shader from the device pixel (x, y) to the right.
  void Shade(DeviceTransform const& transform, bool dithered, int x, int y, int count,
             std::uint32_t* out) const;

 private:
  struct Stop {
    float at;
    std::array<float, 4> colour;  // premultiplied: blue, green, red, alpha
  };
  using Wide = std::array<std::uint16_t, 4>;  // premultiplied, 0 to 0xff00

  std::array<float, 4> ColourAt(float t) const;
  void MakeTable(int steps, bool wide) const;

  Kind mKind = Kind::kSolid;
  PointT<double> mFrom;
  PointT<double> mTo;
  std::uint32_t mPixel = 0;
  std::vector<Stop> mStops;
  // Colours from 0 to 1, made when first needed, as fine as the size on the device asks for.
  mutable std::vector<std::uint32_t> mTable;
  mutable std::vector<Wide> mWideTable;  // for dithering
};

}  // namespace moxui::qt
