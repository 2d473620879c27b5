#include <moxui/scriber/FontInterface.h>
#include <moxui/scriber/ImageInterface.h>
#include <moxui/scriber/PathInterface.h>
#include <moxui/scriber/PenInterface.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/testing/FailingSupplier.h>
#include <moxui/testing/RecordingSupplier.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

namespace {

using moxui::ColorRGBA;
using moxui::RectT;
using moxui::testing::FailingSupplier;
using moxui::testing::RecordedCall;
using moxui::testing::RecordingSupplier;
using moxui::testing::Refusal;

constexpr ColorRGBA kRed{1, 0, 0, 1};

TEST(RecordingSupplier, WritesCallsDownAsValuesThatCanBeComparedAndPrinted) {
  RecordingSupplier supplier;
  auto const surface = supplier.NewOffscreenSurface(20, 10, 2.0f);
  surface->FillRect({1, 2, 3, 4}, kRed);
  RecordedCall call{.operation = "FillRect", .surface = 0, .rect = {1, 2, 3, 4}, .colour = kRed};
  EXPECT_EQ(supplier.GetCalls("FillRect").at(0), call);
  call.rect.width = 3.0001f;
  EXPECT_NE(supplier.GetCalls("FillRect").at(0), call);
  std::ostringstream text;
  text << call;
  EXPECT_EQ(text.str(), "FillRect on 0 [1, 2, 3.0000999 x 4] rgba(1, 0, 0, 1)");
}

TEST(RecordingSupplier, ShowsAPathAsItWasWhenItWasUsed) {
  RecordingSupplier supplier;
  auto const surface = supplier.NewOffscreenSurface(20, 10, 1.0f);
  auto const path = supplier.NewPath();
  path->MoveTo({1, 2});
  path->AddArc({5, 5}, 3, 0, 90);
  surface->StrokePath(*path, *supplier.NewPen(kRed, 2.5f));
  path->Close();
  RecordedCall const stroke = supplier.GetCalls("StrokePath").at(0);
  EXPECT_EQ(stroke.path.size(), 2u);
  EXPECT_EQ(stroke.path[1].numbers, (std::vector<float>{3, 0, 90}));
  EXPECT_EQ(stroke.number, 2.5f);
}

TEST(RecordingSupplier, KeepsStateAsASurfaceDoes) {
  RecordingSupplier supplier;
  auto const surface = supplier.NewOffscreenSurface(20, 10, 1.0f);
  surface->SaveState();
  surface->SetSmoothing(moxui::scriber::Smoothing::kOff);
  surface->Translate({5, 0});
  surface->ClipToRect({0, 0, 4, 4});
  EXPECT_EQ(surface->GetClipBounds(), (RectT<float>{0, 0, 4, 4}));
  surface->RestoreState();
  EXPECT_EQ(surface->GetSmoothing(), moxui::scriber::Smoothing::kAntiAliased);
  EXPECT_EQ(surface->GetClipBounds(), (RectT<float>{0, 0, 20, 10}));
  surface->RestoreState();
}

TEST(RecordingSupplier, ReleasesPixelsWithTheirImage) {
  RecordingSupplier supplier;
  std::uint32_t pixels[4] = {1, 2, 3, 4};
  int released = 0;
  {
    auto const surface = supplier.NewOffscreenSurface(2, 2, 1.0f);
    auto const image = supplier.NewImage(2, 2, 8, moxui::scriber::PixelFormat::kBGRX32, pixels,
                                         [&](void* data) { released += data == pixels ? 1 : 0; });
    surface->DrawImage(*image, moxui::PointT<float>{0, 0}, 1.0f);
    EXPECT_EQ(released, 0);
  }
  EXPECT_EQ(released, 1);
  EXPECT_EQ(supplier.GetLiveObjectCount(), 0);
  EXPECT_EQ(supplier.GetCalls("DrawImage").at(0).image.bytes.size(), 16u);
}

TEST(FailingSupplier, RefusesWhatItIsToldAfterSoManySuccesses) {
  RecordingSupplier recording;
  FailingSupplier supplier(recording);
  EXPECT_TRUE(supplier.NewPen(kRed, 1));
  supplier.Refuse(Refusal::kPen, 2);
  EXPECT_TRUE(supplier.NewPen(kRed, 1));
  EXPECT_TRUE(supplier.NewPen(kRed, 1));
  EXPECT_FALSE(supplier.NewPen(kRed, 1));
  EXPECT_FALSE(supplier.NewPen(kRed, 1));
  EXPECT_TRUE(supplier.NewPath());
  supplier.Allow(Refusal::kPen);
  EXPECT_TRUE(supplier.NewPen(kRed, 1));
}

TEST(FailingSupplier, SaysNoToShaders) {
  RecordingSupplier recording;
  FailingSupplier supplier(recording);
  EXPECT_TRUE(supplier.HasMultiStopRadialShader());
  supplier.Refuse(Refusal::kMultiStopRadialShader);
  supplier.Refuse(Refusal::kLinearShader);
  EXPECT_FALSE(supplier.HasMultiStopRadialShader());
  EXPECT_FALSE(supplier.HasLinearShader());
  EXPECT_TRUE(supplier.HasRadialShader());
  EXPECT_FALSE(supplier.NewLinearShader({0, 0}, {1, 1}, kRed, kRed));
  EXPECT_TRUE(supplier.NewRadialShader({0, 0}, {1, 1}, kRed, kRed));
}

TEST(FailingSupplier, ReleasesThePixelsOfARefusedImageAtOnce) {
  RecordingSupplier recording;
  FailingSupplier supplier(recording);
  supplier.Refuse(Refusal::kImage);
  std::uint32_t pixel = 0;
  int released = 0;
  EXPECT_FALSE(
      supplier.NewImage(1, 1, 4, moxui::scriber::PixelFormat::kBGRX32, &pixel, [&](void*) { ++released; }));
  EXPECT_EQ(released, 1);
}

TEST(FailingSupplier, RefusesLayersAndSnapshotsOfItsSurfaces) {
  RecordingSupplier recording;
  FailingSupplier supplier(recording);
  auto const surface = supplier.NewOffscreenSurface(4, 4, 1.0f);
  EXPECT_TRUE(surface->NewOffscreenSurface(2, 2));
  EXPECT_TRUE(surface->GetImage());
  supplier.Refuse(Refusal::kLayer);
  supplier.Refuse(Refusal::kSnapshot);
  EXPECT_FALSE(surface->NewOffscreenSurface(2, 2));
  EXPECT_FALSE(surface->GetImage());
  surface->FillRect({0, 0, 1, 1}, kRed);
  EXPECT_EQ(recording.GetCalls("FillRect").size(), 1u);
}

TEST(FailingSupplier, GivesNoSurfaceWhereTheOtherSupplierHasNone) {
  RecordingSupplier recording;
  FailingSupplier none(recording);
  FailingSupplier supplier(none);
  auto const surface = supplier.NewOffscreenSurface(4, 4, 1.0f);
  none.Refuse(Refusal::kOffscreenSurface);
  none.Refuse(Refusal::kLayer);
  EXPECT_FALSE(supplier.NewOffscreenSurface(4, 4, 1.0f));
  EXPECT_FALSE(surface->NewOffscreenSurface(2, 2));
  EXPECT_FALSE(supplier.Wrap(nullptr));
}

}  // namespace
