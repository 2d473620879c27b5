#pragma once

#include <moxui/geometry/ColorRGBA.h>
#include <moxui/geometry/PointT.h>
#include <moxui/scriber/ScriberTypes.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace moxui::scriber {

/// Makes everything that is drawn with. A supplier is lent to its users, who keep plain pointers: it outlives
/// them. Any maker may return null when it cannot make the thing.
class SupplierInterface {
 public:
  virtual ~SupplierInterface() = default;

  virtual PenP NewPen(ColorRGBA const& colour, float width) const = 0;
  virtual PathP NewPath() const = 0;
  virtual BrushP NewBrush(ColorRGBA const& colour) const = 0;

  /// Shaders are padded: beyond their ends the end colours go on. Linear: from one point to the other.
  /// Radial: around `centre`, the last colour at the distance of `rim`; equal points paint the last colour
  /// everywhere.
  virtual BrushP NewLinearShader(PointT<float> from, PointT<float> to, ColorRGBA const& first,
                                 ColorRGBA const& last) const = 0;
  virtual BrushP NewRadialShader(PointT<float> centre, PointT<float> rim, ColorRGBA const& first,
                                 ColorRGBA const& last) const = 0;
  /// `stops` ascend from 0 to 1, equal neighbours allowed (a hard edge), as many as `colours`. Null if they
  /// don't.
  virtual BrushP NewLinearShader(PointT<float> from, PointT<float> to, std::span<ColorRGBA const> colours,
                                 std::span<float const> stops) const = 0;
  virtual BrushP NewRadialShader(PointT<float> centre, PointT<float> rim, std::span<ColorRGBA const> colours,
                                 std::span<float const> stops) const = 0;
  virtual bool HasLinearShader() const = 0;
  virtual bool HasRadialShader() const = 0;
  virtual bool HasMultiStopLinearShader() const = 0;
  virtual bool HasMultiStopRadialShader() const = 0;

  /// An image over `data`, which is taken over without a copy (`rowBytes` from row to row) and released by
  /// `deleter` with the image, or at once when no image can be made. 0 by 0 is allowed.
  virtual BufferImageP NewImage(int width, int height, int rowBytes, PixelFormat format, void* data,
                                DataDeleter deleter) const = 0;
  /// An image from the bytes of a PNG or SVG file, `scale` pixels to the logical pixel; null if unreadable.
  /// An SVG drawing is painted for each size in device pixels at which it is shown, so it is crisp at every
  /// scale.
  virtual ImageP NewImageFromFileBytes(std::span<std::byte const> bytes, float scale) const = 0;

  /// Style "", "Regular" or "Bold"; size in logical pixels; null when there is no such font.
  virtual FontP NewFont(std::string_view name, std::string_view style, float size) const = 0;

  /// A transparent surface of `width` by `height` logical pixels; 0 by 0 gives a valid, empty one.
  virtual SurfaceP NewOffscreenSurface(int width, int height, float scale) const = 0;
};

}  // namespace moxui::scriber
