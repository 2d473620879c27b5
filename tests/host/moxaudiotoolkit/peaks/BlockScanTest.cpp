#include "../../../../host/moxaudiotoolkit/src/peaks/BlockScan.h"

#include <gtest/gtest.h>

#include <random>
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

      std::vector<float> minima(channelCount, 9.0F);
      std::vector<float> maxima(channelCount, -9.0F);
      std::vector<float> plainMinima = minima;
      std::vector<float> plainMaxima = maxima;
      WidenByFrames(floats, channelCount, minima.data(), maxima.data());
      portable::WidenByFrames(floats, channelCount, plainMinima.data(), plainMaxima.data());
      EXPECT_EQ(minima, plainMinima);
      EXPECT_EQ(maxima, plainMaxima);
    }
  }
}

}  // namespace
}  // namespace moxaudiotoolkit
