#include "PeakPictures.h"
#include "PlainSampleRenderer.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

using audio_tests::OpenWaveformDraw;

TEST(Interpolation, AConstantStaysItselfAtAnyFraction) {
  OpenWaveformDraw const draw;
  for (float const value : {0.0f, 0.25f, -0.9f, 1.0f}) {
    std::vector<float> taps(44, value);
    for (double fraction = 0.0; fraction < 1.0; fraction += 0.0625) {
      EXPECT_NEAR(draw.GetInterp(44, fraction, taps.data()), value, 1e-5) << fraction;
    }
  }
}

TEST(Interpolation, OfNoTapsIsZero) {
  OpenWaveformDraw const draw;
  EXPECT_EQ(draw.GetInterp(0, 0.5, nullptr), 0.0);
}

TEST(Interpolation, IsTheSameToTheLastBitAsTapByTap) {
  OpenWaveformDraw const draw;
  std::mt19937 random(4);
  std::uniform_real_distribution<float> value(-1.0f, 1.0f);
  std::uniform_real_distribution<double> fraction(0.0, 1.0);
  for (int i = 0; i < 500; ++i) {
    std::vector<float> taps(44);
    for (float& tap : taps) {
      tap = value(random);
    }
    double const f = i % 5 == 0 ? 0.25 * (i % 4) : fraction(random);
    ASSERT_EQ(draw.GetInterp(44, f, taps.data()),
              static_cast<double>(audio_tests::InterpolatePlainly(taps, static_cast<float>(f))));
  }
}

// The kernel's centre lies half a sample past tap 21: for fraction 0.5 that is tap 22 exactly.
TEST(Interpolation, ReachesTheTapsHalfASampleFurther) {
  OpenWaveformDraw const draw;
  std::vector<float> taps(44);
  for (std::size_t i = 0; i < taps.size(); ++i) {
    taps[i] = std::sin(0.3f * static_cast<float>(i));
  }
  EXPECT_NEAR(draw.GetInterp(44, 0.5, taps.data()), taps[22], 0.02);
  EXPECT_NEAR(draw.GetInterp(44, 0.0, taps.data()), std::sin(0.3 * 21.5), 0.02);
}

TEST(Amplitude, OfPeaksIsTheMeanMagnitudeOfThePair) {
  OpenWaveformDraw const draw;
  auto const peaks = audio_tests::MakePeaks(2, 3, {0, 0, 0.5f, -0.25f, 0, 0, 0, 0, 0, 0, -0.5f, -1.0f});
  EXPECT_EQ(draw.GetAmplitudeFromPixelOffset(0, 1, peaks), 0.375f);
  EXPECT_EQ(draw.GetAmplitudeFromPixelOffset(1, 2, peaks), 0.75f);
  EXPECT_EQ(draw.GetAmplitudeFromPixelOffset(0, 3, peaks), 0.0f);
  EXPECT_EQ(draw.GetAmplitudeFromPixelOffset(0, -1, peaks), 0.0f);
}

TEST(Amplitude, OfSamplesIsThatOfTheCurve) {
  OpenWaveformDraw draw;
  draw.SetViewRange(10.75, 0.5);
  std::vector<float> run(120);
  for (std::size_t i = 0; i < run.size(); ++i) {
    run[i] = std::sin(0.4f * static_cast<float>(i));
  }
  auto const samples = audio_tests::MakeSamples(2, run);
  // Pixel 9 is at 15.25, window from 15 - 10.
  std::vector<float> const window(run.begin() + 5, run.begin() + 49);
  EXPECT_EQ(draw.GetAmplitudeFromPixelOffset(1, 9, samples),
            std::fabs(audio_tests::InterpolatePlainly(window, 0.25f)));
  // Far beyond the run the last sample goes on.
  EXPECT_NEAR(draw.GetAmplitudeFromPixelOffset(0, 100000, samples), std::fabs(run.back()), 1e-5);
}

TEST(Amplitude, OfWhatIsntThereIsZero) {
  OpenWaveformDraw const draw;
  auto const nothing = std::make_shared<moxmediaui::WaveformData>();
  EXPECT_EQ(draw.GetAmplitudeFromPixelOffset(0, 0, nothing), 0.0f);
  auto const samples = audio_tests::MakeSamples(1, std::vector<float>(50, 1.0f));
  EXPECT_EQ(draw.GetAmplitudeFromPixelOffset(1, 0, samples), 0.0f);
  EXPECT_EQ(draw.GetAmplitudeFromPixelOffset(~std::uint64_t{0}, 0, samples), 0.0f);
  EXPECT_EQ(draw.GetAmplitudeFromPixelOffset(0, 0, audio_tests::MakeSamples(1, {})), 0.0f);
  auto const peaks = audio_tests::MakePeaks(1, 1, {1.0f, -1.0f});
  EXPECT_EQ(draw.GetAmplitudeFromPixelOffset(5, 0, peaks), 0.0f);
  EXPECT_EQ(draw.GetAmplitudeFromPixelOffset(0, std::numeric_limits<std::int64_t>::max(), peaks), 0.0f);
  EXPECT_EQ(draw.GetAmplitudeFromPixelOffset(0, -1, nullptr), 0.0f);
  EXPECT_ANY_THROW(draw.GetAmplitudeFromPixelOffset(0, 0, nullptr));
}

TEST(Amplitude, RequestsAreSizedByTheTaps) {
  EXPECT_EQ(moxmediaui::WaveformDraw::GetOversampleSize(), 44u);
}

}  // namespace
