#include "qt/raster/RasterImage.h"

#include <cstring>
#include <utility>

namespace moxui::qt {

namespace {

void CopyStraight(QImage const& picture, std::uint8_t* destination, int rowBytes) {
  QImage const straight = picture.convertToFormat(QImage::Format_ARGB32);
  for (int y = 0; y < straight.height(); ++y) {
    std::memcpy(destination + static_cast<std::ptrdiff_t>(y) * rowBytes, straight.constScanLine(y),
                static_cast<std::size_t>(straight.width()) * 4);
  }
}

}  // namespace

RasterImage::RasterImage(QImage picture, float scale) : mPicture(std::move(picture)), mScale(scale) {
  bool const drawable =
      mPicture.format() == QImage::Format_RGB32 || mPicture.format() == QImage::Format_ARGB32_Premultiplied;
  if (!mPicture.isNull() && !drawable) {
    mPicture.convertTo(mPicture.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                                  : QImage::Format_RGB32);
  }
}

float RasterImage::GetWidth() const {
  return static_cast<float>(mPicture.width()) / mScale;
}

float RasterImage::GetHeight() const {
  return static_cast<float>(mPicture.height()) / mScale;
}

void RasterImage::CopyPixels(std::uint8_t* destination, int rowBytes) const {
  CopyStraight(mPicture, destination, rowBytes);
}

RasterBufferImage::RasterBufferImage(int width, int height, int rowBytes, scriber::PixelFormat format,
                                     void* data, scriber::DataDeleter deleter)
    : mWidth(width),
      mHeight(height),
      mRowBytes(rowBytes),
      mFormat(format),
      mData(data),
      mDeleter(std::move(deleter)) {}

RasterBufferImage::~RasterBufferImage() {
  if (mDeleter) {
    mDeleter(mData);
  }
}

void RasterBufferImage::CopyPixels(std::uint8_t* destination, int rowBytes) const {
  CopyStraight(GetPicture(), destination, rowBytes);
}

QImage RasterBufferImage::GetPicture() const {
  if (mWidth == 0 || mHeight == 0) {
    return {};
  }
  QImage::Format const format =
      mFormat == scriber::PixelFormat::kBGRX32 ? QImage::Format_RGB32 : QImage::Format_ARGB32;
  auto const* const bytes = static_cast<uchar const*>(mData);
  if (reinterpret_cast<std::uintptr_t>(bytes) % 4 == 0 && mRowBytes % 4 == 0) {
    return {bytes, mWidth, mHeight, mRowBytes, format};
  }
  QImage aligned(mWidth, mHeight, format);
  for (int y = 0; y < mHeight; ++y) {
    std::memcpy(aligned.scanLine(y), bytes + static_cast<std::ptrdiff_t>(y) * mRowBytes,
                static_cast<std::size_t>(mWidth) * 4);
  }
  return aligned;
}

QImage PictureOf(scriber::ImageInterface const& image) {
  if (auto const* const source = dynamic_cast<PictureSource const*>(&image)) {
    return source->GetPicture();
  }
  int const width = image.GetPixelWidth();
  int const height = image.GetPixelHeight();
  if (width <= 0 || height <= 0) {
    return {};
  }
  QImage picture(width, height, QImage::Format_ARGB32);
  image.CopyPixels(picture.bits(), static_cast<int>(picture.bytesPerLine()));
  return picture;
}

}  // namespace moxui::qt
