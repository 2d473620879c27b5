#include "audio/Viewport.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>

namespace playground {
namespace {

Viewport Whole(std::int64_t frames, int width) {
  Viewport view;
  view.SetWidth(width);
  view.SetFrames(frames);
  return view;
}

TEST(Viewport, ShowsTheWholeSoundAtFirst) {
  Viewport const view = Whole(48000, 480);
  EXPECT_EQ(view.Left(), 0.0);
  EXPECT_EQ(view.SamplesPerPixel(), 100.0);
  EXPECT_TRUE(view.ShowsAll());
}

TEST(Viewport, KeepsTheSampleUnderThePointerWhileZooming) {
  Viewport view = Whole(480000, 1000);
  double const sample = view.SampleAt(333.0);
  for (int i = 0; i < 12; ++i) {
    view.ZoomAt(333.0, 1.5);
    EXPECT_NEAR(view.SampleAt(333.0), sample, 1e-6);
  }
  for (int i = 0; i < 11; ++i) {
    view.ZoomAt(333.0, 1.0 / 1.5);
    EXPECT_NEAR(view.SampleAt(333.0), sample, 1e-6);
  }
}

TEST(Viewport, StopsZoomingAtTheWholeSoundAndAtASingleSample) {
  Viewport view = Whole(48000, 480);
  view.ZoomAt(200.0, 1e-9);
  EXPECT_TRUE(view.ShowsAll());
  view.ZoomAt(200.0, 1e12);
  EXPECT_EQ(view.SamplesPerPixel(), 1.0 / Viewport::kMostColumnsPerSample);
}

TEST(Viewport, PassesOverFactorsThatMeanNothing) {
  Viewport view = Whole(48000, 480);
  view.ZoomAt(200.0, 4.0);
  double const samplesPerPixel = view.SamplesPerPixel();
  for (double const factor :
       {0.0, -1.0, std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
    view.ZoomAt(10.0, factor);
    EXPECT_EQ(view.SamplesPerPixel(), samplesPerPixel);
  }
  double const left = view.Left();
  view.ScrollTo(std::numeric_limits<double>::quiet_NaN());
  EXPECT_EQ(view.Left(), left);
}

TEST(Viewport, StaysWithinTheSoundWhileScrolling) {
  Viewport view = Whole(48000, 480);
  view.ZoomAt(0.0, 10.0);
  view.ScrollBy(-1000.0);
  EXPECT_EQ(view.Left(), 0.0);
  view.ScrollBy(1e9);
  EXPECT_DOUBLE_EQ(view.Left() + view.VisibleSamples(), 48000.0);
}

TEST(Viewport, GoesOnShowingTheWholeSoundWhenItGrowsWider) {
  Viewport view = Whole(48000, 480);
  view.SetWidth(960);
  EXPECT_EQ(view.SamplesPerPixel(), 50.0);
}

TEST(Viewport, KeepsItsZoomWhenItGrowsWiderElse) {
  Viewport view = Whole(48000, 480);
  view.ZoomAt(0.0, 4.0);
  view.SetWidth(960);
  EXPECT_EQ(view.SamplesPerPixel(), 25.0);
}

TEST(Viewport, KeepsWhatItShowsAtAnotherScale) {
  Viewport view = Whole(48000, 480);
  view.ZoomAt(100.0, 4.0);
  double const left = view.Left();
  double const visible = view.VisibleSamples();
  view.StretchTo(960);
  EXPECT_DOUBLE_EQ(view.Left(), left);
  EXPECT_DOUBLE_EQ(view.VisibleSamples(), visible);
}

TEST(Viewport, ShowsARange) {
  Viewport view = Whole(48000, 480);
  view.Show(1000.0, 2000.0);
  EXPECT_DOUBLE_EQ(view.Left(), 1000.0);
  EXPECT_DOUBLE_EQ(view.SampleAt(480.0), 2000.0);
  view.Show(5.0, 5.0);
  EXPECT_DOUBLE_EQ(view.Left(), 1000.0);
}

TEST(Viewport, ScrollsNoFurtherThanASampleNeeds) {
  Viewport view = Whole(48000, 480);
  view.Show(1000.0, 2000.0);
  view.Reveal(1500.0);
  EXPECT_DOUBLE_EQ(view.Left(), 1000.0);
  view.Reveal(2100.0);
  EXPECT_DOUBLE_EQ(view.Left(), 1100.0);
  view.Reveal(900.0);
  EXPECT_DOUBLE_EQ(view.Left(), 900.0);
}

TEST(Viewport, HasTheLastSampleWithinItsColumnsAtTheEnd) {
  for (std::int64_t const frames : {48001LL, 99991LL, 16588800001LL}) {
    Viewport view = Whole(frames, 480);
    for (double const samplesPerPixel : {0.3, 1.0, 7.7, 13.0}) {
      view.Show(0.0, samplesPerPixel * 480.0);
      view.ScrollTo(1e12);
      double const spp = view.SamplesPerPixel();
      double const column = std::trunc(static_cast<double>(frames - 1) / spp) - std::trunc(view.Left() / spp);
      EXPECT_LE(column, 479.0);
      EXPECT_GE(column, 480.0 - std::ceil(1.0 / spp));
      EXPECT_LE(view.Left() + view.VisibleSamples(), static_cast<double>(frames) + spp);
    }
  }
}

TEST(Viewport, CopesWithNoSoundAndWithOneSample) {
  Viewport view = Whole(0, 480);
  view.ZoomAt(20.0, 2.0);
  view.ScrollBy(5.0);
  EXPECT_EQ(view.Left(), 0.0);
  view.SetFrames(1);
  view.ZoomAt(20.0, 2.0);
  EXPECT_EQ(view.Left(), 0.0);
  EXPECT_GT(view.SamplesPerPixel(), 0.0);
}

TEST(Viewport, HoldsOutForDaysOfSound) {
  Viewport view = Whole(std::int64_t{48000} * 3600 * 24 * 30, 1000);
  view.Show(1e11, 1e11 + 1000.0);
  EXPECT_DOUBLE_EQ(view.SampleAt(500.0), 1e11 + 500.0);
}

}  // namespace
}  // namespace playground
