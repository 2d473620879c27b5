#include "playback/StereoMix.h"

#include <algorithm>
#include <numbers>

namespace playground {
namespace {

constexpr StereoGain kLeft{1.0f, 0.0f};
constexpr StereoGain kRight{0.0f, 1.0f};
constexpr float kHalfPower = std::numbers::sqrt2_v<float> / 2.0f;
constexpr StereoGain kCentre{kHalfPower, kHalfPower};
constexpr StereoGain kLeftSurround{kHalfPower, 0.0f};
constexpr StereoGain kRightSurround{0.0f, kHalfPower};
constexpr StereoGain kLowFrequency{0.0f, 0.0f};

std::vector<StereoGain> Unscaled(std::size_t channelCount) {
  switch (channelCount) {
    case 1:
      return {{1.0f, 1.0f}};
    case 2:
      return {kLeft, kRight};
    case 3:
      return {kLeft, kRight, kCentre};
    case 4:
      return {kLeft, kRight, kLeftSurround, kRightSurround};
    case 5:
      return {kLeft, kRight, kCentre, kLeftSurround, kRightSurround};
    case 6:
      return {kLeft, kRight, kCentre, kLowFrequency, kLeftSurround, kRightSurround};
    case 8:
      return {kLeft,         kRight,         kCentre,       kLowFrequency,
              kLeftSurround, kRightSurround, kLeftSurround, kRightSurround};
    default:
      break;
  }
  std::vector<StereoGain> gains(channelCount, kLeft);
  for (std::size_t channel = 1; channel < channelCount; channel += 2) {
    gains[channel] = kRight;
  }
  return gains;
}

}  // namespace

std::vector<StereoGain> StereoMix(std::size_t channelCount, std::vector<bool> const& enabled) {
  std::vector<StereoGain> gains = Unscaled(channelCount);
  StereoGain sum;
  for (StereoGain const& gain : gains) {
    sum.left += gain.left;
    sum.right += gain.right;
  }
  float const scale = 1.0f / std::max({sum.left, sum.right, 1.0f});
  for (std::size_t channel = 0; channel < channelCount; ++channel) {
    // The others stay as loud as they were.
    bool const isHeard = channel >= enabled.size() || enabled[channel];
    gains[channel] =
        isHeard ? StereoGain{gains[channel].left * scale, gains[channel].right * scale} : StereoGain{};
  }
  return gains;
}

void FoldToStereo(std::span<float const> frames, std::span<StereoGain const> gains, std::span<float> pairs) {
  std::size_t const channelCount = gains.size();
  for (std::size_t frame = 0; frame * 2 < pairs.size(); ++frame) {
    float left = 0.0f;
    float right = 0.0f;
    for (std::size_t channel = 0; channel < channelCount; ++channel) {
      float const sample = frames[frame * channelCount + channel];
      left += sample * gains[channel].left;
      right += sample * gains[channel].right;
    }
    pairs[frame * 2] = left;
    pairs[frame * 2 + 1] = right;
  }
}

}  // namespace playground
