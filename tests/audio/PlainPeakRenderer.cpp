#include "PlainPeakRenderer.h"

#include <algorithm>
#include <cmath>

namespace audio_tests {

namespace {

using moxmediaui::ColorRGBA;
using moxmediaui::PeakDataDrawStyle;
using moxmediaui::RectT;
using moxmediaui::WaveformScalingStyle;

std::uint8_t Byte(float component) {
  float const v = 255 * component;
  if (v > 0) {
    return static_cast<std::uint8_t>(static_cast<int>(v + 0.5f));
  }
  int const t = static_cast<int>(v + 0.5f);
  return static_cast<std::uint8_t>(static_cast<float>(t) == v + 0.5f ? static_cast<int>(v)
                                                                     : static_cast<int>(v - 0.5f));
}

unsigned Div255(unsigned n) {
  return (n + 128 + ((n + 128) >> 8)) >> 8;
}

class Canvas {
 public:
  Canvas(int width, int height) : mWidth(width), mHeight(height) {
    mBytes.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4, 0xA5);
  }

  bool Has(int x, int y) const { return x >= 0 && y >= 0 && x < mWidth && y < mHeight; }

  void Put(int x, int y, ColorRGBA const& colour, bool opaque) {
    if (Has(x, y)) {
      std::uint8_t* const p = At(x, y);
      p[0] = Byte(colour.blue);
      p[1] = Byte(colour.green);
      p[2] = Byte(colour.red);
      p[3] = opaque ? 255 : Byte(colour.alpha);
    }
  }

  void Blend(int x, int y, ColorRGBA const& colour, int alpha) {
    std::uint8_t* const p = At(x, y);
    float const components[] = {colour.blue, colour.green, colour.red};
    for (int i = 0; i < 3; ++i) {
      p[i] = static_cast<std::uint8_t>(Div255(p[i] * static_cast<unsigned>(255 - alpha)) +
                                       Div255(Byte(components[i]) * static_cast<unsigned>(alpha)));
    }
    p[3] = 255;
  }

  std::vector<std::uint8_t> Take() { return std::move(mBytes); }

 private:
  std::uint8_t* At(int x, int y) {
    return &mBytes.at(
        (static_cast<std::size_t>(y) * static_cast<std::size_t>(mWidth) + static_cast<std::size_t>(x)) * 4);
  }

  int mWidth;
  int mHeight;
  std::vector<std::uint8_t> mBytes;
};

struct Column {
  float top;
  float bottom;
};

float SignedRoot(float v) {
  return v >= 0 ? std::sqrt(v) : -std::sqrt(-v);
}

Column FindColumn(OpenWaveformDraw const& draw, float a, float b, int height, float centre, float zoom) {
  if (draw.GetWaveformScalingStyle() == WaveformScalingStyle::kSquareRoot) {
    a = SignedRoot(a);
    b = SignedRoot(b);
  }
  float const H = static_cast<float>(height);
  if (draw.GetPeakDataDrawStyle() == PeakDataDrawStyle::kBipolar) {
    float top = centre - a * centre * zoom;
    float bottom = centre - b * centre * zoom;
    if (bottom - top < 0.75f) {
      top = (bottom + top) * 0.5f - 0.375f;
      bottom = top + 0.75f;
    }
    return {top, bottom};
  }
  float const m = std::max(std::fabs(b), std::fabs(a));
  float top = H - m * H * zoom;
  if (draw.GetPeakDataDrawStyle() == PeakDataDrawStyle::kRectified) {
    top = std::min(top, H - 1);
  }
  return {top, H};
}

void DrawColumn(Canvas& canvas, int x, int firstRow, int height, Column const& column,
                ColorRGBA const& colour, float opacity) {
  float const y0 = std::ceil(column.top);
  float const y1 = std::floor(column.bottom);
  float const T = 0;
  float const end = T + static_cast<float>(height);
  if (T < y0 && y0 < end) {
    int const alpha = static_cast<int>((y0 - column.top) * opacity * 255) & 255;
    canvas.Blend(x, firstRow + static_cast<int>(y0) - 1, colour, alpha);
  }
  if (T < y1 && y1 < end) {
    int const alpha = static_cast<int>((column.bottom - y1) * opacity * 255) & 255;
    canvas.Blend(x, firstRow + static_cast<int>(y1), colour, alpha);
  }
  for (int row = 0; row < height; ++row) {
    float const y = static_cast<float>(row);
    if (y >= std::max(y0, T) && y < std::min(y1, end)) {
      if (opacity == 1.0f) {
        canvas.Put(x, firstRow + row, colour, true);
      } else {
        canvas.Blend(x, firstRow + row, colour, static_cast<int>(opacity * 255) & 255);
      }
    }
  }
}

}  // namespace

