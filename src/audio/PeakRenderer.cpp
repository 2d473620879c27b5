// How WaveformDraw paints peaks: background, grid, centre line and wave go into one buffer of pixels, which
// is drawn as one image.
#include "LayerOpacity.h"
#include "PeakColumns.h"
#include "PeakPicture.h"
#include "PixelBuffer.h"
#include "PixelColor.h"
#include "SaturatingConversion.h"

#include <moxmediaui/Module.h>
#include <moxmediaui/WaveformDraw.h>
#include <moxui/scriber/ImageInterface.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/scriber/SurfaceInterface.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace moxmediaui {

namespace {

/// A picture is made by so many columns at a time that they stay in the second-level cache from the
/// background to the last channel. A multiple of what is worked out in one go.
int GetColumnsAtATime(int height) {
  constexpr std::int64_t kCachedPixels = 1 << 18;
  constexpr int kStep = 64;
  auto const columns = static_cast<int>(std::min<std::int64_t>(kCachedPixels / height, 512));
  return std::max(columns / kStep * kStep, kStep);
}

std::vector<std::int64_t> FindGridColumns(std::vector<std::int32_t> const& positions, int firstColumn,
                                          int columnCount) {
  std::vector<std::int64_t> columns;
  for (std::int32_t const position : positions) {
    std::int64_t const x = std::int64_t{position} - firstColumn;
    if (x >= 0 && x < columnCount) {
      columns.push_back(x);
    }
  }
  return columns;
}

/// The pairs of a channel's columns. A rectangle that doesn't begin at 0 asks for columns beyond the
/// channel's own: they show what the buffer holds there, and nothing beyond the buffer's ends.
class PairsOfColumns {
 public:
  PairsOfColumns(WaveformDataProperties const& properties, float const* data, int channel, int firstColumn,
                 int columnCount) {
    auto const slots = static_cast<std::int64_t>(properties.dataSlots);
    std::int64_t const total = slots * static_cast<std::int64_t>(properties.channelCount);
    std::int64_t const first = channel * slots + firstColumn;
    std::int64_t const held = std::clamp<std::int64_t>(first, 0, total);
    std::int64_t const heldEnd = std::clamp<std::int64_t>(first + columnCount, 0, total);
    mData = data + held * 2;
    if (held != first || heldEnd != first + columnCount) {
      mCopy.resize(static_cast<std::size_t>(columnCount) * 2, std::numeric_limits<float>::quiet_NaN());
      std::copy(mData, data + heldEnd * 2,
                mCopy.begin() + (heldEnd > held ? (held - first) * 2 : std::int64_t{0}));
      mData = mCopy.data();
    }
  }
  PairsOfColumns(PairsOfColumns const&) = delete;
  PairsOfColumns& operator=(PairsOfColumns const&) = delete;

  float const* Data() const { return mData; }

 private:
  float const* mData;
  std::vector<float> mCopy;
};

}  // namespace

PeakStrip WaveformDraw::MakePeakStrip(bool selected, int channel, float centre, float gain,
                                      float opacity) const {
  return {.centre = centre,
          .zoom = IsChannelEnabled(channel) ? GetZoom() * gain : GetZoom(),
          .opacity = opacity,
          .pixel = ToOpaquePixel(GetWaveformColor(channel, selected)),
          .style = mPeakDataDrawStyle,
          .scaling = mWaveformScalingStyle};
}

void WaveformDraw::DrawPeakColumns(bool selected, int channel, float const* pairs, std::uint8_t* pixels,
                                   RectT<int> const& strip, float centre, float gain, float opacity) const {
  PeakStrip peaks = MakePeakStrip(selected, channel, centre, gain, opacity);
  peaks.pairs = pairs;
  peaks.pixels = reinterpret_cast<std::uint32_t*>(pixels);
  peaks.columns = strip.width;
  peaks.pixelsPerRow = strip.width;
  peaks.top = strip.top;
  peaks.height = strip.height;
  DrawPeakStrip(peaks);
}

