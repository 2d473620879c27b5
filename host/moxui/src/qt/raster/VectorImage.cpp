#include "qt/raster/VectorImage.h"

#include <QtGui/QPainter>
#include <QtSvg/QSvgRenderer>
#include <algorithm>
#include <string_view>
#include <utility>

namespace moxui::qt {

namespace {

constexpr int kLargestDrawing = 4096;
constexpr std::size_t kMostPictures = 4;

bool LooksLikeSVG(std::span<std::byte const> bytes) {
  std::string_view const text(reinterpret_cast<char const*>(bytes.data()), bytes.size());
  return text.find("<svg") != std::string_view::npos;
}

// Empty if the document can't be read.
QSize SizeOfSVG(QByteArray const& document) {
  QSvgRenderer renderer;
  return renderer.load(document) ? renderer.defaultSize().boundedTo({kLargestDrawing, kLargestDrawing})
                                 : QSize();
}

QImage PaintSVG(QByteArray const& document, QSize size) {
  QSvgRenderer renderer;
  renderer.load(document);
  QImage picture(size, QImage::Format_ARGB32_Premultiplied);
  if (!picture.isNull()) {
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter);
  }
  return picture;
}

}  // namespace

VectorImage::VectorImage(QByteArray document, QSize size, float scale)
    : mDocument(std::move(document)), mSize(size), mScale(scale) {}

float VectorImage::GetWidth() const {
  return static_cast<float>(mSize.width()) / mScale;
}

float VectorImage::GetHeight() const {
  return static_cast<float>(mSize.height()) / mScale;
}

void VectorImage::CopyPixels(std::uint8_t* destination, int rowBytes) const {
  RasterImage(GetPicture(), mScale).CopyPixels(destination, rowBytes);
}

QImage VectorImage::GetPicture(QSize size) const {
  QSize const wanted = size.expandedTo({1, 1}).boundedTo({kLargestDrawing, kLargestDrawing});
  std::lock_guard const lock(mMutex);
  auto const found = std::find_if(mPictures.begin(), mPictures.end(),
                                  [&](QImage const& picture) { return picture.size() == wanted; });
  if (found != mPictures.end()) {
    std::rotate(found, found + 1, mPictures.end());
    return mPictures.back();
  }
  QImage picture = PaintSVG(mDocument, wanted);
  if (!picture.isNull()) {
    if (mPictures.size() >= kMostPictures) {
      mPictures.erase(mPictures.begin());
    }
    mPictures.push_back(picture);
  }
  return picture;
}

scriber::ImageP ReadPicture(std::span<std::byte const> bytes, float scale) {
  if (bytes.empty()) {
    return nullptr;
  }
  auto const* const data = reinterpret_cast<char const*>(bytes.data());
  auto const size = static_cast<qsizetype>(bytes.size());
  QImage const picture = QImage::fromData(QByteArray::fromRawData(data, size), "PNG");
  if (!picture.isNull()) {
    return moxcore::utility::MakeIntrusive<RasterImage>(picture, scale);
  }
  if (!LooksLikeSVG(bytes)) {
    return nullptr;
  }
  QByteArray const document(data, size);
  QSize const drawingSize = SizeOfSVG(document);
  return drawingSize.isEmpty() ? nullptr
                               : moxcore::utility::MakeIntrusive<VectorImage>(document, drawingSize, scale);
}

}  // namespace moxui::qt