std::vector<PlainRegion> FindRegionsPlainly(OpenWaveformDraw const& draw, bool gainWholeRange,
                                            RectT<int> const& rect, float gain, float selectionGain) {
  if (draw.GetSelectionWidth() < 1 || !draw.IsAnyChannelEnabled()) {
    return {{rect.left, rect.width, false, gain}};
  }
  int x = 0, w = 0;
  auto const left = static_cast<double>(draw.GetSelectionLeft());
  auto const right = static_cast<double>(draw.GetSelectionLeft() + draw.GetSelectionWidth());
  auto const p0 = draw.GetPixelPositionFromSample(left);
  auto const p1 = draw.GetPixelPositionFromSample(right);
  if (p0 <= rect.width && p1 >= 0) {
    x = static_cast<int>(std::max<std::int64_t>(p0, 0));
    w = static_cast<int>(std::min<std::int64_t>(p1, rect.width)) - x;
    bool const overlaps =
        left < draw.GetViewLeft() + draw.GetSamplesPerPixel() * rect.width && right > draw.GetViewLeft();
    w = w < 1 && overlaps ? 1 : w;
  }
  int const selectedLeft = std::max(x, rect.left);
  int const selectedRight = std::min(x + w, rect.left + rect.width);
  int const rows = std::min(rect.top + rect.height, rect.height) - std::max(0, rect.top);
  if (selectedRight - selectedLeft < 1 || rows < 1) {
    return {{rect.left, rect.width, false, selectionGain}};
  }
  float const outside = gainWholeRange ? selectionGain : 1.0f;
  std::vector<PlainRegion> regions;
  if (selectedLeft > rect.left) {
    regions.push_back({rect.left, selectedLeft - rect.left, false, outside});
  }
  if (selectedRight < rect.left + rect.width) {
    regions.push_back({selectedRight, rect.left + rect.width - selectedRight, false, outside});
  }
  regions.push_back({selectedLeft, selectedRight - selectedLeft, true, selectionGain});
  return regions;
}

