#include "ViewColumns.h"

#include <moxaudiotoolkit/DecodedAudio.h>
#include <moxaudiotoolkit/waveform/QueryWaveform.h>

#include <algorithm>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace moxaudiotoolkit::waveform {
namespace {

std::shared_ptr<WaveformData> QueryPeaks(const DecodedAudio& audio, double viewLeft, double samplesPerPixel,
                                         int pixelWidth, bool joinColumns) {
  const std::vector<SampleRange> ranges =
      ColumnRanges(viewLeft, samplesPerPixel, audio.GetFrameCount(), pixelWidth, joinColumns);
  std::vector<float> buffer;
  buffer.reserve(audio.GetChannelCount() * ranges.size() * 2);
  for (std::size_t channel = 0; channel < audio.GetChannelCount(); ++channel) {
    for (const SampleRange& range : ranges) {
      const PeakPair peaks = audio.GetPeaks(channel, range.begin, range.end);
      buffer.push_back(peaks.maximum);
      buffer.push_back(peaks.minimum);
    }
  }
  return std::make_shared<WaveformData>(WaveformDataProperties{.type = WaveformDataType::kPeaks,
                                                               .dataSlots = ranges.size(),
                                                               .channelCount = audio.GetChannelCount()},
                                        std::move(buffer));
}

std::shared_ptr<WaveformData> QuerySamples(const DecodedAudio& audio, double viewLeft, std::size_t visible) {
  const std::size_t slots = kLeadInSamples + visible + kLeadOutSamples;
  std::vector<float> buffer(audio.GetChannelCount() * slots);
  if (const auto first = FirstSampleOfData(viewLeft)) {
    const std::int64_t start = *first;
    const std::int64_t begin = std::clamp<std::int64_t>(start, 0, audio.GetFrameCount());
    const std::int64_t end =
        std::clamp<std::int64_t>(start + static_cast<std::int64_t>(slots), begin, audio.GetFrameCount());
    for (std::size_t channel = 0; begin < end && channel < audio.GetChannelCount(); ++channel) {
      const std::span<const float> samples = audio.GetSamples(channel).subspan(
          static_cast<std::size_t>(begin), static_cast<std::size_t>(end - begin));
      std::ranges::copy(samples,
                        buffer.begin() + static_cast<std::ptrdiff_t>(channel * slots) + (begin - start));
    }
  }
  return std::make_shared<WaveformData>(
      WaveformDataProperties{
          .type = WaveformDataType::kSamples, .dataSlots = slots, .channelCount = audio.GetChannelCount()},
      std::move(buffer));
}

}  // namespace

std::shared_ptr<WaveformData> QueryWaveform(const DecodedAudio& audio, double viewLeft,
                                            double samplesPerPixel, int pixelWidth,
                                            const WaveformQueryOptions& options) {
  if (!IsMeaningful(viewLeft, samplesPerPixel, pixelWidth)) {
    return NoWaveform(audio.GetChannelCount());
  }
  if (WantsSamples(options, samplesPerPixel)) {
    if (const auto visible = VisibleSamples(samplesPerPixel, pixelWidth)) {
      return QuerySamples(audio, viewLeft, *visible);
    }
  }
  return QueryPeaks(audio, viewLeft, samplesPerPixel, pixelWidth, options.joinColumns);
}

std::shared_ptr<WaveformData> QueryWaveform(const std::shared_ptr<const DecodedAudio>& audio, double viewLeft,
                                            double samplesPerPixel, int pixelWidth,
                                            const WaveformQueryOptions& options) {
  return audio ? QueryWaveform(*audio, viewLeft, samplesPerPixel, pixelWidth, options) : NoWaveform(0);
}

}  // namespace moxaudiotoolkit::waveform