void WaveformDraw::PaintPeakPicture(PeakPicture const& picture, WaveformDataProperties const& properties,
                                    float const* data, int firstColumn, bool selected, float gain,
                                    int channelHeight, int stride, float centre) const {
  bool const layered = GetLayeredChannels();
  int const channels = static_cast<int>(properties.channelCount);
  std::uint32_t const background = ToOpaquePixel(GetBackgroundColor());
  std::uint32_t const selectionBackground = ToOpaquePixel(GetSelectionBackgroundColor());
  if (!selected) {
    picture.FillRows(0, picture.height, background);
  } else if (layered || !IsAnyChannelDisabled()) {
    picture.FillRows(0, picture.height, selectionBackground);
  } else {
    for (int channel = 0; channel < channels; ++channel) {
      int const raise = channel > 0 ? (stride - channelHeight) >> 1 : 0;
      int const first = channel * stride - raise;
      // The last block goes on to the picture's end, so that a raised one leaves no row unpainted.
      picture.FillRows(first, channel == channels - 1 ? picture.height : first + stride,
                       IsChannelEnabled(channel) ? selectionBackground : background);
    }
  }

  bool const grid = GetDrawGridLines(channelHeight);
  std::vector<std::int32_t> const& horizontal = GetHorizontalGridlinePositions();
  std::vector<std::int64_t> const gridColumns =
      grid ? FindGridColumns(GetVerticalGridlinePositions(), firstColumn, picture.width)
           : std::vector<std::int64_t>{};
  int const linesPerChannel =
      static_cast<int>(horizontal.size() / std::max<std::size_t>(properties.channelCount, 1));
  float const opacityBase = GetOpacityBase(layered, mLayeredChannelDrawingStyle);
  for (int channel = channels - 1; channel >= 0; --channel) {
    int const firstRow = channel * stride;
    if (grid) {
      std::uint32_t const pixel = ToPixel(GetGridlineColor(selected && IsChannelEnabled(channel)));
      for (int i = 0; i < linesPerChannel; ++i) {
        std::int64_t const y =
            horizontal[static_cast<std::size_t>(std::int64_t{channel} * linesPerChannel + i)];
        picture.FillRows(y < 0 ? picture.height : y, y + 1, pixel);
      }
      int const rowCount = channel == channels - 1 ? channelHeight : stride;
      for (int row = firstRow; row < firstRow + rowCount; ++row) {
        for (std::int64_t const x : gridColumns) {
          picture.Row(row)[x] = pixel;
        }
      }
    }
    if (GetDrawCenterlines() && !layered) {
      std::int64_t const middle = firstRow + channelHeight / 2;
      picture.FillRows(middle, middle + 1, ToPixel(GetCenterlineColor()));
    }
    bool const blend = grid || IsSeeThrough(layered, mLayeredChannelDrawingStyle, channel);
    PairsOfColumns const pairs(properties, data, channel, firstColumn, picture.width);
    float const opacity = blend ? opacityBase : 1.0f;
    if (picture.width == picture.pixelsPerRow) {
      DrawPeakColumns(selected, channel, pairs.Data(), reinterpret_cast<std::uint8_t*>(picture.Row(firstRow)),
                      {firstColumn, 0, picture.width, channelHeight}, centre, gain, opacity);
      continue;
    }
    // Some columns of a wider picture.
    PeakStrip peaks = MakePeakStrip(selected, channel, centre, gain, opacity);
    peaks.pairs = pairs.Data();
    peaks.pixels = picture.Row(firstRow);
    peaks.columns = picture.width;
    peaks.pixelsPerRow = picture.pixelsPerRow;
    peaks.height = channelHeight;
    DrawPeakStrip(peaks);
  }
}

