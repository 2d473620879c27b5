#include "qt/raster/RasterSurface.h"

#include "qt/raster/Compositing.h"
#include "qt/raster/FiniteValues.h"
#include "qt/raster/RasterBrush.h"
#include "qt/raster/RasterImage.h"
#include "qt/raster/ShapeCoverage.h"
#include "qt/raster/SurfaceSizes.h"

#include <moxui/scriber/RasterSupplier.h>
#include <moxui/scriber/SupplierInterface.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

namespace moxui::qt {

namespace {

constexpr double kOnBorder = 1.0 / 256.0;  // nearer to a pixel's border counts as on it

bool IsOnBorder(double value) {
  return std::abs(value - std::round(value)) < kOnBorder;
}

bool IsOnBorders(RectT<double> const& device) {
  return IsOnBorder(device.left) && IsOnBorder(device.top) && IsOnBorder(device.Right()) &&
         IsOnBorder(device.Bottom());
}

int Nearest(double value) {
  return static_cast<int>(std::clamp(std::floor(value + 0.5), -1e9, 1e9));
}

PixelRect NearestPixels(RectT<double> const& device) {
  return {Nearest(device.left), Nearest(device.top), Nearest(device.Right()), Nearest(device.Bottom())};
}

PixelRect TouchedPixels(RectT<double> const& device) {
  return {Nearest(std::floor(device.left)), Nearest(std::floor(device.top)),
          Nearest(std::ceil(device.Right())), Nearest(std::ceil(device.Bottom()))};
}

// Memory of the pool is as large pages as its size allows, which surfaces gain much by.
std::uint32_t* PixelsIn(moxcore::utility::RecycledMemory& memory) {
  return reinterpret_cast<std::uint32_t*>(memory.data());
}

// The rectangle that a single horizontal or vertical line covers.
bool IsUprightLine(Polyline const& polyline, double width, RectT<double>& line) {
  if (polyline.points.size() != 2 || polyline.subPaths.size() != 1) {
    return false;
  }
  PointT<double> const a = polyline.points[0];
  PointT<double> const b = polyline.points[1];
  if (a.y == b.y) {
    line = {std::min(a.x, b.x), a.y - 0.5 * width, std::abs(b.x - a.x), width};
  } else if (a.x == b.x) {
    line = {a.x - 0.5 * width, std::min(a.y, b.y), width, std::abs(b.y - a.y)};
  } else {
    return false;
  }
  return true;
}

}  // namespace

RasterSurface::RasterSurface(int pixelWidth, int pixelHeight, double scale)
    : mOwnPixels(moxcore::utility::RecycledMemory::Create(static_cast<std::size_t>(pixelWidth) *
                                                          static_cast<std::size_t>(pixelHeight) * 4)),
      mPixels{PixelsIn(*mOwnPixels), pixelWidth, pixelWidth, pixelHeight, false},
      mScale(scale) {
  std::memset(mOwnPixels->data(), 0, mOwnPixels->size());
  mState.clip = mPixels.Bounds();
}

RasterSurface::RasterSurface(Pixels const& pixels, double scale) : mPixels(pixels), mScale(scale) {
  mState.clip = mPixels.Bounds();
}

void RasterSurface::SaveState() {
  mSaved.push_back(mState);
}

void RasterSurface::RestoreState() {
  if (!mSaved.empty()) {
    mState = std::move(mSaved.back());
    mSaved.pop_back();
  }
}

void RasterSurface::Translate(PointT<float> by) {
  PointT<double> const move = Finite(by);
  mState.originX = Finite(mState.originX + move.x);
  mState.originY = Finite(mState.originY + move.y);
}

RectT<double> RasterSurface::ToDevice(RectT<float> const& rect) const {
  RectT<double> const finite = Finite(rect);
  PointT<double> const corner = Transform().Apply(finite.TopLeft());
  return {corner.x, corner.y, finite.width * mScale, finite.height * mScale};
}

void RasterSurface::ClipToRect(RectT<float> const& rect) {
  RectT<double> const device = ToDevice(rect);
  if (IsSmooth() && !IsOnBorders(device) && device.width > 0 && device.height > 0) {
    RasterPath path;
    path.AddRect(rect);
    ClipToPath(path, scriber::FillRule::kWinding);
    return;
  }
  mState.clip = mState.clip.Intersection(NearestPixels(device));
}

void RasterSurface::ClipToPath(scriber::PathInterface const& path, scriber::FillRule rule) {
  auto const& outline = static_cast<RasterPath const&>(path);
  RectT<float> rect;
  if (outline.IsRect(rect) && (!IsSmooth() || IsOnBorders(ToDevice(rect)))) {
    mState.clip = mState.clip.Intersection(NearestPixels(ToDevice(rect)));
    return;
  }
  DeviceTransform const transform = Transform();
  RectT<double> const bounds = outline.GetBounds();
  PointT<double> const corner = transform.Apply(bounds.TopLeft());
  mState.clip = mState.clip.Intersection(
      TouchedPixels({corner.x, corner.y, bounds.width * mScale, bounds.height * mScale}));
  auto clip = std::make_shared<PathClip>(
      PathClip{outline, transform, rule, IsSmooth(), mState.clip, mState.pathClip, {}});
  mState.pathClip = std::move(clip);
}

RectT<float> RasterSurface::GetClipBounds() const {
  PixelRect const& clip = mState.clip;
  return {static_cast<float>(clip.left / mScale - mState.originX),
          static_cast<float>(clip.top / mScale - mState.originY), static_cast<float>(clip.Width() / mScale),
          static_cast<float>(clip.Height() / mScale)};
}

CoverageMask const& RasterSurface::MaskOf(PathClip& clip) {
  if (!clip.mask) {
    CoverageMask mask;
    mask.Reset(clip.bounds);
    Polyline outline;
    Flatten(clip.path, clip.transform, 0.0, outline);
    FillCoverage(outline, clip.rule, clip.smooth, clip.bounds,
                 [&](CoverageMask& piece) { mask.Paste(piece); });
    if (clip.within) {
      mask.IntersectWith(MaskOf(*clip.within));
    }
    clip.mask = std::move(mask);
  }
  return *clip.mask;
}

// Snapshots share the pixels until something is drawn.
void RasterSurface::PrepareToDraw() {
  if (mState.pathClip) {
    MaskOf(*mState.pathClip);  // now, since no shape can be worked out within another
  }
  if (mOwnPixels && mOwnPixels.use_count() > 1) {
    mPainter.reset();
    auto copy = moxcore::utility::RecycledMemory::Create(mOwnPixels->size());
    std::memcpy(copy->data(), mOwnPixels->data(), copy->size());
    mOwnPixels = std::move(copy);
    mPixels.data = PixelsIn(*mOwnPixels);
  }
}

scriber::SurfaceP RasterSurface::NewOffscreenSurface(int width, int height) const {
  return NewRasterSurface(width, height, static_cast<float>(mScale));
}

scriber::ImageP RasterSurface::GetImage() const {
  auto const scale = static_cast<float>(mScale);
  if (mPixels.Bounds().IsEmpty()) {
    return moxcore::utility::MakeIntrusive<RasterImage>(QImage(), scale);
  }
  auto const* const bytes = reinterpret_cast<uchar const*>(mPixels.data);
  qsizetype const rowBytes = mPixels.stride * 4;
  if (!mOwnPixels) {
    QImage const all(bytes, mPixels.width, mPixels.height, rowBytes,
                     mPixels.opaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
    return moxcore::utility::MakeIntrusive<RasterImage>(all.copy(), scale);
  }
  using Holder = std::shared_ptr<moxcore::utility::RecycledMemory>;
  auto* const shared = new Holder(mOwnPixels);
  auto const release = [](void* holder) { delete static_cast<Holder*>(holder); };
  QImage const snapshot(bytes, mPixels.width, mPixels.height, rowBytes, QImage::Format_ARGB32_Premultiplied,
                        release, shared);
  return moxcore::utility::MakeIntrusive<RasterImage>(snapshot, scale);
}

// Shapes.

void RasterSurface::Compose(CoverageMask& coverage, std::uint32_t colour) {
  if (mState.pathClip) {
    coverage.IntersectWith(MaskOf(*mState.pathClip));
  }
  FillMask(mPixels, coverage, mState.clip, colour);
}

void RasterSurface::Compose(CoverageMask& coverage, RasterBrush const& brush) {
  if (brush.IsSolid()) {
    Compose(coverage, brush.GetPixel());
    return;
  }
  if (mState.pathClip) {
    coverage.IntersectWith(MaskOf(*mState.pathClip));
  }
  ShadeMask(coverage, brush);
}

void RasterSurface::ShadeMask(CoverageMask const& coverage, RasterBrush const& brush) {
  DeviceTransform const transform = Transform();
  bool const dithered = mState.smoothing == scriber::Smoothing::kHighQuality;
  FillMask(mPixels, coverage, mState.clip, [&](int x, int y, int count, std::uint32_t* out) {
    brush.Shade(transform, dithered, x, y, count, out);
  });
}

void RasterSurface::FillWholePixels(PixelRect const& rect, std::uint32_t colour) {
  PixelRect const area = rect.Intersection(mState.clip);
  if (area.IsEmpty()) {
    return;
  }
  PrepareToDraw();
  if (!mState.pathClip) {
    FillPixels(mPixels, area, colour);
    return;
  }
  FillMask(mPixels, MaskOf(*mState.pathClip), area, colour);
}

void RasterSurface::FillDeviceRect(RectT<double> const& device, std::uint32_t colour) {
  if (IsOnBorders(device)) {
    FillWholePixels(NearestPixels(device), colour);
    return;
  }
  PrepareToDraw();
  RectCoverage(device, mState.clip, [&](CoverageMask& piece) { Compose(piece, colour); });
}

void RasterSurface::FillRect(RectT<float> const& rect, ColorRGBA const& colour,
                             scriber::EdgeRounding rounding) {
  RectT<double> const device = ToDevice(rect);
  std::uint32_t const pixel = PremultipliedPixel(colour);
  if (rounding == scriber::EdgeRounding::kSnapped || !IsSmooth()) {
    FillWholePixels(NearestPixels(device), pixel);
  } else {
    FillDeviceRect(device, pixel);
  }
}

void RasterSurface::FillPath(scriber::PathInterface const& path, scriber::BrushInterface const& brush,
                             scriber::FillRule rule) {
  if (mState.clip.IsEmpty()) {
    return;
  }
  PrepareToDraw();
  auto const& outline = static_cast<RasterPath const&>(path);
  auto const& paint = static_cast<RasterBrush const&>(brush);
  PathClip* const clip = mState.pathClip.get();
  // A clip's own outline filled is the clip. Rings are painted so.
  if (clip != nullptr && clip->smooth == IsSmooth() && clip->transform == Transform() &&
      (rule == clip->rule || rule == scriber::FillRule::kWinding) && clip->path.HasSameOutline(outline)) {
    if (paint.IsSolid()) {
      FillMask(mPixels, MaskOf(*clip), mState.clip, paint.GetPixel());
    } else {
      ShadeMask(MaskOf(*clip), paint);
    }
    return;
  }
  Flatten(outline, Transform(), 0.0, mPolyline);
  FillCoverage(mPolyline, rule, IsSmooth(), mState.clip, [&](CoverageMask& piece) { Compose(piece, paint); });
}

void RasterSurface::StrokePath(scriber::PathInterface const& path, scriber::PenInterface const& pen) {
  double const width = Finite(pen.GetWidth()) * mScale;
  if (mState.clip.IsEmpty() || width <= 0) {
    return;
  }
  std::uint32_t const colour = PremultipliedPixel(pen.GetColor());
  Flatten(static_cast<RasterPath const&>(path), Transform(), 0.5 * width, mPolyline);
  if (RectT<double> line; IsSmooth() && IsUprightLine(mPolyline, width, line)) {
    FillDeviceRect(line, colour);
    return;
  }
  PrepareToDraw();
  StrokeCoverage(mPolyline, width, IsSmooth(), mState.clip,
                 [&](CoverageMask& piece) { Compose(piece, colour); });
}

}  // namespace moxui::qt
