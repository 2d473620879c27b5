#include "Canvas.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string_view>
#include <vector>

namespace moxui::scriber {
namespace {

// Counts how often a buffer is released, and that it is the right one.
struct Buffer {
  std::vector<std::uint32_t> pixels;
  int released = 0;

  BufferImageP MakeImage(int width, int height, PixelFormat format, int rowPixels = 0) {
    return Supplier().NewImage(width, height, 4 * (rowPixels > 0 ? rowPixels : width), format, pixels.data(),
                               [this](void* data) {
                                 EXPECT_EQ(data, pixels.data());
                                 ++released;
                               });
  }
};

TEST(Image, TakesABufferOverWithoutACopyAndReleasesItOnce) {
  Buffer buffer{std::vector<std::uint32_t>(12, 0xff102030)};
  {
    BufferImageP image = buffer.MakeImage(4, 3, PixelFormat::kBGRX32);
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->GetData(), buffer.pixels.data());
    EXPECT_EQ(image->GetRowBytes(), 16);
    EXPECT_EQ(image->GetFormat(), PixelFormat::kBGRX32);
    EXPECT_EQ(image->GetPixelWidth(), 4);
    EXPECT_EQ(image->GetHeight(), 3.0f);
    ImageP const other = image;
    image.Reset();
    EXPECT_EQ(buffer.released, 0);
  }
  EXPECT_EQ(buffer.released, 1);
}

TEST(Image, ThatCannotBeMadeReleasesItsBufferAtOnceAndOnce) {
  Buffer buffer{std::vector<std::uint32_t>(12)};
  EXPECT_EQ(buffer.MakeImage(-4, 3, PixelFormat::kBGRX32), nullptr);
  EXPECT_EQ(buffer.released, 1);
  EXPECT_EQ(buffer.MakeImage(4, -3, PixelFormat::kBGRX32), nullptr);
  EXPECT_EQ(buffer.released, 2);
  EXPECT_EQ(buffer.MakeImage(4, 3, PixelFormat::kBGRX32, 3), nullptr) << "rows overlap";
  EXPECT_EQ(buffer.released, 3);
  EXPECT_EQ(buffer.MakeImage(4, 3, static_cast<PixelFormat>(5)), nullptr);
  EXPECT_EQ(buffer.released, 4);
  int released = 0;
  EXPECT_EQ(Supplier().NewImage(4, 3, 16, PixelFormat::kBGRX32, nullptr, [&](void*) { ++released; }),
            nullptr);
  EXPECT_EQ(released, 1);
}

TEST(Image, NeedsNoDeleter) {
  std::uint32_t pixel = 0xffffffff;
  EXPECT_NE(Supplier().NewImage(1, 1, 4, PixelFormat::kBGRX32, &pixel, nullptr), nullptr);
  EXPECT_EQ(Supplier().NewImage(-1, 1, 4, PixelFormat::kBGRX32, &pixel, nullptr), nullptr);
}

TEST(Image, Of0By0IsValidAndDrawsNothing) {
  Buffer buffer;
  {
    BufferImageP const image = buffer.MakeImage(0, 0, PixelFormat::kBGRX32);
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->GetWidth(), 0.0f);
    Canvas canvas(10, 10);
    canvas->DrawImage(*image, PointT<float>{1, 1}, 1);
    canvas->DrawImage(*image, RectT<float>{1, 1, 5, 5}, 1);
    canvas->DrawImage(*image, RectT<float>{0, 0, 5, 5}, RectT<float>{1, 1, 5, 5}, 1);
    EXPECT_EQ(canvas.Pixels().CountOther(kBlackPixel), 0);
  }
  EXPECT_EQ(buffer.released, 1);
}