void WaveformDraw::PaintWholePixels(PeakPicture const& picture, WaveformDataProperties const& properties,
                                    float const* data, int firstColumn, bool selected, float gain,
                                    int channelHeight, int stride, float centre) const {
  for (int channel = static_cast<int>(properties.channelCount) - 1; channel >= 0; --channel) {
    PairsOfColumns const pairs(properties, data, channel, firstColumn, picture.width);
    PeakStrip peaks = MakePeakStrip(selected, channel, centre, gain, 1.0f);
    peaks.pairs = pairs.Data();
    peaks.pixels = picture.Row(std::int64_t{channel} * stride);
    peaks.columns = picture.width;
    peaks.pixelsPerRow = picture.pixelsPerRow;
    peaks.height = channelHeight;
    peaks.hasEdges = false;
    DrawPeakStrip(peaks);
  }
}

bool WaveformDraw::DrawWaveformAsPeaks(Scriber* scriber, WaveformDataProperties const& properties,
                                       RectT<int> const& rect, float const* data, int firstColumn,
                                       int columnCount, bool selected, float gain, RectT<int> /*region*/,
                                       int channelHeight, int channelStride, float centre) const {
  bool const layered = GetLayeredChannels();
  int const channels = static_cast<int>(properties.channelCount);
  int const stride = layered ? 0 : channelStride;
  std::int64_t const wantedHeight = (channels - std::int64_t{1}) * stride + channelHeight;
  if (properties.type != WaveformDataType::kPeaks) {
    return true;
  }
  if (properties.dataSlots != static_cast<std::size_t>(rect.width)) {
    return false;
  }
  SurfaceInterface* const surface = scriber->GetSurface();
  int const end = SaturateToInt(std::int64_t{firstColumn} + columnCount);
  int const first = std::clamp(mFirstPainted, firstColumn, end);
  int const width = std::clamp(mEndPainted, first, end) - first;
  if (width < 1) {
    return true;
  }
  bool const hasTarget = mPeakTarget.pixels != nullptr;
  // Surfaces draw no longer image: what can't be drawn isn't painted in vain. A target has no such limit but
  // holds the rectangle's rows only, and strips may exceed them where floats can't tell so many rows apart.
  constexpr int kLongestImageSide = 32767;
  if (hasTarget ? wantedHeight > rect.height
                : width > kLongestImageSide || wantedHeight > kLongestImageSide) {
    return false;
  }
  int const imageHeight = static_cast<int>(wantedHeight);
  bool const atTop = GetVerticalChannelAlignment() == VerticalChannelAlignment::kTop;
  int const top = atTop ? 0 : rect.height - imageHeight;
  int const step = GetColumnsAtATime(imageHeight);
  auto const paintColumns = hasTarget && mPeakTarget.onlyWholePixels ? &WaveformDraw::PaintWholePixels
                                                                     : &WaveformDraw::PaintPeakPicture;
  auto const paint = [&](std::uint32_t* pixels, int pixelsPerRow) {
    for (int x = 0; x < width; x += step) {
      PeakPicture const picture{pixels + x, std::min(step, width - x), imageHeight, pixelsPerRow};
      (this->*paintColumns)(picture, properties, data, first + x, selected, gain, channelHeight, stride,
                            centre);
    }
  };
  if (hasTarget) {
    auto const row = static_cast<std::ptrdiff_t>(top) * mPeakTarget.pixelsPerRow;
    paint(mPeakTarget.pixels + row + first, mPeakTarget.pixelsPerRow);
    return true;
  }
  PixelBuffer buffer(width, imageHeight);
  paint(buffer.Pixels(), width);

  std::uint32_t* const pixels = buffer.Pixels();
  auto deleter = buffer.Release();
  BufferImageP const image = scriber->GetSupplier()->NewImage(
      width, imageHeight, width * 4, static_cast<moxui::scriber::PixelFormat>(GetImageFormat()), pixels,
      std::move(deleter));
  utility::SetBlendModeToCopy(surface, true);
  // The image's place doesn't add the rectangle's own: the first column holds its left already.
  surface->DrawImage(*image, PointT<float>{static_cast<float>(first), static_cast<float>(top)}, 1.0f);
  utility::SetBlendModeToCopy(surface, false);
  return true;
}

}  // namespace moxmediaui
