#include "qt/raster/RasterImage.h"

#include <moxui/scriber/RasterSupplier.h>

#include <QtCore/QString>
#include <QtGui/QImage>

namespace moxui::scriber {

namespace {

// zlib's level 1, in Qt's terms: pictures of user interfaces grow by an eighth and are written in half the
// time.
constexpr int kQuality = 89;

QString FileName(std::filesystem::path const& path) {
  return QString::fromStdU16String(path.u16string());
}

}  // namespace

bool WritePNG(ImageInterface const& image, std::filesystem::path const& path) {
  QImage const picture = qt::PictureOf(image);
  return !picture.isNull() && picture.save(FileName(path), "PNG", kQuality);
}

ImageP ReadPNG(std::filesystem::path const& path) {
  QImage const picture(FileName(path), "PNG");
  if (picture.isNull()) {
    return nullptr;
  }
  return moxcore::utility::MakeIntrusive<qt::RasterImage>(picture, 1.0f);
}

}  // namespace moxui::scriber