TEST(Image, OfFormat7IsOpaqueWhateverItsAlphaBytes) {
  Buffer buffer{{0x00102030, 0x80405060, 0xff708090, 0x01ffffff}};
  BufferImageP const image = buffer.MakeImage(4, 1, PixelFormat::kBGRX32);
  SurfaceP const surface = Supplier().NewOffscreenSurface(4, 1, 1);
  surface->DrawImage(*image, PointT<float>{}, 1);
  PixelGrid const pixels(*surface->GetImage());
  EXPECT_EQ(pixels.At(0, 0), (Pixel{0x10, 0x20, 0x30, 255}));
  EXPECT_EQ(pixels.At(1, 0), (Pixel{0x40, 0x50, 0x60, 255}));
  EXPECT_EQ(pixels.At(3, 0), (Pixel{255, 255, 255, 255}));
  std::uint32_t copied[4];
  image->CopyPixels(reinterpret_cast<std::uint8_t*>(copied), sizeof(copied));
  EXPECT_EQ(copied[0], 0xff102030u);
}

TEST(Image, OfFormat7IsMixedAtItsOpacityOnly) {
  Buffer buffer{std::vector<std::uint32_t>(9, 0x00ffffff)};
  BufferImageP const image = buffer.MakeImage(9, 1, PixelFormat::kBGRX32);
  Canvas canvas(9, 1);
  canvas->DrawImage(*image, PointT<float>{}, 0.9f);
  for (int x = 0; x < 9; ++x) {
    EXPECT_NEAR(canvas.Coverage(x, 0), 230, 1) << x;
    EXPECT_EQ(canvas.Pixels().At(x, 0).alpha, 255) << x;
  }
}

TEST(Image, RowsOfEveryLengthAreMixedAlike) {
  for (int width = 1; width <= 40; ++width) {
    Buffer buffer{std::vector<std::uint32_t>(static_cast<std::size_t>(width), 0x00c08040)};
    BufferImageP const image = buffer.MakeImage(width, 1, PixelFormat::kBGRX32);
    Canvas canvas(width, 1);
    canvas->FillRect({0, 0, 40, 1}, {0.2f, 0.6f, 0.7f, 1});
    canvas->DrawImage(*image, PointT<float>{}, 0.4f);
    Pixel const first = canvas.Pixels().At(0, 0);
    EXPECT_NEAR(first.red, 0.4 * 0xc0 + 0.6 * 51, 1);
    EXPECT_EQ(first.alpha, 255);
    ASSERT_EQ(canvas.Pixels().CountOther(first), 0) << width;
  }
}

TEST(Image, OfFormat6HasStraightAlpha) {
  Buffer buffer{{0x80ff8000, 0x00ffffff, 0xff00ff00}};
  BufferImageP const image = buffer.MakeImage(3, 1, PixelFormat::kBGRA32Straight);
  Canvas canvas(3, 1);
  canvas->DrawImage(*image, PointT<float>{}, 1);
  Pixel const half = canvas.Pixels().At(0, 0);
  EXPECT_NEAR(half.red, 128, 1);
  EXPECT_NEAR(half.green, 64, 1);
  EXPECT_EQ(canvas.Pixels().At(1, 0), kBlackPixel);
  EXPECT_EQ(canvas.Pixels().At(2, 0), (Pixel{0, 255, 0, 255}));
}

TEST(Image, MayBeWrittenBetweenDraws) {
  for (PixelFormat const format : {PixelFormat::kBGRX32, PixelFormat::kBGRA32Straight}) {
    Buffer buffer{{0xff000000}};
    BufferImageP const image = buffer.MakeImage(1, 1, format);
    Canvas canvas(1, 1);
    canvas->DrawImage(*image, PointT<float>{}, 1);
    buffer.pixels[0] = 0xffffffff;
    canvas->DrawImage(*image, PointT<float>{}, 1);
    EXPECT_EQ(canvas.Coverage(0, 0), 255);
  }
}

TEST(Image, RowsMayBeLongerThanThePicture) {
  Buffer buffer{{0xffffffff, 0xffffffff, 0xffff0000, 0xffffffff, 0xffffffff, 0xffff0000}};
  BufferImageP const image = buffer.MakeImage(2, 2, PixelFormat::kBGRX32, 3);
  Canvas canvas(2, 2);
  canvas->DrawImage(*image, PointT<float>{}, 1);
  EXPECT_EQ(canvas.Pixels().CountOther(kWhitePixel), 0);
}

