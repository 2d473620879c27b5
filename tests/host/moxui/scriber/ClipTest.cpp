#include "Canvas.h"

#include <gtest/gtest.h>

namespace moxui::scriber {
namespace {

void FillAll(Canvas& canvas) {
  canvas->FillRect({-50, -50, 500, 500}, ColorRGBAFixed::White);
}

PathP Ring() {
  PathP const path = Circle({20, 20}, 15);
  path->AddArc({20, 20}, 8, 0, 360);
  path->Close();
  return path;
}

TEST(Clip, ToARectangleOnPixelBordersIsExact) {
  for (float const scale : {1.0f, 2.0f}) {
    Canvas canvas(20, 20, scale);
    canvas->ClipToRect({3, 4, 5, 6});
    FillAll(canvas);
    EXPECT_EQ(canvas.Pixels().CountOther(kBlackPixel), static_cast<int>(30 * scale * scale));
  }
}

TEST(Clip, Intersects) {
  Canvas canvas(20, 20);
  canvas->ClipToRect({0, 0, 10, 10});
  canvas->ClipToRect({5, 5, 10, 10});
  FillAll(canvas);
  EXPECT_EQ(canvas.Pixels().CountOther(kBlackPixel), 25);
}

TEST(Clip, ToRectanglesApartLeavesNothing) {
  Canvas canvas(20, 20);
  canvas->ClipToRect({0, 0, 5, 5});
  canvas->ClipToRect({10, 10, 5, 5});
  FillAll(canvas);
  EXPECT_EQ(canvas.Pixels().CountOther(kBlackPixel), 0);
  EXPECT_TRUE(canvas->GetClipBounds().IsEmpty());
}

TEST(Clip, BoundsAreInTheCoordinatesInForce) {
  Canvas canvas(40, 40, 2);
  EXPECT_EQ(canvas->GetClipBounds(), (RectT<float>{0, 0, 40, 40}));
  canvas->Translate({10, 5});
  EXPECT_EQ(canvas->GetClipBounds(), (RectT<float>{-10, -5, 40, 40}));
  canvas->ClipToRect({0, 0, 8, 4});
  EXPECT_EQ(canvas->GetClipBounds(), (RectT<float>{0, 0, 8, 4}));
}

TEST(Clip, BoundsOfAPathHoldThePath) {
  Canvas canvas(40, 40);
  canvas->ClipToPath(*Circle({20, 20}, 10), FillRule::kWinding);
  EXPECT_EQ(canvas->GetClipBounds(), (RectT<float>{10, 10, 20, 20}));
}

TEST(Clip, BetweenPixelsIsSmoothedAsTheSmoothingSays) {
  Canvas smooth(20, 20);
  smooth->ClipToRect({3.5f, 4, 5, 6});
  FillAll(smooth);
  EXPECT_NEAR(smooth.Coverage(3, 5), 128, 1);
  EXPECT_NEAR(smooth.Coverage(8, 5), 128, 1);
  Canvas plain(20, 20);
  plain->SetSmoothing(Smoothing::kOff);
  plain->ClipToRect({3.4f, 4, 5, 6});
  FillAll(plain);
  EXPECT_EQ(plain.Coverage(3, 5), 255);
  EXPECT_EQ(plain.Coverage(8, 5), 0);
}

TEST(Clip, EvenOddLeavesTheRingOnly) {
  Canvas canvas(40, 40);
  canvas->ClipToPath(*Ring(), FillRule::kEvenOdd);
  FillAll(canvas);
  EXPECT_EQ(canvas.Coverage(20, 20), 0);
  EXPECT_EQ(canvas.Coverage(20, 8), 255);
  EXPECT_EQ(canvas.Coverage(2, 2), 0);
}

TEST(Clip, WindingLeavesTheWholeDisc) {
  Canvas canvas(40, 40);
  canvas->ClipToPath(*Ring(), FillRule::kWinding);
  FillAll(canvas);
  EXPECT_EQ(canvas.Coverage(20, 20), 255);
  EXPECT_EQ(canvas.Coverage(2, 2), 0);
}

TEST(Clip, FillingTheOutlineOfTheClipLeavesTheRing) {
  for (FillRule const rule : {FillRule::kEvenOdd, FillRule::kWinding}) {
    Canvas canvas(40, 40);
    canvas->ClipToPath(*Ring(), FillRule::kEvenOdd);
    canvas->FillPath(*Ring(), *WhiteBrush(), rule);
    Canvas plain(40, 40);
    plain->FillPath(*Ring(), *WhiteBrush(), FillRule::kEvenOdd);
    for (int y = 0; y < 40; ++y) {
      for (int x = 0; x < 40; ++x) {
        ASSERT_NEAR(canvas.Pixels().At(x, y).red, plain.Pixels().At(x, y).red, 1) << x << ' ' << y;
      }
    }
  }
}

TEST(Clip, FillingItsOutlineElsewhereIsAnOrdinaryFill) {
  Canvas canvas(60, 60);
  canvas->ClipToPath(*Ring(), FillRule::kEvenOdd);
  canvas->Translate({16, 16});
  canvas->FillPath(*Ring(), *WhiteBrush(), FillRule::kWinding);
  EXPECT_EQ(canvas.Coverage(36, 36), 0) << "outside of the clip";
  EXPECT_EQ(canvas.Coverage(28, 28), 255) << "in both";
  EXPECT_EQ(canvas.Coverage(8, 20), 0) << "in the clip only";
}

TEST(Clip, EvenOddFillUnderAWindingClipKeepsTheHole) {
  Canvas canvas(40, 40);
  canvas->ClipToPath(*Ring(), FillRule::kWinding);
  canvas->FillPath(*Ring(), *WhiteBrush(), FillRule::kEvenOdd);
  EXPECT_EQ(canvas.Coverage(20, 20), 0);
  EXPECT_EQ(canvas.Coverage(20, 8), 255);
}

TEST(Clip, PathsIntersect) {
  Canvas canvas(60, 40);
  canvas->ClipToPath(*Circle({20, 20}, 15), FillRule::kWinding);
  canvas->ClipToPath(*Circle({40, 20}, 15), FillRule::kWinding);
  FillAll(canvas);
  EXPECT_EQ(canvas.Coverage(30, 20), 255);
  EXPECT_EQ(canvas.Coverage(12, 20), 0);
  EXPECT_EQ(canvas.Coverage(48, 20), 0);
}

TEST(Clip, ByAPathCutsStrokesImagesAndTexts) {
  Canvas canvas(60, 40);
  SurfaceP const white = Supplier().NewOffscreenSurface(60, 40, 1);
  white->FillRect({0, 0, 60, 40}, ColorRGBAFixed::White);
  FontP const font = Supplier().NewFont("", "Bold", 40);
  for (int kind = 0; kind < 3; ++kind) {
    canvas->SaveState();
    canvas->FillRect({0, 0, 60, 40}, ColorRGBAFixed::Black);
    canvas->ClipToPath(*Circle({20, 20}, 10), FillRule::kWinding);
    if (kind == 0) {
      canvas->StrokePath(*Line({{0, 20}, {60, 20}}), *WhitePen(6));
    } else if (kind == 1) {
      canvas->DrawImage(*white->GetImage(), PointT<float>{0, 0}, 1);
    } else {
      canvas->DrawText(u"MMMM", {0, 34}, *font, ColorRGBAFixed::White);
    }
    canvas->RestoreState();
    PixelGrid const pixels = canvas.Pixels();
    int outside = 0;
    int inside = 0;
    for (int y = 0; y < 40; ++y) {
      for (int x = 0; x < 60; ++x) {
        bool const near = (x - 19.5) * (x - 19.5) + (y - 19.5) * (y - 19.5) < 11.5 * 11.5;
        (near ? inside : outside) += pixels.At(x, y) == kBlackPixel ? 0 : 1;
      }
    }
    EXPECT_EQ(outside, 0) << kind;
    EXPECT_GT(inside, 50) << kind;
  }
}

TEST(Clip, ByARectangleCutsImagesAndTexts) {
  Canvas canvas(60, 40);
  canvas->ClipToRect({10, 10, 20, 20});
  FontP const font = Supplier().NewFont("", "Bold", 40);
  canvas->DrawText(u"MMMM", {0, 34}, *font, ColorRGBAFixed::White);
  PixelGrid const pixels = canvas.Pixels();
  for (int y = 0; y < 40; ++y) {
    for (int x = 0; x < 60; ++x) {
      if (!(RectT<int>{10, 10, 20, 20}.Contains(PointT<int>{x, y}))) {
        ASSERT_EQ(pixels.At(x, y), kBlackPixel) << x << ' ' << y;
      }
    }
  }
  EXPECT_GT(pixels.CountOther(kBlackPixel), 50);
}

TEST(Clip, OfANarrowPieceDoesNotHoldForTheNextDrawing) {
  Canvas canvas(60, 40);
  FontP const font = Supplier().NewFont("", "Bold", 40);
  canvas->SaveState();
  canvas->ClipToRect({0, 0, 2, 2});
  canvas->DrawText(u"MMMM", {0, 34}, *font, ColorRGBAFixed::White);
  canvas->RestoreState();
  canvas->DrawText(u"MMMM", {0, 34}, *font, ColorRGBAFixed::White);
  EXPECT_GT(canvas.Pixels().CountOther(kBlackPixel), 200);
}

}  // namespace
}  // namespace moxui::scriber
