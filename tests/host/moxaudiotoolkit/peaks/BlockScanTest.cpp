#include "../../../../host/moxaudiotoolkit/src/peaks/BlockScan.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>
#include <span>
#include <vector>

namespace moxaudiotoolkit {
namespace {

constexpr std::size_t kPoints = 12;

// Points of all channels, and the runs that are filled.
struct Points {
  explicit Points(std::size_t channelCount) : values(3 * kPoints * channelCount) {
    for (std::size_t channel = 0; channel < channelCount; ++channel) {
      float* own = values.data() + 3 * kPoints * channel;
      runs.push_back({.minimum = own, .maximum = own + kPoints, .sumOfSquares = own + 2 * kPoints});
    }
  }

  std::vector<float> values;
  std::vector<PeakRun> runs;
};

void ExpectSame(const Points& points, const Points& others) {
  for (std::size_t i = 0; i < points.values.size(); ++i) {
    ASSERT_FLOAT_EQ(points.values[i], others.values[i]) << i;
  }
}

// Processors differ in the registers that are used, and in nothing else.
TEST(BlockScan, IsTheSameWithAndWithoutWideRegisters) {
  std::mt19937 random(3);
  for (std::size_t channelCount = 1; channelCount <= 9; ++channelCount) {
    for (const std::size_t frames : {1U, 63U, 64U, 65U, 200U, 700U}) {
      std::vector<std::int16_t> shorts(frames * channelCount);
      std::vector<float> floats(shorts.size());
      for (std::size_t i = 0; i < shorts.size(); ++i) {
        shorts[i] = static_cast<std::int16_t>(random());
        floats[i] = static_cast<float>(shorts[i]) / 32768.0F;
      }
      Points chosen(channelCount);
      Points plain(channelCount);
      Points ofFloats(channelCount);
      ScanInt16(shorts, chosen.runs, 1);
      portable::ScanInt16(shorts, plain.runs, 1);
      portable::ScanFloats(floats, ofFloats.runs, 1);
      ExpectSame(chosen, plain);
      ExpectSame(plain, ofFloats);
      ScanFloats(floats, chosen.runs, 1);
      ExpectSame(chosen, ofFloats);
    }
  }
}

TEST(BlockScan, ConvertsEveryShortExactly) {
  std::vector<std::int16_t> shorts(65536 + 5);
  for (std::size_t i = 0; i < shorts.size(); ++i) {
    shorts[i] = static_cast<std::int16_t>(i);
  }
  for (auto* const convert : {ConvertInt16, portable::ConvertInt16}) {
    std::vector<float> floats(shorts.size());
    convert(shorts, floats.data());
    for (std::size_t i = 0; i < shorts.size(); ++i) {
      ASSERT_EQ(floats[i], static_cast<float>(shorts[i]) / 32768.0F);
    }
  }
}

// What frames amount to, looked up sample by sample.
struct PlainSums {
  PlainSums(std::span<const float> samples, std::size_t channelCount)
      : minima(channelCount, std::numeric_limits<float>::infinity()),
        maxima(channelCount, -std::numeric_limits<float>::infinity()),
        squares(channelCount) {
    for (std::size_t i = 0; i < samples.size(); ++i) {
      const std::size_t c = i % channelCount;
      minima[c] = std::min(minima[c], samples[i]);
      maxima[c] = std::max(maxima[c], samples[i]);
      squares[c] += static_cast<double>(samples[i]) * samples[i];
    }
  }

  std::vector<float> minima;
  std::vector<float> maxima;
  std::vector<double> squares;
};

using Measuring = void(std::span<const float> samples, std::size_t channelCount, const FrameSums& sums);

void ExpectMeasures(Measuring& measure, std::span<const float> samples, std::size_t channelCount) {
  const PlainSums expected(samples, channelCount);
  std::vector<float> minima(channelCount, 9.0F);
  std::vector<float> maxima(channelCount, 9.0F);
  std::vector<float> squares(channelCount, 9.0F);
  measure(samples, channelCount, {minima.data(), maxima.data(), squares.data()});
  EXPECT_EQ(minima, expected.minima);
  EXPECT_EQ(maxima, expected.maxima);
  for (std::size_t c = 0; c < channelCount; ++c) {
    EXPECT_NEAR(squares[c], expected.squares[c], 1e-5 * expected.squares[c]) << c;
  }
  std::ranges::fill(minima, 9.0F);
  std::ranges::fill(maxima, 9.0F);
  measure(samples, channelCount, {minima.data(), maxima.data(), nullptr});
  EXPECT_EQ(minima, expected.minima);
  EXPECT_EQ(maxima, expected.maxima);
}

// Every number of channels, and every number of frames that vectors leave in another way.
TEST(BlockScan, MeasuresFramesAsSampleBySample) {
  std::mt19937 random(4);
  std::uniform_real_distribution<float> values(-2.0F, 2.0F);
  for (std::size_t channelCount = 1; channelCount <= 33; ++channelCount) {
    for (std::size_t frames = 0; frames <= 70; ++frames) {
      SCOPED_TRACE(::testing::Message() << channelCount << " channels, " << frames << " frames");
      std::vector<float> samples(frames * channelCount);
      std::ranges::generate(samples, [&] { return values(random); });
      ExpectMeasures(MeasureFrames, samples, channelCount);
      ExpectMeasures(portable::MeasureFrames, samples, channelCount);
    }
  }
}

}  // namespace
}  // namespace moxaudiotoolkit
