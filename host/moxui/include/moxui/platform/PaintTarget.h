#pragma once

#include <moxcore/string/String.h>
#include <moxui/geometry/ColorRGBA.h>
#include <moxui/geometry/RectT.h>
#include <moxui/scriber/ScriberTypes.h>

#include <cstdint>
#include <memory>
#include <vector>

namespace moxui::scriber {
class Scriber;
}

namespace moxui::platform {

/// Pixels of a picture: rows from the top, 4 bytes a pixel, blue, green, red, alpha (straight).
struct Pixels {
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> bytes;

  friend bool operator==(Pixels const&, Pixels const&) = default;
};

/// Pixels that are painted on outside of a window, as often as one likes.
class PaintTarget {
 public:
  virtual ~PaintTarget();
  /// A scriber over the whole picture, for drawing until EndPaint.
  virtual scriber::Scriber& BeginPaint() = 0;
  virtual void EndPaint() = 0;
  /// Fills a rectangle (logical pixels), replacing what is there.
  virtual void Clear(RectT<float> const& rect, ColorRGBA const& colour) = 0;
  virtual Pixels GetPixels() const = 0;
};

/// An opaque picture of `width` by `height` pixels (at least 1 by 1), black, `scale` of them to the logical
/// pixel.
std::unique_ptr<PaintTarget> NewPaintTarget(int width, int height, float scale);

/// Both false if the file can't be written or read.
bool SavePNG(Pixels const& pixels, moxcore::Utf8String const& path);
bool LoadPNG(moxcore::Utf8String const& path, Pixels& pixels);

}  // namespace moxui::platform
