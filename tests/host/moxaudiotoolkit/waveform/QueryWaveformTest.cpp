#include <moxaudiotoolkit/DecodedAudio.h>
#include <moxaudiotoolkit/waveform/QueryWaveform.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <random>
#include <vector>

namespace moxaudiotoolkit::waveform {
namespace {

using Channels = std::vector<std::vector<float>>;

constexpr WaveformQueryOptions kApart{.detail = WaveformDetail::kPeaks, .joinColumns = false};
constexpr WaveformQueryOptions kJoined{.detail = WaveformDetail::kPeaks, .joinColumns = true};

DecodedAudio RandomAudio(std::size_t channelCount, std::size_t frames, unsigned seed) {
  std::mt19937 random(seed);
  std::uniform_real_distribution<float> sample(-1.0F, 1.0F);
  Channels channels(channelCount, std::vector<float>(frames));
  for (std::vector<float>& samples : channels) {
    std::ranges::generate(samples, [&] { return sample(random); });
  }
  return DecodedAudio(48000, channels);
}

// The samples 1, 2, 3 and so on, as fractions of 1000.
DecodedAudio Ramp(std::size_t frames) {
  std::vector<float> samples(frames);
  for (std::size_t i = 0; i < frames; ++i) {
    samples[i] = static_cast<float>(i + 1) / 1000.0F;
  }
  return DecodedAudio(48000, {samples});
}

PeakPair PairAt(const WaveformData& data, std::size_t channel, std::size_t column) {
  const float* pair = data.GetWaveformBuffer().data() + (channel * data.GetDataSlots() + column) * 2;
  return {.maximum = pair[0], .minimum = pair[1]};
}

PeakPair Range(float minimum, float maximum) {
  return {.maximum = maximum, .minimum = minimum};
}

// What each column shows, found by asking every sample for its pixel.
std::vector<PeakPair> ColumnsSampleBySample(std::span<const float> samples, double viewLeft, double spp,
                                            int width, bool join) {
  std::vector<std::optional<PeakPair>> columns(static_cast<std::size_t>(width));
  const auto add = [&](std::int64_t column, float sample) {
    if (column >= 0 && column < width) {
      std::optional<PeakPair>& pair = columns[static_cast<std::size_t>(column)];
      pair = pair ? Range(std::min(pair->minimum, sample), std::max(pair->maximum, sample))
                  : Range(sample, sample);
    }
  };
  const auto left = static_cast<std::int64_t>(viewLeft / spp);
  std::int64_t before = std::numeric_limits<std::int64_t>::min();
  for (std::size_t s = 0; s < samples.size(); ++s) {
    const std::int64_t column = static_cast<std::int64_t>(static_cast<double>(s) / spp) - left;
    add(column, samples[s]);
    if (join && s > 0 && column != before) {
      add(column - 1, samples[s]);
    }
    before = column;
  }
  std::vector<PeakPair> pairs;
  for (const auto& column : columns) {
    pairs.push_back(column.value_or(PeakPair{}));
  }
  return pairs;
}

TEST(QueryWaveform, GivesPeaksInChannelsOfPairs) {
  const DecodedAudio audio(48000, {{0.1F, 0.2F, 0.3F, 0.4F}, {-0.1F, -0.2F, -0.3F, -0.4F}});
  const auto data = QueryWaveform(audio, 0.0, 2.0, 2, kApart);
  EXPECT_EQ(data->GetProperties(), (WaveformDataProperties{WaveformDataType::kPeaks, 2, 2}));
  EXPECT_EQ(data->GetWaveformBuffer(),
            (std::vector<float>{0.2F, 0.1F, 0.4F, 0.3F, -0.1F, -0.2F, -0.3F, -0.4F}));
}

TEST(QueryWaveform, JoinedColumnsTakeInTheFirstSampleOfTheNext) {
  const DecodedAudio audio(48000, {{0.1F, 0.2F, 0.3F, 0.4F}});
  const auto data = QueryWaveform(audio, 0.0, 2.0, 3, kJoined);
  EXPECT_EQ(data->GetWaveformBuffer(), (std::vector<float>{0.3F, 0.1F, 0.4F, 0.3F, 0.0F, 0.0F}));
}

TEST(QueryWaveform, IsExactForRandomViews) {
  const DecodedAudio audio = RandomAudio(2, 20011, 1);
  std::mt19937 random(2);
  std::uniform_real_distribution<double> left(-3000.0, 23000.0);
  std::uniform_real_distribution<double> zoom(0.0, 10.0);
  std::uniform_int_distribution<int> width(1, 300);
  for (int i = 0; i < 400; ++i) {
    const double viewLeft = i % 3 == 0 ? std::floor(left(random)) : left(random);
    const double power = std::exp2(zoom(random));
    const double spp = i % 2 == 0 ? std::max(1.0, std::floor(power)) : power;
    const int columns = width(random);
    const bool join = i % 5 < 3;
    const auto data = QueryWaveform(audio, viewLeft, spp, columns, join ? kJoined : kApart);
    ASSERT_EQ(data->GetProperties(),
              (WaveformDataProperties{WaveformDataType::kPeaks, static_cast<std::size_t>(columns), 2}));
    for (std::size_t c = 0; c < 2; ++c) {
      const auto expected = ColumnsSampleBySample(audio.GetSamples(c), viewLeft, spp, columns, join);
      for (std::size_t x = 0; x < expected.size(); ++x) {
        ASSERT_EQ(PairAt(*data, c, x), expected[x])
            << "column " << x << " of " << columns << ", left " << viewLeft << ", zoom " << spp;
      }
    }
  }
}

// 0.1 and its like aren't exact in binary: product and quotient round apart.
TEST(QueryWaveform, AgreesWithThePixelOfEverySampleWhereRoundingIsTight) {
  const DecodedAudio audio = RandomAudio(1, 5000, 3);
  for (const double spp : {1.1, 1.3, 1.7, 2.1, 3.3, 4.9, 7.7, 10.1, 49.0 / 3.0, 1.0 / 0.3}) {
    for (int k = 0; k < 200; k += 7) {
      const double viewLeft = k * spp;
      const auto data = QueryWaveform(audio, viewLeft, spp, 100, kApart);
      const auto expected = ColumnsSampleBySample(audio.GetSamples(0), viewLeft, spp, 100, false);
      for (std::size_t x = 0; x < expected.size(); ++x) {
        ASSERT_EQ(PairAt(*data, 0, x), expected[x])
            << "column " << x << ", left " << viewLeft << ", zoom " << spp;
      }
    }
  }
}

TEST(QueryWaveform, ColumnsKeepTheirSamplesWhileTheViewScrollsWithinAPixel) {
  const DecodedAudio audio = RandomAudio(1, 20000, 4);
  const auto still = QueryWaveform(audio, 5000.0, 100.0, 80);
  EXPECT_EQ(QueryWaveform(audio, 5000.1, 100.0, 80)->GetWaveformBuffer(), still->GetWaveformBuffer());
  EXPECT_EQ(QueryWaveform(audio, 5099.9, 100.0, 80)->GetWaveformBuffer(), still->GetWaveformBuffer());
  const auto scrolled = QueryWaveform(audio, 5100.0, 100.0, 80);
  for (std::size_t x = 0; x + 1 < 80; ++x) {
    EXPECT_EQ(PairAt(*scrolled, 0, x), PairAt(*still, 0, x + 1)) << x;
  }
}

TEST(QueryWaveform, TheLastColumnOfAFileHoldsWhatIsLeft) {
  const auto data = QueryWaveform(Ramp(10), 0.0, 4.0, 4, kApart);
  EXPECT_EQ(PairAt(*data, 0, 2), Range(0.009F, 0.010F));
  EXPECT_EQ(PairAt(*data, 0, 3), PeakPair{});
}

TEST(QueryWaveform, IsSilentOutsideTheAudio) {
  const DecodedAudio audio = Ramp(100);
  for (const double viewLeft : {-1e6, 1e6, 100.0, -250.0}) {
    const auto data = QueryWaveform(audio, viewLeft, 10.0, 20);
    EXPECT_EQ(data->GetWaveformBuffer(), std::vector<float>(40)) << viewLeft;
  }
}

TEST(QueryWaveform, APixelReachesOverZeroInBothDirections) {
  // Both -9 and 9 are cut to pixel 0 at ten samples a pixel: a view that starts at -9 starts with sample 0.
  const auto data = QueryWaveform(Ramp(100), -9.0, 10.0, 3, kApart);
  EXPECT_EQ(PairAt(*data, 0, 0), Range(0.001F, 0.010F));
  const auto further = QueryWaveform(Ramp(100), -10.0, 10.0, 3, kApart);
  EXPECT_EQ(PairAt(*further, 0, 0), PeakPair{});
  EXPECT_EQ(PairAt(*further, 0, 1), Range(0.001F, 0.010F));
}

TEST(QueryWaveform, TheWholeOfTheAudioFitsOnePixel) {
  const auto data = QueryWaveform(Ramp(900), 0.0, 1e9, 2);
  EXPECT_EQ(PairAt(*data, 0, 0), Range(0.001F, 0.9F));
  EXPECT_EQ(PairAt(*data, 0, 1), PeakPair{});
}

TEST(QueryWaveform, PeaksBelowOneSamplePerPixelHoldTheSampleBefore) {
  const auto data = QueryWaveform(Ramp(3), 0.0, 0.5, 8, kApart);
  for (std::size_t x = 0; x < 6; ++x) {
    const std::size_t number = x / 2 + 1;
    const float sample = static_cast<float>(number) / 1000.0F;
    EXPECT_EQ(PairAt(*data, 0, x), Range(sample, sample)) << x;
  }
  EXPECT_EQ(PairAt(*data, 0, 6), PeakPair{});
}

TEST(QueryWaveform, GivesSamplesBelowOneSamplePerPixel) {
  const DecodedAudio audio = RandomAudio(1, 1000, 5);
  EXPECT_EQ(QueryWaveform(audio, 0.0, 0.999, 10)->GetType(), WaveformDataType::kSamples);
  EXPECT_EQ(QueryWaveform(audio, 0.0, 1.0, 10)->GetType(), WaveformDataType::kPeaks);
}

TEST(QueryWaveform, CallerChoosesTheDetail) {
  const DecodedAudio audio = RandomAudio(1, 1000, 6);
  EXPECT_EQ(QueryWaveform(audio, 0, 3.0, 10, {.samplesBelow = 4.0})->GetType(), WaveformDataType::kSamples);
  EXPECT_EQ(QueryWaveform(audio, 0, 4.0, 10, {.samplesBelow = 4.0})->GetType(), WaveformDataType::kPeaks);
  EXPECT_EQ(QueryWaveform(audio, 0, 0.5, 10, kJoined)->GetType(), WaveformDataType::kPeaks);
  EXPECT_EQ(QueryWaveform(audio, 0, 50.0, 10, {.detail = WaveformDetail::kSamples})->GetType(),
            WaveformDataType::kSamples);
}

TEST(QueryWaveform, FallsBackToPeaksWhereSamplesAreTooMany) {
  const auto data = QueryWaveform(Ramp(100), 0, 1e6, 1000, {.detail = WaveformDetail::kSamples});
  EXPECT_EQ(data->GetType(), WaveformDataType::kPeaks);
}

TEST(QueryWaveform, ViewsThatMeanNothingGiveNothing) {
  const auto audio = std::make_shared<const DecodedAudio>(RandomAudio(3, 100, 7));
  const double infinity = std::numeric_limits<double>::infinity();
  const double notANumber = std::numeric_limits<double>::quiet_NaN();
  const WaveformDataProperties nothing{WaveformDataType::kNone, 0, 3};
  for (const double bad : {notANumber, infinity, -infinity}) {
    EXPECT_EQ(QueryWaveform(audio, bad, 1.0, 10)->GetProperties(), nothing);
    EXPECT_EQ(QueryWaveform(audio, 0.0, bad, 10)->GetProperties(), nothing);
  }
  for (const double bad : {0.0, -0.0, -1.0, -1e300}) {
    EXPECT_EQ(QueryWaveform(audio, 0.0, bad, 10)->GetProperties(), nothing) << bad;
  }
  for (const int bad :
       {0, -1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max(), kWidestView + 1}) {
    EXPECT_EQ(QueryWaveform(audio, 0.0, 1.0, bad)->GetProperties(), nothing) << bad;
  }
  EXPECT_EQ(QueryWaveform(std::shared_ptr<const DecodedAudio>(), 0.0, 1.0, 10)->GetProperties(),
            WaveformDataProperties());
}

TEST(QueryWaveform, AudioWithoutChannelsOrFramesIsSilent) {
  EXPECT_EQ(QueryWaveform(DecodedAudio(48000, {}), 0.0, 10.0, 5)->GetProperties(),
            (WaveformDataProperties{WaveformDataType::kPeaks, 5, 0}));
  EXPECT_EQ(QueryWaveform(DecodedAudio(48000, Channels(1)), 0.0, 10.0, 5)->GetWaveformBuffer(),
            std::vector<float>(10));
  const auto samples = QueryWaveform(DecodedAudio(48000, Channels(1)), 0.0, 0.5, 5);
  EXPECT_EQ(samples->GetWaveformBuffer(), std::vector<float>(samples->GetDataSlots()));
}

TEST(QueryWaveform, ExtremeViewsAreSilentAndHarmless) {
  const DecodedAudio audio = RandomAudio(1, 1000, 8);
  const double huge = std::numeric_limits<double>::max();
  const double tiny = std::numeric_limits<double>::denorm_min();
  for (const double viewLeft : {huge, -huge, 1e19, -1e19, 9.3e18, 4.6e18, -4.6e18, 2.3e18, -2.3e18}) {
    for (const double spp : {tiny, 1e-300, 0.5, 1.0, 1000.0}) {
      for (const auto detail : {WaveformDetail::kPeaks, WaveformDetail::kSamples}) {
        const auto data = QueryWaveform(audio, viewLeft, spp, 16, {.detail = detail});
        EXPECT_EQ(data->GetWaveformBuffer(), std::vector<float>(data->GetWaveformBuffer().size()))
            << viewLeft << ", " << spp;
      }
    }
  }
  EXPECT_EQ(PairAt(*QueryWaveform(audio, huge, huge, 2, kJoined), 0, 0), PeakPair{});
  EXPECT_EQ(PairAt(*QueryWaveform(audio, 0.0, huge, 2, kJoined), 0, 0), audio.GetPeaks(0, 0, 1000));
  EXPECT_EQ(PairAt(*QueryWaveform(audio, 0.0, tiny, 2, kApart), 0, 1), audio.GetPeaks(0, 0, 1));
}

}  // namespace
}  // namespace moxaudiotoolkit::waveform
