#include "audio/LevelOverlay.h"

#include "audio/ChannelStrips.h"
#include "audio/WaveformSettings.h"
#include "program/HexColor.h"

#include <moxmediaui/WaveformDraw.h>
#include <moxui/scriber/ImageInterface.h>
#include <moxui/scriber/RasterSupplier.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/scriber/SurfaceInterface.h>

#include <algorithm>
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

// Plus and minus the RMS of each column, as far as its peaks reach.
std::shared_ptr<waveform::WaveformData> RmsPairs(waveform::WaveformData const& peaks,
                                                 waveform::ColumnLevels const& levels) {
  std::vector<float> pairs = peaks.GetWaveformBuffer();
  for (std::size_t i = 0; i < levels.rms.size(); ++i) {
    float const maximum = pairs[2 * i];
    float const minimum = pairs[2 * i + 1];
    pairs[2 * i] = std::clamp(levels.rms[i], minimum, maximum);
    pairs[2 * i + 1] = std::clamp(-levels.rms[i], minimum, maximum);
  }
  return std::make_shared<waveform::WaveformData>(peaks.GetProperties(), std::move(pairs));
}

// Draws nothing but waves, in the tones of RMS, on a ground of its own.
moxmediaui::WaveformDraw RmsDraw(moxmediaui::WaveformDraw const& like, ColorRGBA const& ground) {
  moxmediaui::WaveformDraw draw = like;
  auto const toned = [](std::vector<ColorRGBA> colors, ColorRGBA const& on) {
    for (ColorRGBA& color : colors) {
      color = RmsColor(color, on);
    }
    return colors;
  };
  draw.SetChannelColors(toned(like.GetChannelColors(), like.GetBackgroundColor()));
  // Where none are set they would be derived from a ground that isn't the wave's.
  auto const selected = like.GetSelectionChannelColors();
  draw.SetSelectionChannelColors(
      toned(selected.empty() ? like.GetChannelColors() : selected, like.GetSelectionBackgroundColor()));
  draw.SetBackgroundColor(ground);
  draw.SetSelectionBackgroundColor(ground);
  draw.SetCenterlineColor(ground);
  draw.SetDrawDividers(false);
  draw.SetHorizontalGridlinePositions({});
  draw.SetVerticalGridlinePositions({});
  return draw;
}

using PixelRows = std::vector<std::uint32_t>;

void PaintRms(DrawnWaveform const& drawn, std::shared_ptr<waveform::WaveformData> const& pairs,
              ColorRGBA const& ground, PixelRows& pixels) {
  pixels.resize(static_cast<std::size_t>(drawn.columns) * static_cast<std::size_t>(drawn.rows));
  auto const surface = moxui::scriber::NewRasterSurfaceOver(pixels.data(), drawn.columns, drawn.rows,
                                                            drawn.columns * 4, 1.0f, true);
  if (surface) {
    RectT<int> const rect{0, 0, drawn.columns, drawn.rows};
    surface->FillRect(RectT<float>(rect), ground);
    moxui::scriber::Scriber scriber(moxui::scriber::GetRasterSupplier(), surface.Get());
    RmsDraw(drawn.draw, ground).Draw(&scriber, pairs, rect, drawn.scale);
  }
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

void DrawRms(moxui::scriber::Scriber& scriber, DrawnWaveform const& drawn, RmsPixels& pixels) {
  if (drawn.data.GetType() != waveform::WaveformDataType::kPeaks || drawn.settings.layered ||
      drawn.levels.rms.size() * 2 != drawn.data.GetWaveformBuffer().size()) {
    return;
  }
  // What looks the same on black and on white is all RMS: no ground, and no edge that lets it through.
  auto const pairs = RmsPairs(drawn.data, drawn.levels);
  // An image that somebody keeps keeps its pixels.
  if (!pixels.shown || pixels.shown.use_count() > 1) {
    pixels.shown = std::make_shared<PixelRows>();
  }
  PaintRms(drawn, pairs, {0.0f, 0.0f, 0.0f, 1.0f}, *pixels.shown);
  PaintRms(drawn, pairs, {1.0f, 1.0f, 1.0f, 1.0f}, pixels.onWhite);
  std::transform(
      pixels.shown->begin(), pixels.shown->end(), pixels.onWhite.begin(), pixels.shown->begin(),
      [](std::uint32_t onBlack, std::uint32_t onWhite) { return onBlack == onWhite ? onBlack : 0u; });
  auto const image = scriber.GetSupplier()->NewImage(drawn.columns, drawn.rows, drawn.columns * 4,
                                                     moxui::scriber::PixelFormat::kBGRA32Straight,
                                                     pixels.shown->data(), [kept = pixels.shown](void*) {});
  if (image) {
    scriber.GetSurface()->DrawImage(*image, moxui::PointT<float>{0.0f, 0.0f}, 1.0f);
  }
}

void DrawClipMarks(moxui::scriber::Scriber& scriber, DrawnWaveform const& drawn,
                   ChannelStrips const& strips) {
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

void DrawUnread(moxui::scriber::Scriber& scriber, DrawnWaveform const& drawn) {
  ColorRGBA const veil = drawn.draw.GetBackgroundColor().WithAlpha(kVeilShare);
  // A page of peaks holds all channels: the first tells of them all.
  auto const begin = drawn.levels.known.begin();
  auto const end = begin + static_cast<std::ptrdiff_t>(
                               std::min(drawn.levels.slots, static_cast<std::size_t>(drawn.columns)));
  for (auto first = std::find(begin, end, 0); first != end;) {
    auto const last = std::find(first, end, 1);
    scriber.GetSurface()->FillRect({static_cast<float>(first - begin), 0.0f, static_cast<float>(last - first),
                                    static_cast<float>(drawn.rows)},
                                   veil);
    first = std::find(last, end, 0);
  }
}

}  // namespace playground
