#include "SampleWindow.h"
#include "SaturatingConversion.h"

#include <moxcore/config/Errors.h>
#include <moxcore/debug/TypeName.h>
#include <moxmediaui/WaveformDraw.h>

#include <cmath>
#include <typeinfo>

namespace moxmediaui {

namespace {

void RequireWaveform(std::shared_ptr<WaveformData> const& waveform) {
  if (!waveform) {
    moxcore::config::DoThrowNullPtrException(moxcore::debug::GetTypeName(typeid(WaveformData)));
  }
}

}  // namespace

WaveformDraw::WaveformDraw() : mOversampleBuffer(GetOversampleSize(), 0.0f) {}
WaveformDraw::WaveformDraw(WaveformDraw const& other) = default;
WaveformDraw& WaveformDraw::operator=(WaveformDraw const& other) = default;
WaveformDraw::~WaveformDraw() = default;

unsigned int WaveformDraw::GetOversampleSize() {
  return kInterpolationTaps;
}

float WaveformDraw::GetAmplitudeFromPixelOffset(std::uint64_t channel, std::int64_t pixel,
                                                std::shared_ptr<WaveformData> waveform) const {
  if (pixel < 0) {
    return 0.0f;
  }
  RequireWaveform(waveform);
  std::size_t const slots = waveform->GetDataSlots();
  if (channel >= waveform->GetChannelCount() || slots == 0) {
    return 0.0f;
  }
  float const* const data = waveform->GetWaveformBuffer().data();
  if (waveform->GetType() == WaveformDataType::kPeaks) {
    auto const column = static_cast<std::uint64_t>(pixel);
    if (column >= slots) {
      return 0.0f;
    }
    float const* const pair = data + (channel * slots + column) * 2;
    return (std::fabs(pair[0]) + std::fabs(pair[1])) * 0.5f;
  }
  if (waveform->GetType() == WaveformDataType::kSamples) {
    double const position = GetSampleFromPixelPosition(pixel);
    std::int64_t const start =
        SaturatingDifference(TruncateToInt64(position), TruncateToInt64(GetViewLeft()));
    CopySampleWindow(data + channel * slots, slots, start, mOversampleBuffer);
    return static_cast<float>(
        std::fabs(GetInterp(kInterpolationTaps, position - std::floor(position), mOversampleBuffer.data())));
  }
  return 0.0f;
}

bool WaveformDraw::DoDrawWaveform(Scriber* scriber, WaveformDataProperties const& properties,
                                  RectT<int> const& rect, float const* data, int firstColumn, int columnCount,
                                  bool selected, float gain, RectT<int> region, int channelHeight,
                                  int channelStride, float centre) const {
  if (properties.type == WaveformDataType::kPeaks) {
    return DrawWaveformAsPeaks(scriber, properties, rect, data, firstColumn, columnCount, selected, gain,
                               region, channelHeight, channelStride, centre);
  }
  if (properties.type == WaveformDataType::kSamples) {
    return DrawWaveformAsSamples(scriber, properties, rect, data, firstColumn, columnCount, selected, gain,
                                 region, channelHeight, channelStride, centre);
  }
  return false;
}

bool WaveformDraw::DrawsCustomBackground(std::shared_ptr<WaveformData> waveform) const {
  RequireWaveform(waveform);
  return waveform->GetType() == WaveformDataType::kPeaks;
}

}  // namespace moxmediaui
