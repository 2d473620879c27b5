#include "audio/LevelOverlay.h"

#include "audio/WaveformSettings.h"
#include "program/HexColor.h"

#include <moxmediaui/WaveformDraw.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace playground {
namespace {

namespace waveform = moxaudiotoolkit::waveform;
using moxui::ColorRGBA;
using moxui::RectT;

// How far the tone of the RMS is from the wave's colour to the ground's.
constexpr float kRmsShare = 0.42f;
// Logical pixels: of a mark, and of the ground below it that keeps it apart from the wave.
constexpr float kMarkHeight = 3.0f;
constexpr float kMarkGap = 1.0f;
constexpr int kLeastMarkWidth = 2;
constexpr float kVeilShare = 0.7f;

// Draws waves in the tones of RMS.
moxmediaui::WaveformDraw RmsDraw(moxmediaui::WaveformDraw const& like) {
  moxmediaui::WaveformDraw draw = like;
  auto const toned = [](std::vector<ColorRGBA> colors, ColorRGBA const& on) {
    for (ColorRGBA& color : colors) {
      color = RmsColor(color, on);
    }
    return colors;
  };
  draw.SetChannelColors(toned(like.GetChannelColors(), like.GetBackgroundColor()));
  // Where none are set they would be derived from the tone of what isn't selected.
  auto const selected = like.GetSelectionChannelColors();
  draw.SetSelectionChannelColors(
      toned(selected.empty() ? like.GetChannelColors() : selected, like.GetSelectionBackgroundColor()));
  draw.SetDrawDividers(false);
  return draw;
}

}  // namespace

ColorRGBA RmsColor(ColorRGBA const& wave, ColorRGBA const& ground) {
  return Mixed(wave, ground, kRmsShare);
}

ColorRGBA ClipColorOn(ColorRGBA const& ground) {
  ColorRGBA const bright = ColorOfNumber(0xFF5C5C);
  ColorRGBA const deep = ColorOfNumber(0xC00000);
  return ContrastOf(bright, ground) >= ContrastOf(deep, ground) ? bright : deep;
}

std::shared_ptr<waveform::WaveformData> RmsPairs(WaveformSettings const& settings,
                                                 waveform::WaveformData const& peaks,
                                                 waveform::ColumnLevels const& levels) {
  if (peaks.GetType() != waveform::WaveformDataType::kPeaks || settings.layered || !settings.rms ||
      levels.rms.size() * 2 != peaks.GetWaveformBuffer().size()) {
    return nullptr;
  }
  std::vector<float> pairs = peaks.GetWaveformBuffer();
  for (std::size_t i = 0; i < levels.rms.size(); ++i) {
    float const maximum = pairs[2 * i];
    float const minimum = pairs[2 * i + 1];
    pairs[2 * i] = std::clamp(levels.rms[i], minimum, maximum);
    pairs[2 * i + 1] = std::clamp(-levels.rms[i], minimum, maximum);
  }
  return std::make_shared<waveform::WaveformData>(peaks.GetProperties(), std::move(pairs));
}

void PaintRms(WaveformPicture::Piece const& piece, DrawnWaveform const& drawn,
              moxmediaui::WaveformDraw const& draw) {
  if (!drawn.rms) {
    return;
  }
  moxmediaui::WaveformDraw rms = RmsDraw(draw);
  rms.SetPeakTarget(
      {.pixels = piece.viewPixels, .pixelsPerRow = piece.pixelsPerRow, .onlyWholePixels = true});
  rms.Draw(&piece.scriber, drawn.rms, {0, 0, drawn.columns, drawn.rows}, drawn.scale);
}

void DrawClipMarks(moxui::scriber::Scriber& scriber, DrawnWaveform const& drawn) {
  ChannelStrips const& strips = *drawn.strips;
  ColorRGBA const ground = drawn.draw.GetBackgroundColor();
  ColorRGBA const red = ClipColorOn(ground);
  std::size_t const channels = drawn.levels.slots == 0 ? 0 : drawn.levels.clipped.size() / drawn.levels.slots;
  auto const columns = std::min(drawn.levels.slots, static_cast<std::size_t>(drawn.columns));
  float const height = std::min(kMarkHeight * drawn.scale, static_cast<float>(strips.height) / 4.0f);
  for (std::size_t channel = 0; channel < channels; ++channel) {
    std::uint8_t const* const clipped = drawn.levels.clipped.data() + channel * drawn.levels.slots;
    auto const top = static_cast<float>(strips.top + static_cast<int>(channel) * strips.stride);
    for (std::size_t x = 0; x < columns; ++x) {
      if (clipped[x] == 0) {
        continue;
      }
      std::size_t end = x;
      while (end < columns && clipped[end] != 0) {
        ++end;
      }
      end = std::max(end, x + kLeastMarkWidth);
      RectT<float> const mark{static_cast<float>(x), top, static_cast<float>(end - x), height};
      RectT<float> const gap{mark.left, mark.Bottom(), mark.width, kMarkGap * drawn.scale};
      scriber.GetSurface()->FillRect(mark, red);
      scriber.GetSurface()->FillRect(gap, ground);
      x = end - 1;
    }
  }
}

void DrawUnread(moxui::scriber::Scriber& scriber, waveform::ColumnLevels const& levels,
                ColorRGBA const& ground, int columns, int rows) {
  ColorRGBA const veil = ground.WithAlpha(kVeilShare);
  // A page of peaks holds all channels: the first tells of them all.
  auto const begin = levels.known.begin();
  auto const end =
      begin + static_cast<std::ptrdiff_t>(std::min(levels.slots, static_cast<std::size_t>(columns)));
  for (auto first = std::find(begin, end, 0); first != end;) {
    auto const last = std::find(first, end, 1);
    scriber.GetSurface()->FillRect(
        {static_cast<float>(first - begin), 0.0f, static_cast<float>(last - first), static_cast<float>(rows)},
        veil);
    first = std::find(last, end, 0);
  }
}

}  // namespace playground
