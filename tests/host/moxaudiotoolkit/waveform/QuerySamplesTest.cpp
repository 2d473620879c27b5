#include <moxaudiotoolkit/DecodedAudio.h>
#include <moxaudiotoolkit/waveform/QueryWaveform.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <random>
#include <vector>

namespace moxaudiotoolkit::waveform {
namespace {

constexpr WaveformQueryOptions kSamples{.detail = WaveformDetail::kSamples};
constexpr std::int64_t kTaps = 44;  // of the interpolation that draws the curve

// Two channels whose samples tell their position: 1, 2, 3 and so on, and the same below zero.
DecodedAudio Counting(std::size_t frames) {
  std::vector<std::vector<float>> channels(2, std::vector<float>(frames));
  for (std::size_t i = 0; i < frames; ++i) {
    channels[0][i] = static_cast<float>(i + 1);
    channels[1][i] = -channels[0][i];
  }
  return DecodedAudio(48000, channels);
}

float CountingSample(std::int64_t position, std::size_t frames) {
  return position >= 0 && position < static_cast<std::int64_t>(frames) ? static_cast<float>(position + 1)
                                                                       : 0.0F;
}

TEST(QuerySamples, Index21HoldsTheSampleBeforeTheViewsFirst) {
  const auto data = QueryWaveform(Counting(1000), 500.75, 0.25, 100);
  ASSERT_EQ(data->GetType(), WaveformDataType::kSamples);
  ASSERT_EQ(data->GetChannelCount(), 2U);
  const std::vector<float>& buffer = data->GetWaveformBuffer();
  EXPECT_EQ(buffer[21], CountingSample(499, 1000));
  EXPECT_EQ(buffer[0], CountingSample(478, 1000));
  EXPECT_EQ(buffer[data->GetDataSlots() + 21], -CountingSample(499, 1000));
}

TEST(QuerySamples, TheWholeRunFollowsOnAndIsZeroOutsideTheAudio) {
  constexpr std::size_t kFrames = 300;
  const DecodedAudio audio = Counting(kFrames);
  for (const double viewLeft :
       {-1000.0, -100.5, -3.7, -0.5, 0.0, 0.9, 1.0, 21.5, 22.0, 150.3, 290.0, 299.0, 1e6}) {
    const auto data = QueryWaveform(audio, viewLeft, 0.3, 120);
    const auto start = static_cast<std::int64_t>(std::trunc(viewLeft)) - 1 - 21;
    for (std::size_t i = 0; i < data->GetDataSlots(); ++i) {
      const float expected = CountingSample(start + static_cast<std::int64_t>(i), kFrames);
      ASSERT_EQ(data->GetWaveformBuffer()[i], expected) << "index " << i << ", left " << viewLeft;
      ASSERT_EQ(data->GetWaveformBuffer()[data->GetDataSlots() + i], -expected);
    }
  }
}

// The curve has a point on each pixel from 0 to the width; point p interpolates 44 samples from the index
// that is the number of whole samples from the snapped left edge of the view on. Every dot up to the right
// edge stands upon a sample of the run that isn't lead-out.
TEST(QuerySamples, SufficesForEveryPointOfTheCurveAndEveryDot) {
  const DecodedAudio audio = Counting(5000);
  std::mt19937 random(1);
  std::uniform_real_distribution<double> left(0.0, 4000.0);
  std::uniform_real_distribution<double> zoom(-9.0, 4.0);
  std::uniform_int_distribution<int> widths(1, 2000);
  for (int i = 0; i < 2000; ++i) {
    const double viewLeft = i % 4 == 0 ? std::floor(left(random)) : left(random);
    const double spp = i % 3 == 0 ? 1.0 / (1 + i % 40) : std::exp2(zoom(random));
    const int width = widths(random);
    const auto data = QueryWaveform(audio, viewLeft, spp, width, kSamples);
    ASSERT_EQ(data->GetType(), WaveformDataType::kSamples);
    const auto slots = static_cast<std::int64_t>(data->GetDataSlots());
    const double snapped = static_cast<double>(static_cast<std::int64_t>(viewLeft / spp)) * spp;
    const auto base = static_cast<std::int64_t>(std::floor(snapped));
    const auto last =
        static_cast<std::int64_t>(std::floor(static_cast<double>(width) * spp + snapped)) - base;
    ASSERT_LE(last + kTaps, slots) << "left " << viewLeft << ", zoom " << spp << ", width " << width;
    const std::int64_t lastDot = base - 1 + (slots - 43);
    const double halfDot = spp > 1.0 / 21.0 ? std::max(0.5, 1.0 / spp / 6.0) : 3.5;
    ASSERT_GE((static_cast<double>(lastDot + 1) - viewLeft + 0.5) / spp - halfDot, width)
        << "left " << viewLeft << ", zoom " << spp << ", width " << width;
  }
}

TEST(QuerySamples, AskForNoMoreThanAFewSamplesBeyondTheView) {
  const auto data = QueryWaveform(Counting(10), 0.0, 0.5, 1000);
  EXPECT_GE(data->GetDataSlots(), 500U + 43U);
  EXPECT_LE(data->GetDataSlots(), 500U + 43U + 5U);
}

}  // namespace
}  // namespace moxaudiotoolkit::waveform
