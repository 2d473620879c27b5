// Callers hand over whatever their arithmetic gave them; drawing goes on, near the truth where there is one.
#include "Canvas.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

namespace moxui::scriber {
namespace {

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kHuge = std::numeric_limits<float>::max();
constexpr std::array<float, 12> kOddities{
    kNaN,  kInfinity, -kInfinity, kHuge, -kHuge, 1e9f,
    -1e9f, 70000.0f,  -70000.0f,  0.0f,  12.5f,  std::numeric_limits<float>::denorm_min()};

// Draws one of everything with numbers that a generator picks.
void DrawOddities(Canvas& canvas, std::mt19937& random) {
  std::uniform_int_distribution<std::size_t> pick(0, kOddities.size() - 1);
  auto const any = [&] { return kOddities[pick(random)]; };
  auto const point = [&] { return PointT<float>{any(), any()}; };
  auto const rect = [&] { return RectT<float>{any(), any(), any(), any()}; };
  FontP const font = Supplier().NewFont("", "", 12);
  ImageP const image = canvas->GetImage();
  PathP const path = Supplier().NewPath();
  path->MoveTo(point());
  path->LineTo(point());
  path->AddArc(point(), any(), any(), any());
  path->CubicTo(point(), point(), point());
  path->AddRect(rect());
  path->LineTo(point());
  ColorRGBA const colour{any(), any(), any(), any()};
  canvas->SaveState();
  canvas->SetSmoothing(static_cast<Smoothing>(random() % 3));
  canvas->SetDrawingMode(random() % 2 == 0 ? DrawingMode::kInterface : DrawingMode::kMedia);
  if (random() % 4 == 0) {
    canvas->Translate(point());
  }
  if (random() % 4 == 0) {
    canvas->ClipToRect(rect());
  }
  if (random() % 4 == 0) {
    canvas->ClipToPath(*path, static_cast<FillRule>(random() % 2));
  }
  canvas->FillRect(rect(), colour, static_cast<EdgeRounding>(random() % 2));
  canvas->FillPath(*path, *Supplier().NewBrush(colour), static_cast<FillRule>(random() % 2));
  canvas->FillPath(*path, *Supplier().NewLinearShader(point(), point(), colour, ColorRGBAFixed::White),
                   FillRule::kWinding);
  canvas->FillPath(*RectPath({0, 0, 50, 50}),
                   *Supplier().NewRadialShader(point(), point(), colour, ColorRGBAFixed::White),
                   FillRule::kEvenOdd);
  canvas->StrokePath(*path, *Supplier().NewPen(colour, any()));
  canvas->DrawImage(*image, point(), any());
  canvas->DrawImage(*image, rect(), any());
  canvas->DrawImage(*image, rect(), rect(), any());
  canvas->DrawText(u"odd", point(), *font, colour, static_cast<TextAlignment>(random() % 3));
  canvas->DrawTextInBox(u"odd words", rect(), *font, colour, TextAlignment::kCenter);
  canvas->GetClipBounds();
  canvas->RestoreState();
}

TEST(Robustness, NoNumberCrashesOrHangsDrawing) {
  Canvas canvas(64, 48, 1.5f);
  std::mt19937 random(20);
  for (int i = 0; i < 400; ++i) {
    DrawOddities(canvas, random);
  }
  canvas->FillRect({0, 0, 64, 48}, ColorRGBAFixed::White);
  EXPECT_EQ(canvas.Pixels().CountOther(kWhitePixel), 0) << "state and pixels are as usable as before";
}

TEST(Robustness, InfiniteRectanglesReachAsFarAsTheClip) {
  Canvas canvas(20, 20);
  canvas->FillRect({5, -kInfinity, kInfinity, kInfinity}, ColorRGBAFixed::White);
  EXPECT_EQ(canvas.Coverage(4, 10), 0);
  EXPECT_EQ(canvas.Pixels().CountOther(kBlackPixel), 0) << "minus infinite plus infinite is no height";
  canvas->FillRect({5, 5, kInfinity, kHuge}, ColorRGBAFixed::White);
  EXPECT_EQ(canvas.Pixels().CountOther(kBlackPixel), 15 * 15);
}

TEST(Robustness, LinesFromFarAwayKeepTheirSlope) {
  Canvas canvas(40, 20);
  canvas->StrokePath(*Line({{-400000, -100000}, {400000, 100000}}), *WhitePen(2));
  PixelGrid const pixels = canvas.Pixels();
  for (int x = 2; x < 38; ++x) {
    EXPECT_GT(pixels.At(x, x / 4).red, 100) << x;
  }
  EXPECT_EQ(pixels.At(20, 12).red, 0);
}

TEST(Robustness, FarPolylinesAreCutToTheSurface) {
  Canvas canvas(40, 20);
  std::vector<PointT<float>> points;
  for (int i = 0; i < 1000; ++i) {
    points.push_back({static_cast<float>(i) * 0.04f, i % 2 == 0 ? -1e6f : 1e6f});
  }
  canvas->StrokePath(*Line(points), *WhitePen(2));
  EXPECT_EQ(canvas.Coverage(20, 10), 255);
}

TEST(Robustness, SurfacesWithoutPixelsTakeEverything) {
  for (SurfaceP const& surface :
       {Supplier().NewOffscreenSurface(0, 0, 1), Supplier().NewOffscreenSurface(0, 9, 2),
        NewRasterSurfaceOver(nullptr, 0, 0, 0, 1, true)}) {
    ASSERT_NE(surface, nullptr);
    surface->SaveState();
    surface->ClipToPath(*Circle({5, 5}, 5), FillRule::kWinding);
    surface->FillRect({0, 0, 10, 10}, ColorRGBAFixed::White);
    surface->FillPath(*Circle({5, 5}, 5), *WhiteBrush(), FillRule::kWinding);
    surface->StrokePath(*Line({{0, 0}, {10, 10}}), *WhitePen(2));
    surface->DrawText(u"text", {0, 10}, *Supplier().NewFont("", "", 12), ColorRGBAFixed::White);
    surface->DrawImage(*surface->GetImage(), PointT<float>{}, 1);
    surface->RestoreState();
    EXPECT_EQ(surface->GetImage()->GetWidth(), 0.0f);
    EXPECT_TRUE(surface->GetClipBounds().IsEmpty());
  }
}

TEST(Robustness, SurfacesThatCannotBeAreNull) {
  EXPECT_EQ(Supplier().NewOffscreenSurface(-1, 10, 1), nullptr);
  EXPECT_EQ(Supplier().NewOffscreenSurface(2000000000, 2000000000, 1), nullptr);
  EXPECT_EQ(Supplier().NewOffscreenSurface(30000, 30000, 1), nullptr);
  std::array<std::uint32_t, 4> pixels{};
  EXPECT_EQ(NewRasterSurfaceOver(pixels.data(), 2, 2, 4, 1, true), nullptr) << "rows overlap";
  EXPECT_EQ(NewRasterSurfaceOver(nullptr, 2, 2, 8, 1, true), nullptr);
}

TEST(Robustness, SenselessScalesCountAsOne) {
  for (float const scale : {0.0f, -2.0f, kNaN, kInfinity, 1e6f}) {
    SurfaceP const surface = Supplier().NewOffscreenSurface(10, 10, scale);
    ASSERT_NE(surface, nullptr);
    EXPECT_EQ(surface->GetScale(), 1.0f);
    EXPECT_EQ(surface->GetImage()->GetPixelWidth(), 10);
  }
}

TEST(Robustness, APathOfAHundredThousandPointsIsDrawn) {
  Canvas canvas(200, 100);
  std::vector<PointT<float>> points;
  std::mt19937 random(3);
  std::uniform_real_distribution<float> any(0, 100);
  for (int i = 0; i < 100000; ++i) {
    points.push_back({2 * any(random), any(random)});
  }
  canvas->StrokePath(*Line(points), *WhitePen(2));
  EXPECT_EQ(canvas.Coverage(100, 50), 255);
}

}  // namespace
}  // namespace moxui::scriber
