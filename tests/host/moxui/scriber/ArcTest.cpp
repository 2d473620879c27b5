#include "Canvas.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace moxui::scriber {
namespace {

// The coverage where a circle of radius 20 around (30, 30) lies at an angle in degrees.
int CoverageAt(PixelGrid const& pixels, double degrees) {
  double const angle = degrees * std::numbers::pi / 180.0;
  return pixels
      .At(static_cast<int>(std::floor(30 + 20 * std::cos(angle))),
          static_cast<int>(std::floor(30 + 20 * std::sin(angle))))
      .red;
}

PixelGrid StrokedArc(float start, float sweep) {
  Canvas canvas(60, 60);
  PathP const path = Supplier().NewPath();
  path->AddArc({30, 30}, 20, start, sweep);
  canvas->StrokePath(*path, *WhitePen(4));
  return canvas.Pixels();
}

TEST(Arc, BeginsAlongXAndGrowsClockwise) {
  PixelGrid const pixels = StrokedArc(0, 90);
  EXPECT_EQ(CoverageAt(pixels, 5), 255);
  EXPECT_EQ(CoverageAt(pixels, 45), 255) << "below the centre: y grows downward";
  EXPECT_EQ(CoverageAt(pixels, 85), 255);
  EXPECT_EQ(CoverageAt(pixels, 135), 0);
  EXPECT_EQ(CoverageAt(pixels, -45), 0);
}

TEST(Arc, ANegativeSweepGoesTheOtherWay) {
  PixelGrid const pixels = StrokedArc(0, -90);
  EXPECT_EQ(CoverageAt(pixels, -45), 255);
  EXPECT_EQ(CoverageAt(pixels, 45), 0);
}

TEST(Arc, EndsFlatWhereItsSweepEnds) {
  PixelGrid const pixels = StrokedArc(0, 90);
  EXPECT_GE(pixels.At(30, 50).red, 253);
  EXPECT_LE(pixels.At(29, 50).red, 2);
}

TEST(Arc, OfSweep360IsAFullCircleWithoutASeam) {
  PixelGrid const pixels = StrokedArc(33, 360);
  for (int degrees = 0; degrees < 360; ++degrees) {
    EXPECT_EQ(CoverageAt(pixels, degrees), 255) << degrees;
  }
}

TEST(Arc, OfMoreThanAFullTurnIsAFullCircle) {
  EXPECT_EQ(StrokedArc(0, 1000).CountOther(kBlackPixel), StrokedArc(0, 360).CountOther(kBlackPixel));
}

TEST(Arc, OfSweep0ShowsNothing) {
  EXPECT_EQ(StrokedArc(45, 0).CountOther(kBlackPixel), 0);
}

TEST(Arc, OfSweep0ShowsNothingAfterAMoveToItsStart) {
  Canvas canvas(60, 60);
  PathP const path = Supplier().NewPath();
  double const angle = 45.0 * std::numbers::pi / 180.0;
  path->MoveTo(
      {static_cast<float>(30 + std::cos(angle) * 20), static_cast<float>(30 + std::sin(angle) * 20)});
  path->AddArc({30, 30}, 20, 45, 0);
  canvas->StrokePath(*path, *WhitePen(4));
  EXPECT_EQ(canvas.Pixels().CountOther(kBlackPixel), 0);
}

TEST(Arc, JoinsAnOpenSubPathByAStraightLine) {
  Canvas canvas(60, 60);
  PathP const path = Supplier().NewPath();
  path->MoveTo({30, 30});
  path->AddArc({30, 30}, 20, 0, 90);
  canvas->StrokePath(*path, *WhitePen(4));
  EXPECT_EQ(canvas.Coverage(40, 30), 255) << "from the middle to the rim";
  EXPECT_EQ(canvas.Coverage(30, 40), 0) << "not closed by itself";
}

TEST(Arc, AfterACloseBeginsASubPathOfItsOwn) {
  Canvas canvas(60, 60);
  PathP const path = Supplier().NewPath();
  path->AddRect({2, 2, 4, 4});
  path->AddArc({30, 30}, 20, 0, 360);
  canvas->StrokePath(*path, *WhitePen(1));
  EXPECT_EQ(canvas.Coverage(26, 16), 0) << "no line leads from the rectangle to the arc";
  EXPECT_GT(canvas.Coverage(50, 30), 100);
}

TEST(Arc, RadiusIsExactWithinAFewHundredthsOfAPixel) {
  Canvas canvas(200, 200);
  canvas->FillPath(*Circle({100, 100}, 80), *WhiteBrush(), FillRule::kWinding);
  PixelGrid const pixels = canvas.Pixels();
  double area = 0;
  for (int y = 0; y < 200; ++y) {
    for (int x = 0; x < 200; ++x) {
      area += pixels.At(x, y).red / 255.0;
    }
  }
  EXPECT_NEAR(std::sqrt(area / std::numbers::pi), 80.0, 0.03);
}

TEST(Arc, SegmentsAfterACloseBeginWhereTheSubPathBegan) {
  Canvas canvas(60, 60);
  PathP const path = Supplier().NewPath();
  path->MoveTo({10, 10.5f});
  path->LineTo({20, 10.5f});
  path->LineTo({20, 20});
  path->Close();
  path->LineTo({10, 50});
  canvas->StrokePath(*path, *WhitePen(2));
  EXPECT_EQ(canvas.Coverage(10, 40), 255);
}

TEST(Arc, ACubicCurveGoesThroughItsMiddle) {
  Canvas canvas(60, 60);
  PathP const path = Supplier().NewPath();
  path->MoveTo({10, 40});
  path->CubicTo({10, 0}, {50, 0}, {50, 40});
  canvas->StrokePath(*path, *WhitePen(4));
  EXPECT_EQ(canvas.Coverage(30, 10), 255) << "3/4 of the handles' height";
  EXPECT_EQ(canvas.Coverage(30, 13), 0);
  EXPECT_EQ(canvas.Coverage(30, 6), 0);
}

}  // namespace
}  // namespace moxui::scriber
