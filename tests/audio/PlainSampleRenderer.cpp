#include "PlainSampleRenderer.h"

#include <algorithm>
#include <cmath>

namespace audio_tests {

namespace {

using moxmediaui::ColorRGBA;
using moxmediaui::LayeredChannelDrawingStyle;
using moxmediaui::WaveformScalingStyle;
using moxui::testing::RecordedCall;
using Kind = moxui::testing::RecordedSegment::Kind;

float Scaled(OpenWaveformDraw const& draw, float v) {
  if (draw.GetWaveformScalingStyle() != WaveformScalingStyle::kSquareRoot) {
    return v;
  }
  return v >= 0 ? std::sqrt(v) : -std::sqrt(-v);
}

void AddChannel(OpenWaveformDraw const& draw, std::vector<float> const& samples, int channel,
                SampleRegion const& region, int channelHeight, float centre, int layer,
                std::vector<RecordedCall>& calls) {
  auto const count = static_cast<int>(samples.size());
  float const zoom = draw.IsChannelEnabled(channel) ? draw.GetZoom() * region.gain : draw.GetZoom();
  ColorRGBA const colour = draw.GetWaveformColor(channel, region.selected);
  calls.push_back({.operation = "SetSmoothing", .surface = layer, .mode = 1});
  double const spp = draw.GetSamplesPerPixel();
  float const pixelsPerSample = static_cast<float>(1.0 / spp);
  float size = 7.0f, half = 3.5f, lineAlpha = 0.8f;
  if (pixelsPerSample < 21.0f) {
    size = pixelsPerSample / 3;
    half = size * 0.5f;
    if (size < 1.0f) {
      size = 1.0f;
      half = 0.5f;
      lineAlpha = 1.0f;
    }
  }
  double const left = static_cast<double>(static_cast<std::int64_t>(draw.GetViewLeft() / spp)) * spp;
  float const regionLeft = static_cast<float>(region.left);
  if (draw.GetDrawSampleDots()) {
    auto position = static_cast<std::int64_t>(std::floor(left) - 1.0);
    for (int i = 0; i <= count - 43; ++i) {
      float const v = Scaled(draw, samples.at(static_cast<std::size_t>(21 + i)));
      float const x =
          static_cast<float>(static_cast<double>(position) - draw.GetViewLeft() + 0.5) * pixelsPerSample -
          half;
      float const y = centre - v * centre * zoom - half;
      if (y + size > 0 && y < static_cast<float>(channelHeight) && x + size > regionLeft &&
          x < static_cast<float>(region.left + region.width)) {
        calls.push_back({.operation = "FillRect",
                         .surface = layer,
                         .rect = {x - regionLeft, y - 0.0f, size, size},
                         .colour = colour});
      }
      ++position;
    }
  }
  calls.push_back({.operation = "NewPen", .colour = colour.WithAlpha(lineAlpha), .number = 2.0f});
  calls.push_back({.operation = "NewPath"});
  RecordedCall stroke{
      .operation = "StrokePath", .surface = layer, .colour = colour.WithAlpha(lineAlpha), .number = 2.0f};
  auto const base0 = static_cast<std::int64_t>(std::floor(left));
  std::int64_t remembered = -1;
  std::vector<float> window(44, 0.0f);
  for (int i = 0; i <= region.width; ++i) {
    int const px = region.left + i;
    double const p = static_cast<double>(static_cast<float>(px)) * spp + left;
    double const fl = std::floor(p);
    std::int64_t const b = static_cast<std::int64_t>(fl) - base0;
    if (b != remembered) {
      for (int tap = 0; tap < 44; ++tap) {
        std::int64_t const index = b + tap;
        window[static_cast<std::size_t>(tap)] =
            index >= count ? samples.back() : samples.at(static_cast<std::size_t>(index));
      }
      remembered = b + 44;
    }
    float const v = Scaled(draw, InterpolatePlainly(window, static_cast<float>(p - fl)));
    stroke.path.push_back({i == 0 ? Kind::kMoveTo : Kind::kLineTo,
                           {{static_cast<float>(px) - regionLeft, centre - v * centre * zoom - 0.0f}},
                           {}});
  }
  calls.push_back(std::move(stroke));
}

}  // namespace

float InterpolatePlainly(std::vector<float> const& taps, float f) {
  float const pi = 3.1415927f;
  auto const half = static_cast<float>((taps.size() - 1) / 2);
  float const step = pi / half;
  float sincArgument = (-f - 0.5f - half) * pi;
  float windowArgument = (2 * half + f) * step;
  float minimum = 1e7f, maximum = -1e7f, sum = 0.0f, weightSum = 0.0f;
  for (float const v : taps) {
    float sinc = 1.0f;
    if (sincArgument != 0.0f) {
      sinc = sinf(sincArgument) / sincArgument;
    }
    sincArgument += pi;
    float const w = 0.5f - cosf(windowArgument) * 0.5f;
    windowArgument -= step;
    float const c = w * sinc;
    sum += v * c;
    weightSum -= c;
    minimum = std::min(minimum, v);
    maximum = std::max(maximum, v);
  }
  float const middle = (maximum + minimum) * 0.5f;
  return middle * weightSum + sum + middle;
}

std::vector<RecordedCall> DrawSamplesPlainly(OpenWaveformDraw const& draw,
                                             LayeredChannelDrawingStyle layeredStyle,
                                             std::vector<std::vector<float>> const& channels,
                                             SampleRegion const& region, int firstLayer) {
  std::vector<RecordedCall> calls;
  int const count = static_cast<int>(channels.size());
  int h = 0, stride = 0;
  int const unscaled = static_cast<int>(static_cast<float>(region.rect.height) / region.scale);
  if (!draw.GetChannelOffsets(unscaled, count, h, stride) || channels[0].size() <= 44) {
    return calls;
  }
  h = static_cast<int>(static_cast<float>(h) * region.scale);
  stride = static_cast<int>(static_cast<float>(stride) * region.scale);
  float const centre = static_cast<float>(h / 2) + 0.5f;
  bool const layered = draw.GetLayeredChannels();
  bool const firstStrong = layeredStyle == LayeredChannelDrawingStyle::kFirstStrong;
  float const base = layered ? (firstStrong ? 0.6f : 0.7f) : 0.9f;
  auto const width = static_cast<float>(region.width);
  auto const height = static_cast<float>(h);
  int layer = firstLayer;
  for (int channel = count - 1; channel >= 0; --channel, ++layer) {
    calls.push_back({.operation = "NewOffscreenSurface", .surface = 0, .rect = {0, 0, width, height}});
    AddChannel(draw, channels[static_cast<std::size_t>(channel)], channel, region, h, centre, layer, calls);
    calls.push_back({.operation = "GetImage", .surface = layer});
    bool const blend = layered && (!firstStrong || channel != 0);
    int const top = layered ? 0 : channel * stride;
    calls.push_back({.operation = "DrawImage",
                     .surface = 0,
                     .rect = {static_cast<float>(region.rect.left + region.left),
                              static_cast<float>(region.rect.top + top), width, height},
                     .source = {0, 0, width, height},
                     .number = blend ? base : 0.9f,
                     .image = {.width = region.width, .height = h, .surface = layer}});
  }
  return calls;
}

}  // namespace audio_tests
