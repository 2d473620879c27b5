#pragma once

#include "qt/raster/RasterImage.h"

#include <moxui/scriber/ScriberTypes.h>

#include <QtCore/QByteArray>
#include <QtCore/QSize>
#include <QtGui/QImage>
#include <cstddef>
#include <mutex>
#include <span>
#include <vector>

namespace moxui::qt {

/// An SVG drawing. It keeps its document and is painted at the size at which it is shown, so that it is
/// crisp at every scale; the pictures of the last few sizes are kept.
class VectorImage final : public scriber::ImageInterface, public PictureSource {
 public:
  /// `size` is the document's own, of which `scale` units are a logical pixel.
  VectorImage(QByteArray document, QSize size, float scale);

  float GetWidth() const override;
  float GetHeight() const override;
  int GetPixelWidth() const override { return mSize.width(); }
  int GetPixelHeight() const override { return mSize.height(); }
  void CopyPixels(std::uint8_t* destination, int rowBytes) const override;
  /// The drawing at its own size.
  QImage GetPicture() const override { return GetPicture(mSize); }
  /// The drawing at a size in device pixels, at least one each way; a smaller one if that is very large.
  QImage GetPicture(QSize size) const;

 private:
  QByteArray mDocument;
  QSize mSize;
  float mScale;
  mutable std::mutex mMutex;
  mutable std::vector<QImage> mPictures;  // the one used last stands last
};

/// An image from the bytes of a PNG or SVG file; null if they are neither, or broken. A PNG's pixels are
/// taken as they are. `scale` makes the size of both a logical size.
scriber::ImageP ReadPicture(std::span<std::byte const> bytes, float scale);

}  // namespace moxui::qt
