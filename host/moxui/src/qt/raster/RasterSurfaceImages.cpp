#include "qt/raster/Compositing.h"
#include "qt/raster/FiniteValues.h"
#include "qt/raster/PixelSpans.h"
#include "qt/raster/RasterFont.h"
#include "qt/raster/RasterImage.h"
#include "qt/raster/RasterSurface.h"
#include "qt/raster/VectorImage.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace moxui::qt {

namespace {

// Beyond this many rows QPainter would split scaled images over the threads of the global pool.
constexpr int kBandRows = 64;
constexpr double kSameSize = 1.0 / 64.0;
constexpr double kUnlikeItsSize = 1.0 / 4096.0;

// A blit of pixels to whole pixels.
struct Blit {
  QImage const& picture;
  int sourceX;  // picture pixel that comes to the left top of `area`
  int sourceY;
  PixelRect area;
  unsigned opacity;  // 0 to 255
};

// In pixels, at least one.
int NearestLength(double length) {
  return static_cast<int>(std::clamp(std::round(length), 1.0, 1e6));
}

// The picture of an image that is to be shown at a size in device pixels: a drawing is painted at that size.
QImage PictureFor(scriber::ImageInterface const& image, QSize size) {
  auto const* const drawing = dynamic_cast<VectorImage const*>(&image);
  return drawing != nullptr ? drawing->GetPicture(size) : PictureOf(image);
}

std::uint32_t const* PictureRow(QImage const& picture, int y) {
  return reinterpret_cast<std::uint32_t const*>(picture.constScanLine(y));
}

// A part of a picture. QImage's own conversion would use the threads of the global pool.
QImage Premultiplied(QImage const& picture, QRect const& part) {
  QImage result(part.size(), QImage::Format_ARGB32_Premultiplied);
  bool const opaque = picture.format() == QImage::Format_RGB32;
  for (int y = 0; y < part.height(); ++y) {
    std::uint32_t const* const in = PictureRow(picture, part.y() + y) + part.x();
    auto* const out = reinterpret_cast<std::uint32_t*>(result.scanLine(y));
    if (opaque) {
      CopyOpaqueSpan(out, in, static_cast<std::size_t>(part.width()));
      continue;
    }
    for (int x = 0; x < part.width(); ++x) {
      out[x] = Scaled(in[x] | kOpaqueAlpha, AlphaOf(in[x]));
    }
  }
  return result;
}

// Each pixel the mean of four: bilinear sampling alone would leave out pixels of pictures that are made
// smaller than half.
QImage Halved(QImage const& premultiplied) {
  int const width = (premultiplied.width() + 1) / 2;
  int const height = (premultiplied.height() + 1) / 2;
  QImage result(width, height, QImage::Format_ARGB32_Premultiplied);
  for (int y = 0; y < height; ++y) {
    std::uint32_t const* const upper = PictureRow(premultiplied, 2 * y);
    std::uint32_t const* const lower =
        PictureRow(premultiplied, std::min(2 * y + 1, premultiplied.height() - 1));
    auto* const out = reinterpret_cast<std::uint32_t*>(result.scanLine(y));
    for (int x = 0; x < width; ++x) {
      int const right = std::min(2 * x + 1, premultiplied.width() - 1);
      std::uint32_t even = 0x00020002u;
      std::uint32_t odd = 0x00020002u;
      // NOLINTNEXTLINE(bugprone-implicit-widening-of-multiplication-result): a row fits an int
      for (std::uint32_t const pixel : {upper[2 * x], upper[right], lower[2 * x], lower[right]}) {
        even += pixel & 0x00ff00ffu;
        odd += (pixel >> 8) & 0x00ff00ffu;
      }
      out[x] = ((even >> 2) & 0x00ff00ffu) | (((odd >> 2) & 0x00ff00ffu) << 8);
    }
  }
  return result;
}

// Alpha bytes of the buffer mean nothing, so it is no matter for QPainter, which would copy them.
void BlitOpaque(Pixels const& pixels, Blit const& blit) {
  auto const width = static_cast<std::size_t>(blit.area.Width());
  bool const isLarge = width * 4 * static_cast<std::size_t>(blit.area.Height()) > kLargePicture;
  for (int row = 0; row < blit.area.Height(); ++row) {
    std::uint32_t const* const in = PictureRow(blit.picture, blit.sourceY + row) + blit.sourceX;
    std::uint32_t* const out = pixels.Row(blit.area.top + row) + blit.area.left;
    if (blit.opacity == 255) {
      (isLarge ? CopyOpaqueSpanPastCaches : CopyOpaqueSpan)(out, in, width);
    } else {
      MixOpaqueSpan(out, in, width, blit.opacity, pixels.opaque ? kOpaqueAlpha : 0u);
    }
  }
}

// By ourselves, since QPainter would look at every pixel that is beneath.
void BlitPremultiplied(Pixels const& pixels, Blit const& blit) {
  for (int row = 0; row < blit.area.Height(); ++row) {
    BlendPixelsSpan(pixels.Row(blit.area.top + row) + blit.area.left,
                    PictureRow(blit.picture, blit.sourceY + row) + blit.sourceX,
                    static_cast<std::size_t>(blit.area.Width()), blit.opacity,
                    pixels.opaque ? kOpaqueAlpha : 0u);
  }
}

}  // namespace

