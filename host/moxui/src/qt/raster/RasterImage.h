#pragma once

#include <moxui/scriber/ImageInterface.h>

#include <QtGui/QImage>

namespace moxui::qt {

/// What can be drawn quickly: a picture of one of the formats RGB32 (whose alpha bytes mean nothing), ARGB32
/// and ARGB32_Premultiplied. It is valid until the image's maker writes or the image ends.
class PictureSource {
 public:
  virtual ~PictureSource() = default;
  virtual QImage GetPicture() const = 0;
};

/// An image with pixels of its own.
class RasterImage final : public scriber::ImageInterface, public PictureSource {
 public:
  RasterImage(QImage picture, float scale);

  float GetWidth() const override;
  float GetHeight() const override;
  int GetPixelWidth() const override { return mPicture.width(); }
  int GetPixelHeight() const override { return mPicture.height(); }
  void CopyPixels(std::uint8_t* destination, int rowBytes) const override;
  QImage GetPicture() const override { return mPicture; }

 private:
  QImage mPicture;
  float mScale;
};

/// Pixels that somebody else has made, released with the image.
class RasterBufferImage final : public scriber::BufferImageInterface, public PictureSource {
 public:
  RasterBufferImage(int width, int height, int rowBytes, scriber::PixelFormat format, void* data,
                    scriber::DataDeleter deleter);
  ~RasterBufferImage() override;
  RasterBufferImage(RasterBufferImage const&) = delete;
  RasterBufferImage& operator=(RasterBufferImage const&) = delete;

  float GetWidth() const override { return static_cast<float>(mWidth); }
  float GetHeight() const override { return static_cast<float>(mHeight); }
  int GetPixelWidth() const override { return mWidth; }
  int GetPixelHeight() const override { return mHeight; }
  void CopyPixels(std::uint8_t* destination, int rowBytes) const override;
  void* GetData() const override { return mData; }
  int GetRowBytes() const override { return mRowBytes; }
  scriber::PixelFormat GetFormat() const override { return mFormat; }
  QImage GetPicture() const override;

 private:
  int mWidth;
  int mHeight;
  int mRowBytes;
  scriber::PixelFormat mFormat;
  void* mData;
  scriber::DataDeleter mDeleter;
};

/// The picture of any image, also of one that isn't made here.
QImage PictureOf(scriber::ImageInterface const& image);

}  // namespace moxui::qt