TEST(Image, BuffersNeedNoAlignment) {
  std::vector<std::uint8_t> bytes(2 * 2 * 4 + 16, 255);
  BufferImageP const image = Supplier().NewImage(2, 2, 9, PixelFormat::kBGRX32, bytes.data() + 1, nullptr);
  ASSERT_NE(image, nullptr);
  Canvas canvas(2, 2);
  canvas->DrawImage(*image, PointT<float>{}, 1);
  EXPECT_EQ(canvas.Pixels().CountOther(kWhitePixel), 0);
}

TEST(Image, OpacityIsClamped) {
  Buffer buffer{{0xffffffff}};
  BufferImageP const image = buffer.MakeImage(1, 1, PixelFormat::kBGRX32);
  Canvas canvas(1, 1);
  canvas->DrawImage(*image, PointT<float>{}, -1);
  EXPECT_EQ(canvas.Coverage(0, 0), 0);
  canvas->DrawImage(*image, PointT<float>{}, std::numeric_limits<float>::quiet_NaN());
  EXPECT_EQ(canvas.Coverage(0, 0), 0);
  canvas->DrawImage(*image, PointT<float>{}, 7);
  EXPECT_EQ(canvas.Coverage(0, 0), 255);
}

// Left half black, right half white.
ImageP HalfWhite(int width, int height, float scale = 1) {
  SurfaceP const surface = Supplier().NewOffscreenSurface(width, height, scale);
  surface->FillRect({0, 0, static_cast<float>(width), static_cast<float>(height)}, ColorRGBAFixed::Black);
  surface->FillRect(
      {static_cast<float>(width) / 2, 0, static_cast<float>(width) / 2, static_cast<float>(height)},
      ColorRGBAFixed::White);
  return surface->GetImage();
}

TEST(Image, IsDrawnPixelForPixelAtItsOwnSize) {
  for (float const scale : {1.0f, 2.0f}) {
    Canvas canvas(20, 20, scale);
    canvas->DrawImage(*HalfWhite(8, 4, scale), PointT<float>{3, 5}, 1);
    auto const s = static_cast<int>(scale);
    EXPECT_EQ(canvas.Pixels().CountOther(kBlackPixel), 4 * 4 * s * s);
    EXPECT_EQ(canvas.Coverage(7 * s, 5 * s), 255);
    EXPECT_EQ(canvas.Coverage(7 * s - 1, 5 * s), 0);
  }
}

TEST(Image, OfTwoPixelsToTheLogicalOneIsHalfAsLarge) {
  ImageP const image = HalfWhite(18, 18, 2);
  EXPECT_EQ(image->GetPixelWidth(), 36);
  EXPECT_EQ(image->GetWidth(), 18.0f);
  Canvas canvas(40, 40);
  canvas->DrawImage(*image, PointT<float>{}, 1);
  EXPECT_EQ(canvas.Coverage(17, 17), 255);
  EXPECT_EQ(canvas.Coverage(18, 17), 0);
}

TEST(Image, OfAPartIsThatPart) {
  Canvas canvas(20, 20);
  canvas->DrawImage(*HalfWhite(8, 4), RectT<float>{4, 0, 4, 4}, RectT<float>{2, 2, 4, 4}, 1);
  EXPECT_EQ(canvas.Pixels().CountOther(kBlackPixel), 16);
  EXPECT_EQ(canvas.Coverage(2, 2), 255);
}

TEST(Image, PartsBeyondThePictureAreNothing) {
  Canvas canvas(20, 20);
  canvas->DrawImage(*HalfWhite(8, 4), RectT<float>{4, -2, 8, 8}, RectT<float>{2, 2, 8, 8}, 1);
  EXPECT_EQ(canvas.Pixels().CountOther(kBlackPixel), 16);
  EXPECT_EQ(canvas.Coverage(2, 4), 255);
}

