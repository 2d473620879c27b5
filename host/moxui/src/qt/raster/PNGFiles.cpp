#include "qt/raster/RasterImage.h"

#include <moxui/scriber/RasterSupplier.h>

#include <QtCore/QString>
#include <QtGui/QImage>

namespace moxui::scriber {

namespace {

QString FileName(std::filesystem::path const& path) {
  return QString::fromStdU16String(path.u16string());
}

}  // namespace

bool WritePNG(ImageInterface const& image, std::filesystem::path const& path) {
  QImage const picture = qt::PictureOf(image);
  return !picture.isNull() && picture.save(FileName(path), "PNG");
}

ImageP ReadPNG(std::filesystem::path const& path) {
  QImage const picture(FileName(path), "PNG");
  if (picture.isNull()) {
    return nullptr;
  }
  return moxcore::utility::MakeIntrusive<qt::RasterImage>(picture, 1.0f);
}

}  // namespace moxui::scriber
