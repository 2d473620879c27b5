#include "SaturatingConversion.h"

#include <moxmediaui/AudioDataDrawBase.h>
#include <moxui/scriber/ColorConversion.h>

#include <algorithm>

namespace moxmediaui {

namespace {

constexpr ColorRGBA kDisabledChannelColor{0.5f, 0.5f, 0.5f, 1.0f};
constexpr ColorRGBA kBuiltInChannelColor{0.294f, 0.953f, 0.655f, 1.0f};
constexpr int kTallestStripWithoutGrid = 7;

bool IsNearlyEqual(double a, double b) {
  if (a == b) {
    return true;
  }
  double high = std::max(a, b);
  double low = std::min(a, b);
  if (high < 0.0) {
    double const negatedLow = -low;
    low = -high;
    high = negatedLow;
  }
  return high * 1e-12 > high - low;
}

}  // namespace

AudioDataDrawBase::AudioDataDrawBase() = default;
AudioDataDrawBase::AudioDataDrawBase(AudioDataDrawBase const& other) = default;
AudioDataDrawBase& AudioDataDrawBase::operator=(AudioDataDrawBase const& other) = default;
AudioDataDrawBase::~AudioDataDrawBase() = default;

bool AudioDataDrawBase::CalculateVerticalChannelBounds(int height, int channelCount, bool layered,
                                                       bool makeOdd, int& channelHeight, int& channelStride) {
  channelHeight = 0;
  channelStride = 0;
  if (height < 1) {
    return false;
  }
  channelHeight = height;
  if (!layered) {
    // Channel counts come from data and may be anything: 64 bits hold twice of each.
    if (height < 2 * std::int64_t{channelCount} - 1) {
      return false;
    }
    channelHeight = static_cast<int>((std::int64_t{height} - channelCount + 1) / channelCount);
    channelStride = SaturateToInt(std::int64_t{channelHeight} + 1);
  }
  if (makeOdd && channelHeight % 2 == 0) {
    --channelHeight;
    --channelStride;
  }
  return channelHeight > 0;
}

bool AudioDataDrawBase::CalculateScaledChannelBounds(int height, float scale, int channelCount, bool layered,
                                                     bool makeOdd, int& channelHeight, int& channelStride) {
  if (!CalculateVerticalChannelBounds(TruncateToInt(static_cast<float>(height) / scale), channelCount,
                                      layered, makeOdd, channelHeight, channelStride)) {
    return false;
  }
  channelHeight = TruncateToInt(static_cast<float>(channelHeight) * scale);
  channelStride = TruncateToInt(static_cast<float>(channelStride) * scale);
  return channelHeight > 0;
}

void AudioDataDrawBase::SetViewRange(double left, double samplesPerPixel) {
  if (IsNearlyEqual(left, mViewLeft) && IsNearlyEqual(samplesPerPixel, mSamplesPerPixel)) {
    return;
  }
  mViewLeft = left;
  mSamplesPerPixel = samplesPerPixel;
}

void AudioDataDrawBase::EnableChannel(int channel, bool enable) {
  auto const index = static_cast<std::size_t>(std::max(channel, 0));
  if (index >= mEnabledChannels.size()) {
    mEnabledChannels.resize(index + 1, true);
  }
  mEnabledChannels[index] = enable;
}

ColorRGBA AudioDataDrawBase::GetGridlineColor(bool inSelection) const {
  return inSelection ? GetColorWithinSelection(mGridlineColor) : mGridlineColor;
}

bool AudioDataDrawBase::GetChannelOffsets(int height, int channelCount, int& channelHeight,
                                          int& channelStride) const {
  return CalculateVerticalChannelBounds(height, channelCount, mLayeredChannels, mDrawCenterlines,
                                        channelHeight, channelStride);
}

RectT<int> AudioDataDrawBase::GetChannelRect(int channel, bool layered, int width, int channelHeight,
                                             int channelStride) const {
  int const top = layered ? 0 : SaturateToInt(std::int64_t{channel} * channelStride);
  return {0, top, width, channelHeight};
}

std::int64_t AudioDataDrawBase::GetPixelPositionFromSample(double sample) const {
  return SaturatingDifference(TruncateToInt64(sample / mSamplesPerPixel),
                              TruncateToInt64(mViewLeft / mSamplesPerPixel));
}

double AudioDataDrawBase::GetSampleFromPixelPosition(std::int64_t pixel) const {
  return static_cast<double>(pixel) * mSamplesPerPixel + mViewLeft;
}

bool AudioDataDrawBase::IsChannelEnabled(int channel) const {
  if (channel < 0) {
    return false;
  }
  auto const index = static_cast<std::size_t>(channel);
  return index >= mEnabledChannels.size() || mEnabledChannels[index];
}

bool AudioDataDrawBase::IsAnyChannelEnabled() const {
  return std::find(mEnabledChannels.begin(), mEnabledChannels.end(), true) != mEnabledChannels.end();
}

bool AudioDataDrawBase::IsAnyChannelDisabled() const {
  return std::find(mEnabledChannels.begin(), mEnabledChannels.end(), false) != mEnabledChannels.end();
}

ColorRGBA AudioDataDrawBase::GetChannelColor(int channel) const {
  if (!IsChannelEnabled(channel)) {
    return kDisabledChannelColor;
  }
  if (mChannelColors.empty()) {
    return kBuiltInChannelColor;
  }
  auto const index = static_cast<std::size_t>(channel);
  return mColoredChannels && index < mChannelColors.size() ? mChannelColors[index] : mChannelColors.front();
}

ColorRGBA AudioDataDrawBase::GetColorWithinSelection(ColorRGBA const& colour) const {
  using moxui::scriber::RGBtoHSB;
  double hue = 0.0, saturation = 0.0, brightness = 0.0;
  RGBtoHSB<double>(colour, hue, saturation, brightness, true);
  double backgroundHue = 0.0, backgroundSaturation = 0.0, backgroundBrightness = 0.0;
  RGBtoHSB<double>(mBackgroundColor, backgroundHue, backgroundSaturation, backgroundBrightness, true);
  double selectionHue = 0.0, selectionSaturation = 0.0, selectionBrightness = 0.0;
  RGBtoHSB<double>(mSelectionBackgroundColor, selectionHue, selectionSaturation, selectionBrightness, true);

  if (selectionBrightness > backgroundBrightness) {
    // The distance from the background is inverted, so that what was lighter than dark is darker than light.
    brightness = (backgroundBrightness - brightness) * 0.5 + selectionBrightness;
    saturation = (saturation - selectionSaturation) * 0.05 + selectionSaturation;
  } else {
    brightness = (brightness - backgroundBrightness) * 0.2 + selectionBrightness;
    saturation = (saturation - selectionSaturation) * 0.8 + selectionSaturation;
  }
  return moxui::scriber::HSBtoRGB<double>(hue, saturation, brightness, colour.alpha);
}

bool AudioDataDrawBase::GetDrawGridLines(int channelHeight) const {
  bool const hasLines = !mHorizontalGridlinePositions.empty() || !mVerticalGridlinePositions.empty();
  return hasLines && channelHeight > kTallestStripWithoutGrid;
}

}  // namespace moxmediaui