TEST(Image, IsScaledIntoARectangle) {
  for (Smoothing const smoothing : {Smoothing::kAntiAliased, Smoothing::kHighQuality}) {
    Canvas canvas(40, 40);
    canvas->SetSmoothing(smoothing);
    canvas->DrawImage(*HalfWhite(8, 4), RectT<float>{4, 4, 32, 16}, 1);
    EXPECT_EQ(canvas.Coverage(30, 10), 255);
    EXPECT_EQ(canvas.Coverage(10, 10), 0);
    int grey = 0;
    for (int x = 4; x < 36; ++x) {
      int const coverage = canvas.Coverage(x, 10);
      grey += coverage > 0 && coverage < 255 ? 1 : 0;
    }
    EXPECT_GE(grey, 2) << "sampled smoothly";
  }
}

TEST(Image, MadeMuchSmallerLeavesNoPixelOut) {
  // One white row in sixteen: whatever rows sampling met, the mean is a sixteenth.
  SurfaceP const lines = Supplier().NewOffscreenSurface(64, 64, 1);
  lines->FillRect({0, 0, 64, 64}, ColorRGBAFixed::Black);
  for (int y = 3; y < 64; y += 16) {
    lines->FillRect({0, static_cast<float>(y), 64, 1}, ColorRGBAFixed::White);
  }
  Canvas canvas(4, 4);
  canvas->DrawImage(*lines->GetImage(), RectT<float>{0, 0, 4, 4}, 1);
  for (int y = 0; y < 4; ++y) {
    EXPECT_NEAR(canvas.Coverage(2, y), 16, 4) << y;
  }
}

TEST(Image, WithoutSmoothingIsScaledInBlocks) {
  Canvas canvas(40, 40);
  canvas->SetSmoothing(Smoothing::kOff);
  canvas->DrawImage(*HalfWhite(8, 4), RectT<float>{4, 4, 32, 16}, 1);
  EXPECT_EQ(canvas.Pixels().CountOther(kBlackPixel), 16 * 16);
}

TEST(Image, TallScaledPicturesHaveNoSeams) {
  SurfaceP const white = Supplier().NewOffscreenSurface(10, 100, 1);
  white->FillRect({0, 0, 10, 100}, ColorRGBAFixed::White);
  Canvas canvas(40, 400);
  canvas->DrawImage(*white->GetImage(), RectT<float>{0, 0, 40, 400}, 1);
  EXPECT_EQ(canvas.Pixels().CountOther(kWhitePixel), 0);
}

TEST(Image, InterfaceContentIsSnappedToPixelsAndMediaIsNot) {
  Canvas canvas(20, 20);
  canvas->DrawImage(*HalfWhite(8, 4), PointT<float>{3.4f, 5}, 1);
  EXPECT_EQ(canvas.Pixels().CountOther(kBlackPixel), 16);
  EXPECT_EQ(canvas.Coverage(7, 6), 255);
  Canvas media(20, 20);
  media->SetDrawingMode(DrawingMode::kMedia);
  media->DrawImage(*HalfWhite(8, 4), PointT<float>{3.5f, 5}, 1);
  EXPECT_NEAR(media.Coverage(7, 6), 128, 3);
}

TEST(Image, OfASurfaceIsASnapshot) {
  Canvas canvas(10, 10);
  ImageP const before = canvas->GetImage();
  canvas->FillRect({0, 0, 10, 10}, ColorRGBAFixed::White);
  ImageP const after = canvas->GetImage();
  canvas->FillRect({0, 0, 10, 10}, {1, 0, 0, 1});
  EXPECT_EQ(PixelGrid(*before).CountOther(kBlackPixel), 0);
  EXPECT_EQ(PixelGrid(*after).CountOther(kWhitePixel), 0);
}

