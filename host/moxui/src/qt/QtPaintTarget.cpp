#include "QtPaintTarget.h"

#include "ImageConversion.h"
#include "raster/PixelSpans.h"

#include <moxui/scriber/ImageInterface.h>
#include <moxui/scriber/RasterSupplier.h>
#include <moxui/scriber/SupplierInterface.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <string>

namespace moxui::qt {

namespace {

int ToPixel(float edge, float scale, int count) {
  float const pixel = std::round(edge * scale);
  if (!(pixel > 0)) {
    return 0;
  }
  return pixel < static_cast<float>(count) ? static_cast<int>(pixel) : count;
}

}  // namespace

QtPaintTarget::QtPaintTarget(int width, int height, float scale)
    : mWidth(std::max(width, 1)), mHeight(std::max(height, 1)) {
  mPixels.assign(static_cast<std::size_t>(mWidth) * static_cast<std::size_t>(mHeight), 0xff000000U);
  mSurface = scriber::NewRasterSurfaceOver(mPixels.data(), mWidth, mHeight, mWidth * 4, scale, true);
  mScale = mSurface->GetScale();  // another one where `scale` makes no sense
  mScriber.emplace(scriber::GetRasterSupplier(), mSurface.Get());
}

QtPaintTarget::~QtPaintTarget() = default;

scriber::Scriber& QtPaintTarget::BeginPaint() {
  mSurface->SaveState();
  return *mScriber;
}

void QtPaintTarget::EndPaint() {
  mSurface->RestoreState();
}

void QtPaintTarget::Clear(RectT<float> const& rect, ColorRGBA const& colour) {
  int const left = ToPixel(rect.left, mScale, mWidth);
  int const right = ToPixel(rect.Right(), mScale, mWidth);
  int const bottom = ToPixel(rect.Bottom(), mScale, mHeight);
  std::uint32_t const pixel = ToQColor(colour).rgb() | 0xff000000U;
  int const top = ToPixel(rect.top, mScale, mHeight);
  if (left >= right || top >= bottom) {
    return;
  }
  auto const width = static_cast<std::size_t>(right - left);
  bool const isLarge = width * 4 * static_cast<std::size_t>(bottom - top) > kLargePicture;
  for (int y = top; y < bottom; ++y) {
    std::uint32_t* const row = mPixels.data() + static_cast<std::ptrdiff_t>(y) * mWidth;
    (isLarge ? StoreSpanPastCaches : StoreSpan)(row + left, width, pixel);
  }
}

platform::Pixels QtPaintTarget::GetPixels() const {
  platform::Pixels pixels{mWidth, mHeight, std::vector<std::uint8_t>(mPixels.size() * 4)};
  std::memcpy(pixels.bytes.data(), mPixels.data(), pixels.bytes.size());
  return pixels;
}

}  // namespace moxui::qt

namespace moxui::platform {

std::unique_ptr<PaintTarget> NewPaintTarget(int width, int height, float scale) {
  return std::make_unique<qt::QtPaintTarget>(width, height, scale);
}

bool SavePNG(Pixels const& pixels, moxcore::Utf8String const& path) {
  auto const area = static_cast<std::size_t>(std::max(pixels.width, 0)) *
                    static_cast<std::size_t>(std::max(pixels.height, 0));
  if (area == 0 || pixels.bytes.size() != area * 4) {
    return false;
  }
  auto* const copy = new std::vector<std::uint8_t>(pixels.bytes);
  auto const image = scriber::GetRasterSupplier()->NewImage(pixels.width, pixels.height, pixels.width * 4,
                                                            scriber::PixelFormat::kBGRA32Straight,
                                                            copy->data(), [copy](void*) { delete copy; });
  return image && scriber::WritePNG(*image, std::filesystem::path(std::string(path)));
}

bool LoadPNG(moxcore::Utf8String const& path, Pixels& pixels) {
  auto const image = scriber::ReadPNG(std::filesystem::path(std::string(path)));
  if (!image) {
    return false;
  }
  pixels.width = image->GetPixelWidth();
  pixels.height = image->GetPixelHeight();
  pixels.bytes.resize(static_cast<std::size_t>(pixels.width) * static_cast<std::size_t>(pixels.height) * 4);
  image->CopyPixels(pixels.bytes.data(), pixels.width * 4);
  return true;
}

}  // namespace moxui::platform
