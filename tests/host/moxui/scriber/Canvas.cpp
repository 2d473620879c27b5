#include "Canvas.h"

#include <algorithm>
#include <cstddef>

namespace moxui::scriber {

PixelGrid::PixelGrid(ImageInterface const& image)
    : mWidth(image.GetPixelWidth()),
      mHeight(image.GetPixelHeight()),
      mBytes(static_cast<std::size_t>(mWidth) * static_cast<std::size_t>(mHeight) * 4) {
  image.CopyPixels(mBytes.data(), mWidth * 4);
}

Pixel PixelGrid::At(int x, int y) const {
  std::uint8_t const* const bytes =
      mBytes.data() +
      (static_cast<std::size_t>(y) * static_cast<std::size_t>(mWidth) + static_cast<std::size_t>(x)) * 4;
  return {bytes[2], bytes[1], bytes[0], bytes[3]};
}

int PixelGrid::CountOther(Pixel const& pixel) const {
  int count = 0;
  for (int y = 0; y < mHeight; ++y) {
    for (int x = 0; x < mWidth; ++x) {
      count += At(x, y) == pixel ? 0 : 1;
    }
  }
  return count;
}

Canvas::Canvas(int width, int height, float scale)
    : mSurface(Supplier().NewOffscreenSurface(width, height, scale)), mScriber(&Supplier(), mSurface.Get()) {
  mSurface->FillRect({0, 0, static_cast<float>(width), static_cast<float>(height)}, ColorRGBAFixed::Black);
}

PixelGrid Canvas::Pixels() const {
  return PixelGrid(*mSurface->GetImage());
}

SupplierInterface const& Supplier() {
  return *GetRasterSupplier();
}

PathP Line(std::vector<PointT<float>> const& points) {
  PathP path = Supplier().NewPath();
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (i == 0) {
      path->MoveTo(points[i]);
    } else {
      path->LineTo(points[i]);
    }
  }
  return path;
}

PathP Line(std::initializer_list<PointT<float>> points) {
  return Line(std::vector<PointT<float>>(points));
}

PathP RectPath(RectT<float> const& rect) {
  PathP path = Supplier().NewPath();
  path->AddRect(rect);
  return path;
}

PathP Circle(PointT<float> centre, float radius) {
  PathP path = Supplier().NewPath();
  path->AddArc(centre, radius, 0.0f, 360.0f);
  path->Close();
  return path;
}

PenP WhitePen(float width) {
  return Supplier().NewPen(ColorRGBAFixed::White, width);
}

BrushP WhiteBrush() {
  return Supplier().NewBrush(ColorRGBAFixed::White);
}

}  // namespace moxui::scriber
