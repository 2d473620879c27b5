#pragma once

#include <moxui/geometry/ColorRGBA.h>
#include <moxui/scriber/FontInterface.h>
#include <moxui/scriber/ImageInterface.h>
#include <moxui/scriber/PathInterface.h>
#include <moxui/scriber/PenInterface.h>
#include <moxui/scriber/RasterSupplier.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/scriber/SurfaceInterface.h>

#include <cstdint>
#include <initializer_list>
#include <ostream>
#include <vector>

namespace moxui::scriber {

struct Pixel {
  int red = 0;
  int green = 0;
  int blue = 0;
  int alpha = 0;

  friend bool operator==(Pixel const&, Pixel const&) = default;
  friend std::ostream& operator<<(std::ostream& out, Pixel const& p) {
    return out << p.red << ' ' << p.green << ' ' << p.blue << ' ' << p.alpha;
  }
};

inline constexpr Pixel kBlackPixel{0, 0, 0, 255};
inline constexpr Pixel kWhitePixel{255, 255, 255, 255};
inline constexpr Pixel kClearPixel{0, 0, 0, 0};

// Device pixels of an image, straight alpha.
class PixelGrid {
 public:
  explicit PixelGrid(ImageInterface const& image);

  int GetWidth() const { return mWidth; }
  int GetHeight() const { return mHeight; }
  Pixel At(int x, int y) const;
  // How many pixels aren't this one.
  int CountOther(Pixel const& pixel) const;

 private:
  int mWidth;
  int mHeight;
  std::vector<std::uint8_t> mBytes;
};

// A surface on a black ground: what is drawn in white shows its coverage in the red channel.
class Canvas {
 public:
  Canvas(int width, int height, float scale = 1.0f);

  SurfaceInterface* operator->() const { return mSurface.Get(); }
  SurfaceInterface& operator*() const { return *mSurface; }
  Scriber& GetScriber() { return mScriber; }
  PixelGrid Pixels() const;
  int Coverage(int x, int y) const { return Pixels().At(x, y).red; }

 private:
  SurfaceP mSurface;
  Scriber mScriber;
};

SupplierInterface const& Supplier();
PathP Line(std::initializer_list<PointT<float>> points);
PathP Line(std::vector<PointT<float>> const& points);
PathP RectPath(RectT<float> const& rect);
PathP Circle(PointT<float> centre, float radius);
PenP WhitePen(float width);
BrushP WhiteBrush();

}  // namespace moxui::scriber
