#include <moxaudiotoolkit/waveform/WaveformData.h>

#include <limits>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

namespace moxaudiotoolkit::waveform {
namespace {

std::optional<std::size_t> Product(std::size_t a, std::size_t b) {
  if (b != 0 && a > std::numeric_limits<std::size_t>::max() / b) {
    return std::nullopt;
  }
  return a * b;
}

// The number of floats that the properties ask for; nothing when no memory could hold them.
std::optional<std::size_t> BufferSize(const WaveformDataProperties& properties) {
  std::size_t floatsPerSlot = 0;
  switch (properties.type) {
    case WaveformDataType::kNone:
      return 0;
    case WaveformDataType::kSamples:
      floatsPerSlot = 1;
      break;
    case WaveformDataType::kPeaks:
      floatsPerSlot = 2;
      break;
    default:
      throw std::invalid_argument("Waveform data of unknown type " +
                                  std::to_string(static_cast<int>(properties.type)));
  }
  const auto slots = Product(properties.channelCount, properties.dataSlots);
  return slots ? Product(*slots, floatsPerSlot) : std::nullopt;
}

}  // namespace

WaveformData::WaveformData(const WaveformDataProperties& properties, std::vector<float> buffer)
    : mProperties(properties), mBuffer(std::move(buffer)) {
  const auto size = BufferSize(mProperties);
  if (!size || *size != mBuffer.size()) {
    throw std::invalid_argument("Waveform data of " + std::to_string(mProperties.channelCount) +
                                " channels with " + std::to_string(mProperties.dataSlots) + " slots takes " +
                                (size ? std::to_string(*size) : "more than all") + " floats, not " +
                                std::to_string(mBuffer.size()));
  }
}

}  // namespace moxaudiotoolkit::waveform
