#include "Canvas.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <iterator>
#include <vector>

namespace moxui::scriber {
namespace {

TEST(Surface, OffscreenIsTransparentAtFirst) {
  SurfaceP const surface = Supplier().NewOffscreenSurface(10, 6, 2);
  EXPECT_EQ(surface->GetScale(), 2.0f);
  ImageP const image = surface->GetImage();
  EXPECT_EQ(image->GetPixelWidth(), 20);
  EXPECT_EQ(image->GetPixelHeight(), 12);
  EXPECT_EQ(image->GetWidth(), 10.0f);
  EXPECT_EQ(PixelGrid(*image).CountOther(kClearPixel), 0);
}

TEST(Surface, MakesOffscreenSurfacesOfItsOwnScale) {
  Canvas canvas(10, 10, 2);
  SurfaceP const layer = canvas->NewOffscreenSurface(7, 3);
  EXPECT_EQ(layer->GetScale(), 2.0f);
  EXPECT_EQ(layer->GetImage()->GetPixelWidth(), 14);
  EXPECT_EQ(PixelGrid(*layer->GetImage()).CountOther(kClearPixel), 0);
}

TEST(Surface, ALayerDrawnBackIsTheSamePicture) {
  Canvas direct(30, 30, 2);
  direct->StrokePath(*Circle({15, 15}, 8), *WhitePen(3));
  Canvas layered(30, 30, 2);
  SurfaceP const layer = layered->NewOffscreenSurface(30, 30);
  layer->StrokePath(*Circle({15, 15}, 8), *WhitePen(3));
  layered->DrawImage(*layer->GetImage(), RectT<float>{0, 0, 30, 30}, RectT<float>{0, 0, 30, 30}, 1);
  for (int y = 0; y < 60; ++y) {
    for (int x = 0; x < 60; ++x) {
      ASSERT_NEAR(direct.Pixels().At(x, y).red, layered.Pixels().At(x, y).red, 1) << x << ' ' << y;
    }
  }
}

TEST(Surface, OverForeignPixelsDrawsThereAndNowhereElse) {
  constexpr int kRow = 12;
  std::vector<std::uint32_t> pixels(kRow * 8, 0xff112233);
  SurfaceP const surface = NewRasterSurfaceOver(pixels.data(), 10, 8, kRow * 4, 1, true);
  surface->FillRect({-100, 2, 1000, 3}, ColorRGBAFixed::White);
  surface->StrokePath(*Line({{-100, 6.5f}, {100, 6.5f}}), *WhitePen(1));
  for (int y = 0; y < 8; ++y) {
    for (int x = 0; x < kRow; ++x) {
      bool const white = x < 10 && ((y >= 2 && y < 5) || y == 6);
      EXPECT_EQ(pixels[static_cast<std::size_t>(y * kRow + x)], white ? 0xffffffffu : 0xff112233u)
          << x << ' ' << y;
    }
  }
}

TEST(Surface, OpaquePixelsStayOpaqueWhateverIsDrawn) {
  std::vector<std::uint32_t> pixels(40 * 40, 0xff000000);
  SurfaceP const surface = NewRasterSurfaceOver(pixels.data(), 40, 40, 160, 1, true);
  surface->FillRect({0, 0, 40, 10}, {1, 1, 1, 0.3f});
  surface->FillPath(*Circle({20, 20}, 12),
                    *Supplier().NewRadialShader({20, 20}, {20, 30}, {1, 0, 0, 0.5f}, {0, 0, 1, 0}),
                    FillRule::kWinding);
  surface->StrokePath(*Circle({20, 20}, 15), *Supplier().NewPen({1, 1, 1, 0.5f}, 3));
  surface->DrawText(u"text", {4, 30}, *Supplier().NewFont("", "", 12), {1, 1, 1, 0.5f});
  SurfaceP const layer = surface->NewOffscreenSurface(40, 40);
  layer->FillRect({0, 0, 20, 20}, {0, 1, 0, 0.5f});
  surface->DrawImage(*layer->GetImage(), PointT<float>{10, 10}, 0.7f);
  surface->DrawImage(*layer->GetImage(), RectT<float>{0, 0, 15, 15}, 0.7f);
  for (std::uint32_t const pixel : pixels) {
    ASSERT_EQ(pixel >> 24, 255u);
  }
}

TEST(Surface, SnapshotOfForeignPixelsDoesNotChangeWithThem) {
  std::vector<std::uint32_t> pixels(16, 0xff000000);
  ImageP image;
  {
    SurfaceP const surface = NewRasterSurfaceOver(pixels.data(), 4, 4, 16, 1, true);
    image = surface->GetImage();
    surface->FillRect({0, 0, 4, 4}, ColorRGBAFixed::White);
  }
  pixels.assign(16, 0xff00ff00);
  EXPECT_EQ(PixelGrid(*image).CountOther(kBlackPixel), 0);
}

std::ptrdiff_t ThreadCount() {
  std::filesystem::directory_iterator const threads("/proc/self/task");
  return std::distance(begin(threads), end(threads));
}

// A busy thread pool may not make painting wait, so painting doesn't use one.
TEST(Surface, PaintsEverythingOnTheCallersThread) {
  std::ptrdiff_t const before = ThreadCount();
  Canvas canvas(600, 600);
  canvas->SetSmoothing(Smoothing::kHighQuality);
  BrushP const shader = Supplier().NewRadialShader({300, 300}, {300, 0}, {1, 0, 0, 0.5f}, {0, 0, 1, 1});
  canvas->FillPath(*RectPath({0, 0, 600, 600}), *shader, FillRule::kWinding);
  canvas->FillPath(*Circle({300, 300}, 290), *shader, FillRule::kWinding);
  std::vector<std::uint32_t> pixels(500 * 500, 0x80808080);
  BufferImageP const straight =
      Supplier().NewImage(500, 500, 2000, PixelFormat::kBGRA32Straight, pixels.data(), nullptr);
  canvas->DrawImage(*straight, PointT<float>{0, 0}, 0.9f);
  canvas->DrawImage(*straight, RectT<float>{0, 0, 600, 600}, 0.9f);
  canvas->DrawImage(*straight, RectT<float>{0, 0, 200, 300}, 1);
  canvas->SetDrawingMode(DrawingMode::kMedia);
  canvas->DrawImage(*canvas->GetImage(), PointT<float>{0.5f, 0.5f}, 0.5f);
  EXPECT_EQ(ThreadCount(), before);
}

}  // namespace
}  // namespace moxui::scriber
