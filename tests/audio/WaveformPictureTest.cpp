// Whole pictures of waveforms as they come out of the raster.
#include "PeakPictures.h"
#include "support/Folders.h"

#include <moxui/platform/PaintTarget.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/testing/ComparePicture.h>

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

namespace {

using audio_tests::OpenWaveformDraw;
using moxmediaui::RectT;
using moxmediaui::WaveformData;
using moxui::platform::Pixels;
using moxui::testing::ComparePicture;
using moxui::testing::GoldenPath;

constexpr int kWidth = 160;
constexpr int kHeight = 81;

/// A swelling tone in the first channel, plucked notes in the second.
std::shared_ptr<WaveformData> MakeMusic() {
  std::vector<float> pairs;
  for (int x = 0; x < kWidth; ++x) {
    float const swell = 0.9f * std::sin(0.0196f * static_cast<float>(x));
    float const ripple = 1.0f - 0.2f * static_cast<float>(x % 3);
    pairs.insert(pairs.end(), {swell * ripple, -0.8f * swell * ripple});
  }
  for (int x = 0; x < kWidth; ++x) {
    float const note = std::exp(-0.06f * static_cast<float>(x % 40));
    float const ripple = 1.0f - 0.3f * static_cast<float>(x % 2);
    pairs.insert(pairs.end(), {note * ripple, -note * (1.0f - 0.15f * static_cast<float>(x % 4))});
  }
  return audio_tests::MakePeaks(2, kWidth, std::move(pairs));
}

std::shared_ptr<WaveformData> MakeCurve() {
  std::vector<float> run(60);
  for (std::size_t i = 0; i < run.size(); ++i) {
    run[i] = 0.7f * std::sin(0.9f * static_cast<float>(i)) + (i % 7 == 0 ? 0.25f : 0.0f);
  }
  return audio_tests::MakeSamples(2, run);
}

Pixels Paint(OpenWaveformDraw const& draw, std::shared_ptr<WaveformData> const& data) {
  auto const target = moxui::platform::NewPaintTarget(kWidth, kHeight, 1.0f);
  draw.Draw(&target->BeginPaint(), data, {0, 0, kWidth, kHeight}, 1.0f);
  target->EndPaint();
  return target->GetPixels();
}

/// Green and blue channels, a selection and a grid.
void Dress(OpenWaveformDraw& draw) {
  draw.SetColoredChannels(true);
  draw.SetChannelColors({{0.294f, 0.953f, 0.655f, 1}, {0.36f, 0.66f, 1, 1}});
  draw.SetEnabledChannels({true, true});
  RectT<int> ignored;
  draw.SetSelection({0, 0, kWidth, kHeight}, 50, 45, ignored);
}

void AddGrid(OpenWaveformDraw& draw) {
  draw.SetVerticalGridlinePositions({20, 60, 100, 140});
  draw.SetHorizontalGridlinePositions({9, 29, 50, 70});
}

class WaveformPicture : public ::testing::Test {
 protected:
  WaveformPicture() { moxui::testing::SetGoldenFolder(tests::GoldenFolder()); }
};

TEST_F(WaveformPicture, OfPeaksWithGridAndSelection) {
  OpenWaveformDraw draw;
  Dress(draw);
  AddGrid(draw);
  EXPECT_EQ(ComparePicture(Paint(draw, MakeMusic()), GoldenPath("audio/peaks.png")), "");
}

TEST_F(WaveformPicture, OfRectifiedPeaksInSquareRoots) {
  OpenWaveformDraw draw;
  Dress(draw);
  draw.SetPeakDataDrawStyle(moxmediaui::PeakDataDrawStyle::kRectified);
  draw.SetWaveformScalingStyle(moxmediaui::WaveformScalingStyle::kSquareRoot);
  draw.EnableChannel(1, false);
  EXPECT_EQ(ComparePicture(Paint(draw, MakeMusic()), GoldenPath("audio/rectified.png")), "");
}

TEST_F(WaveformPicture, OfLayeredPeaks) {
  OpenWaveformDraw draw;
  Dress(draw);
  draw.SetLayeredChannels(true);
  draw.SetLayeredChannelDrawingStyle(moxmediaui::LayeredChannelDrawingStyle::kFirstStrong);
  EXPECT_EQ(ComparePicture(Paint(draw, MakeMusic()), GoldenPath("audio/layered.png")), "");
}

TEST_F(WaveformPicture, OfSamplesWithDots) {
  OpenWaveformDraw draw;
  Dress(draw);
  draw.SetViewRange(0.0, 0.1);
  RectT<int> ignored;
  draw.SetSelection({0, 0, kWidth, kHeight}, 5, 4, ignored);
  EXPECT_EQ(ComparePicture(Paint(draw, MakeCurve()), GoldenPath("audio/samples.png")), "");
}

TEST_F(WaveformPicture, TheComparisonNoticesAnotherSelection) {
  OpenWaveformDraw draw;
  Dress(draw);
  AddGrid(draw);
  RectT<int> ignored;
  draw.SetSelection({0, 0, kWidth, kHeight}, 50, 46, ignored);
  Pixels golden;
  ASSERT_TRUE(moxui::platform::LoadPNG(GoldenPath("audio/peaks.png").c_str(), golden));
  auto const difference = moxui::testing::FindDifference(Paint(draw, MakeMusic()), golden);
  EXPECT_FALSE(difference.sizesDiffer);
  EXPECT_GT(difference.differingPixels, 0);
  EXPECT_EQ(difference.area.left, 95);
  EXPECT_EQ(difference.area.width, 1);
}

// Peaks become an image without alpha: a grid line of half the alpha hides what lies beneath it.
TEST_F(WaveformPicture, AHalfTransparentGridIsOpaqueBeneathPeaks) {
  OpenWaveformDraw draw;
  draw.SetDrawCenterlines(false);
  draw.SetDrawDividers(false);
  draw.SetBackgroundColor({0, 1, 0, 1});
  draw.SetGridlineColor({1, 0, 0, 0.5f});
  draw.SetVerticalGridlinePositions({20});
  Pixels const pixels = Paint(draw, audio_tests::MakePeaks(1, kWidth, std::vector<float>(2 * kWidth, 0.0f)));
  auto const pixelAt = [&](std::size_t x) {
    auto const first = pixels.bytes.begin() + static_cast<std::ptrdiff_t>((5 * kWidth + x) * 4);
    return std::vector<int>(first, first + 4);
  };
  EXPECT_EQ(pixelAt(20), (std::vector<int>{0, 0, 255, 255}));
  EXPECT_EQ(pixelAt(21), (std::vector<int>{0, 255, 0, 255}));
}

}  // namespace
