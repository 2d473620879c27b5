#include "MadeUpSources.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <utility>

namespace moxaudiotoolkit::testing {
namespace {

std::uint64_t Scrambled(std::uint64_t value) {
  value = (value ^ (value >> 30)) * 0xBF58476D1CE4E5B9U;
  value = (value ^ (value >> 27)) * 0x94D049BB133111EBU;
  return value ^ (value >> 31);
}

}  // namespace

NoiseSource::NoiseSource(std::int64_t frames, int channelCount, int integerBits, float loudest)
    : SampleSource(
          {.frames = frames, .sampleRate = 48000, .channelCount = channelCount, .integerBits = integerBits}),
      mLoudest(loudest) {}

float NoiseSource::GetSample(std::int64_t frame, int channel) const {
  const std::uint64_t random =
      Scrambled(static_cast<std::uint64_t>(frame) * 256 + static_cast<std::uint64_t>(channel));
  if (GetProperties().integerBits == 16) {
    return static_cast<float>(static_cast<std::int16_t>(random & 0xFFFF)) / 32768.0F;
  }
  return (static_cast<float>(random >> 40) / 8388608.0F - 1.0F) * mLoudest;
}

void NoiseSource::ReadInterleaved(std::int64_t firstFrame, std::span<float> destination) const {
  const auto channelCount = static_cast<std::size_t>(GetProperties().channelCount);
  for (std::size_t i = 0; i < destination.size(); ++i) {
    destination[i] = GetSample(firstFrame + static_cast<std::int64_t>(i / channelCount),
                               static_cast<int>(i % channelCount));
  }
}

SparseSource::SparseSource(const SampleSourceProperties& properties, Clicks clicks)
    : SampleSource(properties), mClicks(std::move(clicks)) {}

void SparseSource::ReadInterleaved(std::int64_t firstFrame, std::span<float> destination) const {
  const auto channelCount = static_cast<std::size_t>(GetProperties().channelCount);
  const auto frames = static_cast<std::int64_t>(destination.size() / channelCount);
  std::ranges::fill(destination, 0.0F);
  for (auto click = mClicks.lower_bound(firstFrame);
       click != mClicks.end() && click->first < firstFrame + frames; ++click) {
    for (std::size_t channel = 0; channel < channelCount; ++channel) {
      destination[static_cast<std::size_t>(click->first - firstFrame) * channelCount + channel] =
          click->second * static_cast<float>(channel + 1);
    }
  }
}

void SparseSource::ReadPeaks(std::int64_t firstFrame, std::int64_t frameCount,
                             std::span<const PeakRun> runs) const {
  const auto points = static_cast<std::size_t>((frameCount + kSamplesPerPoint - 1) / kSamplesPerPoint);
  for (std::size_t channel = 0; channel < runs.size(); ++channel) {
    const PeakRun& run = runs[channel];
    std::fill_n(run.minimum, points, 0.0F);
    std::fill_n(run.maximum, points, 0.0F);
    std::fill_n(run.sumOfSquares, points, 0.0F);
    for (auto click = mClicks.lower_bound(firstFrame);
         click != mClicks.end() && click->first < firstFrame + frameCount; ++click) {
      const auto point = static_cast<std::size_t>((click->first - firstFrame) / kSamplesPerPoint);
      const float value = click->second * static_cast<float>(channel + 1);
      run.minimum[point] = std::min(run.minimum[point], value);
      run.maximum[point] = std::max(run.maximum[point], value);
      run.sumOfSquares[point] += value * value;
    }
  }
}

GatedSource::GatedSource(std::shared_ptr<const SampleSource> source)
    : SampleSource(source->GetProperties()),
      mSource(std::move(source)),
      mBroken(std::numeric_limits<std::int64_t>::max()) {}

void GatedSource::ReadInterleaved(std::int64_t firstFrame, std::span<float> destination) const {
  ++mReadings;
  mReadings.notify_all();
  const std::int64_t end =
      firstFrame + static_cast<std::int64_t>(destination.size()) / GetProperties().channelCount;
  for (std::int64_t open = mOpen; open < end; open = mOpen) {
    mOpen.wait(open);
  }
  if (end > mBroken) {
    throw std::runtime_error("broken");
  }
  mSource->ReadInterleaved(firstFrame, destination);
}

PeakPoint PointOfSamples(const SampleSource& source, int channel, std::int64_t begin, std::int64_t end) {
  const auto channelCount = static_cast<std::size_t>(source.GetProperties().channelCount);
  std::vector<float> samples(static_cast<std::size_t>(end - begin) * channelCount);
  source.ReadInterleaved(begin, samples);
  PeakPoint point{.minimum = std::numeric_limits<float>::infinity(),
                  .maximum = -std::numeric_limits<float>::infinity(),
                  .known = true};
  double squares = 0.0;
  for (std::size_t i = static_cast<std::size_t>(channel); i < samples.size(); i += channelCount) {
    point.minimum = std::min(point.minimum, samples[i]);
    point.maximum = std::max(point.maximum, samples[i]);
    squares += static_cast<double>(samples[i]) * samples[i];
  }
  point.rms = static_cast<float>(std::sqrt(squares / static_cast<double>(end - begin)));
  point.clipped =
      point.maximum >= GetPeakPyramidFormat(source.GetProperties()).clipLevel || point.minimum <= -1.0F;
  return point;
}

std::unique_ptr<PeakPyramid> BuildPyramid(const SampleSource& source) {
  auto pyramid = std::make_unique<PeakPyramid>(GetPeakPyramidFormat(source.GetProperties()));
  const auto points = static_cast<std::size_t>(PeakPyramid::kPointsPerPage);
  std::vector<float> values(3 * points * pyramid->GetChannelCount());
  std::vector<PeakRun> runs;
  for (std::size_t channel = 0; channel < pyramid->GetChannelCount(); ++channel) {
    float* own = values.data() + 3 * points * channel;
    runs.push_back({.minimum = own, .maximum = own + points, .sumOfSquares = own + 2 * points});
  }
  constexpr std::int64_t kFramesPerPage = PeakPyramid::kPointsPerPage * kSamplesPerPoint;
  for (std::int64_t page = 0; page < pyramid->GetPageCount(); ++page) {
    const std::int64_t first = page * kFramesPerPage;
    source.ReadPeaks(first, std::min(kFramesPerPage, pyramid->GetFrameCount() - first), runs);
    pyramid->SetPage(page, runs);
  }
  return pyramid;
}

}  // namespace moxaudiotoolkit::testing
