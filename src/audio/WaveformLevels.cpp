// Gain and fades of WaveformDraw, worked into copies of a waveform's values.
#include "IndexRange.h"
#include "SampleGain.h"
#include "SampleWindow.h"
#include "SaturatingConversion.h"

#include <moxcore/config/Errors.h>
#include <moxcore/debug/TypeName.h>
#include <moxmediaui/WaveformDraw.h>

#include <typeinfo>

namespace moxmediaui {

namespace {

/// Multiplies the values of one channel from `first` on by one factor each, `repeats` values to the factor.
void MultiplyBy(std::vector<float> const& factors, std::size_t first, std::size_t repeats,
                std::vector<float>& values) {
  for (std::size_t i = 0; i < factors.size(); ++i) {
    for (std::size_t j = 0; j < repeats; ++j) {
      values[first + i * repeats + j] *= factors[i];
    }
  }
}

}  // namespace

// For sample data with a selection the frame drops the samples that are made here, so that a selection shows
// no gain at all.
std::tuple<float, std::vector<float>> WaveformDraw::HandleGain(std::shared_ptr<WaveformData> waveform) const {
  if (!waveform) {
    moxcore::config::DoThrowNullPtrException(moxcore::debug::GetTypeName(typeid(WaveformData)));
  }
  if (waveform->GetType() == WaveformDataType::kPeaks) {
    return {GetGain(), {}};
  }
  if (waveform->GetType() != WaveformDataType::kSamples || GetGain() == 1.0f) {
    return {1.0f, {}};
  }
  std::vector<float> samples = waveform->GetWaveformBuffer();
  ApplySampleGain(
      waveform->GetProperties(), [this](int channel) { return IsChannelEnabled(channel); },
      {.viewLeft = GetViewLeft(),
       .left = GetSelectionLeft(),
       .width = GetSelectionWidth(),
       .factor = GetGain()},
      samples);
  return {1.0f, std::move(samples)};
}

void WaveformDraw::HandleFades(WaveformDataProperties const& properties, float exponentialFloor,
                               std::vector<float>& buffer) const {
  bool const isFadeIn = GetFadeType() == FadeType::kIn;
  std::size_t const slots = properties.dataSlots;
  std::size_t valuesPerSlot = 1;
  std::size_t offset = 0;
  std::vector<float> factors;  // the same for all channels
  if (properties.type == WaveformDataType::kPeaks) {
    // Anchored to pixels: the curve runs only across the part of the fade that is in the view.
    std::int64_t const first =
        isFadeIn ? 0 : SaturatingSum(GetPixelPositionFromSample(static_cast<double>(GetFadeStart())), 1);
    std::int64_t const last =
        isFadeIn ? SaturatingDifference(GetPixelPositionFromSample(static_cast<double>(GetFadeEnd())), 1)
                 : static_cast<std::int64_t>(slots) - 1;
    if (first == last) {
      return;
    }
    auto const span = static_cast<float>(SaturatingDifference(last, first));
    IndexRange const columns = FindIndexes(first, last, 0, slots);
    for (std::int64_t column = columns.begin; column < columns.end; ++column) {
      auto const distance = static_cast<float>(SaturatingDifference(column, first));
      factors.push_back(GetFadeValue((isFadeIn ? distance : span - distance) / span, exponentialFloor));
    }
    offset = static_cast<std::size_t>(columns.begin) * 2;
    valuesPerSlot = 2;
  } else if (properties.type == WaveformDataType::kSamples) {
    auto const span = static_cast<float>(SaturatingDifference(GetFadeEnd(), GetFadeStart()));
    std::int64_t const origin = SaturatingDifference(TruncateToInt64(GetViewLeft()), 1);
    IndexRange const faded = FindIndexes(GetFadeStart(), GetFadeEnd(), origin, CountVisibleSamples(slots));
    for (std::int64_t index = faded.begin; index < faded.end; ++index) {
      std::int64_t const position = SaturatingSum(origin, index);
      auto const distance = static_cast<float>(SaturatingDifference(position, GetFadeStart()));
      factors.push_back(GetFadeValue((isFadeIn ? distance : span - distance) / span, exponentialFloor));
    }
    offset = kFirstVisibleSample + static_cast<std::size_t>(faded.begin);
  }
  for (std::size_t channel = 0; channel < properties.channelCount && !factors.empty(); ++channel) {
    if (IsChannelEnabled(static_cast<int>(channel))) {
      MultiplyBy(factors, channel * slots * valuesPerSlot + offset, valuesPerSlot, buffer);
    }
  }
}

}  // namespace moxmediaui
