#include "../scriber/Canvas.h"

#include <moxui/skins/CircleDrawing.h>

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace moxui::skins::utilities {
namespace {

using scriber::Canvas;
using scriber::kBlackPixel;
using scriber::PixelGrid;

double PaintedArea(Canvas const& canvas) {
  PixelGrid const pixels = canvas.Pixels();
  double area = 0;
  for (int y = 0; y < pixels.GetHeight(); ++y) {
    for (int x = 0; x < pixels.GetWidth(); ++x) {
      area += pixels.At(x, y).red / 255.0;
    }
  }
  return area;
}

TEST(CircleDrawing, ADiscIsInscribed) {
  Canvas canvas(60, 60);
  DrawCircleFill(&canvas.GetScriber(), {10, 10, 40, 40}, ColorRGBAFixed::White);
  EXPECT_NEAR(PaintedArea(canvas), std::numbers::pi * 20 * 20, 2.0);
  EXPECT_EQ(canvas.Coverage(30, 30), 255);
  EXPECT_GT(canvas.Coverage(10, 30), 200);
  EXPECT_EQ(canvas.Coverage(9, 30), 0);
  EXPECT_EQ(canvas.Coverage(12, 12), 0);
}

TEST(CircleDrawing, InAnOblongItIsCentredAndOfTheSmallerExtent) {
  Canvas canvas(60, 60);
  DrawCircleFill(&canvas.GetScriber(), {10, 10, 40, 20}, ColorRGBAFixed::White);
  EXPECT_NEAR(PaintedArea(canvas), std::numbers::pi * 10 * 10, 1.0);
  EXPECT_EQ(canvas.Coverage(30, 20), 255);
  EXPECT_EQ(canvas.Coverage(15, 20), 0);
}

TEST(CircleDrawing, ABorderReachesInwardFromTheInscribedCircle) {
  Canvas canvas(60, 60);
  DrawCircleBorder(&canvas.GetScriber(), {10, 10, 40, 40}, ColorRGBAFixed::White, 2);
  EXPECT_NEAR(PaintedArea(canvas), std::numbers::pi * (20 * 20 - 18 * 18), 2.0);
  EXPECT_GT(canvas.Coverage(10, 30), 200);
  EXPECT_GT(canvas.Coverage(11, 30), 200);
  EXPECT_LT(canvas.Coverage(12, 30), 60);
  EXPECT_EQ(canvas.Coverage(9, 30), 0);
}

TEST(CircleDrawing, ADoughnutIsARingOfItsThickness) {
  Canvas canvas(60, 60, 2);
  DrawDoughnut(&canvas.GetScriber(), {4, 4, 52, 52}, 4, ColorRGBAFixed::White);
  EXPECT_NEAR(PaintedArea(canvas), 4 * std::numbers::pi * (26 * 26 - 22 * 22), 6.0);
}

TEST(CircleDrawing, ADoughnutAsThickAsItsRadiusIsADisc) {
  for (float const thickness : {10.0f, 50.0f}) {
    Canvas canvas(40, 40);
    DrawDoughnut(&canvas.GetScriber(), {10, 10, 20, 20}, thickness, ColorRGBAFixed::White);
    EXPECT_NEAR(PaintedArea(canvas), std::numbers::pi * 100, 1.0);
  }
}

TEST(CircleDrawing, SmoothsWhateverIsInForceAndLeavesItSo) {
  Canvas canvas(60, 60);
  canvas->SetSmoothing(scriber::Smoothing::kOff);
  DrawCircleFill(&canvas.GetScriber(), {10, 10, 40, 40}, ColorRGBAFixed::White);
  DrawDoughnut(&canvas.GetScriber(), {5, 5, 50, 50}, 2, ColorRGBAFixed::White);
  EXPECT_EQ(canvas->GetSmoothing(), scriber::Smoothing::kOff);
  PixelGrid const pixels = canvas.Pixels();
  int grey = 0;
  for (int y = 0; y < 60; ++y) {
    for (int x = 0; x < 60; ++x) {
      int const red = pixels.At(x, y).red;
      grey += red > 0 && red < 255 ? 1 : 0;
    }
  }
  EXPECT_GT(grey, 50);
}

TEST(CircleDrawing, NothingGoesIntoAnEmptyRectangle) {
  Canvas canvas(40, 40);
  DrawCircleFill(&canvas.GetScriber(), {10, 10, 0, 20}, ColorRGBAFixed::White);
  DrawCircleBorder(&canvas.GetScriber(), {10, 10, -5, 20}, ColorRGBAFixed::White, 2);
  DrawDoughnut(&canvas.GetScriber(), {10, 10, 20, 20}, 0, ColorRGBAFixed::White);
  EXPECT_EQ(canvas.Pixels().CountOther(kBlackPixel), 0);
}

}  // namespace
}  // namespace moxui::skins::utilities
