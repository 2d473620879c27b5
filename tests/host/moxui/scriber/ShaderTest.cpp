#include "Canvas.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <set>
#include <vector>

namespace moxui::scriber {
namespace {

constexpr ColorRGBA kRed{1, 0, 0, 1};
constexpr ColorRGBA kGreen{0, 1, 0, 1};
constexpr ColorRGBA kBlue{0, 0, 1, 1};
constexpr Pixel kRedPixel{255, 0, 0, 255};
constexpr Pixel kGreenPixel{0, 255, 0, 255};
constexpr Pixel kBluePixel{0, 0, 255, 255};

PixelGrid Painted(BrushP const& brush, float scale = 1, Smoothing smoothing = Smoothing::kAntiAliased) {
  Canvas canvas(100, 40, scale);
  canvas->SetSmoothing(smoothing);
  canvas->FillPath(*RectPath({0, 0, 100, 40}), *brush, FillRule::kWinding);
  return canvas.Pixels();
}

TEST(Shader, AllKindsAreThere) {
  EXPECT_TRUE(Supplier().HasLinearShader());
  EXPECT_TRUE(Supplier().HasRadialShader());
  EXPECT_TRUE(Supplier().HasMultiStopLinearShader());
  EXPECT_TRUE(Supplier().HasMultiStopRadialShader());
}

TEST(Shader, LinearRunsFromOnePointToTheOtherAndIsPaddedBeyond) {
  PixelGrid const pixels = Painted(Supplier().NewLinearShader({20, 0}, {80, 0}, kRed, kBlue));
  EXPECT_EQ(pixels.At(5, 10), kRedPixel);
  EXPECT_EQ(pixels.At(95, 10), kBluePixel);
  Pixel const middle = pixels.At(50, 10);
  EXPECT_NEAR(middle.red, 126, 3);
  EXPECT_NEAR(middle.blue, 129, 3);
  EXPECT_EQ(pixels.At(50, 10), pixels.At(50, 35)) << "across the line nothing changes";
}

TEST(Shader, LinearRunsDownwardAndSlantedToo) {
  PixelGrid const down = Painted(Supplier().NewLinearShader({0, 10}, {0, 30}, kRed, kBlue));
  EXPECT_EQ(down.At(3, 5), kRedPixel);
  EXPECT_EQ(down.At(3, 35), kBluePixel);
  PixelGrid const slanted = Painted(Supplier().NewLinearShader({0, 0}, {40, 40}, kRed, kBlue));
  Pixel const a = slanted.At(30, 10);
  Pixel const b = slanted.At(10, 30);
  EXPECT_NEAR(a.red, b.red, 1) << "as far along the slanted line";
}

TEST(Shader, AtScaleTwoItRunsOverTheSamePlaces) {
  PixelGrid const pixels = Painted(Supplier().NewLinearShader({20, 0}, {80, 0}, kRed, kBlue), 2);
  EXPECT_EQ(pixels.At(10, 10), kRedPixel);
  EXPECT_EQ(pixels.At(190, 10), kBluePixel);
  EXPECT_NEAR(pixels.At(100, 10).red, 127, 3);
}

TEST(Shader, MovesWithTheOrigin) {
  Canvas canvas(100, 40);
  canvas->Translate({20, 0});
  canvas->FillPath(*RectPath({0, 0, 60, 40}), *Supplier().NewLinearShader({0, 0}, {60, 0}, kRed, kBlue),
                   FillRule::kWinding);
  EXPECT_NEAR(canvas.Pixels().At(50, 10).red, 126, 3);
}

TEST(Shader, RadialHasItsLastColourAtTheDistanceOfTheRimAndBeyond) {
  PixelGrid const pixels = Painted(Supplier().NewRadialShader({50, 20}, {50, 5}, kRed, kBlue));
  EXPECT_NEAR(pixels.At(50, 20).red, 246, 4);
  EXPECT_NEAR(pixels.At(57, 20).red, 127, 6);
  EXPECT_EQ(pixels.At(70, 20), kBluePixel);
  EXPECT_EQ(pixels.At(3, 3), kBluePixel);
}

TEST(Shader, RadialWithEqualPointsPaintsTheLastColour) {
  EXPECT_EQ(Painted(Supplier().NewRadialShader({50, 20}, {50, 20}, kRed, kBlue)).CountOther(kBluePixel), 0);
  std::array<ColorRGBA, 3> const colours{kRed, kBlue, kGreen};
  std::array<float, 3> const stops{0, 0.5f, 1};
  EXPECT_EQ(Painted(Supplier().NewRadialShader({50, 20}, {50, 20}, colours, stops)).CountOther(kGreenPixel),
            0);
}

TEST(Shader, LinearWithEqualPointsPaintsTheLastColour) {
  EXPECT_EQ(Painted(Supplier().NewLinearShader({50, 20}, {50, 20}, kRed, kBlue)).CountOther(kBluePixel), 0);
}

TEST(Shader, RunsThroughEachOfSeveralStops) {
  std::array<ColorRGBA, 4> const colours{kRed, kGreen, kBlue, kRed};
  std::array<float, 4> const stops{0, 0.25f, 0.75f, 1};
  PixelGrid const pixels = Painted(Supplier().NewLinearShader({0, 0}, {100, 0}, colours, stops));
  EXPECT_NEAR(pixels.At(25, 10).green, 250, 6);
  EXPECT_NEAR(pixels.At(75, 10).blue, 250, 6);
  EXPECT_NEAR(pixels.At(50, 10).green, 127, 4);
  EXPECT_NEAR(pixels.At(50, 10).blue, 128, 4);
  EXPECT_NEAR(pixels.At(12, 10).red, 127, 4);
}

TEST(Shader, FirstAndLastStopsInsideArePadded) {
  std::array<ColorRGBA, 2> const colours{kRed, kBlue};
  std::array<float, 2> const stops{0.4f, 0.6f};
  PixelGrid const pixels = Painted(Supplier().NewLinearShader({0, 0}, {100, 0}, colours, stops));
  EXPECT_EQ(pixels.At(38, 10), kRedPixel);
  EXPECT_EQ(pixels.At(61, 10), kBluePixel);
}

TEST(Shader, EqualNeighbouringStopsMakeAHardEdge) {
  std::array<ColorRGBA, 4> const colours{kRed, kRed, kBlue, kBlue};
  std::array<float, 4> const stops{0, 0.5f, 0.5f, 1};
  for (BrushP const& brush : {Supplier().NewLinearShader({0, 0}, {100, 0}, colours, stops),
                              Supplier().NewRadialShader({0, 20}, {100, 20}, colours, stops)}) {
    PixelGrid const pixels = Painted(brush);
    EXPECT_EQ(pixels.At(49, 20), kRedPixel);
    EXPECT_EQ(pixels.At(50, 20), kBluePixel);
  }
}

TEST(Shader, IsNullForListsThatDoNotMatch) {
  std::array<ColorRGBA, 3> const colours{kRed, kGreen, kBlue};
  std::array<float, 2> const two{0, 1};
  std::array<float, 3> const descending{0, 0.8f, 0.5f};
  std::array<float, 3> const below{-0.1f, 0.5f, 1};
  std::array<float, 3> const beyond{0, 0.5f, 1.1f};
  std::array<float, 3> const noNumber{0, std::numeric_limits<float>::quiet_NaN(), 1};
  std::vector<std::span<float const>> const lists{two, descending, below, beyond, noNumber};
  for (std::span<float const> const stops : lists) {
    EXPECT_EQ(Supplier().NewLinearShader({0, 0}, {1, 1}, colours, stops), nullptr);
    EXPECT_EQ(Supplier().NewRadialShader({0, 0}, {1, 1}, colours, stops), nullptr);
  }
  EXPECT_EQ(
      Supplier().NewLinearShader({0, 0}, {1, 1}, std::span<ColorRGBA const>(), std::span<float const>()),
      nullptr);
}

TEST(Shader, OfOneStopIsThatColour) {
  std::array<ColorRGBA, 1> const colours{kGreen};
  std::array<float, 1> const stops{0.3f};
  EXPECT_EQ(Painted(Supplier().NewLinearShader({0, 0}, {50, 0}, colours, stops)).CountOther(kGreenPixel), 0);
}

TEST(Shader, FadesToNothingInItsOwnColour) {
  SurfaceP const surface = Supplier().NewOffscreenSurface(100, 10, 1);
  surface->FillPath(*RectPath({0, 0, 100, 10}),
                    *Supplier().NewLinearShader({0, 0}, {100, 0}, {1, 1, 1, 1}, {1, 1, 1, 0}),
                    FillRule::kWinding);
  PixelGrid const pixels(*surface->GetImage());
  for (int x = 0; x < 98; ++x) {
    Pixel const pixel = pixels.At(x, 5);
    EXPECT_NEAR(pixel.alpha, 255.0 * (1.0 - (x + 0.5) / 100.0), 2) << x;
    EXPECT_GE(pixel.red, 250) << x;
  }
}

TEST(Shader, HighQualityDithers) {
  BrushP const brush =
      Supplier().NewLinearShader({0, 0}, {100, 0}, {0.4f, 0.4f, 0.4f, 1}, {0.41f, 0.41f, 0.41f, 1});
  PixelGrid const plain = Painted(brush);
  PixelGrid const dithered = Painted(brush, 1, Smoothing::kHighQuality);
  std::set<int> plainLevels;
  std::set<int> ditheredLevels;
  for (int y = 0; y < 40; ++y) {
    plainLevels.insert(plain.At(20, y).red);
    ditheredLevels.insert(dithered.At(20, y).red);
    EXPECT_NEAR(dithered.At(20, y).red, plain.At(20, y).red, 1);
    EXPECT_EQ(dithered.At(20, y).alpha, 255);
  }
  EXPECT_EQ(plainLevels.size(), 1u);
  EXPECT_EQ(ditheredLevels.size(), 2u);
}

TEST(Shader, DitheredColoursStayBelowTheirAlpha) {
  SurfaceP const surface = Supplier().NewOffscreenSurface(100, 10, 1);
  surface->SetSmoothing(Smoothing::kHighQuality);
  surface->FillPath(*RectPath({0, 0, 100, 10}),
                    *Supplier().NewLinearShader({0, 0}, {100, 0}, {1, 1, 1, 0.2f}, {1, 1, 1, 0}),
                    FillRule::kWinding);
  PixelGrid const pixels(*surface->GetImage());
  for (int x = 0; x < 100; ++x) {
    Pixel const pixel = pixels.At(x, 5);
    EXPECT_TRUE(pixel.alpha == 0 || pixel.red == 255) << pixel;
  }
}

}  // namespace
}  // namespace moxui::scriber
