#include "Canvas.h"

#include <gtest/gtest.h>

namespace moxui::scriber {
namespace {

TEST(SurfaceState, BeginsAntiAliasedForInterfaceContentAndWithoutAClip) {
  Canvas canvas(20, 10, 2);
  EXPECT_EQ(canvas->GetSmoothing(), Smoothing::kAntiAliased);
  EXPECT_EQ(canvas->GetDrawingMode(), DrawingMode::kInterface);
  EXPECT_EQ(canvas->GetClipBounds(), (RectT<float>{0, 0, 20, 10}));
  EXPECT_EQ(canvas->GetScale(), 2.0f);
}

TEST(SurfaceState, RestoreBringsBackClipOriginSmoothingAndMode) {
  Canvas canvas(20, 20);
  canvas->SaveState();
  canvas->Translate({5, 5});
  canvas->ClipToRect({0, 0, 2, 2});
  canvas->ClipToPath(*Circle({1, 1}, 1), FillRule::kWinding);
  canvas->SetSmoothing(Smoothing::kOff);
  canvas->SetDrawingMode(DrawingMode::kMedia);
  canvas->RestoreState();
  EXPECT_EQ(canvas->GetSmoothing(), Smoothing::kAntiAliased);
  EXPECT_EQ(canvas->GetDrawingMode(), DrawingMode::kInterface);
  EXPECT_EQ(canvas->GetClipBounds(), (RectT<float>{0, 0, 20, 20}));
  canvas->FillRect({0, 0, 20, 20}, ColorRGBAFixed::White);
  EXPECT_EQ(canvas.Pixels().CountOther(kWhitePixel), 0);
}

TEST(SurfaceState, Nests) {
  Canvas canvas(20, 20);
  canvas->ClipToRect({0, 0, 16, 16});
  canvas->SaveState();
  canvas->ClipToRect({0, 0, 8, 8});
  canvas->SaveState();
  canvas->ClipToRect({0, 0, 4, 4});
  canvas->RestoreState();
  EXPECT_EQ(canvas->GetClipBounds().width, 8);
  canvas->RestoreState();
  EXPECT_EQ(canvas->GetClipBounds().width, 16);
}

TEST(SurfaceState, RestoreWithoutASaveDoesNothing) {
  Canvas canvas(20, 20);
  canvas->ClipToRect({0, 0, 8, 8});
  canvas->RestoreState();
  EXPECT_EQ(canvas->GetClipBounds().width, 8);
}

TEST(SurfaceState, SavesLeftOpenAreNoMatter) {
  Canvas canvas(20, 20);
  for (int i = 0; i < 1000; ++i) {
    canvas->SaveState();
  }
  canvas->FillRect({0, 0, 20, 20}, ColorRGBAFixed::White);
  EXPECT_EQ(canvas.Pixels().CountOther(kWhitePixel), 0);
}

TEST(SurfaceState, TranslationsAddUp) {
  Canvas canvas(20, 20);
  canvas->Translate({2, 3});
  canvas->Translate({4, -1});
  canvas->FillRect({0, 0, 1, 1}, ColorRGBAFixed::White);
  EXPECT_EQ(canvas.Coverage(6, 2), 255);
  EXPECT_EQ(canvas.Pixels().CountOther(kBlackPixel), 1);
}

}  // namespace
}  // namespace moxui::scriber
