// The chrome of AudioDataDrawBase: what lies under a waveform and between its channels.

#include <moxmediaui/AudioDataDrawBase.h>
#include <moxui/scriber/PathInterface.h>
#include <moxui/scriber/PenInterface.h>
#include <moxui/scriber/SavedState.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/scriber/SurfaceInterface.h>

#include <algorithm>

namespace moxmediaui {

namespace {

using moxui::scriber::FillRule;
using moxui::scriber::PathInterface;
using moxui::scriber::Smoothing;

constexpr float kLineWidth = 1.0f;

void AddLine(PathInterface& path, float x1, float y1, float x2, float y2) {
  path.MoveTo({x1, y1});
  path.LineTo({x2, y2});
}

float ToFloat(std::int64_t value) {
  return static_cast<float>(value);
}

}  // namespace

void AudioDataDrawBase::DrawBackground(Scriber* scriber, RectT<int> const& rect, RectT<int> const& clip,
                                       bool selected, unsigned int channelCount, int channelHeight,
                                       int channelStride, float centre, float scale) const {
  SurfaceInterface& surface = *scriber->GetSurface();
  moxui::scriber::SavedState const state(surface);
  PathP const clipPath = scriber->GetSupplier()->NewPath();
  clipPath->AddRect(RectT<float>(clip));
  surface.ClipToPath(*clipPath, FillRule::kWinding);
  surface.FillRect(RectT<float>(rect), selected ? mSelectionBackgroundColor : mBackgroundColor);
  DrawGridLines(scriber, rect, GetGridlineColor(selected), channelHeight, scale);
  if (mDrawCenterlines) {
    DrawCenterLines(scriber, rect, selected, channelCount, channelHeight, channelStride, centre, scale);
  }
}

void AudioDataDrawBase::DrawGridLines(Scriber* scriber, RectT<int> const& rect, ColorRGBA const& colour,
                                      int channelHeight, float /*scale*/) const {
  if (!GetDrawGridLines(channelHeight)) {
    return;
  }
  SurfaceInterface& surface = *scriber->GetSurface();
  moxui::scriber::SavedState const state(surface);
  surface.SetSmoothing(Smoothing::kOff);
  PenP const pen = scriber->GetSupplier()->NewPen(colour, kLineWidth);
  PathP const path = scriber->GetSupplier()->NewPath();
  std::int64_t const left = rect.left;
  std::int64_t const top = rect.top;
  for (std::int32_t const position : mHorizontalGridlinePositions) {
    if (position >= 0 && position < rect.height) {
      float const y = ToFloat(top + position) + 0.5f;
      AddLine(*path, ToFloat(left), y, ToFloat(left + rect.width), y);
    }
  }
  for (std::int32_t const position : mVerticalGridlinePositions) {
    if (position >= 0 && position < rect.width) {
      float const x = ToFloat(left + position) + 0.5f;
      AddLine(*path, x, ToFloat(top - 1), x, ToFloat(top - 1 + rect.height + 2));
    }
  }
  surface.StrokePath(*path, *pen);
}

// Centre lines keep their colour inside a selection, unlike grid lines, and their height doesn't follow the
// rectangle's top.
void AudioDataDrawBase::DrawCenterLines(Scriber* scriber, RectT<int> const& rect, bool /*selected*/,
                                        unsigned int channelCount, int /*channelHeight*/, int channelStride,
                                        float centre, float /*scale*/) const {
  if (!mDrawCenterlines) {
    return;
  }
  PenP const pen = scriber->GetSupplier()->NewPen(mCenterlineColor, kLineWidth);
  PathP const path = scriber->GetSupplier()->NewPath();
  std::int64_t const left = std::int64_t{std::max(rect.left, 0)} - 1;
  std::int64_t const right = left + rect.width + 2;
  unsigned int const lineCount = mLayeredChannels ? 1u : channelCount;
  for (unsigned int channel = 0; channel < lineCount; ++channel) {
    float const y = ToFloat(mLayeredChannels ? 0 : std::int64_t{channel} * channelStride) + centre;
    AddLine(*path, ToFloat(left), y, ToFloat(right), y);
  }
  scriber->GetSurface()->StrokePath(*path, *pen);
}

void AudioDataDrawBase::DrawDividerLines(Scriber* scriber, RectT<int> const& rect, bool layered,
                                         int channelCount, int firstDivider, int channelStride,
                                         float /*scale*/) const {
  if (!mDrawDividers || channelCount <= 1) {
    return;
  }
  SurfaceInterface& surface = *scriber->GetSurface();
  moxui::scriber::SavedState const state(surface);
  surface.SetSmoothing(Smoothing::kOff);
  PenP const pen = scriber->GetSupplier()->NewPen(mDividerColor, kLineWidth);
  PathP const path = scriber->GetSupplier()->NewPath();
  std::int64_t divider = firstDivider;
  for (int gap = 0; gap < channelCount - 1; ++gap) {
    float const y = ToFloat(rect.top + divider + 1);
    // The right end is the width by itself, wherever the rectangle begins.
    AddLine(*path, ToFloat(rect.left), y, ToFloat(rect.width), y);
    divider += layered ? 0 : channelStride;
  }
  surface.StrokePath(*path, *pen);
}

}  // namespace moxmediaui
