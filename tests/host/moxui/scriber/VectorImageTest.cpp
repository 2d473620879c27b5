#include "Canvas.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace moxui::scriber {
namespace {

// An icon of 18 logical pixels, white in its left 13/27: an edge between pixels at scale 1.5 and at 3, and
// within one of the icon's own.
constexpr std::string_view kHalfWhite =
    R"(<svg xmlns="http://www.w3.org/2000/svg" width="36" height="36"><rect width="17.3333333" height="36" fill="#ffffff"/></svg>)";

ImageP Drawing() {
  return Supplier().NewImageFromFileBytes(std::as_bytes(std::span(kHalfWhite)), 2.0f);
}

// The same as pixels, of which nothing more can be known at another scale.
ImageP PixelsOf(ImageInterface const& image, std::vector<std::uint32_t>& pixels) {
  int const width = image.GetPixelWidth();
  int const height = image.GetPixelHeight();
  pixels.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
  image.CopyPixels(reinterpret_cast<std::uint8_t*>(pixels.data()), 4 * width);
  return Supplier().NewImage(width, height, 4 * width, PixelFormat::kBGRA32Straight, pixels.data(), nullptr);
}

// Thirds of a unit aren't exact.
constexpr int kNearlyWhite = 250;

// Pixels of the middle row that are neither black nor white, and where white ends.
struct Row {
  int blurred = 0;
  int white = 0;
};

Row MiddleRow(ImageInterface const& image, float scale, RectT<float> const& destination) {
  Canvas canvas(24, 24, scale);
  canvas->DrawImage(image, destination, 1.0f);
  PixelGrid const pixels = canvas.Pixels();
  Row row;
  for (int x = 0; x < pixels.GetWidth(); ++x) {
    int const value = pixels.At(x, pixels.GetHeight() / 2).red;
    row.white += value > kNearlyWhite ? 1 : 0;
    row.blurred += value > 255 - kNearlyWhite && value <= kNearlyWhite ? 1 : 0;
  }
  return row;
}

constexpr RectT<float> kAll{0, 0, 18, 18};

TEST(VectorImage, IsCrispAtEveryScaleOfTheSurface) {
  ImageP const drawing = Drawing();
  ASSERT_NE(drawing, nullptr);
  Row const fewer = MiddleRow(*drawing, 1.5f, kAll);
  EXPECT_EQ(fewer.blurred, 0);
  EXPECT_EQ(fewer.white, 13);
  Row const more = MiddleRow(*drawing, 3.0f, kAll);
  EXPECT_EQ(more.blurred, 0);
  EXPECT_EQ(more.white, 26);
}

TEST(VectorImage, AsPixelsIsBlurredAtOtherScalesThanItsOwn) {
  std::vector<std::uint32_t> kept;
  ImageP const pixels = PixelsOf(*Drawing(), kept);
  ASSERT_NE(pixels, nullptr);
  EXPECT_GT(MiddleRow(*pixels, 1.5f, kAll).blurred, 0);
  EXPECT_GT(MiddleRow(*pixels, 3.0f, kAll).blurred, 0);
  EXPECT_EQ(MiddleRow(*pixels, 2.0f, kAll).blurred, 1);
}

TEST(VectorImage, IsCrispWhereItIsEnlarged) {
  EXPECT_EQ(MiddleRow(*Drawing(), 2.0f, {0, 0, 13.5f, 13.5f}).blurred, 0);
  EXPECT_EQ(MiddleRow(*Drawing(), 4.0f, {0, 0, 20.25f, 20.25f}).white, 39);
  EXPECT_EQ(MiddleRow(*Drawing(), 1.0f, {0, 0, 21.0f, 21.0f}).blurred, 1) << "the edge lies within a pixel";
}

TEST(VectorImage, IsAsLargeAsTheNearestWholePixels) {
  EXPECT_EQ(MiddleRow(*Drawing(), 1.5f, {0, 0, 18.2f, 18.2f}).blurred, 0);
  EXPECT_EQ(MiddleRow(*Drawing(), 1.5f, {0, 0, 17.8f, 17.8f}).white, 13);
}

TEST(VectorImage, IsCrispInPart) {
  Canvas canvas(24, 24, 3.0f);
  canvas->DrawImage(*Drawing(), RectT<float>{4, 0, 8, 8}, RectT<float>{0, 0, 16, 16}, 1.0f);
  PixelGrid const pixels = canvas.Pixels();
  EXPECT_GT(pixels.At(27, 10).red, kNearlyWhite);
  EXPECT_EQ(pixels.At(28, 10), kBlackPixel);
}

TEST(VectorImage, HasItsOwnSizeWhateverIsDrawnOfIt) {
  ImageP const drawing = Drawing();
  for (int size = 1; size < 12; ++size) {
    MiddleRow(*drawing, 1.0f, {0, 0, static_cast<float>(size), static_cast<float>(2 * size)});
  }
  EXPECT_EQ(drawing->GetPixelWidth(), 36);
  EXPECT_EQ(drawing->GetWidth(), 18.0f);
  PixelGrid const pixels(*drawing);
  EXPECT_EQ(pixels.GetWidth(), 36);
  EXPECT_EQ(pixels.At(16, 0), kWhitePixel);
  EXPECT_EQ(pixels.At(18, 0), kClearPixel);
}

TEST(VectorImage, DrawnEnormouslyShowsWhatIsSeenOfIt) {
  Canvas canvas(8, 8);
  canvas->DrawImage(*Drawing(), RectT<float>{-1000, -1000, 1e6f, 1e6f}, 1.0f);
  EXPECT_EQ(canvas.Pixels().CountOther(kWhitePixel), 0);
}

}  // namespace
}  // namespace moxui::scriber
