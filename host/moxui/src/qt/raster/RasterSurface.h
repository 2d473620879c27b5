#pragma once

#include "qt/raster/CoverageMask.h"
#include "qt/raster/Pixels.h"
#include "qt/raster/Polyline.h"
#include "qt/raster/RasterPath.h"

#include <moxcore/utility/RecycledMemory.h>
#include <moxui/scriber/SurfaceInterface.h>

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace moxui::qt {

class RasterBrush;

/// A surface over pixels in memory. Shapes are filled and stroked by coverage masks of our own, since those
/// keep off the thread pool, stay quick for long polylines and never overlap themselves; text and scaled
/// images are drawn by QPainter, which works in device pixels throughout.
class RasterSurface final : public scriber::SurfaceInterface {
 public:
  /// Transparent pixels of its own.
  RasterSurface(int pixelWidth, int pixelHeight, double scale);
  /// Pixels of somebody else.
  RasterSurface(Pixels const& pixels, double scale);

  void SaveState() override;
  void RestoreState() override;
  void Translate(PointT<float> by) override;
  void ClipToRect(RectT<float> const& rect) override;
  void ClipToPath(scriber::PathInterface const& path, scriber::FillRule rule) override;
  RectT<float> GetClipBounds() const override;
  void SetSmoothing(scriber::Smoothing smoothing) override { mState.smoothing = smoothing; }
  scriber::Smoothing GetSmoothing() const override { return mState.smoothing; }
  void SetDrawingMode(scriber::DrawingMode mode) override { mState.mode = mode; }
  scriber::DrawingMode GetDrawingMode() const override { return mState.mode; }
  float GetScale() const override { return static_cast<float>(mScale); }

  void FillRect(RectT<float> const& rect, ColorRGBA const& colour, scriber::EdgeRounding rounding) override;
  void FillPath(scriber::PathInterface const& path, scriber::BrushInterface const& brush,
                scriber::FillRule rule) override;
  void StrokePath(scriber::PathInterface const& path, scriber::PenInterface const& pen) override;

  void DrawImage(scriber::ImageInterface const& image, RectT<float> const& source,
                 RectT<float> const& destination, float opacity) override;
  void DrawImage(scriber::ImageInterface const& image, RectT<float> const& destination,
                 float opacity) override;
  void DrawImage(scriber::ImageInterface const& image, PointT<float> topLeft, float opacity) override;

  void DrawText(std::u16string_view text, PointT<float> baseline, scriber::FontInterface const& font,
                ColorRGBA const& colour, scriber::TextAlignment alignment) override;
  void DrawTextInBox(std::u16string_view text, RectT<float> const& box, scriber::FontInterface const& font,
                     ColorRGBA const& colour, scriber::TextAlignment alignment) override;

  scriber::SurfaceP NewOffscreenSurface(int width, int height) const override;
  scriber::ImageP GetImage() const override;

 private:
  // A clip by a path, turned into coverage when it is first needed.
  struct PathClip {
    RasterPath path;
    DeviceTransform transform;
    scriber::FillRule rule;
    bool smooth;
    PixelRect bounds;  // the rectangular clip at its time
    std::shared_ptr<PathClip> within;
    std::optional<CoverageMask> mask;
  };
  struct State {
    double originX = 0;  // logical
    double originY = 0;
    PixelRect clip;
    std::shared_ptr<PathClip> pathClip;
    scriber::Smoothing smoothing = scriber::Smoothing::kAntiAliased;
    scriber::DrawingMode mode = scriber::DrawingMode::kInterface;
  };

  DeviceTransform Transform() const { return {mScale, mState.originX * mScale, mState.originY * mScale}; }
  RectT<double> ToDevice(RectT<float> const& rect) const;
  bool IsSmooth() const { return mState.smoothing != scriber::Smoothing::kOff; }
  /// Whether images come to lie on whole pixels.
  bool Snaps() const { return mState.mode == scriber::DrawingMode::kInterface || !IsSmooth(); }
  CoverageMask const& MaskOf(PathClip& clip);
  void PrepareToDraw();
  /// Lays a brush over coverage, within all clips.
  void Compose(CoverageMask& coverage, RasterBrush const& brush);
  void Compose(CoverageMask& coverage, std::uint32_t colour);
  void ShadeMask(CoverageMask const& coverage, RasterBrush const& brush);
  /// Fills a rectangle of device pixels with smooth edges.
  void FillDeviceRect(RectT<double> const& device, std::uint32_t colour);
  void FillWholePixels(PixelRect const& rect, std::uint32_t colour);
  /// From pixels of the picture to device pixels.
  void DrawPicture(QImage const& picture, RectT<double> source, RectT<double> destination, float opacity);
  void BlitPicture(QImage const& picture, RectT<double> const& source, double offsetX, double offsetY,
                   unsigned opacity);
  void DrawScaledPicture(QImage const& picture, RectT<double> source, RectT<double> const& destination,
                         unsigned opacity);
  /// Calls `paint` with a painter that is clipped to `wanted` and to all clips.
  void PaintWithin(PixelRect const& wanted, std::function<void(QPainter&)> const& paint);
  QPainter& Painter();

  std::shared_ptr<moxcore::utility::RecycledMemory>
      mOwnPixels;  // shared with snapshots until the next drawing
  Pixels mPixels;
  double mScale;
  State mState;
  std::vector<State> mSaved;
  QImage mTarget;
  std::unique_ptr<QPainter> mPainter;
  PixelRect mPainterClip;
  Polyline mPolyline;
};

}  // namespace moxui::qt
