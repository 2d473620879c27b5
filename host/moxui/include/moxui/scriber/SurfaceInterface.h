#pragma once

#include <moxcore/utility/RefCountedObjectWithoutVirtualBase.h>
#include <moxui/geometry/ColorRGBA.h>
#include <moxui/geometry/PointT.h>
#include <moxui/geometry/RectT.h>
#include <moxui/scriber/ScriberTypes.h>

#include <string_view>

namespace moxui::scriber {

/// Something to draw on. Coordinates are logical pixels, y downward; everything is composed source-over.
/// Paths, pens, brushes, fonts and images must come from the supplier that made the surface.
class SurfaceInterface : public moxcore::utility::RefCountedObjectWithoutVirtualBase {
 public:
  // State: clip, transform, smoothing, drawing mode. Saves nest; a restore without a save does nothing.
  virtual void SaveState() = 0;
  virtual void RestoreState() = 0;
  /// Moves the origin of all that follows.
  virtual void Translate(PointT<float> by) = 0;
  /// Clips intersect what is clipped already. Edges are smoothed as the smoothing says.
  virtual void ClipToRect(RectT<float> const& rect) = 0;
  virtual void ClipToPath(PathInterface const& path, FillRule rule) = 0;
  /// Bounds of the clip in the coordinates in force.
  virtual RectT<float> GetClipBounds() const = 0;
  virtual void SetSmoothing(Smoothing smoothing) = 0;
  virtual Smoothing GetSmoothing() const = 0;
  virtual void SetDrawingMode(DrawingMode mode) = 0;
  virtual DrawingMode GetDrawingMode() const = 0;
  /// Device pixels per logical pixel.
  virtual float GetScale() const = 0;

  virtual void FillRect(RectT<float> const& rect, ColorRGBA const& colour,
                        EdgeRounding rounding = EdgeRounding::kExact) = 0;
  virtual void FillPath(PathInterface const& path, BrushInterface const& brush, FillRule rule) = 0;
  virtual void StrokePath(PathInterface const& path, PenInterface const& pen) = 0;

  /// The part `source` of an image (logical units of the image), scaled into `destination`.
  virtual void DrawImage(ImageInterface const& image, RectT<float> const& source,
                         RectT<float> const& destination, float opacity) = 0;
  /// The whole image, scaled into `destination`.
  virtual void DrawImage(ImageInterface const& image, RectT<float> const& destination, float opacity) = 0;
  /// The whole image at its own logical size.
  virtual void DrawImage(ImageInterface const& image, PointT<float> topLeft, float opacity) = 0;

  /// One line; `baseline` is the left, middle or right of its baseline.
  virtual void DrawText(std::u16string_view text, PointT<float> baseline, FontInterface const& font,
                        ColorRGBA const& colour, TextAlignment alignment = TextAlignment::kLeft) = 0;
  /// Wrapped at words, from the top of the box, cut at its bottom.
  virtual void DrawTextInBox(std::u16string_view text, RectT<float> const& box, FontInterface const& font,
                             ColorRGBA const& colour, TextAlignment alignment) = 0;

  /// A transparent surface of this one's device scale; null when there is none to be had.
  virtual SurfaceP NewOffscreenSurface(int width, int height) const = 0;
  /// A snapshot of what has been drawn; later drawing doesn't change it.
  virtual ImageP GetImage() const = 0;
};

}  // namespace moxui::scriber
