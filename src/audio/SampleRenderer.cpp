// How WaveformDraw paints samples: a layer per channel with a curve through them, and dots on them.
#include "Interpolation.h"
#include "LayerOpacity.h"
#include "SampleWindow.h"
#include "SaturatingConversion.h"

#include <moxmediaui/WaveformDraw.h>
#include <moxui/scriber/ImageInterface.h>
#include <moxui/scriber/PathInterface.h>
#include <moxui/scriber/PenInterface.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/scriber/SurfaceInterface.h>

#include <algorithm>
#include <cmath>
#include <optional>

namespace moxmediaui {

namespace {

constexpr float kCurveWidth = 2.0f;
constexpr float kUnlayeredOpacity = 0.9f;

/// The size of the dots and the alpha of the curve that goes with it.
struct DotLook {
  float size = 7.0f;
  float half = 3.5f;
  float lineAlpha = 0.8f;
};

DotLook GetDotLook(float pixelsPerSample) {
  constexpr float kFullSizeFrom = 21.0f;  // pixels per sample
  DotLook look;
  if (pixelsPerSample < kFullSizeFrom) {
    look.size = pixelsPerSample / 3.0f;
    look.half = look.size * 0.5f;
    if (look.size < 1.0f) {
      look = {.size = 1.0f, .half = 0.5f, .lineAlpha = 1.0f};
    }
  }
  return look;
}

}  // namespace

CurveScratch::CurveScratch() = default;
CurveScratch::CurveScratch(CurveScratch const& other) : mWorkedOut(other.mWorkedOut) {}
CurveScratch& CurveScratch::operator=(CurveScratch const& other) {
  if (this != &other) {
    mWorkedOut = other.mWorkedOut;
  }
  return *this;
}
CurveScratch::~CurveScratch() = default;

void CurveScratch::Reserve(std::size_t columns) {
  if (columns == 0) {
    mWorkedOut.reset();
  } else if (!mWorkedOut || mWorkedOut.use_count() > 1) {
    // Copies go on with those that they share: another thread may be reading them.
    mWorkedOut = std::make_shared<std::vector<SincWeights>>(columns);
  } else {
    mWorkedOut->resize(columns);
  }
}

void CurveScratch::WorkOut(std::size_t column, float fraction) const {
  if (mWorkedOut && column < mWorkedOut->size() && (*mWorkedOut)[column].fraction != fraction) {
    (*mWorkedOut)[column] = FindSincWeights(fraction);
  }
}

SincWeights const& CurveScratch::WeightsAt(std::size_t point, std::int64_t column, float fraction) {
  if (mWorkedOut && column >= 0 && column < static_cast<std::int64_t>(mWorkedOut->size())) {
    SincWeights const& weights = (*mWorkedOut)[static_cast<std::size_t>(column)];
    if (weights.fraction == fraction) {
      return weights;
    }
  }
  if (point >= mWeights.size()) {
    mWeights.resize(point + 1);
  }
  SincWeights& weights = mWeights[point];
  if (weights.fraction != fraction) {
    weights = FindSincWeights(fraction);
  }
  return weights;
}

double WaveformDraw::GetSnappedViewLeft() const {
  double const samplesPerPixel = GetSamplesPerPixel();
  return static_cast<double>(TruncateToInt64(GetViewLeft() / samplesPerPixel)) * samplesPerPixel;
}

WaveformDraw::CurvePlace WaveformDraw::FindCurvePlace(float column, double left) const {
  double const position = static_cast<double>(column) * GetSamplesPerPixel() + left;
  double const floor = std::floor(position);
  return {floor, static_cast<float>(position - floor)};
}

void WaveformDraw::WorkOutCurve(int first, int end) const {
  double const left = GetSnappedViewLeft();
  for (int column = std::max(first, 0); column < end; ++column) {
    mCurveScratch.WorkOut(static_cast<std::size_t>(column),
                          FindCurvePlace(static_cast<float>(column), left).fraction);
  }
}

bool WaveformDraw::DrawWaveformAsSamples(Scriber* scriber, WaveformDataProperties const& properties,
                                         RectT<int> const& rect, float const* data, int firstColumn,
                                         int columnCount, bool selected, float gain, RectT<int> region,
                                         int channelHeight, int channelStride, float centre) const {
  if (properties.type != WaveformDataType::kSamples) {
    return true;
  }
  if (properties.dataSlots <= GetOversampleSize()) {
    return true;  // nothing but padding
  }
  auto const pixelsPerSample = static_cast<float>(1.0 / GetSamplesPerPixel());
  bool const layered = GetLayeredChannels();
  SurfaceInterface& surface = *scriber->GetSurface();
  auto const width = static_cast<float>(columnCount);
  auto const height = static_cast<float>(channelHeight);
  int const end = std::min(static_cast<int>(properties.channelCount), mEndPaintedChannel);
  for (int channel = end - 1; channel >= std::max(mFirstPaintedChannel, 0); --channel) {
    SurfaceP const layer = surface.NewOffscreenSurface(columnCount, channelHeight);
    DrawSamples(scriber, selected, channel, data + static_cast<std::size_t>(channel) * properties.dataSlots,
                static_cast<unsigned int>(properties.dataSlots), pixelsPerSample, *layer, rect, region,
                centre, gain);
    ImageP const image = layer->GetImage();
    RectT<int> const strip = GetChannelRect(channel, layered, rect.width, channelHeight, channelStride);
    bool const blend = IsSeeThrough(layered, mLayeredChannelDrawingStyle, channel);
    surface.DrawImage(*image, RectT<float>{0.0f, 0.0f, width, height},
                      RectT<float>{static_cast<float>(std::int64_t{rect.left} + firstColumn),
                                   static_cast<float>(std::int64_t{rect.top} + strip.top), width, height},
                      blend ? GetOpacityBase(layered, mLayeredChannelDrawingStyle) : kUnlayeredOpacity);
  }
  return true;
}

void WaveformDraw::DrawSamples(Scriber* scriber, bool selected, int channel, float const* samples,
                               unsigned int count, float pixelsPerSample, SurfaceInterface& layer,
                               RectT<int> const& /*rect*/, RectT<int> const& region, float centre,
                               float gain) const {
  float const zoom = IsChannelEnabled(channel) ? GetZoom() * gain : GetZoom();
  ColorRGBA const colour = GetWaveformColor(channel, selected);
  layer.SetSmoothing(moxui::scriber::Smoothing::kAntiAliased);
  DotLook const look = GetDotLook(pixelsPerSample);
  double const left = GetSnappedViewLeft();
  auto const regionLeft = static_cast<float>(region.left);
  auto const regionTop = static_cast<float>(region.top);

  if (mDrawSampleDots) {
    auto const regionRight = static_cast<float>(region.left + region.width);
    auto const regionHeight = static_cast<float>(region.height);
    std::int64_t position = TruncateToInt64(std::floor(left) - 1.0);
    for (unsigned int i = 0; i <= count - kPaddingSamples; ++i) {
      float const value = ScaledValue(samples[kFirstVisibleSample + i], mWaveformScalingStyle);
      float const x =
          static_cast<float>(static_cast<double>(position) - GetViewLeft() + 0.5) * pixelsPerSample -
          look.half;
      float const y = centre - value * centre * zoom - look.half;
      if (y + look.size > 0.0f && y < regionHeight && x + look.size > regionLeft && x < regionRight) {
        layer.FillRect({x - regionLeft, y - regionTop, look.size, look.size}, colour);
      }
      position = SaturatingSum(position, 1);
    }
  }

  PenP const pen = scriber->GetSupplier()->NewPen(colour.WithAlpha(look.lineAlpha), kCurveWidth);
  PathP const path = scriber->GetSupplier()->NewPath();
  std::int64_t const firstSample = TruncateToInt64(std::floor(left));
  std::optional<std::int64_t> remembered;  // nothing: no window has been filled for this curve
  for (int i = 0; i <= region.width; ++i) {
    auto const x = static_cast<float>(region.left + i);
    CurvePlace const place = FindCurvePlace(x, left);
    std::int64_t const start = SaturatingDifference(TruncateToInt64(place.floor), firstSample);
    if (start != remembered) {
      CopySampleWindow(samples, count, start, mOversampleBuffer);
      // The window's end, not its start, is what is remembered: the window is filled anew for every point,
      // except when it has moved on by exactly its own length.
      remembered = SaturatingSum(start, kInterpolationTaps);
    }
    SincWeights const& weights =
        mCurveScratch.WeightsAt(static_cast<std::size_t>(i), std::int64_t{region.left} + i, place.fraction);
    float const interpolated = InterpolateWithSinc(weights, mOversampleBuffer.data());
    float const value = ScaledValue(interpolated, mWaveformScalingStyle);
    PointT<float> const point{x - regionLeft, centre - value * centre * zoom - regionTop};
    if (i == 0) {
      path->MoveTo(point);
    } else {
      path->LineTo(point);
    }
  }
  layer.StrokePath(*path, *pen);
}

}  // namespace moxmediaui
