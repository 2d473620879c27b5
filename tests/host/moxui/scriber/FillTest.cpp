#include "Canvas.h"

#include <gtest/gtest.h>

namespace moxui::scriber {
namespace {

class FillAtScale : public ::testing::TestWithParam<int> {
 protected:
  int Scale() const { return GetParam(); }
  Canvas MakeCanvas() const { return Canvas(20, 20, static_cast<float>(Scale())); }
  // Exactly the pixels of a logical rectangle are white.
  void ExpectWhite(PixelGrid const& pixels, RectT<int> const& rect) const {
    for (int y = 0; y < pixels.GetHeight(); ++y) {
      for (int x = 0; x < pixels.GetWidth(); ++x) {
        bool const inside = rect.Contains(PointT<int>{x / Scale(), y / Scale()});
        ASSERT_EQ(pixels.At(x, y), inside ? kWhitePixel : kBlackPixel) << x << ' ' << y;
      }
    }
  }
};

TEST_P(FillAtScale, ARectangleOnPixelBordersWritesExactlyThosePixels) {
  Canvas canvas = MakeCanvas();
  canvas->FillRect({3, 4, 5, 6}, ColorRGBAFixed::White);
  ExpectWhite(canvas.Pixels(), {3, 4, 5, 6});
}

TEST_P(FillAtScale, APathOnPixelBordersWritesExactlyThosePixels) {
  Canvas canvas = MakeCanvas();
  canvas->FillPath(*RectPath({3, 4, 5, 6}), *WhiteBrush(), FillRule::kWinding);
  ExpectWhite(canvas.Pixels(), {3, 4, 5, 6});
}

TEST_P(FillAtScale, SoItDoesWithoutSmoothingAndInHighQuality) {
  for (Smoothing const smoothing : {Smoothing::kOff, Smoothing::kHighQuality}) {
    Canvas canvas = MakeCanvas();
    canvas->SetSmoothing(smoothing);
    canvas->FillRect({3, 4, 5, 3}, ColorRGBAFixed::White);
    canvas->FillPath(*RectPath({3, 7, 5, 3}), *WhiteBrush(), FillRule::kEvenOdd);
    ExpectWhite(canvas.Pixels(), {3, 4, 5, 6});
  }
}

TEST_P(FillAtScale, SoItDoesInATranslatedNode) {
  Canvas canvas = MakeCanvas();
  canvas->Translate({2, 1});
  canvas->FillRect({1, 3, 5, 6}, ColorRGBAFixed::White);
  ExpectWhite(canvas.Pixels(), {3, 4, 5, 6});
}

TEST_P(FillAtScale, SnappedEdgesGoToTheNearestPixels) {
  Canvas canvas = MakeCanvas();
  float const little = 0.4f / static_cast<float>(Scale());
  canvas->FillRect({3 + little, 4 - little, 5, 6}, ColorRGBAFixed::White, EdgeRounding::kSnapped);
  ExpectWhite(canvas.Pixels(), {3, 4, 5, 6});
}

INSTANTIATE_TEST_SUITE_P(Scales, FillAtScale, ::testing::Values(1, 2, 3));

TEST(Fill, ExactEdgesBetweenPixelsAreSmoothed) {
  Canvas canvas(20, 20);
  canvas->FillRect({3.25f, 4, 5, 6.5f}, ColorRGBAFixed::White, EdgeRounding::kExact);
  EXPECT_NEAR(canvas.Coverage(3, 6), 191, 1);
  EXPECT_EQ(canvas.Coverage(5, 6), 255);
  EXPECT_NEAR(canvas.Coverage(8, 6), 64, 1);
  EXPECT_NEAR(canvas.Coverage(5, 10), 128, 1);
  EXPECT_NEAR(canvas.Coverage(3, 10), 96, 1);
}

TEST(Fill, WithoutSmoothingEdgesBetweenPixelsAreSnapped) {
  Canvas canvas(20, 20);
  canvas->SetSmoothing(Smoothing::kOff);
  canvas->FillRect({3.25f, 4, 5, 6.4f}, ColorRGBAFixed::White, EdgeRounding::kExact);
  EXPECT_EQ(canvas.Pixels().CountOther(kBlackPixel), 5 * 6);
}

TEST(Fill, EmptyAndNegativeRectanglesPaintNothing) {
  Canvas canvas(20, 20);
  for (RectT<float> const& rect : {RectT<float>{5, 5, 0, 5}, RectT<float>{5, 5, 5, 0},
                                   RectT<float>{5, 5, -3, 5}, RectT<float>{5.5f, 5.5f, -3, -4}}) {
    canvas->FillRect(rect, ColorRGBAFixed::White);
    canvas->FillRect(rect, ColorRGBAFixed::White, EdgeRounding::kSnapped);
  }
  EXPECT_EQ(canvas.Pixels().CountOther(kBlackPixel), 0);
}

TEST(Fill, TranslucentColoursAreLaidOver) {
  Canvas canvas(20, 20);
  canvas->FillRect({0, 0, 20, 20}, {1, 0, 0, 1});
  canvas->FillRect({0, 0, 10, 20}, {0, 0, 1, 0.5f});
  EXPECT_EQ(canvas.Pixels().At(15, 5), (Pixel{255, 0, 0, 255}));
  Pixel const mixed = canvas.Pixels().At(5, 5);
  EXPECT_NEAR(mixed.red, 127, 1);
  EXPECT_NEAR(mixed.blue, 128, 1);
  EXPECT_EQ(mixed.alpha, 255);
}

TEST(Fill, OnTransparentGroundKeepsTheColourStraight) {
  SurfaceP const surface = Supplier().NewOffscreenSurface(10, 10, 1);
  surface->FillRect({0, 0, 5, 10}, {1, 0.5f, 0, 0.5f});
  PixelGrid const pixels(*surface->GetImage());
  EXPECT_EQ(pixels.At(7, 5), kClearPixel);
  Pixel const pixel = pixels.At(2, 5);
  EXPECT_NEAR(pixel.alpha, 128, 1);
  EXPECT_NEAR(pixel.red, 255, 2);
  EXPECT_NEAR(pixel.green, 128, 2);
}

TEST(Fill, ColoursBeyondTheirRangeAreClamped) {
  Canvas canvas(10, 10);
  canvas->FillRect({0, 0, 10, 10}, {7, -2, 0.5f, 3});
  EXPECT_EQ(canvas.Pixels().At(5, 5), (Pixel{255, 0, 128, 255}));
}

TEST(Fill, RowsOfEveryLengthAreBlendedAlike) {
  ColorRGBA const veil{0.9f, 0.4f, 0.1f, 0.35f};
  Canvas one(1, 1);
  one->FillRect({0, 0, 1, 1}, {0.2f, 0.6f, 0.7f, 1});
  one->FillRect({0, 0, 1, 1}, veil);
  Pixel const expected = one.Pixels().At(0, 0);
  for (int width = 1; width <= 40; ++width) {
    Canvas canvas(width, 2);
    canvas->FillRect({0, 0, 40, 2}, {0.2f, 0.6f, 0.7f, 1});
    canvas->FillRect({0, 0, static_cast<float>(width), 1}, veil);
    canvas->FillPath(*RectPath({0, 1, static_cast<float>(width), 1}), *Supplier().NewBrush(veil),
                     FillRule::kWinding);
    ASSERT_EQ(canvas.Pixels().CountOther(expected), 0) << width;
  }
}

// Two circles that turn the same way: the rule decides about the hole.
PathP Ring() {
  PathP const path = Supplier().NewPath();
  path->AddArc({20, 20}, 15, 0, 360);
  path->Close();
  path->AddArc({20, 20}, 8, 0, 360);
  path->Close();
  return path;
}

TEST(Fill, EvenOddLeavesTheHole) {
  Canvas canvas(40, 40);
  canvas->FillPath(*Ring(), *WhiteBrush(), FillRule::kEvenOdd);
  EXPECT_EQ(canvas.Coverage(20, 20), 0);
  EXPECT_EQ(canvas.Coverage(20, 8), 255);
}

TEST(Fill, WindingFillsTheHole) {
  Canvas canvas(40, 40);
  canvas->FillPath(*Ring(), *WhiteBrush(), FillRule::kWinding);
  EXPECT_EQ(canvas.Coverage(20, 20), 255);
  EXPECT_EQ(canvas.Coverage(20, 8), 255);
}

TEST(Fill, RulesHaveTheNumbersThatCallersPass) {
  EXPECT_EQ(static_cast<FillRule>(0), FillRule::kEvenOdd);
  EXPECT_EQ(static_cast<FillRule>(1), FillRule::kWinding);
}

TEST(Fill, AnOpenPathIsFilledAsIfClosed) {
  Canvas canvas(20, 20);
  canvas->FillPath(*Line({{2, 2}, {12, 2}, {12, 12}, {2, 12}}), *WhiteBrush(), FillRule::kWinding);
  EXPECT_EQ(canvas.Pixels().CountOther(kBlackPixel), 100);
}

TEST(Fill, PartsBeyondTheSurfaceAreCutWithoutATrace) {
  Canvas canvas(20, 20);
  canvas->FillPath(*Circle({10, 10}, 100), *WhiteBrush(), FillRule::kWinding);
  EXPECT_EQ(canvas.Pixels().CountOther(kWhitePixel), 0);
}

TEST(Fill, ATriangleHasHalfTheAreaOfItsBox) {
  for (bool const wide : {false, true}) {
    Canvas canvas(60, 60);
    PointT<float> const tip = wide ? PointT<float>{55, 15} : PointT<float>{15, 55};
    canvas->FillPath(*Line({{5, 5}, wide ? PointT<float>{5, 15} : PointT<float>{15, 5}, tip}), *WhiteBrush(),
                     FillRule::kWinding);
    PixelGrid const pixels = canvas.Pixels();
    double area = 0;
    for (int y = 0; y < 60; ++y) {
      for (int x = 0; x < 60; ++x) {
        area += pixels.At(x, y).red / 255.0;
      }
    }
    EXPECT_NEAR(area, 250.0, 0.5);
  }
}

}  // namespace
}  // namespace moxui::scriber
