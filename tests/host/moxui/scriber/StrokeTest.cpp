#include "Canvas.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace moxui::scriber {
namespace {

TEST(Stroke, AHairlineOnAHalfCoordinateCoversExactlyOneRow) {
  Canvas canvas(20, 10);
  canvas->StrokePath(*Line({{2, 4.5f}, {12, 4.5f}}), *WhitePen(1));
  PixelGrid const pixels = canvas.Pixels();
  for (int x = 2; x < 12; ++x) {
    EXPECT_EQ(pixels.At(x, 4), kWhitePixel) << x;
  }
  EXPECT_EQ(pixels.CountOther(kBlackPixel), 10);
}

TEST(Stroke, AHairlineAtScaleTwoCoversExactlyTwoRowsOfPixels) {
  Canvas canvas(20, 10, 2.0f);
  canvas->StrokePath(*Line({{4.5f, 1}, {4.5f, 6}}), *WhitePen(1));
  PixelGrid const pixels = canvas.Pixels();
  EXPECT_EQ(pixels.At(8, 2), kWhitePixel);
  EXPECT_EQ(pixels.At(9, 11), kWhitePixel);
  EXPECT_EQ(pixels.CountOther(kBlackPixel), 2 * 10);
}

TEST(Stroke, AHairlineInALongerPathCoversExactlyOneRowToo) {
  Canvas canvas(20, 10);
  canvas->StrokePath(*Line({{2, 4.5f}, {7, 4.5f}, {12, 4.5f}}), *WhitePen(1));
  EXPECT_EQ(canvas.Coverage(6, 4), 255);
  EXPECT_EQ(canvas.Coverage(7, 4), 255);
  EXPECT_EQ(canvas.Pixels().CountOther(kBlackPixel), 10);
}

TEST(Stroke, AHairlineOnAWholeCoordinateIsSharedByTwoRows) {
  Canvas canvas(20, 10);
  canvas->StrokePath(*Line({{2, 5}, {12, 5}}), *WhitePen(1));
  EXPECT_NEAR(canvas.Coverage(5, 4), 128, 1);
  EXPECT_NEAR(canvas.Coverage(5, 5), 128, 1);
}

TEST(Stroke, WithoutSmoothingAHairlineOnAWholeCoordinateCoversOneRow) {
  Canvas canvas(20, 10);
  canvas->SetSmoothing(Smoothing::kOff);
  canvas->StrokePath(*Line({{2, 5}, {12, 5}}), *WhitePen(1));
  PixelGrid const pixels = canvas.Pixels();
  EXPECT_EQ(pixels.CountOther(kBlackPixel), 10);
  for (int x = 2; x < 12; ++x) {
    EXPECT_EQ(pixels.At(x, 4).red + pixels.At(x, 5).red, 255) << x;
  }
}

TEST(Stroke, WithoutSmoothingASlantedLineIsUnbrokenAndHasNoGrey) {
  Canvas canvas(40, 20);
  canvas->SetSmoothing(Smoothing::kOff);
  canvas->StrokePath(*Line({{2, 3}, {37, 16}}), *WhitePen(0.25f));
  PixelGrid const pixels = canvas.Pixels();
  for (int x = 3; x < 36; ++x) {
    int lit = 0;
    for (int y = 0; y < 20; ++y) {
      Pixel const pixel = pixels.At(x, y);
      EXPECT_TRUE(pixel == kBlackPixel || pixel == kWhitePixel) << pixel;
      lit += pixel == kWhitePixel ? 1 : 0;
    }
    EXPECT_GE(lit, 1) << x;
  }
}

TEST(Stroke, CapsAreFlat) {
  Canvas canvas(20, 10);
  canvas->StrokePath(*Line({{5, 5}, {15, 5}}), *WhitePen(4));
  EXPECT_EQ(canvas.Coverage(4, 5), 0);
  EXPECT_EQ(canvas.Coverage(5, 5), 255);
  EXPECT_EQ(canvas.Coverage(14, 5), 255);
  EXPECT_EQ(canvas.Coverage(15, 5), 0);
  EXPECT_EQ(canvas.Pixels().CountOther(kBlackPixel), 10 * 4);
}

TEST(Stroke, ARightAngleIsMitered) {
  Canvas canvas(20, 20);
  canvas->StrokePath(*Line({{2, 6}, {12, 6}, {12, 16}}), *WhitePen(4));
  EXPECT_EQ(canvas.Coverage(13, 4), 255) << "the outer corner is square";
  EXPECT_EQ(canvas.Coverage(14, 4), 0);
  EXPECT_EQ(canvas.Coverage(13, 3), 0);
}

TEST(Stroke, AVerySharpTurnIsBeveledSoThatPeaksDoNotGrow) {
  Canvas canvas(20, 40);
  canvas->StrokePath(*Line({{8, 35}, {9, 10}, {10, 35}}), *WhitePen(2));
  for (int x = 0; x < 20; ++x) {
    EXPECT_EQ(canvas.Coverage(x, 8), 0) << x;
  }
  EXPECT_GT(canvas.Coverage(9, 10), 128);
}

TEST(Stroke, AClosedRectangleHasFourSquareCorners) {
  Canvas canvas(20, 20);
  canvas->StrokePath(*RectPath({5, 5, 10, 10}), *WhitePen(2));
  for (PointT<int> const corner : {PointT<int>{4, 4}, {15, 4}, {15, 15}, {4, 15}}) {
    EXPECT_EQ(canvas.Coverage(corner.x, corner.y), 255) << corner.x << ' ' << corner.y;
  }
  EXPECT_EQ(canvas.Pixels().CountOther(kBlackPixel), 12 * 12 - 8 * 8);
}

TEST(Stroke, ATranslucentPenIsNoDarkerWhereItCrossesItself) {
  Canvas canvas(40, 40);
  PenP const pen = Supplier().NewPen({1, 1, 1, 0.5f}, 6);
  canvas->StrokePath(*Line({{5, 20}, {35, 20}, {35, 5}, {20, 5}, {20, 35}}), *pen);
  EXPECT_EQ(canvas.Coverage(20, 20), canvas.Coverage(10, 20));
  EXPECT_NEAR(canvas.Coverage(20, 20), 128, 1);
}

TEST(Stroke, JoinsOfATranslucentPolylineShowNeitherGapsNorOverlaps) {
  Canvas canvas(220, 60);
  std::vector<PointT<float>> points;
  for (int i = 0; i <= 400; ++i) {
    float const x = 10.0f + static_cast<float>(i) * 0.5f;
    points.push_back({x, 30.0f + 12.0f * std::sin(x * 0.15f)});
  }
  canvas->StrokePath(*Line(points), *Supplier().NewPen({1, 1, 1, 0.5f}, 5));
  PixelGrid const pixels = canvas.Pixels();
  for (int x = 12; x < 208; ++x) {
    auto const middle = static_cast<int>(30.0 + 12.0 * std::sin((x + 0.5) * 0.15));
    EXPECT_NEAR(pixels.At(x, middle).red, 128, 1) << x;
  }
}

TEST(Stroke, AbuttingShortSegmentsAreAsWholeAsOneLine) {
  Canvas canvas(120, 40);
  std::vector<PointT<float>> points;
  for (int i = 0; i <= 1000; ++i) {
    points.push_back({10.0f + static_cast<float>(i) * 0.1f, 10.0f + static_cast<float>(i) * 0.02f});
  }
  canvas->StrokePath(*Line(points), *WhitePen(3));
  Canvas one(120, 40);
  one->StrokePath(*Line({points.front(), points.back()}), *WhitePen(3));
  for (int y = 0; y < 40; ++y) {
    for (int x = 0; x < 120; ++x) {
      EXPECT_NEAR(canvas.Pixels().At(x, y).red, one.Pixels().At(x, y).red, 2) << x << ' ' << y;
      if (::testing::Test::HasFailure()) {
        return;
      }
    }
  }
}

TEST(Stroke, NothingShowsForAPointOrAPenWithoutWidth) {
  Canvas canvas(20, 20);
  canvas->StrokePath(*Line({{5, 5}}), *WhitePen(4));
  canvas->StrokePath(*Line({{5, 5}, {5, 5}}), *WhitePen(4));
  canvas->StrokePath(*Supplier().NewPath(), *WhitePen(4));
  canvas->StrokePath(*Line({{2, 5}, {15, 5}}), *WhitePen(0));
  canvas->StrokePath(*Line({{2, 5}, {15, 5}}), *WhitePen(-3));
  EXPECT_EQ(canvas.Pixels().CountOther(kBlackPixel), 0);
}

TEST(Stroke, APenKeepsItsColourAndWidth) {
  PenP const pen = Supplier().NewPen({0.25f, 0.5f, 0.75f, 0.5f}, 2.5f);
  EXPECT_EQ(pen->GetColor(), (ColorRGBA{0.25f, 0.5f, 0.75f, 0.5f}));
  EXPECT_EQ(pen->GetWidth(), 2.5f);
}

}  // namespace
}  // namespace moxui::scriber