std::vector<PeakPicture> DrawPeaksPlainly(OpenWaveformDraw const& draw, PeakSettings const& settings,
                                          PeakView const& view) {
  using moxmediaui::LayeredChannelDrawingStyle;
  RectT<int> const& rect = view.rect;
  int h = 0, stride = 0;
  if (rect.width < 1 || rect.height < 1 || view.slots != rect.width) {
    return {};
  }
  if (!draw.GetChannelOffsets(static_cast<int>(static_cast<float>(rect.height) / view.scale), view.channels,
                              h, stride)) {
    return {};
  }
  h = static_cast<int>(static_cast<float>(h) * view.scale);
  stride = static_cast<int>(static_cast<float>(stride) * view.scale);
  if (h < 1) {
    return {};
  }
  float const centre = static_cast<float>(h / 2) + 0.5f;
  bool const layered = draw.GetLayeredChannels();
  bool const firstStrong = settings.layeredStyle == LayeredChannelDrawingStyle::kFirstStrong;
  float const base = layered ? (firstStrong ? 0.6f : 0.7f) : 0.9f;
  stride = layered ? 0 : stride;
  int const imageHeight = layered ? h : (view.channels - 1) * stride + h;

  std::vector<PeakPicture> pictures;
  for (PlainRegion const& region :
       FindRegionsPlainly(draw, settings.gainWholeRange, rect, view.gain, view.gain)) {
    Canvas canvas(region.width, imageHeight);
    bool const byChannel = region.selected && !layered && draw.IsAnyChannelDisabled();
    // By channel, rows that no block reaches look like the last one's.
    bool const asSelected = region.selected && (!byChannel || draw.IsChannelEnabled(view.channels - 1));
    for (int y = 0; y < imageHeight; ++y) {
      for (int x = 0; x < region.width; ++x) {
        canvas.Put(x, y, asSelected ? draw.GetSelectionBackgroundColor() : draw.GetBackgroundColor(), true);
      }
    }
    if (byChannel) {
      for (int channel = 0; channel < view.channels; ++channel) {
        int const first = channel * stride - (channel > 0 ? (stride - h) >> 1 : 0);
        int const count = channel == view.channels - 1 ? h : stride;
        for (int y = first; y < first + count; ++y) {
          for (int x = 0; x < region.width; ++x) {
            canvas.Put(x, y,
                       draw.IsChannelEnabled(channel) ? draw.GetSelectionBackgroundColor()
                                                      : draw.GetBackgroundColor(),
                       true);
          }
        }
      }
    }
    bool const grid = draw.GetDrawGridLines(h);
    auto const& horizontal = draw.GetHorizontalGridlinePositions();
    int const perChannel = static_cast<int>(horizontal.size()) / view.channels;
    for (int channel = view.channels - 1; channel >= 0; --channel) {
      int const firstRow = channel * stride;
      if (grid) {
        ColorRGBA const colour = draw.GetGridlineColor(region.selected && draw.IsChannelEnabled(channel));
        for (int i = 0; i < perChannel; ++i) {
          for (int x = 0; x < region.width; ++x) {
            canvas.Put(x, horizontal.at(static_cast<std::size_t>(channel * perChannel + i)), colour, false);
          }
        }
        for (int const position : draw.GetVerticalGridlinePositions()) {
          int const count = channel == view.channels - 1 ? h : stride;
          for (int y = firstRow; y < firstRow + count; ++y) {
            canvas.Put(position - region.left, y, colour, false);
          }
        }
      }
      if (draw.GetDrawCenterlines() && !layered) {
        for (int x = 0; x < region.width; ++x) {
          canvas.Put(x, firstRow + h / 2, draw.GetCenterlineColor(), false);
        }
      }
      bool const blend = grid || (layered && (!firstStrong || channel != 0));
      float const zoom = draw.IsChannelEnabled(channel) ? draw.GetZoom() * region.gain : draw.GetZoom();
      for (int x = 0; x < region.width; ++x) {
        auto const pair = (static_cast<std::int64_t>(channel) * view.slots + region.left + x) * 2;
        if (pair < 0 || pair + 1 >= static_cast<std::int64_t>(view.pairs.size())) {
          continue;
        }
        float const a = view.pairs[static_cast<std::size_t>(pair)];
        float const b = view.pairs[static_cast<std::size_t>(pair + 1)];
        Column const column = FindColumn(draw, a, b, h, centre, zoom);
        if (!std::isnan(a) && !std::isnan(b) && !std::isnan(column.top) && !std::isnan(column.bottom)) {
          DrawColumn(canvas, x, firstRow, h, column, draw.GetWaveformColor(channel, region.selected),
                     blend ? base : 1.0f);
        }
      }
    }
    bool const atTop = draw.GetVerticalChannelAlignment() == moxmediaui::VerticalChannelAlignment::kTop;
    pictures.push_back(
        {region.left, atTop ? 0 : rect.height - imageHeight, region.width, imageHeight, canvas.Take()});
  }
  return pictures;
}

}  // namespace audio_tests
