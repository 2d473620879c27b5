#include "Interpolation.h"
#include "SaturatingConversion.h"
#include "WaveformRegions.h"

#include <moxcore/config/Errors.h>
#include <moxcore/debug/TypeName.h>
#include <moxmediaui/WaveformDrawBase.h>
#include <moxui/scriber/ColorConversion.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>

#include <cmath>
#include <typeinfo>
#include <utility>

namespace moxmediaui {

namespace {

constexpr float kEuler = 2.7182817f;
constexpr float kPi = 3.1415927f;

bool HasEdgesInRange(RectT<int> const& rect) {
  std::int64_t const right = std::int64_t{rect.left} + rect.width;
  std::int64_t const bottom = std::int64_t{rect.top} + rect.height;
  return SaturateToInt(right) == right && SaturateToInt(bottom) == bottom;
}

}  // namespace

WaveformDrawBase::WaveformDrawBase() = default;
WaveformDrawBase::WaveformDrawBase(WaveformDrawBase const& other) = default;
WaveformDrawBase& WaveformDrawBase::operator=(WaveformDrawBase const& other) = default;
WaveformDrawBase::~WaveformDrawBase() = default;

void WaveformDrawBase::SetFadeInfo(FadeType type, std::int64_t start, std::int64_t end, bool exponential,
                                   float amount) {
  std::int64_t const shift = type == FadeType::kOut ? 1 : 0;
  mFadeType = type;
  mFadeStart = SaturatingDifference(start, shift);
  mFadeEnd = SaturatingDifference(end, shift);
  mFadeExponential = exponential;
  mFadeAmount = amount;
}

void WaveformDrawBase::Draw(Scriber* scriber, std::shared_ptr<WaveformData> waveform, RectT<int> const& rect,
                            float scale) const {
  if (rect.IsEmpty()) {
    return;
  }
  if (!waveform) {
    moxcore::config::DoThrowNullPtrException(moxcore::debug::GetTypeName(typeid(WaveformData)));
  }
  if (static_cast<std::int32_t>(waveform->GetChannelCount()) < 1) {
    scriber->GetSurface()->FillRect(
        {0.0f, 0.0f, static_cast<float>(rect.width), static_cast<float>(rect.height)}, GetControlColor());
    return;
  }
  DrawWaveform(scriber, std::move(waveform), rect, scale);
}

std::shared_ptr<WaveformData> WaveformDrawBase::WithFade(std::shared_ptr<WaveformData> waveform) const {
  if (!waveform) {
    moxcore::config::DoThrowNullPtrException(moxcore::debug::GetTypeName(typeid(WaveformData)));
  }
  std::vector<float> faded = MakeFadedBuffer(*waveform);
  return faded.empty() ? waveform
                       : std::make_shared<WaveformData>(waveform->GetProperties(), std::move(faded));
}

std::vector<float> WaveformDrawBase::MakeFadedBuffer(WaveformData const& waveform) const {
  if (waveform.GetType() == WaveformDataType::kNone || mFadeType == FadeType::kNone ||
      mFadeStart >= mFadeEnd || !IsAnyChannelEnabled()) {
    return {};
  }
  // The buffer may be shared with whoever filled it.
  std::vector<float> faded = waveform.GetWaveformBuffer();
  bool const isCurved = mFadeExponential && mFadeAmount != 0.0f;
  HandleFades(waveform.GetProperties(), isCurved ? std::pow(kEuler, -mFadeAmount) : 0.0f, faded);
  return faded;
}

bool WaveformDrawBase::DrawsCustomBackground(std::shared_ptr<WaveformData> /*waveform*/) const {
  return false;
}

bool WaveformDrawBase::DrawWaveform(Scriber* scriber, std::shared_ptr<WaveformData> waveform,
                                    RectT<int> const& rect, float scale) const {
  if (rect.IsEmpty() || !HasEdgesInRange(rect)) {
    return false;
  }
  int const channels = static_cast<std::int32_t>(waveform->GetChannelCount());
  int channelHeight = 0;
  int stride = 0;
  if (!CalculateScaledChannelBounds(rect.height, scale, channels, GetLayeredChannels(), GetDrawCenterlines(),
                                    channelHeight, stride)) {
    return false;
  }
  // NOLINTNEXTLINE(bugprone-integer-division): the middle of the middle row
  float const centre = static_cast<float>(channelHeight / 2) + 0.5f;
  bool const layered = GetLayeredChannels();
  bool const hasAudio = waveform->GetType() != WaveformDataType::kNone;

  WaveformRegions regions;
  if (mSelectionWidth < 1 || !IsAnyChannelEnabled()) {
    regions.Add(rect, false, mGain);
  } else {
    int selectionLeft = 0;
    int selectionWidth = 0;
    GetSelPixels(rect.width, mSelectionLeft, mSelectionWidth, selectionLeft, selectionWidth);
    float const gain = std::get<float>(HandleGain(waveform));
    regions = SplitBySelection(rect, selectionLeft, selectionWidth, gain, mGainWholeRange);
  }

  std::vector<float> const faded = MakeFadedBuffer(*waveform);
  float const* const data = faded.empty() ? waveform->GetWaveformBuffer().data() : faded.data();

  bool const paintsBackground = !DrawsCustomBackground(waveform);
  for (std::size_t i = 0; i < regions.rects.size(); ++i) {
    RectT<int> const& region = regions.rects[i];
    bool const selected = regions.selected[i];
    if (paintsBackground && (!selected || layered)) {
      DrawBackground(scriber, rect, region, selected, static_cast<unsigned int>(channels), channelHeight,
                     stride, centre, scale);
    } else if (paintsBackground) {
      for (int channel = channels - 1; channel >= 0; --channel) {
        RectT<int> const strip = GetChannelRect(channel, false, rect.width, channelHeight, stride);
        DrawBackground(scriber, rect, FindCommonArea(strip, region), IsChannelEnabled(channel),
                       static_cast<unsigned int>(channels), channelHeight, stride, centre, scale);
      }
    }
    if (hasAudio) {
      DoDrawWaveform(scriber, waveform->GetProperties(), rect, data, region.left, region.width, selected,
                     regions.gains[i], {region.left, 0, region.width, channelHeight}, channelHeight, stride,
                     centre);
    }
  }

  if (!layered) {
    DrawDividerLines(scriber, rect, false, channels, channelHeight, stride, scale);
  }
  RectT<int> const last = GetChannelRect(channels - 1, layered, rect.width, channelHeight, stride);
  std::int64_t const bottom = std::int64_t{last.top} + last.height;
  std::int64_t const leftOver = std::int64_t{rect.height} - bottom + rect.top;
  if (leftOver > 0) {
    bool const atTop = GetVerticalChannelAlignment() == VerticalChannelAlignment::kTop;
    for (std::size_t i = 0; i < regions.rects.size(); ++i) {
      RectT<int> const& region = regions.rects[i];
      scriber->GetSurface()->FillRect(
          {static_cast<float>(region.left), static_cast<float>(atTop ? bottom : 0),
           static_cast<float>(region.width), static_cast<float>(leftOver)},
          regions.selected[i] ? GetSelectionBackgroundColor() : GetBackgroundColor());
    }
  }
  return true;
}

float WaveformDrawBase::GetFadeValue(float position, float exponentialFloor) const {
  if (!mFadeExponential) {
    return (1.0f - std::cos(std::pow(position, mFadeAmount) * kPi)) / 2.0f;
  }
  float const range = 1.0f - exponentialFloor;
  if (mFadeAmount == 0.0f || range == 0.0f || !std::isfinite(range)) {
    return position;
  }
  return 1.0f - (std::pow(kEuler, -mFadeAmount * position) - exponentialFloor) / range;
}

double WaveformDrawBase::GetInterp(unsigned int count, double fraction, float* data) const {
  return InterpolateWithSinc(count, static_cast<float>(fraction), data);
}

ColorRGBA WaveformDrawBase::GetWaveformColor(int channel, bool selected) const {
  ColorRGBA const colour = GetChannelColor(channel);
  if (!selected || !IsChannelEnabled(channel)) {
    return colour;
  }
  if (!mSelectionChannelColors.empty()) {
    auto const index = static_cast<std::size_t>(channel);
    bool const hasOwn = GetColoredChannels() && index < mSelectionChannelColors.size();
    return hasOwn ? mSelectionChannelColors[index] : mSelectionChannelColors.front();
  }
  using moxui::scriber::RGBtoHSB;
  double hue = 0.0, saturation = 0.0, brightness = 0.0;
  RGBtoHSB<double>(colour, hue, saturation, brightness, true);
  double backgroundHue = 0.0, backgroundSaturation = 0.0, backgroundBrightness = 0.0;
  RGBtoHSB<double>(GetBackgroundColor(), backgroundHue, backgroundSaturation, backgroundBrightness, true);
  double selectionHue = 0.0, selectionSaturation = 0.0, selectionBrightness = 0.0;
  RGBtoHSB<double>(GetSelectionBackgroundColor(), selectionHue, selectionSaturation, selectionBrightness,
                   true);
  // Recoloured from the normal background's brightness, not the selection's: the wave itself changes, where
  // GetColorWithinSelection keeps a line legible.
  bool const isLighter = selectionBrightness > backgroundBrightness;
  saturation = (saturation - selectionSaturation) * (isLighter ? 0.95 : 0.2) + selectionSaturation;
  brightness = (brightness - backgroundBrightness) * (isLighter ? 0.2 : 0.8) + backgroundBrightness;
  return moxui::scriber::HSBtoRGB<double>(hue, saturation, brightness, colour.alpha);
}

}  // namespace moxmediaui
