#include "../peaks/MadeUpSources.h"

#include <moxaudiotoolkit/DecodedAudio.h>
#include <moxaudiotoolkit/peaks/PeakPyramid.h>
#include <moxaudiotoolkit/waveform/QueryPyramid.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

namespace moxaudiotoolkit::waveform {
namespace {

using testing::BuildPyramid;
using testing::GatedSource;
using testing::NoiseSource;
using testing::PointOfSamples;
using testing::SparseSource;

constexpr std::int64_t kFrames = 600'123;

class QueryPyramidTest : public ::testing::Test {
 protected:
  std::shared_ptr<const DecodedAudio> Decoded() const {
    std::vector<std::vector<float>> channels(2, std::vector<float>(kFrames));
    for (int c = 0; c < 2; ++c) {
      for (std::int64_t i = 0; i < kFrames; ++i) {
        channels[static_cast<std::size_t>(c)][static_cast<std::size_t>(i)] = mSource->GetSample(i, c);
      }
    }
    return std::make_shared<const DecodedAudio>(48000, std::move(channels));
  }

  std::shared_ptr<NoiseSource> mSource = std::make_shared<NoiseSource>(kFrames, 2, 0, 1.5F);
  std::shared_ptr<const PeakPyramid> mPyramid = BuildPyramid(*mSource);
  SampleWindow mWindow{mSource};
};

void ExpectSameData(const WaveformData& data, const WaveformData& expected) {
  ASSERT_EQ(data.GetProperties(), expected.GetProperties());
  EXPECT_EQ(data.GetWaveformBuffer(), expected.GetWaveformBuffer());
}

TEST_F(QueryPyramidTest, GivesTheSameAsDecodedAudioBelowItsFinestPoints) {
  const auto decoded = Decoded();
  std::mt19937_64 random(5);
  std::uniform_real_distribution<double> left(-5000.0, kFrames + 1000.0);
  std::uniform_real_distribution<double> zoom(-5.0, 5.99);
  for (int i = 0; i < 200; ++i) {
    const double viewLeft = left(random);
    const double samplesPerPixel = std::exp2(zoom(random));
    const WaveformQueryOptions options{.detail = static_cast<WaveformDetail>(i % 3),
                                       .joinColumns = i % 2 == 0};
    SCOPED_TRACE(::testing::Message() << viewLeft << " at " << samplesPerPixel);
    ExpectSameData(*QueryWaveform(*mPyramid, &mWindow, viewLeft, samplesPerPixel, 300, options),
                   *QueryWaveform(*decoded, viewLeft, samplesPerPixel, 300, options));
  }
}

// Columns of points: every sample of the column and none farther than the points that a quarter of it holds.
TEST_F(QueryPyramidTest, ColumnsAreThoseOfWholePointsAtAnyZoom) {
  std::mt19937_64 random(7);
  std::uniform_real_distribution<double> left(-5000.0, kFrames);
  std::uniform_real_distribution<double> zoom(6.0, 19.0);
  for (int i = 0; i < 60; ++i) {
    const double viewLeft = left(random);
    const double samplesPerPixel = std::exp2(zoom(random));
    const auto data =
        QueryWaveform(*mPyramid, &mWindow, viewLeft, samplesPerPixel, 50, {.joinColumns = false});
    ASSERT_EQ(data->GetType(), WaveformDataType::kPeaks);
    std::int64_t point = 64;
    while (static_cast<double>(point) * 16.0 <= samplesPerPixel) {
      point *= 4;
    }
    const std::int64_t leftPixel = static_cast<std::int64_t>(viewLeft / samplesPerPixel);
    for (std::int64_t x = 0; x < 50; x += 7) {
      // Samples whose pixel this is.
      std::int64_t begin =
          static_cast<std::int64_t>(std::ceil(static_cast<double>(leftPixel + x) * samplesPerPixel));
      std::int64_t end =
          static_cast<std::int64_t>(std::ceil(static_cast<double>(leftPixel + x + 1) * samplesPerPixel));
      begin = std::clamp<std::int64_t>(begin, 0, kFrames);
      end = std::clamp<std::int64_t>(end, 0, kFrames);
      PeakPoint expected;
      if (begin < end) {
        expected = PointOfSamples(*mSource, 1, begin / point * point,
                                  std::min((end + point - 1) / point * point, kFrames));
      }
      const auto slot = static_cast<std::size_t>((50 + x) * 2);
      EXPECT_EQ(data->GetWaveformBuffer()[slot], expected.maximum)
          << viewLeft << " " << samplesPerPixel << " " << x;
      EXPECT_EQ(data->GetWaveformBuffer()[slot + 1], expected.minimum);
    }
  }
}

TEST_F(QueryPyramidTest, ColumnsStayTheSameWhileTheViewScrollsWithinAPixel) {
  for (const double samplesPerPixel : {3.7, 63.9, 64.0, 100.3, 5000.7}) {
    const auto start = QueryWaveform(*mPyramid, &mWindow, samplesPerPixel * 10, samplesPerPixel, 100);
    for (const double part : {0.1, 0.5, 0.99}) {
      ExpectSameData(*QueryWaveform(*mPyramid, &mWindow, samplesPerPixel * (10 + part), samplesPerPixel, 100),
                     *start);
    }
    const auto next = QueryWaveform(*mPyramid, &mWindow, samplesPerPixel * 11.01, samplesPerPixel, 100);
    EXPECT_TRUE(std::equal(next->GetWaveformBuffer().begin(), next->GetWaveformBuffer().begin() + 198,
                           start->GetWaveformBuffer().begin() + 2));
  }
}

TEST_F(QueryPyramidTest, WithoutSamplesTheFinestPointsStandForThem) {
  const auto data = QueryWaveform(*mPyramid, nullptr, 6400.0, 0.5, 256);
  ASSERT_EQ(data->GetType(), WaveformDataType::kPeaks);
  const PeakPoint point = mPyramid->GetPoint(0, 0, 100);
  EXPECT_EQ(data->GetWaveformBuffer()[20], point.maximum);
  EXPECT_EQ(data->GetWaveformBuffer()[21], point.minimum);
}

TEST_F(QueryPyramidTest, FallsBackToPointsWhenSamplesCannotBeRead) {
  const auto gate = std::make_shared<GatedSource>(mSource);
  gate->OpenUpTo(kFrames);
  gate->FailFrom(0);
  SampleWindow broken(gate);
  ExpectSameData(*QueryWaveform(*mPyramid, &broken, 6400.0, 0.5, 256),
                 *QueryWaveform(*mPyramid, nullptr, 6400.0, 0.5, 256));
  EXPECT_EQ(broken.GetProblem(), "broken");
}

TEST_F(QueryPyramidTest, ScrollingReadsOnlyWhatIsNew) {
  const auto gate = std::make_shared<GatedSource>(mSource);
  gate->OpenUpTo(kFrames);
  SampleWindow window(gate);
  QueryWaveform(*mPyramid, &window, 1000.0, 10.0, 1000);
  const int first = gate->GetReadings();
  QueryWaveform(*mPyramid, &window, 1010.0, 10.0, 1000);
  EXPECT_EQ(gate->GetReadings(), first);
  gate->FailFrom(0);
  QueryWaveform(*mPyramid, &window, 1020.0, 10.0, 1000);
  EXPECT_EQ(window.GetProblem(), "");
}

// Views that jump, creep and change their zoom, all through one window.
TEST_F(QueryPyramidTest, GivesTheSameWhereverTheWindowWasBefore) {
  std::mt19937_64 random(6);
  std::uniform_real_distribution<double> anywhere(-5000.0, kFrames + 1000.0);
  std::uniform_real_distribution<double> nearby(-900.0, 900.0);
  std::uniform_real_distribution<double> zoom(-2.0, 5.99);
  double viewLeft = 0.0;
  double samplesPerPixel = 1.0;
  for (int i = 0; i < 600; ++i) {
    viewLeft = i % 40 == 0 ? anywhere(random) : viewLeft + nearby(random) * samplesPerPixel;
    samplesPerPixel = i % 7 == 0 ? std::exp2(zoom(random)) : samplesPerPixel;
    SCOPED_TRACE(::testing::Message() << viewLeft << " at " << samplesPerPixel);
    SampleWindow fresh(mSource);
    ExpectSameData(*QueryWaveform(*mPyramid, &mWindow, viewLeft, samplesPerPixel, 700),
                   *QueryWaveform(*mPyramid, &fresh, viewLeft, samplesPerPixel, 700));
    EXPECT_EQ(QueryColumnLevels(*mPyramid, &mWindow, viewLeft, samplesPerPixel, 300).rms,
              QueryColumnLevels(*mPyramid, &fresh, viewLeft, samplesPerPixel, 300).rms);
  }
}

TEST_F(QueryPyramidTest, KeepsWhatItHasWhenMoreCannotBeRead) {
  const auto gate = std::make_shared<GatedSource>(mSource);
  gate->OpenUpTo(kFrames);
  SampleWindow window(gate);
  const auto before = QueryWaveform(*mPyramid, &window, 100'000.0, 10.0, 1000);
  gate->FailFrom(0);
  QueryWaveform(*mPyramid, &window, 95'000.0, 10.0, 1000);
  EXPECT_EQ(window.GetProblem(), "broken");
  QueryWaveform(*mPyramid, &window, 105'000.0, 10.0, 1000);
  EXPECT_EQ(window.GetProblem(), "broken");
  ExpectSameData(*QueryWaveform(*mPyramid, &window, 100'000.0, 10.0, 1000), *before);
  EXPECT_EQ(window.GetProblem(), "");
}

TEST_F(QueryPyramidTest, GivesRmsAndClippingOfColumnsOfSamples) {
  const ColumnLevels levels = QueryColumnLevels(*mPyramid, &mWindow, 5000.0, 20.0, 100);
  ASSERT_EQ(levels.slots, 100U);
  ASSERT_EQ(levels.rms.size(), 200U);
  for (std::int64_t x = 0; x < 100; x += 9) {
    const PeakPoint expected = PointOfSamples(*mSource, 1, 5000 + x * 20, 5020 + x * 20);
    const auto slot = static_cast<std::size_t>(100 + x);
    EXPECT_NEAR(levels.rms[slot], expected.rms, 1e-5F);
    EXPECT_EQ(levels.clipped[slot], expected.clipped ? 1 : 0);
    EXPECT_EQ(levels.known[slot], 1);
  }
}

TEST_F(QueryPyramidTest, GivesRmsAndClippingOfColumnsOfPoints) {
  const ColumnLevels levels = QueryColumnLevels(*mPyramid, nullptr, -4096.0, 4096.0, 200);
  EXPECT_EQ(levels.rms[0], 0.0F);
  EXPECT_EQ(levels.known[0], 1);
  for (std::int64_t x = 1; x < 147; ++x) {
    const PeakPoint expected =
        PointOfSamples(*mSource, 0, (x - 1) * 4096, std::min<std::int64_t>(x * 4096, kFrames));
    EXPECT_NEAR(levels.rms[static_cast<std::size_t>(x)], expected.rms, 0.01F * expected.rms);
  }
  EXPECT_EQ(levels.rms[150], 0.0F);
}

TEST_F(QueryPyramidTest, WhatIsNotReadYetIsSilentAndMarked) {
  const PeakPyramid empty(mPyramid->GetFormat());
  const auto data = QueryWaveform(empty, nullptr, -1000.0, 1000.0, 10);
  EXPECT_TRUE(std::ranges::all_of(data->GetWaveformBuffer(), [](float value) { return value == 0.0F; }));
  const ColumnLevels levels = QueryColumnLevels(empty, nullptr, -1000.0, 1000.0, 10);
  EXPECT_EQ(levels.known[0], 1);
  EXPECT_EQ(levels.known[1], 0);
}

TEST_F(QueryPyramidTest, ViewsThatMeanNothingGiveNothing) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double infinity = std::numeric_limits<double>::infinity();
  for (const auto& [left, zoom, width] : {std::tuple{nan, 1.0, 10},
                                          {0.0, nan, 10},
                                          {infinity, 1.0, 10},
                                          {0.0, 0.0, 10},
                                          {0.0, -1.0, 10},
                                          {0.0, 1.0, 0},
                                          {0.0, 1.0, kWidestView + 1}}) {
    const auto data = QueryWaveform(*mPyramid, &mWindow, left, zoom, width);
    EXPECT_EQ(data->GetType(), WaveformDataType::kNone);
    EXPECT_EQ(data->GetChannelCount(), 2U);
    EXPECT_EQ(QueryColumnLevels(*mPyramid, &mWindow, left, zoom, width).slots, 0U);
  }
}

TEST_F(QueryPyramidTest, ExtremeViewsAreHarmless) {
  for (const double left : {-1e308, -9e18, 0.0, 9e18, 1e308}) {
    for (const double zoom : {1e-300, 1e-9, 1.0, 1e9, 1e300}) {
      EXPECT_NE(QueryWaveform(*mPyramid, &mWindow, left, zoom, 20)->GetType(), WaveformDataType::kNone);
      EXPECT_EQ(QueryColumnLevels(*mPyramid, &mWindow, left, zoom, 20).slots, 20U);
    }
  }
}

// A day at 192 kHz: a click is in its column at each zoom from the whole to single samples and back.
TEST(QueryPyramid, ZoomsInAndOutOfADayExactly) {
  const std::int64_t frames = 86400LL * 192000 + 1;
  const std::vector<std::int64_t> places{3, (1LL << 33) + 12345, frames - 1};
  const auto source = std::make_shared<SparseSource>(
      SampleSourceProperties{.frames = frames, .sampleRate = 192000, .channelCount = 1},
      SparseSource::Clicks{{places[0], 0.5F}, {places[1], 0.5F}, {places[2], 0.5F}});
  const auto pyramid = BuildPyramid(*source);
  SampleWindow window(source);
  constexpr int kWidth = 1001;
  const auto expectClick = [&](std::int64_t place, double samplesPerPixel) {
    SCOPED_TRACE(::testing::Message() << place << " at " << samplesPerPixel);
    const double viewLeft =
        (std::trunc(static_cast<double>(place) / samplesPerPixel) - 500) * samplesPerPixel;
    const auto data = QueryWaveform(*pyramid, &window, viewLeft, samplesPerPixel, kWidth,
                                    {.detail = WaveformDetail::kPeaks, .joinColumns = false});
    const auto column = static_cast<std::int64_t>(static_cast<double>(place) / samplesPerPixel) -
                        static_cast<std::int64_t>(viewLeft / samplesPerPixel);
    int found = 0;
    for (int x = 0; x < kWidth; ++x) {
      const float maximum = data->GetWaveformBuffer()[static_cast<std::size_t>(x) * 2];
      if (std::abs(x - column) > 1 && samplesPerPixel < 1e6 && samplesPerPixel >= 1.0) {
        EXPECT_EQ(maximum, 0.0F) << x;
      }
      found += x == column && maximum == 0.5F ? 1 : 0;
    }
    EXPECT_EQ(found, 1);
  };
  for (const std::int64_t place : places) {
    for (double samplesPerPixel = static_cast<double>(frames) / kWidth; samplesPerPixel > 0.2;
         samplesPerPixel /= 3.1) {
      expectClick(place, samplesPerPixel);
    }
    for (double samplesPerPixel = 0.25; samplesPerPixel < static_cast<double>(frames);
         samplesPerPixel *= 2.7) {
      expectClick(place, samplesPerPixel);
    }
  }
}

}  // namespace
}  // namespace moxaudiotoolkit::waveform
