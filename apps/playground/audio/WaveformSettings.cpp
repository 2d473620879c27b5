#include "audio/WaveformSettings.h"

#include "audio/Viewport.h"

#include <moxmediaui/WaveformDraw.h>

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace playground {

using moxui::ColorRGBA;

void WaveformOfSound::SetChannelCount(std::size_t count) {
  enabledChannels.assign(count, true);
  channelColors.assign(count, std::nullopt);
  selectedChannelColors.assign(count, std::nullopt);
}

ColorRGBA ColorOf(WaveformSettings const& settings, WaveformPalette const& palette, WaveformColor place) {
  return settings.colors[static_cast<std::size_t>(place)].value_or(palette.Color(place));
}

namespace {

// What was chosen for a channel, where channels have colours of their own, or for all of them.
std::optional<ColorRGBA> Chosen(WaveformSettings const& settings,
                                std::vector<std::optional<ColorRGBA>> const& ofChannels,
                                std::optional<ColorRGBA> const& ofAll, std::size_t channel) {
  if (!settings.coloredChannels) {
    return ofAll;
  }
  return channel < ofChannels.size() ? ofChannels[channel] : std::nullopt;
}

}  // namespace

ColorRGBA ChannelColorOf(WaveformSettings const& settings, WaveformPalette const& palette,
                         std::size_t channel) {
  ColorRGBA const themes =
      settings.coloredChannels ? palette.channels[channel % palette.channels.size()] : palette.wave;
  return Chosen(settings, settings.channelColors, settings.waveColor, channel).value_or(themes);
}

ColorRGBA SelectedChannelColorOf(WaveformSettings const& settings, WaveformPalette const& palette,
                                 std::size_t channel) {
  if (auto const own =
          Chosen(settings, settings.selectedChannelColors, settings.selectedWaveColor, channel)) {
    return *own;
  }
  if (auto const outside = Chosen(settings, settings.channelColors, settings.waveColor, channel)) {
    return Mixed(*outside, palette.ink, kSelectedShare);
  }
  return settings.coloredChannels ? palette.selectedChannels[channel % palette.selectedChannels.size()]
                                  : palette.selectedWave;
}

std::vector<std::int32_t> TimeGrid(WaveformSettings const& settings, Viewport const& view, int sampleRate,
                                   double scale) {
  std::vector<std::int32_t> positions;
  if (!settings.timeGrid) {
    return positions;
  }
  if (settings.timeGridSpacing > 0) {
    double const step = std::max(settings.timeGridSpacing * scale, 2.0);
    // NOLINTNEXTLINE(clang-analyzer-security.FloatLoopCounter): spacings are fractions of pixels
    for (double x = step; x < view.Width(); x += step) {
      positions.push_back(static_cast<std::int32_t>(x));
    }
    return positions;
  }
  for (RulerTick const& tick : RulerTicks(view, sampleRate, {settings.rulerUnit, scale})) {
    if (!tick.label.empty()) {
      positions.push_back(static_cast<std::int32_t>(view.PixelOf(tick.sample)));
    }
  }
  return positions;
}

void Apply(WaveformSettings const& settings, WaveformPalette const& palette, moxmediaui::WaveformDraw& draw) {
  draw.SetBackgroundColor(ColorOf(settings, palette, WaveformColor::kBackground));
  draw.SetSelectionBackgroundColor(ColorOf(settings, palette, WaveformColor::kSelectionBackground));
  draw.SetCenterlineColor(ColorOf(settings, palette, WaveformColor::kCenterline));
  draw.SetGridlineColor(ColorOf(settings, palette, WaveformColor::kGridline));
  draw.SetDividerColor(ColorOf(settings, palette, WaveformColor::kDivider));
  draw.SetControlColor(ColorOf(settings, palette, WaveformColor::kControl));

  std::vector<ColorRGBA> colors;
  std::vector<ColorRGBA> selected;
  std::size_t const channels = std::max<std::size_t>(settings.enabledChannels.size(), 1);
  for (std::size_t channel = 0; channel < channels; ++channel) {
    colors.push_back(ChannelColorOf(settings, palette, channel));
    selected.push_back(SelectedChannelColorOf(settings, palette, channel));
  }
  draw.SetColoredChannels(settings.coloredChannels);
  draw.SetChannelColors(colors);
  draw.SetSelectionChannelColors(settings.deriveSelectionColors ? std::vector<ColorRGBA>() : selected);
  draw.SetEnabledChannels(settings.enabledChannels);

  draw.SetLayeredChannels(settings.layered);
  draw.SetLayeredChannelDrawingStyle(settings.firstLayerStrong
                                         ? moxmediaui::LayeredChannelDrawingStyle::kFirstStrong
                                         : moxmediaui::LayeredChannelDrawingStyle::kAllAlike);
  draw.SetPeakDataDrawStyle(static_cast<moxmediaui::PeakDataDrawStyle>(settings.peakStyle));
  draw.SetWaveformScalingStyle(settings.squareRoot ? moxmediaui::WaveformScalingStyle::kSquareRoot
                                                   : moxmediaui::WaveformScalingStyle::kLinear);
  draw.SetDrawSampleDots(settings.sampleDots);
  draw.SetDrawCenterlines(settings.centerlines);
  draw.SetDrawDividers(settings.dividers);
  draw.SetVerticalChannelAlignment(settings.alignBottom ? moxmediaui::VerticalChannelAlignment::kBottom
                                                        : moxmediaui::VerticalChannelAlignment::kTop);
  draw.SetZoom(static_cast<float>(settings.zoom));
  draw.SetGain(static_cast<float>(std::pow(10.0, settings.gainDecibel / 20.0)));
  draw.SetGainWholeRange(settings.gainWholeRange);
  draw.SetFadeInfo(static_cast<moxmediaui::FadeType>(settings.fadeDirection), settings.fadeStart,
                   settings.fadeEnd, settings.fadeFamily == FadeFamily::kExponential,
                   static_cast<float>(settings.fadeAmount));
}

}  // namespace playground