TEST(Image, OfASurfaceStaysASnapshotWhenTextIsDrawn) {
  Canvas canvas(30, 30);
  FontP const font = Supplier().NewFont("", "Bold", 20);
  canvas->DrawText(u"M", {0, 20}, *font, ColorRGBAFixed::White);
  ImageP const before = canvas->GetImage();
  int const painted = PixelGrid(*before).CountOther(kBlackPixel);
  canvas->DrawText(u"M", {10, 28}, *font, ColorRGBAFixed::White);
  EXPECT_EQ(PixelGrid(*before).CountOther(kBlackPixel), painted);
  EXPECT_GT(canvas.Pixels().CountOther(kBlackPixel), painted);
}

TEST(Image, OfASurfaceOutlivesIt) {
  ImageP image;
  {
    Canvas canvas(10, 10);
    image = canvas->GetImage();
  }
  EXPECT_EQ(PixelGrid(*image).CountOther(kBlackPixel), 0);
}

TEST(Image, OfASurfaceCanBeDrawnOntoIt) {
  Canvas canvas(10, 10);
  canvas->FillRect({0, 0, 5, 5}, ColorRGBAFixed::White);
  canvas->DrawImage(*canvas->GetImage(), PointT<float>{5, 5}, 1);
  EXPECT_EQ(canvas.Pixels().CountOther(kBlackPixel), 50);
}

TEST(Image, WrittenAsPNGReadsBackTheSame) {
  auto const path = std::filesystem::temp_directory_path() / "moxui_scriber_image_test.png";
  SurfaceP const surface = Supplier().NewOffscreenSurface(10, 10, 1);
  surface->FillRect({0, 0, 5, 10}, {1, 0.5f, 0, 1});
  surface->FillRect({5, 0, 3, 10}, {0, 0, 1, 0.5f});
  ASSERT_TRUE(WritePNG(*surface->GetImage(), path));
  ImageP const read = ReadPNG(path);
  std::filesystem::remove(path);
  ASSERT_NE(read, nullptr);
  PixelGrid const a(*surface->GetImage());
  PixelGrid const b(*read);
  for (int x = 0; x < 10; ++x) {
    EXPECT_EQ(a.At(x, 5), b.At(x, 5)) << x;
  }
}

TEST(Image, PNGsThatCannotBeAreRefused) {
  EXPECT_EQ(ReadPNG("no/such/file.png"), nullptr);
  EXPECT_FALSE(WritePNG(*HalfWhite(4, 4), "no/such/folder/file.png"));
  EXPECT_FALSE(WritePNG(*HalfWhite(0, 0), std::filesystem::temp_directory_path() / "moxui_empty.png"));
}

ImageP FromBytes(std::string_view bytes, float scale) {
  return Supplier().NewImageFromFileBytes({reinterpret_cast<std::byte const*>(bytes.data()), bytes.size()},
                                          scale);
}

TEST(Image, FromAnSVGHasItsSizeAtTheScale) {
  ImageP const image = FromBytes(
      R"(<svg xmlns="http://www.w3.org/2000/svg" width="36" height="36"><rect width="18" height="36" fill="#ff0000"/></svg>)",
      2);
  ASSERT_NE(image, nullptr);
  EXPECT_EQ(image->GetPixelWidth(), 36);
  EXPECT_EQ(image->GetWidth(), 18.0f);
  PixelGrid const pixels(*image);
  EXPECT_EQ(pixels.At(5, 5), (Pixel{255, 0, 0, 255}));
  EXPECT_EQ(pixels.At(30, 5), kClearPixel);
}

TEST(Image, FromBytesThatAreNoneIsNull) {
  EXPECT_EQ(FromBytes("", 1), nullptr);
  EXPECT_EQ(FromBytes("GIF89a", 1), nullptr);
  EXPECT_EQ(FromBytes("<svg", 1), nullptr);
  EXPECT_EQ(FromBytes("\x89PNG\r\n\x1a\n broken", 1), nullptr);
}

}  // namespace
}  // namespace moxui::scriber