QPainter& RasterSurface::Painter() {
  PrepareToDraw();
  if (!mPainter) {
    mTarget =
        QImage(reinterpret_cast<uchar*>(mPixels.data), mPixels.width, mPixels.height, mPixels.stride * 4,
               mPixels.opaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
    PrepareTarget(mTarget);
    mPainter = std::make_unique<QPainter>(&mTarget);
    mPainterClip = mPixels.Bounds();
  }
  return *mPainter;
}

void RasterSurface::PaintWithin(PixelRect const& wanted, std::function<void(QPainter&)> const& paint) {
  PixelRect const area = wanted.Intersection(mState.clip);
  if (area.IsEmpty()) {
    return;
  }
  if (!mState.pathClip) {
    QPainter& painter = Painter();
    if (!(area == mPainterClip)) {
      painter.setClipRect(area.left, area.top, area.Width(), area.Height());
      mPainterClip = area;
    }
    paint(painter);
    return;
  }
  QImage layer(area.Width(), area.Height(), QImage::Format_ARGB32_Premultiplied);
  PrepareTarget(layer);
  layer.fill(Qt::transparent);
  QPainter painter(&layer);
  painter.translate(-area.left, -area.top);
  paint(painter);
  painter.end();
  PrepareToDraw();
  FillMask(mPixels, MaskOf(*mState.pathClip), area, [&](int x, int y, int count, std::uint32_t* out) {
    std::memcpy(out, PictureRow(layer, y - area.top) + (x - area.left),
                static_cast<std::size_t>(count) * sizeof(std::uint32_t));
  });
}

void RasterSurface::DrawImage(scriber::ImageInterface const& image, RectT<float> const& source,
                              RectT<float> const& destination, float opacity) {
  double const width = image.GetWidth();
  double const height = image.GetHeight();
  RectT<double> const part = Finite(source);
  RectT<double> const device = ToDevice(destination);
  if (!(width > 0.0) || !(height > 0.0) || part.IsEmpty() || device.IsEmpty()) {
    return;
  }
  QImage const picture = PictureFor(image, {NearestLength(width * device.width / part.width),
                                            NearestLength(height * device.height / part.height)});
  double const scaleX = picture.width() / width;
  double const scaleY = picture.height() / height;
  DrawPicture(picture, {part.left * scaleX, part.top * scaleY, part.width * scaleX, part.height * scaleY},
              device, opacity);
}

void RasterSurface::DrawImage(scriber::ImageInterface const& image, RectT<float> const& destination,
                              float opacity) {
  RectT<double> device = ToDevice(destination);
  if (device.IsEmpty()) {
    return;
  }
  QSize const size(NearestLength(device.width), NearestLength(device.height));
  QImage const picture = PictureFor(image, size);
  if (dynamic_cast<VectorImage const*>(&image) != nullptr && picture.size() == size && Snaps()) {
    // A fraction of a pixel more or less would blur all of it.
    device.width = size.width();
    device.height = size.height();
  }
  DrawPicture(picture,
              {0.0, 0.0, static_cast<double>(picture.width()), static_cast<double>(picture.height())}, device,
              opacity);
}

void RasterSurface::DrawImage(scriber::ImageInterface const& image, PointT<float> topLeft, float opacity) {
  DrawImage(image, RectT<float>{topLeft.x, topLeft.y, image.GetWidth(), image.GetHeight()}, opacity);
}

void RasterSurface::DrawPicture(QImage const& picture, RectT<double> source, RectT<double> destination,
                                float opacity) {
  auto const share = static_cast<unsigned>(FiniteOpacity(opacity) * 255.0f + 0.5f);
  if (picture.isNull() || source.IsEmpty() || destination.IsEmpty() || share == 0 || mState.clip.IsEmpty()) {
    return;
  }
  // What of the source lies beyond the picture is nothing: cut it off, and the destination with it.
  double const stretchX = destination.width / source.width;
  double const stretchY = destination.height / source.height;
  double const left = std::max(source.left, 0.0);
  double const top = std::max(source.top, 0.0);
  double const right = std::min(source.Right(), static_cast<double>(picture.width()));
  double const bottom = std::min(source.Bottom(), static_cast<double>(picture.height()));
  destination = {destination.left + (left - source.left) * stretchX,
                 destination.top + (top - source.top) * stretchY, (right - left) * stretchX,
                 (bottom - top) * stretchY};
  source = {left, top, right - left, bottom - top};
  if (source.IsEmpty() || destination.IsEmpty()) {
    return;
  }
  bool const sameSize = std::abs(destination.width - source.width) < kSameSize &&
                        std::abs(destination.height - source.height) < kSameSize;
  double const offsetX = destination.left - source.left;
  double const offsetY = destination.top - source.top;
  bool const aligned = std::abs(offsetX - std::round(offsetX)) < kSameSize &&
                       std::abs(offsetY - std::round(offsetY)) < kSameSize;
  if (sameSize && (aligned || Snaps())) {
    BlitPicture(picture, source, offsetX, offsetY, share);
    return;
  }
  DrawScaledPicture(picture, source, destination, share);
}

void RasterSurface::BlitPicture(QImage const& picture, RectT<double> const& source, double offsetX,
                                double offsetY, unsigned opacity) {
  auto const nearest = [](double value) { return static_cast<int>(std::floor(value + 0.5)); };
  int const moveX = nearest(offsetX);
  int const moveY = nearest(offsetY);
  PixelRect const from =
      PixelRect{nearest(source.left), nearest(source.top), nearest(source.Right()), nearest(source.Bottom())}
          .Intersection({0, 0, picture.width(), picture.height()});
  PixelRect const area =
      PixelRect{from.left + moveX, from.top + moveY, from.right + moveX, from.bottom + moveY}.Intersection(
          mState.clip);
  if (area.IsEmpty()) {
    return;
  }
  int const sourceX = area.left - moveX;
  int const sourceY = area.top - moveY;
  if (picture.format() == QImage::Format_RGB32 && !mState.pathClip) {
    PrepareToDraw();
    BlitOpaque(mPixels, {picture, sourceX, sourceY, area, opacity});
    return;
  }
  // QPainter is quick where layers are laid down as they are.
  if (picture.format() == QImage::Format_ARGB32_Premultiplied && !mState.pathClip && opacity != 255) {
    PrepareToDraw();
    BlitPremultiplied(mPixels, {picture, sourceX, sourceY, area, opacity});
    return;
  }
  QRect const part(sourceX, sourceY, area.Width(), area.Height());
  QPoint const at(area.left, area.top);
  PaintWithin(area, [&](QPainter& painter) {
    painter.setOpacity(opacity / 255.0);
    if (picture.format() == QImage::Format_ARGB32_Premultiplied) {
      painter.drawImage(at, picture, part);
    } else {
      painter.drawImage(at, Premultiplied(picture, part));
    }
    painter.setOpacity(1.0);
  });
}

void RasterSurface::DrawScaledPicture(QImage const& picture, RectT<double> source,
                                      RectT<double> const& destination, unsigned opacity) {
  QImage premultiplied = picture.format() == QImage::Format_ARGB32_Premultiplied
                             ? picture
                             : Premultiplied(picture, picture.rect());
  while (IsSmooth() && source.width > 2.0 * destination.width && source.height > 2.0 * destination.height) {
    premultiplied = Halved(premultiplied);
    source = {0.5 * source.left, 0.5 * source.top, 0.5 * source.width, 0.5 * source.height};
  }
  auto const whole = [](double value) { return static_cast<int>(std::clamp(value, -1e9, 1e9)); };
  PixelRect const area =
      PixelRect{whole(std::floor(destination.left)), whole(std::floor(destination.top)),
                whole(std::ceil(destination.Right())), whole(std::ceil(destination.Bottom()))}
          .Intersection(mState.clip);
  // Only the part that is seen: far destinations don't reach QPainter.
  double const shrinkX = source.width / destination.width;
  double const shrinkY = source.height / destination.height;
  for (int y = area.top; y < area.bottom; y += kBandRows) {
    PixelRect const band{area.left, y, area.right, std::min(y + kBandRows, area.bottom)};
    double const left = std::max<double>(destination.left, band.left - 2);
    double const top = std::max<double>(destination.top, band.top - 2);
    double const right = std::min<double>(destination.Right(), band.right + 2);
    double const bottom = std::min<double>(destination.Bottom(), band.bottom + 2);
    // A picture of exactly its own size would be moved to whole pixels, so none is.
    QRectF const to(left, top, right - left + kUnlikeItsSize, bottom - top);
    QRectF const from(source.left + (left - destination.left) * shrinkX,
                      source.top + (top - destination.top) * shrinkY, (right - left) * shrinkX,
                      (bottom - top) * shrinkY);
    PaintWithin(band, [&](QPainter& painter) {
      painter.setOpacity(opacity / 255.0);
      painter.setRenderHint(QPainter::SmoothPixmapTransform, IsSmooth());
      painter.drawImage(to, premultiplied, from);
      painter.setOpacity(1.0);
    });
  }
}

}  // namespace moxui::qt
