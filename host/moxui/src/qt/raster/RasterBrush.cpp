#include "qt/raster/RasterBrush.h"

#include "qt/raster/FiniteValues.h"
#include "qt/raster/Pixels.h"

#include <algorithm>
#include <cmath>

namespace moxui::qt {

namespace {

constexpr int kFewestSteps = 256;
constexpr int kMostSteps = 4096;

// An ordered pattern of thresholds from 0 to 255 in steps of 16.
constexpr std::uint16_t kThresholds[4][4] = {
    {8, 136, 40, 168}, {200, 72, 232, 104}, {56, 184, 24, 152}, {248, 120, 216, 88}};

float Component(float value) {
  return std::isnan(value) ? 0.0f : std::clamp(value, 0.0f, 1.0f);
}

std::array<float, 4> Premultiplied(ColorRGBA const& colour) {
  float const alpha = Component(colour.alpha);
  return {Component(colour.blue) * alpha, Component(colour.green) * alpha, Component(colour.red) * alpha,
          alpha};
}

}  // namespace

RasterBrush::RasterBrush(ColorRGBA const& colour) : mPixel(PremultipliedPixel(colour)) {}

RasterBrush::RasterBrush(Kind kind, PointT<float> from, PointT<float> to, std::span<ColorRGBA const> colours,
                         std::span<float const> stops)
    : mKind(kind), mFrom(Finite(from)), mTo(Finite(to)), mPixel(PremultipliedPixel(colours.back())) {
  if (mFrom == mTo) {
    mKind = Kind::kSolid;
    return;
  }
  mStops.reserve(stops.size());
  for (std::size_t i = 0; i < stops.size(); ++i) {
    mStops.push_back({stops[i], Premultiplied(colours[i])});
  }
}

std::array<float, 4> RasterBrush::ColourAt(float t) const {
  auto const beyond =
      std::find_if(mStops.begin(), mStops.end(), [&](Stop const& stop) { return stop.at > t; });
  if (beyond == mStops.begin()) {
    return mStops.front().colour;
  }
  if (beyond == mStops.end()) {
    return mStops.back().colour;
  }
  Stop const& before = *(beyond - 1);
  float const share = (t - before.at) / (beyond->at - before.at);
  std::array<float, 4> colour;
  for (std::size_t c = 0; c < 4; ++c) {
    colour[c] = before.colour[c] + share * (beyond->colour[c] - before.colour[c]);
  }
  return colour;
}

void RasterBrush::MakeTable(int steps, bool wide) const {
  auto const count = static_cast<std::size_t>(steps);
  if ((wide ? mWideTable.size() : mTable.size()) == count) {
    return;
  }
  (wide ? void(mWideTable.resize(count)) : mTable.resize(count));
  for (std::size_t i = 0; i < count; ++i) {
    std::array<float, 4> const colour = ColourAt((static_cast<float>(i) + 0.5f) / static_cast<float>(steps));
    if (wide) {
      for (std::size_t c = 0; c < 4; ++c) {
        mWideTable[i][c] = static_cast<std::uint16_t>(colour[c] * 65280.0f + 0.5f);
      }
    } else {
      std::uint32_t pixel = 0;
      for (std::size_t c = 0; c < 4; ++c) {
        pixel |= static_cast<std::uint32_t>(static_cast<int>(colour[c] * 255.0f + 0.5f)) << (8 * c);
      }
      mTable[i] = pixel;
    }
  }
}

void RasterBrush::Shade(DeviceTransform const& transform, bool dithered, int x, int y, int count,
                        std::uint32_t* out) const {
  PointT<double> const from = transform.Apply(mFrom);
  PointT<double> const to = transform.Apply(mTo);
  auto const wayX = static_cast<float>(to.x - from.x);
  auto const wayY = static_cast<float>(to.y - from.y);
  float const square = wayX * wayX + wayY * wayY;
  auto const atX = static_cast<float>(x + 0.5 - from.x);
  auto const atY = static_cast<float>(y + 0.5 - from.y);
  // Eight colours for each pixel that the shader is long, so that none shows.
  int steps = kFewestSteps;
  while (steps < kMostSteps && static_cast<float>(steps * steps) < 64.0f * square) {
    steps *= 2;
  }
  MakeTable(steps, dithered);
  auto const last = static_cast<float>(steps);
  bool const linear = mKind == Kind::kLinear;
  float const linearStep = square > 0 ? wayX / square : 0.0f;
  float const linearBegin = square > 0 ? (atX * wayX + atY * wayY) / square : 1.0f;
  float const radiusShare = square > 0 ? 1.0f / std::sqrt(square) : 0.0f;
  if (linear && linearStep == 0 && !dithered) {
    std::fill_n(out, count,
                mTable[static_cast<std::size_t>(std::clamp(linearBegin * last, 0.0f, last - 1.0f))]);
    return;
  }
  for (int i = 0; i < count; ++i) {
    auto const offset = static_cast<float>(i);
    float const dx = atX + offset;
    float const t = linear ? linearBegin + linearStep * offset : std::sqrt(dx * dx + atY * atY) * radiusShare;
    auto const step = static_cast<std::size_t>(std::clamp(t * last, 0.0f, last - 1.0f));
    if (!dithered) {
      out[i] = mTable[step];
      continue;
    }
    Wide const& wide = mWideTable[step];
    std::uint16_t const threshold = kThresholds[y & 3][(x + i) & 3];
    // Alpha takes the same threshold as the colours, so that no colour gets beyond it.
    std::uint32_t pixel = 0;
    for (std::size_t c = 0; c < 4; ++c) {
      pixel |= static_cast<std::uint32_t>((wide[c] + threshold) >> 8) << (8 * c);
    }
    out[i] = pixel;
  }
}

}  // namespace moxui::qt
