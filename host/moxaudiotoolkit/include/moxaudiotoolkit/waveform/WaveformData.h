#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace moxaudiotoolkit::waveform {

enum class WaveformDataType : std::int32_t {
  kNone = 0,     // nothing to draw
  kSamples = 1,  // raw samples, for zooms at which single samples can be told apart
  kPeaks = 2,    // a pair (maximum, minimum) per pixel column
};

// What a WaveformData holds: its type, the data slots of each channel and the number of channels.
struct WaveformDataProperties {
  WaveformDataType type = WaveformDataType::kNone;
  std::size_t dataSlots = 0;
  std::size_t channelCount = 0;

  bool operator==(const WaveformDataProperties&) const = default;
};

// Sample data has this many samples before those of the view and after them, for interpolation.
inline constexpr std::size_t kLeadInSamples = 21;
inline constexpr std::size_t kLeadOutSamples = 22;

// The piece of multi-channel audio that one picture shows, ready to be drawn. Read only after construction,
// so that it can be shared (as a shared_ptr) between whoever fills it and whoever draws it. Full scale
// is 1.0.
//
// Layout of the buffer, with `slots` the data slots of a channel:
//   kPeaks    the pair of channel c, column x stands at (c * slots + x) * 2: the maximum, then the minimum;
//             `slots` is the width of the view in pixels.
//   kSamples  channel c has the run of `slots` floats from c * slots on: 21 samples of lead-in, the samples
//   of
//             the view, 22 samples of lead-out. Index 21 of a run holds the sample at trunc(view left) - 1.
//   kNone     empty; the channel count still tells how many strips a picture has.
class WaveformData {
 public:
  // Nothing to draw: kNone, no slots, no channels.
  WaveformData() = default;
  // Throws std::invalid_argument when the size of `buffer` is not the one that `properties` ask for.
  WaveformData(const WaveformDataProperties& properties, std::vector<float> buffer);

  WaveformDataType GetType() const { return mProperties.type; }
  std::size_t GetChannelCount() const { return mProperties.channelCount; }
  std::size_t GetDataSlots() const { return mProperties.dataSlots; }
  const std::vector<float>& GetWaveformBuffer() const { return mBuffer; }
  const WaveformDataProperties& GetProperties() const { return mProperties; }

 private:
  WaveformDataProperties mProperties;
  std::vector<float> mBuffer;
};

}  // namespace moxaudiotoolkit::waveform
